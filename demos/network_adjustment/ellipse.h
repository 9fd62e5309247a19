#ifndef NETWORK_ADJUSTMENT_ELLIPSE_H
#define NETWORK_ADJUSTMENT_ELLIPSE_H

#include <alidade/linalg3.h>

namespace network {

// Standard error ellipse (one sigma) in the horizontal plane.
struct ErrorEllipse {
  double semi_major;     // metres
  double semi_minor;     // metres
  double major_azimuth;  // radians from north towards east, [0, pi)
  double residual;       // largest |V u - lambda u| over the two axes u, relative to the larger eigenvalue
};

// Largest residual that rounding leaves in a pair of axes of a 2x2 matrix: a few units of 2^-53, with room.
constexpr double kAxesTolerance = 1e-14;

// The ellipse of the horizontal block of an east, north, up covariance.
//
// The axes are the eigenvectors that covar::DuserDeigen finds for the 2x2 block with a decoupled third axis: that case
// is exact. (Its general case is not for every covariance; see docs/network-adjustment.md.) The eigenvalues follow as
// Rayleigh quotients, and the residual lets the caller see that the axes are the principal ones.
ErrorEllipse horizontal_ellipse(const covar& enu);

// Largest |V u - lambda u| over the first count columns u of axes, relative to the largest |lambda|, with
// lambda = u' V u. NaN when an axis is.
double axes_residual(const covar& v, matr3_3& axes, int count);

}  // namespace network

#endif
