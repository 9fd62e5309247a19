#ifndef ALIDADE_COORDS_H
#define ALIDADE_COORDS_H

/// @file
/// Coordinate records, ellipsoid conversions, local frames and angle notation.
///
/// Units, because they differ between neighbours: the members of the records convert in **radians**; `geod_to_xyz`,
/// `deg_to_dms` and `dms_to_deg` take and give **degrees**. Latitude stands before longitude everywhere. The geocentric
/// frame has z along the polar axis, x towards longitude 0 and y towards longitude 90 degrees east; lengths are in
/// metres.
///
/// Component orders of local vectors, because they differ as well:
///
/// | function | first | second | third |
/// |---|---|---|---|
/// | `Coord::relatCoord`, `Coord::offsetCoord` | north | east | up |
/// | `blh_to_neu` (result), `neu_to_polar` (argument) | east | north | up |
/// | `PolCoord` | azimuth | elevation | distance |
/// | `neu_to_polar` (result) | elevation | azimuth | distance |

#include <alidade/export.h>
#include <alidade/points.h>

namespace alidade {
struct ReferenceEllipsoid;
}

/// A reference ellipsoid: two defining numbers and four derived ones, six doubles in this order.
struct ALIDADE_API Ellipsoid {
  /// Builds the record from its axis and eccentricity.
  ///
  /// @param semi_major_axis     metres
  /// @param first_eccentricity  0 to below 1; not checked, 1 or more gives infinities and NaN
  ///
  /// Stores both as a and e and derives e2 = e*e, w = 1 - e2, ep2 = e2/w, onePlusEp2 = ep2 + 1, c = a/sqrt(w), in this
  /// order. Bits: class A.
  Ellipsoid(const double& semi_major_axis, const double& first_eccentricity);

  double a;           ///< semi-major axis, metres
  double e;           ///< first eccentricity; kept for the reader, no conversion uses it
  double e2;          ///< first eccentricity squared
  double ep2;         ///< second eccentricity squared, e2/(1 - e2); no conversion uses it
  double onePlusEp2;  ///< 1 + ep2
  double c;           ///< polar radius of curvature, a/sqrt(1 - e2), metres

private:
  friend struct alidade::ReferenceEllipsoid;
  constexpr Ellipsoid(double axis, double first, double first2, double second2, double one_plus_second2,
                      double curvature)
      : a(axis), e(first), e2(first2), ep2(second2), onePlusEp2(one_plus_second2), c(curvature) {}
};

/// The reference ellipsoid of all member conversions. Read-only; a constant, ready before any initialiser runs.
///
/// | field | value | bit pattern |
/// |---|---|---|
/// | a | 6378137 m | 0x415854A640000000 |
/// | e | 0.0818191913305 | 0x3FB4F21A3EF31D32 |
/// | e2 | 0.006694380069976967 | 0x3F7B6B90F77B10BE |
/// | ep2 | 0.006739496823191814 | 0x3F7B9ADFE727574C |
/// | onePlusEp2 | 1.0067394968231917 | 0x3FF01B9ADFE72757 |
/// | c | 6399593.626015672 m | 0x4158699A6810A40A |
///
/// The eccentricity is deliberately this decimal. Its inverse flattening is 298.25722 (to 1e-10): neither WGS 84
/// (298.257223563) nor GRS 80 (298.257222101). Taking the one for the other moves a position at the ground by up to
/// 0.30 mm and 0.17 mm. Use `geod_to_xyz` where that matters.
extern ALIDADE_API const Ellipsoid DefaultEllipsoid;

class GeoCoord;
class PolCoord;

/// A geocentric Cartesian position or difference, metres; also a local offset (north, east, up). Three doubles.
class ALIDADE_API Coord {
public:
  /// Stores the three values; those left out are 0.
  Coord(double x = 0, double y = 0, double z = 0);
  Coord(const Coord& o) = default;
  Coord& operator=(const Coord& o) = default;

  /// Sets x, y and z all to v. v may be a component of this object. Bits: class A.
  Coord& operator=(const double& v);

  Coord operator+(const Coord& o) const;   ///< Sum by components. Bits: class A.
  Coord operator-(const Coord& o) const;   ///< Difference by components. Bits: class A.
  Coord operator-() const;                 ///< Every component negated, zeros too. Bits: class A.
  Coord& operator+=(const Coord& o);       ///< Adds by components; o may be this object. Bits: class A.
  Coord& operator-=(const Coord& o);       ///< Subtracts by components; o may be this object. Bits: class A.
  Coord operator*(const double& s) const;  ///< Every component times s. Bits: class A.

  /// Multiplies every component by s in place. s may be a component of this object: its value on entry counts. Bits:
  /// class A.
  Coord& operator*=(const double& s);

  /// Every component times the reciprocal 1/s, which is computed once.
  ///
  /// The result may differ from that of `operator/=` in the last bit; that is deliberate. s = 0 is not guarded: IEEE
  /// infinities, and NaN for a zero component. Bits: class A.
  Coord operator/(const double& s) const;

  /// Divides every component by s in place: three divisions, unlike `operator/`. s = 0 is not guarded. s may be a
  /// component of this object: its value on entry counts. Bits: class A.
  Coord& operator/=(const double& s);

  /// Dot product, summed as (z*o.z + y*o.y) + x*o.x. Bits: class A.
  double operator*(const Coord& o) const;

  /// Geodetic to geocentric on `DefaultEllipsoid`.
  ///
  /// @param g  latitude and longitude in radians (any range), ellipsoidal height in metres
  /// @return this object, which receives x, y, z in metres
  ///
  /// Method: the closed form with the prime vertical radius N = a/sqrt(1 - e^2 sin^2 b); IOGP Guidance Note 7-2,
  /// method 9602. Accuracy: 2^-49 of the distance from the centre, 1.2e-8 m at the ground. Bits: class B (sin, cos).
  Coord& blh2xyz(const GeoCoord& g);

  /// Reduces a target, seen from this position, to the horizon of this position.
  ///
  /// @param target  the observed point, geocentric, metres
  /// @param neu     receives north, east, up in metres, in that order
  /// @param polar   receives azimuth in [0, 2*pi) from north over east, elevation above the horizon in [-pi/2, pi/2],
  ///                both in radians, and the slant distance in metres
  ///
  /// The latitude and longitude of this position come from `GeoCoord::xyz2blh`: on the polar axis the longitude is 0,
  /// at the centre of the ellipsoid both are 0. An azimuth less than half a unit in the last place of 2*pi below zero
  /// is returned as 2*pi itself, rounded. For a target equal to this position the distance is 0 and the angles are what
  /// atan2 gives for zeros. The distance is the length of the geocentric difference, not of the rotated one. `neu` may
  /// be this object or the target.
  ///
  /// Accuracy: the stop of the iteration in `xyz2blh` tilts the frame by up to 7e-13 radian; else a few roundings.
  /// Bits: class B (sin, cos, atan, atan2).
  void relatCoord(const Coord& target, Coord& neu, PolCoord& polar) const;

  /// Places a target from a station and a local offset: the inverse rotation of `relatCoord`.
  ///
  /// @param station  geocentric position, metres
  /// @param neu      north, east, up, metres, in that order
  /// @return this object, which receives the geocentric position of the target
  ///
  /// This object may be `station` or `neu`. Bits: class B (sin, cos, atan, atan2).
  Coord& offsetCoord(const Coord& station, const Coord& neu);

  double x;  ///< metres, towards longitude 0 (north, in a local offset)
  double y;  ///< metres, towards longitude 90 degrees east (east, in a local offset)
  double z;  ///< metres, along the polar axis (up, in a local offset)
};

/// A geodetic position on `DefaultEllipsoid`: latitude, longitude, height. Three doubles.
///
/// The record does not know the unit of its angles. The conversions work in radians; `rad2deg` and `deg2rad` switch.
class ALIDADE_API GeoCoord {
public:
  /// Leaves the three fields as they are in memory: unset, not zero. Fill all of them before use.
  GeoCoord() {}

  /// Converts a **Cartesian** position: this does not store three fields. Same as `xyz2blh(Coord(x, y, z))`.
  GeoCoord(double x, double y, double z);

  /// Converts a Cartesian position. Same as `xyz2blh(p)`.
  GeoCoord(const Coord& p);
  GeoCoord(const GeoCoord& o) = default;
  GeoCoord& operator=(const GeoCoord& o) = default;

  /// Geocentric to geodetic on `DefaultEllipsoid`.
  ///
  /// @param p  geocentric position, metres; any doubles
  /// @return this object, which receives the latitude b in [-pi/2, pi/2] and the longitude l in [0, 2*pi), in radians,
  ///         and the ellipsoidal height h, in metres
  ///
  /// Special points:
  /// - (1) At the centre, (0, 0, 0): b = 0, l = 0, h = -a.
  /// - (2) Less than 1e-10 m from the polar axis: l = 0, b = pi/2 or -pi/2 by the sign of z, h = |z| minus the polar
  ///   semi-axis.
  /// - (3) y = -0.0 with x > 0 gives l = -0.0. A longitude less than half a unit in the last place of 2*pi below zero
  ///   is returned as 2*pi itself, rounded.
  /// - (4) NaN and infinite coordinates give NaN or infinite results; so does a z/p that overflows.
  ///
  /// Method: the textbook relation tan b = (z + e^2 N sin b)/p, p the distance from the axis (IOGP Guidance Note 7-2,
  /// method 9602), written in the tangent t = tan b: t = z/p + k t/sqrt(1 + e'^2 + t^2) with k = c e^2/p. Solved by
  /// plain iteration from t = z/p. A pass that moves t by 1e-10 or less is the last. Two more stops make the function
  /// end on every input without ever changing the result of an iteration that ends by itself: a pass whose step is NaN,
  /// and a pass that brings back an earlier tangent exactly (one unit in the last place of a tangent above 2^19 exceeds
  /// 1e-10, so within 12.5 m of a pole about one point in 1500 alternates for ever between two neighbours; the later
  /// one is kept). There is no cap: by p = e^2 a = 42697.67 m near the equatorial plane, deep inside the Earth, up to 5
  /// million passes are made; at the ground it is 2 to 5.
  ///
  /// Accuracy: at the stop the tangent is off by up to L/(1 - L) 1e-10, L the contraction of a pass. In position that
  /// is up to e^2 a 1e-10 = 4.3e-6 m north at the equator, at any height, falling with the fourth power of the cosine
  /// of the latitude, and up to 1.5e-6 m in height (largest at 30 degrees). To this come roundings, 2^-50 of the
  /// distance from the centre. The bounds hold from 100 km below the ground to 43,000 km from the centre, where they
  /// are tested. Bits: class B (atan, atan2).
  GeoCoord& xyz2blh(const Coord& p);

  /// Radians to degrees: b and l times 57.29577951308232 (180/pi rounded to nearest); h untouched. Bits: class A.
  void rad2deg();

  /// Degrees to radians: b and l times 0.017453292519943295 (pi/180 rounded to nearest); h untouched. Bits: class A.
  void deg2rad();

  /// Latitude in seconds of arc, for a record in degrees: b*3600. Bits: class A.
  double Latitude() const;

  /// Longitude in seconds of arc less a full turn, for a record in degrees: (l - 360)*3600, **whatever l is**.
  ///
  /// A longitude in [0, 360) comes back in [-1296000, 0): 350 gives -36000, 10 gives -1260000 and not 36000.
  /// Deliberate; add 1296000 for a value in [0, 1296000). Bits: class A.
  double Longitude() const;

  double b;  ///< geodetic latitude, radians in the conversions, north positive
  double l;  ///< geodetic longitude, radians in the conversions, east positive
  double h;  ///< ellipsoidal height, metres
};

/// A polar reduction: azimuth, elevation, slant distance. Three doubles; the default constructor leaves them unset.
class ALIDADE_API PolCoord {
public:
  PolCoord() = default;
  PolCoord(const PolCoord& o) = default;
  PolCoord& operator=(const PolCoord& o) = default;

  /// Radians to degrees: azimuth and elevation times 57.29577951308232; distance untouched. Bits: class A.
  void rad2deg();

  /// Degrees to radians: azimuth and elevation times 0.017453292519943295; distance untouched. Bits: class A.
  void deg2rad();

  double azimuth;    ///< clockwise from north; radians in [0, 2*pi) as produced by `Coord::relatCoord`
  double elevation;  ///< above the horizon, not a zenith distance; radians in [-pi/2, pi/2] as produced
  double distance;   ///< slant distance, metres
};

/// Length of a vector: sqrt((x*x + y*y) + z*z). Squares may overflow or underflow. Bits: class A.
ALIDADE_API double RR(const Coord& c);

/// Squared length of a vector, (x*x + y*y) + z*z. Bits: class A.
ALIDADE_API double R2(const Coord& c);

/// Length of the vector (a, b, c): sqrt((a*a + c*c) + b*b).
///
/// The squares are summed in the order first, third, second: deliberately not that of `RR(const Coord&)`, from which
/// the result may differ in the last bit. Bits: class A.
ALIDADE_API double RR(const double& a, const double& b, const double& c);

/// Converts between geodetic and geocentric coordinates on any ellipsoid, in **degrees**.
///
/// @param toCartesian  not 0: reads lat, lon, h and writes x, y, z; 0: reads x, y, z and writes lat, lon, h. It selects
///                     nothing but the direction
/// @param a            semi-major axis, metres
/// @param f            flattening, for instance 1/298.257223563
/// @param lat, lon     degrees; written: lat in [-90, 90], lon in [0, 360), up to rounding: a longitude less than half
///                     a unit in the last place of 2*pi below zero is 360
/// @param h            ellipsoidal height, metres
/// @param x, y, z      geocentric position, metres
///
/// Special points, to geodetic:
/// - (1) An *x of exactly 0 (of either sign) is **changed to 0.0001** in the caller's variable, so that the longitude
///   is defined on the polar axis: 90 degrees for y > 0, 270 for y < 0 (as nearly as that x allows), 0 for y = 0.
/// - (2) At (0, 0, 0) latitude and height are NaN.
/// - (3) The function always ends, also for NaN and infinite inputs.
///
/// Six different variables are expected; they are used as working storage, so none may overlap.
///
/// Method: to Cartesian the closed form (IOGP Guidance Note 7-2, method 9602). To geodetic from the geocentric latitude
/// by at most ten corrections of latitude and height along the meridian's normal and tangent, with h + a for the radius
/// of curvature; the last is the one with |dlat| <= 1e-14 radian and not |dh|/(h + a) > 1e-14. The factor from degrees
/// is the decimal 0.0174532925199433, one unit in the last place above pi/180: deliberately not that of
/// `GeoCoord::deg2rad`.
///
/// Accuracy, for f in [0, 0.01] and heights from -10 km to 1000 km: to Cartesian 1.7e-8 m; to geodetic 7e-8 m. Bits:
/// class B (sin, cos, asin, atan2).
ALIDADE_API void geod_to_xyz(int toCartesian, double a, double f, double* lat, double* lon, double* h, double* x,
                             double* y, double* z);

/// Turns a geocentric difference into the local frame of a station: **east, north, up**.
///
/// @param blh  latitude and longitude of the station in radians; the third component is not used
/// @param d    geocentric difference (dx, dy, dz), metres
/// @return (east, north, up), metres: despite the name of the function, and unlike `Coord::relatCoord`, east first
///
/// Method: rotation by the longitude about the polar axis, then by the latitude; IOGP Guidance Note 7-2, method 9836.
/// Bits: class B (sin, cos).
ALIDADE_API TAbstractPoint3<double> blh_to_neu(const TAbstractPoint3<double>& blh, const TAbstractPoint3<double>& d);

/// Polar form of a local vector.
///
/// @param v  (**east, north, up**), metres, as `blh_to_neu` returns it
/// @return (elevation in [-pi/2, pi/2], azimuth in [0, 2*pi), distance): radians, radians, metres; elevation first
///
/// - (1) For a zero vector both angles are the undefined marker DBL_MAX and the distance is 0. A vector counts as zero
///   when up is 0 and the sum of the squares of east and north is: components below 1.5e-162 m underflow.
/// - (2) For (0, 0, up) the azimuth is 0.
/// - (3) An azimuth less than half a unit in the last place of 2*pi below zero is returned as 2*pi itself, rounded.
///
/// Bits: class B (atan2).
ALIDADE_API TAbstractPoint3<double> neu_to_polar(const TAbstractPoint3<double>& v);

/// Splits decimal degrees into degrees, minutes and seconds, as fields show them.
///
/// @param deg  decimal degrees, within the range of int
/// @param d    receives whole degrees
/// @param m    receives whole minutes, 0 to **60**
/// @param s    receives seconds with their fraction
///
/// - (1) The sign of a negative angle stands on the first part that is not 0 (degrees, else minutes, else seconds); the
///   others are not negative: -0.5 gives (0, -30, 0), -12.5 gives (-12, 30, 0).
/// - (2) 0.0001 minute is added before the minutes are cut, so that 29.9999999 minutes show as 30. There is no carry,
///   and that is deliberate: within 0.006 seconds below a whole minute m is that minute and s the small positive
///   distance **below** it, so that the parts no longer add up to the angle by up to 0.012 seconds; within the same
///   distance below a whole degree m is 60 and d stays: 10.999999 gives (10, 60, 0.0036).
/// - (3) Degrees outside the range of int, and NaN, give the smallest int in d on every platform (and then in m).
///
/// Bits: class A.
ALIDADE_API void deg_to_dms(double deg, int* d, int* m, double* s);

/// Joins degrees, minutes and seconds to decimal degrees.
///
/// @param d, m, s  any values; a negative one makes the whole angle negative, all enter by their absolute value
/// @return ((|s|*0.0002777777777777778 + |m|*0.016666666666666666) + |d|) with that sign
///
/// So (-10, 30, 0) is -10.5 and not -9.5, and (10, -30, 0) is -10.5 too. An s of -0.0 is not negative. The factors are
/// 1/3600 and 1/60 rounded to nearest, multiplied. Bits: class A.
ALIDADE_API double dms_to_deg(int d, int m, double s);

#endif
