#ifndef ALIDADE_TESTS_REFERENCE_COORDS_H
#define ALIDADE_TESTS_REFERENCE_COORDS_H

#include <cstdint>

// Literal versions of the coordinate functions on raw doubles. A record is an array of three in the order of its
// fields; outputs never overlap inputs.

namespace reference {

struct EllipsoidFields {
  double a, e, e2, ep2, one_plus_ep2, c;
};
EllipsoidFields ellipsoid(double a, double e);
EllipsoidFields default_ellipsoid();

double dot(const double a[3], const double b[3]);
void times_reciprocal(const double c[3], double s, double out[3]);
double squared_length(const double c[3]);
double length(const double c[3]);
double length_of_three(double a, double b, double c);

void blh2xyz(const double blh[3], double xyz[3]);

// How the iteration for the latitude ended.
enum class End { kOnAxis, kConverged, kNaN, kAlternates, kPassesUsedUp };

// The plain loop, stopped by convergence alone and given up after max_passes (out is then not written).
End xyz2blh_plain(const double xyz[3], std::int64_t max_passes, double blh[3], std::int64_t* passes);

// The same with the two further stops: a step that is NaN, a tangent equal to that of two passes before.
End xyz2blh(const double xyz[3], double blh[3], std::int64_t* passes);

// v = {lat, lon, h, x, y, z}, changed in place.
void geod_to_xyz(int to_cartesian, double a, double f, double v[6]);

void relat_coord(const double station[3], const double target[3], double neu[3], double polar[3]);
void offset_coord(const double station[3], const double neu[3], double xyz[3]);
void blh_to_neu(const double blh[3], const double d[3], double enu[3]);
void neu_to_polar(const double enu[3], double polar[3]);

void deg_to_dms(double deg, int* d, int* m, double* s);
double dms_to_deg(int d, int m, double s);

}  // namespace reference

#endif
