// A base station given by latitude, longitude and height; a rover given by its geocentric position, as a receiver
// reports it. Where is the rover, seen from the base, and what are its own latitude and longitude?

#include <alidade/coords.h>

#include <cstdio>

namespace {

void print_angle(const char* label, double degrees) {
  int d = 0;
  int m = 0;
  double s = 0.0;
  deg_to_dms(degrees, &d, &m, &s);
  std::printf("%-10s %4d deg %02d min %08.5f s\n", label, d, m, s);
}

}  // namespace

int main() {
  GeoCoord base_geodetic;  // a fresh record holds nothing: fill all three fields
  base_geodetic.b = dms_to_deg(59, 26, 44.54916);
  base_geodetic.l = dms_to_deg(208, 17, 35.85739);
  base_geodetic.h = 20.427;  // metres above the ellipsoid
  base_geodetic.deg2rad();
  Coord base;
  base.blh2xyz(base_geodetic);
  std::printf("base X Y Z  %.4f  %.4f  %.4f m\n", base.x, base.y, base.z);

  const Coord rover(-2861845.116, -1541212.387, 5469368.904);  // metres
  Coord neu;
  PolCoord polar;
  base.relatCoord(rover, neu, polar);
  polar.rad2deg();
  std::printf("rover from base: north %.4f  east %.4f  up %.4f m\n", neu.x, neu.y, neu.z);
  std::printf("azimuth %.5f deg  elevation %.5f deg  distance %.4f m\n", polar.azimuth, polar.elevation,
              polar.distance);

  GeoCoord rover_geodetic(rover);  // converts: radians and metres
  rover_geodetic.rad2deg();
  print_angle("latitude", rover_geodetic.b);
  print_angle("longitude", rover_geodetic.l);
  std::printf("%-10s %.4f m\n", "height", rover_geodetic.h);

  Coord staked;
  staked.offsetCoord(base, Coord(100.0, 50.0, 0.0));  // 100 m north and 50 m east of the base, in its horizon
  std::printf("stake out at X Y Z  %.4f  %.4f  %.4f m\n", staked.x, staked.y, staked.z);
  return 0;
}
