// Geodetic, geocentric and local coordinates beside GeographicLib and PROJ. Points between 10 km below and above the
// ground, all over the Earth.

#include <alidade/coords.h>
#include <proj.h>

#include <GeographicLib/Geocentric.hpp>
#include <GeographicLib/LocalCartesian.hpp>
#include <cmath>
#include <cstdio>
#include <cstdlib>

#include "harness.h"
#include "works.h"

namespace benchmarks {
namespace {

constexpr std::size_t kCount = 256;
constexpr double kDegree = 0.017453292519943295;

struct Points {
  std::vector<GeoCoord> geodetic;
  std::vector<Coord> geocentric;
  std::vector<Coord> targets;  // up to 20 km off
  std::vector<GeoCoord> geodetic_targets;
};

Points points() {
  const std::vector<double> values = random_values(6 * kCount);
  Points all;
  for (std::size_t i = 0; i < kCount; ++i) {
    GeoCoord g;
    g.b = std::asin(values[6 * i]);
    g.l = 3.141592653589793 * (values[6 * i + 1] + 1.0);
    g.h = 1e4 * values[6 * i + 2];
    Coord c;
    c.blh2xyz(g);
    const Coord target = c + Coord(values[6 * i + 3], values[6 * i + 4], values[6 * i + 5]) * 1e4;
    all.geodetic.push_back(g);
    all.geocentric.push_back(c);
    all.targets.push_back(target);
    all.geodetic_targets.emplace_back(target);
  }
  return all;
}

template <typename Function>
Variant for_all(const char* name, Function function) {
  return {name, 0.0, [=] {
            for (std::size_t i = 0; i < kCount; ++i) {
              function(i);
            }
          }};
}

void require_near(double x, double y, double bound) {
  if (!(std::fabs(x - y) <= bound)) {
    std::fprintf(stderr, "a peer has another coordinate: %.17g, %.17g\n", x, y);
    std::exit(1);
  }
}

PJ* transformation(const char* definition) {
  PJ* made = proj_create(PJ_DEFAULT_CTX, definition);
  if (made == nullptr) {
    std::fprintf(stderr, "PROJ does not know %s\n", definition);
    std::exit(1);
  }
  return made;
}

}  // namespace

void measure_conversions() {
  const Points all = points();
  const double e2 = DefaultEllipsoid.e2;
  const double flattening = e2 / (1.0 + std::sqrt(1.0 - e2));
  const GeographicLib::Geocentric earth(DefaultEllipsoid.a, flattening);
  char definition[200];
  std::snprintf(definition, sizeof definition, "+proj=cart +a=%.17g +f=%.17g", DefaultEllipsoid.a, flattening);
  PJ* cart = transformation(definition);
  Coord c;
  GeoCoord g;
  double x = 0.0, y = 0.0, z = 0.0, lat = 0.0, lon = 0.0, h = 0.0;
  PJ_COORD p = proj_coord(0, 0, 0, 0);

  const auto ours_forward = [&](std::size_t i) {
    c.blh2xyz(all.geodetic[i]);
    keep(&c);
  };
  const auto geographiclib_forward = [&](std::size_t i) {
    earth.Forward(all.geodetic[i].b / kDegree, all.geodetic[i].l / kDegree, all.geodetic[i].h, x, y, z);
    keep(&x);
  };
  const auto proj_forward = [&](std::size_t i) {
    p = proj_trans(cart, PJ_FWD, proj_coord(all.geodetic[i].l, all.geodetic[i].b, all.geodetic[i].h, 0));
    keep(&p);
  };
  const auto ours_reverse = [&](std::size_t i) {
    g.xyz2blh(all.geocentric[i]);
    keep(&g);
  };
  const auto geographiclib_reverse = [&](std::size_t i) {
    earth.Reverse(all.geocentric[i].x, all.geocentric[i].y, all.geocentric[i].z, lat, lon, h);
    keep(&lat);
  };
  const auto proj_reverse = [&](std::size_t i) {
    p = proj_trans(cart, PJ_INV, proj_coord(all.geocentric[i].x, all.geocentric[i].y, all.geocentric[i].z, 0));
    keep(&p);
  };
  Coord neu;
  PolCoord polar;
  const auto ours_local = [&](std::size_t i) {
    all.geocentric[i].relatCoord(all.targets[i], neu, polar);
    keep(&neu);
  };
  // The frame of the station from its geocentric position, the target through its geodetic one, then the polar form.
  double bearing = 0.0, elevation = 0.0, distance = 0.0;
  const auto geographiclib_local = [&](std::size_t i) {
    earth.Reverse(all.geocentric[i].x, all.geocentric[i].y, all.geocentric[i].z, lat, lon, h);
    const GeographicLib::LocalCartesian frame(lat, lon, h, earth);
    const GeoCoord& target = all.geodetic_targets[i];
    frame.Forward(target.b / kDegree, target.l / kDegree, target.h, x, y, z);
    bearing = std::atan2(x, y);
    elevation = std::atan2(z, std::hypot(x, y));
    distance = std::sqrt(x * x + y * y + z * z);
    keep(&x);
  };
  for (std::size_t i = 0; i < kCount; ++i) {
    ours_forward(i);
    geographiclib_forward(i);
    proj_forward(i);
    require_near(c.x, x, 1e-7);
    require_near(c.z, z, 1e-7);
    require_near(c.y, p.xyz.y, 1e-7);
    ours_reverse(i);
    geographiclib_reverse(i);
    proj_reverse(i);
    require_near(g.b, lat * kDegree, 1e-12);
    require_near(g.b, p.lpz.phi, 1e-9);  // PROJ stops after one step of Bowring's
    ours_local(i);
    geographiclib_local(i);
    require_near(neu.x, y, 1e-5);
    require_near(neu.z, z, 1e-5);
  }
  measure("conversions, 256 points", "`blh2xyz`",
          {for_all("alidade", ours_forward), for_all("GeographicLib", geographiclib_forward),
           for_all("PROJ", proj_forward)});
  measure("conversions, 256 points", "`xyz2blh`",
          {for_all("alidade", ours_reverse), for_all("GeographicLib", geographiclib_reverse),
           for_all("PROJ", proj_reverse)});

  // PROJ's frame belongs to one station, prepared beforehand: only the rotation is measured, without the polar form.
  std::snprintf(definition, sizeof definition, "+proj=topocentric +a=%.17g +f=%.17g +X_0=%.17g +Y_0=%.17g +Z_0=%.17g",
                DefaultEllipsoid.a, flattening, all.geocentric[0].x, all.geocentric[0].y, all.geocentric[0].z);
  PJ* topocentric = transformation(definition);
  const auto proj_local = [&](std::size_t i) {
    p = proj_trans(topocentric, PJ_FWD, proj_coord(all.targets[i].x, all.targets[i].y, all.targets[i].z, 0));
    keep(&p);
  };
  ours_local(0);
  proj_local(0);
  require_near(neu.x, p.xyz.y, 1e-4);
  measure("conversions, 256 points", "`relatCoord`",
          {for_all("alidade", ours_local), for_all("GeographicLib", geographiclib_local),
           for_all("PROJ, one station", proj_local)});
  measure("conversions, 256 points", "`offsetCoord`", {for_all("alidade", [&](std::size_t i) {
            c.offsetCoord(all.geocentric[i], neu);
            keep(&c);
          })});
  proj_destroy(topocentric);
  proj_destroy(cart);
}

}  // namespace benchmarks
