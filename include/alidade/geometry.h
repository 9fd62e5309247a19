#ifndef ALIDADE_GEOMETRY_H
#define ALIDADE_GEOMETRY_H

/// @file
/// Plane construction geometry: lines, perpendiculars, intersections, arcs, angles and triangles.

#include <alidade/export.h>
#include <alidade/points.h>

class ALIDADE_API CLineCoeffs {
public:
  CLineCoeffs() {}
  CLineCoeffs(const CLineCoeffs& o) = default;
  CLineCoeffs& operator=(const CLineCoeffs& o) = default;

  double a() const { return a_; }
  double& a() { return a_; }
  double b() const { return b_; }
  double& b() { return b_; }
  double c() const { return c_; }
  double& c() { return c_; }

private:
  double a_;
  double b_;
  double c_;
};

class ALIDADE_API CArcParams {
public:
  CArcParams();
  CArcParams(const CArcParams& o) = default;
  CArcParams& operator=(const CArcParams& o) = default;

  TAbstractPoint2<double> centre;
  TAbstractPoint2<double> start;
  TAbstractPoint2<double> end;
  double radius;
};

ALIDADE_API bool FindLineCoeffs(TAbstractPoint2<double> p1, TAbstractPoint2<double> p2, CLineCoeffs& line);
ALIDADE_API bool FindPerpendicular(CLineCoeffs line, TAbstractPoint2<double> p, CLineCoeffs& perp);
ALIDADE_API bool FindLinesIntersection(CLineCoeffs l1, CLineCoeffs l2, TAbstractPoint2<double>& p);
ALIDADE_API bool GetSpanPerpendicular(TAbstractPoint2<double> p1, TAbstractPoint2<double> p2, CLineCoeffs& bisector);

ALIDADE_API bool GetArcTangentParams(TAbstractPoint2<double> p1, TAbstractPoint2<double> p2, TAbstractPoint2<double> p3,
                                     TAbstractPoint2<double> p4, CArcParams& arc);
ALIDADE_API bool GetArc3PointsParams(TAbstractPoint2<double> p1, TAbstractPoint2<double> p2, TAbstractPoint2<double> p3,
                                     CArcParams& arc);
ALIDADE_API double cosphi(TAbstractPoint2<double> p0, TAbstractPoint2<double> p1, TAbstractPoint2<double> p2);
ALIDADE_API double triangle_area(double x1, double y1, double x2, double y2, double x3, double y3);
ALIDADE_API double triangle_area(TAbstractPoint2<double> p1, TAbstractPoint2<double> p2, TAbstractPoint2<double> p3);
ALIDADE_API bool clockwise(TAbstractPoint2<double> p1, TAbstractPoint2<double> p2, TAbstractPoint2<double> p3);

#endif
