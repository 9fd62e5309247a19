#ifndef ALIDADE_SRC_GEOMETRY_LINES_H
#define ALIDADE_SRC_GEOMETRY_LINES_H

#include <alidade/geometry.h>

// The line constructions under the names that the library itself calls. Each is documented at the exported function
// that forwards to it: FindLineCoeffs, FindPerpendicular, FindLinesIntersection, GetSpanPerpendicular.

namespace alidade {

using Point2 = TAbstractPoint2<double>;

bool line_through(const Point2& p1, const Point2& p2, CLineCoeffs& line);
void perpendicular_through(const CLineCoeffs& line, const Point2& p, CLineCoeffs& perpendicular);
bool intersection(const CLineCoeffs& l1, const CLineCoeffs& l2, Point2& p);
bool span_bisector(const Point2& p1, const Point2& p2, CLineCoeffs& bisector);

}  // namespace alidade

#endif
