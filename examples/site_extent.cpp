// The points measured on a site: in which rectangle do they lie, what is its area, does a planned building fit in, and
// where is the middle of the points?

#include <alidade/points.h>

#include <cstdio>

using Point = TAbstractPoint2<double>;  // x east, y north, metres
using Box = TAbstractRect<double>;      // of which "top" is the southern edge, since north counts upwards

int main() {
  const Point measured[] = {Point(468118.655, 5321931.420), Point(468211.902, 5321808.113),
                            Point(468177.340, 5321742.587), Point(468052.118, 5321786.004)};
  Point sum(0.0);
  Point south_west(measured[0]), north_east(measured[0]);
  for (const Point& p : measured) {
    sum += Point(p - measured[0]);  // differences are small: the sum loses nothing
    south_west = south_west.minimum(p);
    north_east = north_east.maximum(p);
  }
  const Point middle(measured[0] + sum / 4.0);
  std::printf("middle of the points: east %.3f  north %.3f\n", middle.x(), middle.y());

  const Box site(south_west, north_east);
  std::printf("site: %.3f m by %.3f m, %.1f m2\n", site.Width(), site.Height(), site.Area());

  Box building(Point(468100.0, 5321780.0), TAbstractSize2<double>(42.0, 18.5));
  std::printf("building: %s\n", site.Contains(building) ? "fits" : "reaches beyond the site");
  building.Offset(90.0, 0.0);
  std::printf("90 m farther east: %s\n", site.Contains(building) ? "fits" : "reaches beyond the site");
  Box common(building);
  common &= site;
  std::printf("of its %.1f m2 %.1f m2 lie within\n", building.Area(), common.Area());

  const Box sheet = site.InflatedBy(10.0, 10.0);  // a border on all sides
  std::printf("map sheet: east %.1f to %.1f, north %.1f to %.1f\n", sheet.left(), sheet.right(), sheet.top(),
              sheet.bottom());
  return 0;
}
