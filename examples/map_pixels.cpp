// A map on a screen of 800 x 600 pixels: where does a point appear, and which ground does a rectangle of pixels show?
// CPoint and CRect are the host framework's integer types, or stand-ins with the same fields where there is none.

#include <alidade/host.h>
#include <alidade/points.h>

#include <cmath>
#include <cstdio>

using Point = TAbstractPoint2<double>;

namespace {

const Point kCorner(468000.0, 5321950.0);  // east and north of the screen's upper left corner
constexpr double kMetresPerPixel = 0.5;

// A pixel holds the ground from its left upper edge on. Doubles become ints by truncation towards zero, so the floor is
// taken first, or the pixels beside the screen would be one too large.
CPoint to_screen(const Point& ground) {
  const Point offset((ground.x() - kCorner.x()) / kMetresPerPixel, (kCorner.y() - ground.y()) / kMetresPerPixel);
  return Point(offset.f(std::floor));
}

Point to_ground(const CPoint& pixel) {
  const Point p(pixel);  // ints become doubles exactly
  return Point(kCorner.x() + p.x() * kMetresPerPixel, kCorner.y() - p.y() * kMetresPerPixel);
}

}  // namespace

int main() {
  const Point measured[] = {Point(468118.655, 5321931.420), Point(467999.9, 5321950.1)};
  for (const Point& ground : measured) {
    const CPoint pixel = to_screen(ground);
    std::printf("east %.3f north %.3f: pixel %d, %d\n", ground.x(), ground.y(), pixel.x, pixel.y);
  }
  const CRect window = TAbstractRect<double>(200.0, 150.0, 400.0, 300.0);
  const Point upper_left = to_ground(CPoint(window.left, window.top));
  const Point lower_right = to_ground(CPoint(window.right, window.bottom));
  std::printf("window: east %.1f to %.1f, north %.1f to %.1f\n", upper_left.x(), lower_right.x(), lower_right.y(),
              upper_left.y());
  return 0;
}
