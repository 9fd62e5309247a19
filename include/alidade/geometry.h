#ifndef ALIDADE_GEOMETRY_H
#define ALIDADE_GEOMETRY_H

/// @file
/// Plane construction geometry: lines, perpendiculars, intersections, arcs, angles and triangles.
///
/// Coordinates are those of any plane, in any one unit of length; the functions speak of x and y. Grid coordinates may
/// be given as x = east, y = north, or the reverse, as long as it is always the same (the sign of `triangle_area`
/// changes with it). Points are passed by value; an output may be any object, also one an argument was copied from.
///
/// **Precision.** Nothing is shifted to a local origin. Grid coordinates of six and seven digits cost the constant term
/// of a line (a difference of products of coordinates) as many digits: for constructions to fractions of a millimetre
/// subtract a point of the site first.
///
/// **Degenerate input** is told from sound input by two absolute thresholds, 2^-1021 and 1.5 * 2^-1021, twice and three
/// times the smallest normal double. They catch exact zeros and what has lost digits to underflow; they are no
/// tolerances. Points a nanometre apart make a line, and lines that ought to be parallel intersect far away if a
/// rounding keeps them from being exactly so. A NaN is not below a threshold and counts as non-zero.
///
/// **Failure** is a `false` result, and the output is then left as it was. Infinities and NaN flow through.
///
/// **Bits.** Class A throughout (only + - * / sqrt and comparisons, the same bits on every IEEE 754 machine). No state;
/// every function may be called from any thread.

#include <alidade/export.h>
#include <alidade/points.h>

/// A line of the plane, a x + b y + c = 0.
///
/// Exactly three doubles a, b, c in this order. Not scaled to unit length. The functions of this header make lines of
/// two kinds only:
///
/// | kind | a | b | c |
/// |---|---|---|---|
/// | slope form, y = a x + c | slope | -1.0 | intercept on the y axis |
/// | vertical, x = c | -1.0 | 0.0 | the x coordinate |
///
/// but take any coefficients.
class ALIDADE_API CLineCoeffs {
public:
  /// Leaves the coefficients unset.
  CLineCoeffs() {}
  CLineCoeffs(const CLineCoeffs& o) = default;
  CLineCoeffs& operator=(const CLineCoeffs& o) = default;

  double a() const { return a_; }  ///< Coefficient of x.
  double& a() { return a_; }       ///< Coefficient of x.
  double b() const { return b_; }  ///< Coefficient of y.
  double& b() { return b_; }       ///< Coefficient of y.
  double c() const { return c_; }  ///< Constant term.
  double& c() { return c_; }       ///< Constant term.

private:
  double a_;
  double b_;
  double c_;
};

/// A circular arc by centre, end points and radius.
///
/// Exactly seven doubles in this order. Which of the two arcs between the end points is meant, is not recorded:
/// `clockwise` of the end points and any point between them tells.
class ALIDADE_API CArcParams {
public:
  /// All coordinates 0.0; the radius is the largest double, 1.7976931348623157e308, the mark of an arc not computed.
  CArcParams();
  CArcParams(const CArcParams& o) = default;
  CArcParams& operator=(const CArcParams& o) = default;

  TAbstractPoint2<double> centre;  ///< Centre of the circle.
  TAbstractPoint2<double> start;   ///< Where the arc begins.
  TAbstractPoint2<double> end;     ///< Where the arc ends.
  double radius;                   ///< Radius, in the unit of the points.
};

/// The line through two points.
///
/// @param p1, p2  the points
/// @param line    receives slope form, or the vertical through p2 when |x2 - x1| < 2^-1021; untouched on false
/// @return false when the points coincide (both differences below 2^-1021 in absolute value), else true
///
/// a = (y2 - y1)/dx, b = -1.0, c = (y1 x2 - y2 x1)/dx with dx = x2 - x1. A vertical line takes the x of the second
/// point, also where the first differs from it by a subnormal number. Method: two-point form of the line.
/// Accuracy: a to 1.5 units of relative rounding; c to that of its two products over dx, which for steep lines far from
/// the origin is much larger than c. Bits: class A.
ALIDADE_API bool FindLineCoeffs(TAbstractPoint2<double> p1, TAbstractPoint2<double> p2, CLineCoeffs& line);

/// The perpendicular to a line through a point, on the line or off it.
///
/// @param line  any line; its c is not read
/// @param p     the point
/// @param perp  receives the vertical through p when |a| < 1.5 * 2^-1021, else slope form with the slope b/a
/// @return true, always
///
/// The threshold is half as large again as that of the other functions; both are kept as they are. The perpendicular to
/// a vertical line has the slope -0.0. Coefficients that make no line (a = b = 0) count as a horizontal one.
/// Method: c' = -(b' y) - a' x, so that the new line holds p up to the rounding of these two products and their
/// difference. Bits: class A.
ALIDADE_API bool FindPerpendicular(CLineCoeffs line, TAbstractPoint2<double> p, CLineCoeffs& perp);

/// The point that two lines have in common.
///
/// @param l1, l2  lines in any form
/// @param p       receives the point; untouched on false
/// @return false when the lines are parallel or the same (|a1 b2 - b1 a2| < 2^-1021), else true
///
/// Lines nearly parallel give a point far away that is as uncertain as it is far. Method: Cramer's rule with the
/// reciprocal of the determinant formed once and multiplied in (not the bits of two divisions); a reciprocal that
/// overflows gives infinities or NaN and true. Bits: class A.
ALIDADE_API bool FindLinesIntersection(CLineCoeffs l1, CLineCoeffs l2, TAbstractPoint2<double>& p);

/// The perpendicular bisector of the span between two points.
///
/// @param p1, p2    the ends of the span
/// @param bisector  receives the line, in the forms of FindPerpendicular; untouched on false
/// @return false when the points coincide in the sense of FindLineCoeffs, else true
///
/// Method: FindPerpendicular to FindLineCoeffs(p1, p2) through the middle, which is (x2 - x1) 0.5 + x1 and likewise in
/// y: nothing overflows that need not. Bits: class A.
ALIDADE_API bool GetSpanPerpendicular(TAbstractPoint2<double> p1, TAbstractPoint2<double> p2, CLineCoeffs& bisector);

/// The arc from p1 to p2 whose centre lies on the normal, erected at p3, of the line p3-p4.
///
/// @param p1, p2  start and end of the arc
/// @param p3, p4  two points of the tangent; p3 is where the normal stands
/// @param arc     receives centre, start = p1, end = p2 and radius; untouched on false
/// @return false when p1 and p2 coincide, when p3 and p4 do, or when the chord's bisector and the normal are parallel
///         (a chord along the tangent); else true
///
/// With p3 = p1 or p3 = p2 this is the arc that leaves or meets the tangent without a kink: a curve of a road between a
/// straight and a point. With any other p3 the circle still has its centre on that normal and passes through p1 and p2,
/// but not through p3. Method: FindLinesIntersection of the chord's bisector and the normal; the radius is the distance
/// of p1 from the centre. Bits: class A.
ALIDADE_API bool GetArcTangentParams(TAbstractPoint2<double> p1, TAbstractPoint2<double> p2, TAbstractPoint2<double> p3,
                                     TAbstractPoint2<double> p4, CArcParams& arc);

/// The arc from p1 to p2 on the circle through three points.
///
/// @param p1, p2  start and end of the arc
/// @param p3      a third point of the circle, before, between or behind the two. It is not stored: the end of the arc
///                is the second argument (deliberate)
/// @param arc     receives centre, start = p1, end = p2 and radius; untouched on false
/// @return false when p1 and p2 or p2 and p3 coincide, or when the points lie on a line and the arithmetic shows it;
///         else true
///
/// Points that lie on a line only up to rounding give a huge circle and true: compare the radius with a bound of your
/// own. p1 equal to p3 makes both bisectors the same line, hence false. Method: FindLinesIntersection of the bisectors
/// of p1-p2 and p2-p3; the radius is the distance of p1 from the centre. Bits: class A.
ALIDADE_API bool GetArc3PointsParams(TAbstractPoint2<double> p1, TAbstractPoint2<double> p2, TAbstractPoint2<double> p3,
                                     CArcParams& arc);

/// Cosine of the angle at p0 between the rays to p1 and to p2.
///
/// @param p0      vertex
/// @param p1, p2  a point on each ray
/// @return the cosine; 1.0 when the product of the two lengths is 0.0, as when a point coincides with the vertex
///         (deliberate: an angle that is not there counts as zero)
///
/// Not clamped: rounding can make it exceed 1 in absolute value by a few units of the last place, and acos of that is a
/// NaN. Lengths whose product overflows or underflows give 0.0, NaN or 1.0. For angles near 0 and pi the cosine is
/// blind: prefer `triangle_area` for telling how far three points are from a line. Method: dot product over the product
/// of the lengths. Bits: class A.
ALIDADE_API double cosphi(TAbstractPoint2<double> p0, TAbstractPoint2<double> p1, TAbstractPoint2<double> p2);

/// Signed area of a triangle, positive clockwise.
///
/// @param x1, y1, x2, y2, x3, y3  the corners
/// @return the area in square units: positive when the corners turn clockwise in a frame whose second axis points 90
///         degrees counter-clockwise from the first (x to the right, y up), 0.0 or nearly so when they lie on a line,
///         negative counter-clockwise
///
/// The sign is the opposite of the usual formula's (deliberate). With x = north and y = east, the usual order of survey
/// records, the picture is mirrored: the area is then positive counter-clockwise as seen on the map. Method: half of x1
/// y3 - y1 x3 + y1 x2 - x1 y2 + y2 x3 - x2 y3, from left to right. Accuracy: absolute, about three roundings of the
/// largest product; with seven-digit coordinates in metres that is some 0.02 square metres. Bits: class A.
ALIDADE_API double triangle_area(double x1, double y1, double x2, double y2, double x3, double y3);

/// The same for three points.
ALIDADE_API double triangle_area(TAbstractPoint2<double> p1, TAbstractPoint2<double> p2, TAbstractPoint2<double> p3);

/// Do three points turn clockwise?
///
/// @return triangle_area(p1, p2, p3) > 0.0, strictly: false for points on a line and for a NaN, and either answer for
///         points that are on a line up to rounding
///
/// Clockwise as seen with x to the right and y up; with x = north and y = east, counter-clockwise on the map.
/// Bits: class A.
ALIDADE_API bool clockwise(TAbstractPoint2<double> p1, TAbstractPoint2<double> p2, TAbstractPoint2<double> p3);

#endif
