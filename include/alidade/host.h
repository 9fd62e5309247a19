#ifndef ALIDADE_HOST_H
#define ALIDADE_HOST_H

/// @file
/// The host framework's integer point and rectangle.
///
/// When the library is built as an extension module of the Microsoft Foundation Classes (CMake option
/// `ALIDADE_WITH_MFC`, which defines the macro of that name for the library and for everything that links it), `CPoint`
/// and `CRect` are the framework's own. Otherwise they are the plain stand-ins below, with the same field names, so
/// that the conversions of `TAbstractPoint2` and `TAbstractRect` work alike.
///
/// A program that has types of these names from elsewhere defines `ALIDADE_WITHOUT_HOST_TYPES` before it includes any
/// header of the library, in every source: the stand-ins and the four conversions from and to them are then left out,
/// nothing else.
///
/// Ints become doubles exactly. Doubles become ints by truncation towards zero; outside the range of int, and for NaN,
/// they become INT_MIN (-2147483648) on every platform.

#if defined(ALIDADE_WITHOUT_HOST_TYPES)
#elif defined(ALIDADE_WITH_MFC)
#include <afxwin.h>
#else

/// Point of two ints. Stand-in for the host framework's type.
struct CPoint {
  int x;  ///< First coordinate.
  int y;  ///< Second coordinate.
  /// (0, 0).
  CPoint() : x(0), y(0) {}
  /// From its coordinates.
  CPoint(int px, int py) : x(px), y(py) {}
};

/// Rectangle of four ints. Stand-in for the host framework's type.
struct CRect {
  int left;    ///< Left edge.
  int top;     ///< Top edge.
  int right;   ///< Right edge.
  int bottom;  ///< Bottom edge.
  /// All zero.
  CRect() : left(0), top(0), right(0), bottom(0) {}
  /// From its edges.
  CRect(int l, int t, int r, int b) : left(l), top(t), right(r), bottom(b) {}
};

#endif

#endif
