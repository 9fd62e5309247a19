#ifndef ALIDADE_HOST_H
#define ALIDADE_HOST_H

/// @file
/// The host framework's integer point and rectangle: the framework's own types when the library is built with it
/// (`ALIDADE_WITH_MFC`), else plain stand-ins with the same fields.

#if defined(ALIDADE_WITH_MFC)
#include <afxwin.h>
#else

/// Point of two ints. Stand-in for the host framework's type.
struct CPoint {
  int x;
  int y;
  CPoint() : x(0), y(0) {}
  CPoint(int px, int py) : x(px), y(py) {}
};

/// Rectangle of four ints. Stand-in for the host framework's type.
struct CRect {
  int left;
  int top;
  int right;
  int bottom;
  CRect() : left(0), top(0), right(0), bottom(0) {}
  CRect(int l, int t, int r, int b) : left(l), top(t), right(r), bottom(b) {}
};

#endif

#endif
