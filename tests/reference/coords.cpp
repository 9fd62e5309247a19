#include "reference/coords.h"

#include <cmath>
#include <limits>

namespace reference {

EllipsoidFields ellipsoid(double a, double e) {
  EllipsoidFields f;
  f.a = a;
  f.e = e;
  f.e2 = e * e;
  const double w = 1.0 - f.e2;
  f.ep2 = f.e2 / w;
  f.one_plus_ep2 = f.ep2 + 1.0;
  f.c = a / std::sqrt(w);
  return f;
}

EllipsoidFields default_ellipsoid() { return ellipsoid(6378137.0, 0.0818191913305); }

double dot(const double a[3], const double b[3]) {
  double sum = a[2] * b[2];
  sum = sum + a[1] * b[1];
  sum = sum + a[0] * b[0];
  return sum;
}

void times_reciprocal(const double c[3], double s, double out[3]) {
  const double r = 1.0 / s;
  for (int i = 0; i < 3; ++i) {
    out[i] = c[i] * r;
  }
}

double squared_length(const double c[3]) {
  double sum = c[0] * c[0];
  sum = sum + c[1] * c[1];
  sum = sum + c[2] * c[2];
  return sum;
}

double length(const double c[3]) { return std::sqrt(squared_length(c)); }

double length_of_three(double a, double b, double c) {
  double sum = a * a;
  sum = sum + c * c;
  sum = sum + b * b;
  return std::sqrt(sum);
}

void blh2xyz(const double blh[3], double xyz[3]) {
  const EllipsoidFields f = default_ellipsoid();
  const double s = std::sin(blh[0]);
  const double under_root = 1.0 - (f.e2 * s) * s;
  const double n = f.a / std::sqrt(under_root);
  const double hn = blh[2] + n;
  const double e2n = f.e2 * n;
  xyz[2] = (hn - e2n) * s;
  const double w = std::cos(blh[0]) * hn;
  xyz[0] = std::cos(blh[1]) * w;
  xyz[1] = std::sin(blh[1]) * w;
}

namespace {

End iterate(const double xyz[3], bool further_stops, std::int64_t max_passes, double blh[3], std::int64_t* passes) {
  const EllipsoidFields f = default_ellipsoid();
  const double x = xyz[0];
  const double y = xyz[1];
  const double z = xyz[2];
  *passes = 0;
  const double p = std::sqrt(y * y + x * x);
  if (p < 1e-10) {
    blh[1] = 0.0;
    if (z == 0.0) {
      blh[0] = 0.0;
      blh[2] = -6378137.0;
    } else {
      blh[2] = std::fabs(z) - std::sqrt(1.0 - f.e2) * f.a;
      blh[0] = z < 0.0 ? -1.5707963267948966 : 1.5707963267948966;
    }
    return End::kOnAxis;
  }
  const double r = 1.0 / p;
  const double rc = r * f.c;
  const double k = rc * f.e2;
  double l = std::atan2(y, x);
  if (l < 0.0) {
    l = l + 6.283185307179586;
  }
  const double t0 = z * r;
  double t = t0;
  double tsq = t0 * t0;
  double one_before = std::numeric_limits<double>::quiet_NaN();  // the tangent of the pass before the last
  End end = End::kPassesUsedUp;
  while (end == End::kPassesUsedUp) {
    if (*passes == max_passes) {
      return end;
    }
    const double quotient = t / std::sqrt(f.one_plus_ep2 + tsq);
    const double tn = quotient * k + t0;
    tsq = tn * tn;
    const double d = tn - t;
    *passes += 1;
    if (std::fabs(d) <= 1e-10) {
      end = End::kConverged;
    } else if (further_stops && d != d) {
      end = End::kNaN;
    } else if (further_stops && tn == one_before) {
      end = End::kAlternates;
    }
    one_before = t;
    t = tn;
  }
  const double cosine_side = f.c / std::sqrt(f.one_plus_ep2 + tsq);
  blh[2] = (p - cosine_side) * std::sqrt(tsq + 1.0);
  blh[0] = std::atan(t);
  blh[1] = l;
  return end;
}

}  // namespace

End xyz2blh_plain(const double xyz[3], std::int64_t max_passes, double blh[3], std::int64_t* passes) {
  return iterate(xyz, false, max_passes, blh, passes);
}

End xyz2blh(const double xyz[3], double blh[3], std::int64_t* passes) {
  return iterate(xyz, true, 20000000, blh, passes);
}

void geod_to_xyz(int to_cartesian, double a, double f, double v[6]) {
  const double e2 = (2.0 - f) * f;
  const double q = (1.0 - f) * (1.0 - f);
  if (to_cartesian != 0) {
    const double latitude = v[0] * 0.0174532925199433;
    const double longitude = v[1] * 0.0174532925199433;
    const double s = std::sin(latitude);
    const double n = a / std::sqrt(1.0 - (s * s) * e2);
    const double horizontal = (v[2] + n) * std::cos(latitude);
    v[3] = horizontal * std::cos(longitude);
    v[4] = horizontal * std::sin(longitude);
    v[5] = (n * q + v[2]) * s;
    return;
  }
  const double psq = v[4] * v[4] + v[3] * v[3];
  const double p = std::sqrt(psq);
  if (v[3] == 0.0) {
    v[3] = v[3] + 0.0001;
  }
  double lambda = std::atan2(v[4], v[3]);
  if (lambda < 0.0) {
    lambda = 3.141592653589793 * 2.0 + lambda;
  }
  const double r = std::sqrt(v[5] * v[5] + psq);
  const double s = v[5] / r;
  double phi = std::asin(s);
  double h = r - (1.0 - (s * s) * f) * a;
  int counter = 0;
  for (;;) {
    const double sp = std::sin(phi);
    const double cp = std::cos(phi);
    const double n = a / std::sqrt(1.0 - (sp * sp) * e2);
    const double dp = p - (h + n) * cp;
    const double dz = v[5] - (n * q + h) * sp;
    const double dh = dp * cp + dz * sp;
    h = h + dh;
    const double den = h + a;
    const double dphi = (dz * cp - dp * sp) / den;
    phi = dphi + phi;
    if (std::fabs(dphi) <= 1e-14) {
      if (!(std::fabs(dh) / den > 1e-14)) {
        break;
      }
    }
    counter += 1;
    if (counter == 10) {
      break;
    }
  }
  v[0] = 57.29577951308232 * phi;
  v[1] = 57.29577951308232 * lambda;
  v[2] = h;
}

void blh_to_neu(const double blh[3], const double d[3], double enu[3]) {
  const double sl = std::sin(blh[1]);
  const double cl = std::cos(blh[1]);
  const double sb = std::sin(blh[0]);
  const double cb = std::cos(blh[0]);
  const double t = d[0] * cl + d[1] * sl;
  enu[0] = d[1] * cl - d[0] * sl;
  enu[1] = d[2] * cb - sb * t;
  enu[2] = d[2] * sb + cb * t;
}

void relat_coord(const double station[3], const double target[3], double neu[3], double polar[3]) {
  const double d[3] = {target[0] - station[0], target[1] - station[1], target[2] - station[2]};
  double blh[3];
  std::int64_t passes = 0;
  xyz2blh(station, blh, &passes);
  double enu[3];
  blh_to_neu(blh, d, enu);
  neu[0] = enu[1];
  neu[1] = enu[0];
  neu[2] = enu[2];
  polar[1] = std::atan2(neu[2], std::sqrt(neu[0] * neu[0] + neu[1] * neu[1]));
  polar[0] = std::atan2(neu[1], neu[0]);
  if (polar[0] < 0.0) {
    polar[0] = polar[0] + 6.283185307179586;
  }
  polar[2] = length(d);
}

void offset_coord(const double station[3], const double neu[3], double xyz[3]) {
  double blh[3];
  std::int64_t passes = 0;
  xyz2blh(station, blh, &passes);
  const double sb = std::sin(blh[0]);
  const double cb = std::cos(blh[0]);
  const double sl = std::sin(blh[1]);
  const double cl = std::cos(blh[1]);
  const double z_turned = neu[0] * cb + neu[2] * sb;
  xyz[2] = z_turned + station[2];
  const double t = neu[2] * cb - neu[0] * sb;
  const double x_start = cl * t + station[0];
  xyz[0] = x_start - neu[1] * sl;
  const double y_turned = neu[1] * cl + sl * t;
  xyz[1] = y_turned + station[1];
}

void neu_to_polar(const double enu[3], double polar[3]) {
  const double hsq = enu[0] * enu[0] + enu[1] * enu[1];
  if (hsq == 0 && enu[2] == 0) {
    polar[0] = 1.7976931348623157e308;
    polar[1] = 1.7976931348623157e308;
    polar[2] = 0.0;
    return;
  }
  polar[2] = std::sqrt(enu[2] * enu[2] + hsq);
  polar[0] = std::atan2(enu[2], std::sqrt(hsq));
  polar[1] = std::atan2(enu[0], enu[1]);
  if (polar[1] < 0) {
    polar[1] = polar[1] + 6.283185307179586;
  }
}

namespace {

// Outside the range of int, and for a NaN: the smallest int, as x86 has it.
int cut(double v) {
  if (v != v || v >= 2147483648.0 || v <= -2147483649.0) {
    return -2147483647 - 1;
  }
  return static_cast<int>(v);
}

int times_sign(double sign, int v) {
  const std::int64_t product = static_cast<std::int64_t>(sign) * v;
  return product == 2147483648LL ? -2147483647 - 1 : static_cast<int>(product);
}

}  // namespace

void deg_to_dms(double deg, int* d, int* m, double* s) {
  double sg = 1.0;
  if (deg < 0) {
    sg = -1.0;
  }
  const double a = std::fabs(deg);
  *d = cut(a);
  const double mf = (a - *d) * 60.0;
  *m = cut(mf + 0.0001);
  *s = std::fabs((mf - *m) * 60.0);
  if (*d != 0) {
    *d = times_sign(sg, *d);
  } else if (*m == 0) {
    *s = *s * sg;
  } else {
    *m = times_sign(sg, *m);
  }
}

double dms_to_deg(int d, int m, double s) {
  double sign = 1.0;
  if (d < 0 || m < 0) {
    sign = -1.0;
  } else if (s < 0) {
    sign = -1.0;
  }
  const double dd = std::fabs(1.0 * d);
  const double mm = std::fabs(1.0 * m);
  const double seconds_part = std::fabs(s) * 0.0002777777777777778;
  const double minutes_part = mm * 0.016666666666666666;
  return ((seconds_part + minutes_part) + dd) * sign;
}

}  // namespace reference
