#include "golden/generate/requests/awkward.h"

#include <cmath>
#include <cstring>

#include "support/coords_inputs.h"
#include "support/covariances.h"
#include "support/plane_inputs.h"

namespace generate {
namespace {

using golden::Tokens;

constexpr int kCases = 1500;

// The golden files have none of these.
int cases_of(std::uint64_t round) { return round == 0 ? 0 : kCases; }

Tokens numbers(const inputs::Vector& v) { return Tokens().numbers(v.data(), 3); }
Tokens numbers(PlaneInputs::Point p) { return Tokens().number(p.x).number(p.y); }
Tokens numbers(PlaneInputs::Line l) { return Tokens().number(l.a).number(l.b).number(l.c); }

}  // namespace

void add_awkward_conversions(Requests& r, std::uint64_t round) {
  inputs::Source source(r.word());
  for (int i = 0; i < cases_of(round); ++i) {
    const inputs::Vector wild = {source.nasty(), source.nasty(), source.nasty()};
    const inputs::Vector near = {source.uniform(-1.6, 1.6), source.uniform(0.0, 6.3),
                                 source.signed_magnitude(-3.0, 8.0)};
    r.add('B', "Coord::blh2xyz", numbers(i % 4 == 0 ? wild : near));
    r.add('B', "GeoCoord::xyz2blh", numbers(source.position()));
    Tokens geod = Tokens().integer(i % 2);
    const int shape = source.below(8);
    geod.number(shape == 0 ? source.nasty() : shape == 1 ? source.uniform(6.3e6, 6.4e6) : 6378137.0);
    geod.number(shape == 0   ? source.nasty()
                : shape == 1 ? source.uniform(-0.1, 0.9)
                : shape == 2 ? 0.0
                             : 1.0 / 298.257223563);
    geod.number(source.uniform(-90, 90)).number(source.uniform(-180, 360)).number(source.signed_magnitude(-3, 8));
    r.add('B', "geod_to_xyz", geod.append(numbers(source.position())));
  }
}

void add_awkward_local_frames(Requests& r, std::uint64_t round) {
  inputs::Source source(r.word());
  for (int i = 0; i < cases_of(round); ++i) {
    const inputs::Vector station = source.position();
    inputs::Vector other = source.position();
    for (std::size_t k = 0; i % 2 == 0 && k < 3; ++k) {
      other[k] = station[k] + source.signed_magnitude(-4.0, 5.0);
    }
    r.add('B', "Coord::relatCoord", numbers(station).append(numbers(other)));
    r.add('B', "Coord::offsetCoord", numbers(station).append(numbers(other)));
    const inputs::Vector wild = {source.nasty(), source.nasty(), source.nasty()};
    const inputs::Vector blh = {source.uniform(-1.6, 1.6), source.uniform(-7, 7), 0.0};
    r.add('B', "blh_to_neu", numbers(i % 4 == 0 ? wild : blh).append(numbers(other)));
    r.add('B', "neu_to_polar", numbers(i % 2 == 0 ? wild : other));
  }
}

void add_awkward_angles(Requests& r, std::uint64_t round) {
  inputs::Source source(r.word());
  for (int i = 0; i < cases_of(round); ++i) {
    r.add('A', "deg_to_dms", Tokens().number(source.nasty()));
    r.add('A', "deg_to_dms", Tokens().number(source.below(21600) / 60.0 + source.signed_magnitude(-12.0, -5.0)));
    r.add('A', "deg_to_dms", Tokens().number((source.below(1296000) - 648000) / 3600.0));
    r.add('A', "dms_to_deg", Tokens().integer(r.any_integer()).integer(source.below(64) - 2).number(source.nasty()));
  }
}

void add_awkward_points(Requests& r, std::uint64_t round) {
  PlaneInputs inputs(r.word());
  for (int i = 0; i < cases_of(round); ++i) {
    const double end = inputs.below(2) == 0 ? 2147483648.0 : -2147483649.0;
    r.add('A', "CPoint(Point2)",
          Tokens().number(std::nextafter(end, inputs.number())).number(inputs.fraction() * 0x1.00001p31));
    const PlaneInputs::Point p = inputs.point();
    r.add('A', "Point2==Point2", numbers(p).append(numbers(inputs.companion(p))));
    r.add('A', "Point2::maximum", numbers(p).append(numbers(inputs.companion(p))));
  }
}

void add_awkward_lines(Requests& r, std::uint64_t round) {
  PlaneInputs inputs(r.word());
  for (int i = 0; i < cases_of(round); ++i) {
    const PlaneInputs::Point p = inputs.point();
    r.add('A', "FindLineCoeffs", numbers(p).append(numbers(inputs.companion(p))));
    r.add('A', "GetSpanPerpendicular", numbers(p).append(numbers(inputs.companion(p))));
    const PlaneInputs::Line line = inputs.line();
    r.add('A', "FindPerpendicular", numbers(line).append(numbers(p)));
    r.add('A', "FindLinesIntersection", numbers(line).append(numbers(inputs.second_line(line))));
  }
}

void add_awkward_arcs(Requests& r, std::uint64_t round) {
  PlaneInputs inputs(r.word());
  for (int i = 0; i < cases_of(round); ++i) {
    const PlaneInputs::Point a = inputs.point();
    const PlaneInputs::Point b = inputs.companion(a);
    const PlaneInputs::Point c = inputs.below(2) == 0 ? inputs.collinear(a, b) : inputs.companion(b);
    const PlaneInputs::Point d = inputs.below(3) == 0 ? inputs.collinear(a, b) : inputs.companion(c);
    const Tokens three = numbers(a).append(numbers(b)).append(numbers(c));
    for (const char* function : {"GetArc3PointsParams", "cosphi", "triangle_area"}) {
      r.add('A', function, three);
    }
    const Tokens tangent = numbers(a).append(numbers(b)).append(numbers(inputs.below(2) == 0 ? a : c));
    r.add('A', "GetArcTangentParams", Tokens(tangent).append(numbers(d)));
  }
}

void add_awkward_covariances(Requests& r, std::uint64_t round) {
  covariances::Source source(r.word());
  for (int i = 0; i < cases_of(round); ++i) {
    double v[6];
    source.covariance(v);
    const double candidates[4] = {v[0], v[5], source.nasty(), source.uniform()};
    r.add('A', "InvertSMatr3", Tokens().numbers(v, 6));
    r.add('B', "covar::GetEigen", Tokens().numbers(v, 6).number(candidates[i % 4]));
    r.add('B', "covar::DuserDeigen", Tokens().numbers(v, 6));
  }
}

void add_awkward_scalars(Requests& r, std::uint64_t round) {
  PlaneInputs inputs(r.word());
  for (int i = 0; i < cases_of(round); ++i) {
    const auto pattern = static_cast<std::uint32_t>(inputs.word());
    float x = 0;
    std::memcpy(&x, &pattern, sizeof x);
    const double directions[] = {inputs.fraction(), 0.0, -0.0, std::nan("")};
    r.add('A', "nearest(float)", Tokens().number(x).number(directions[inputs.below(4)]));
    r.add('A', "nearest(double)", Tokens().number(inputs.number()).number(inputs.number()));
    r.add('A', "sign(double)", Tokens().number(inputs.number()).number(inputs.number()));
    r.add('A', "power(int)", Tokens().integer(r.any_integer()).integer(r.between(-40, 40)));
  }
}

void add_awkward_levels(Requests& r, std::uint64_t round) {
  const int kLevels[] = {68, 95, 99};
  for (int i = 0; i < cases_of(round); ++i) {
    const int level = i % 4 == 0 ? r.any_integer() : kLevels[r.below(3)];
    const int df = i % 3 == 0 ? r.any_integer() : r.between(-20, 2980);
    r.add('A', "CHI_1SDE", Tokens().integer(level).integer(df));
    r.add('A', "CHI_2SDE", Tokens().integer(level).integer(df));
  }
}

void add_awkward_quantiles(Requests& r, std::uint64_t round) {
  inputs::Source source(r.word());
  for (int i = 0; i < cases_of(round); ++i) {
    const double levels[] = {source.uniform(0.0, 1.01), source.magnitude(-20.0, 0.0), source.nasty()};
    r.add('B', "TAU",
          Tokens()
              .integer(1 + source.below(500))
              .integer(source.below(i % 50 == 0 ? 2000 : 60) - 2)
              .number(levels[i % 3]));
    r.add('A', "RmsToKnown", Tokens().number(source.magnitude(-3.0, 3.0)));
  }
}

}  // namespace generate
