// Where a window goes on the screen: arithmetic on rectangles in screen pixels.
#pragma once

#include "framework/frame_export.h"
#include "framework/geometry.h"

namespace quorvel {

/// The top-left corner that centres a window of `size` in `area`.
FRAME_API CPoint CentredIn(const CRect& area, const CSize& size);

/// `topLeft` itself where a window of `size` lies wholly in `area` there; else the nearest point at
/// which it does. A window larger than the area keeps its left and top edge visible, since the
/// caption and the first controls are there.
FRAME_API CPoint KeptVisible(const CRect& area, const CPoint& topLeft, const CSize& size);

/// Where a point beside or in `from` is when the same area is measured as `to`, as that of a monitor
/// is for threads that see another scale. Ends at the ends of `int`; `from` itself where it is empty.
FRAME_API CPoint Rescaled(const CPoint& point, const CRect& from, const CRect& to);

}  // namespace quorvel
