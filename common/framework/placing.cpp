#include "framework/placing.h"

#include <algorithm>

namespace quorvel {

namespace {

int KeptInside(int first, int last, int start, int length) {
  return std::max(first, std::min(start, last - length));
}

}  // namespace

CPoint CentredIn(const CRect& area, const CSize& size) {
  return {area.left + (area.Width() - static_cast<int>(size.cx)) / 2,
          area.top + (area.Height() - static_cast<int>(size.cy)) / 2};
}

CPoint KeptVisible(const CRect& area, const CPoint& topLeft, const CSize& size) {
  return {KeptInside(area.left, area.right, topLeft.x, size.cx),
          KeptInside(area.top, area.bottom, topLeft.y, size.cy)};
}

}  // namespace quorvel
