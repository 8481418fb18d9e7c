#include "framework/placing.h"

#include <algorithm>
#include <cstdint>
#include <limits>

namespace quorvel {

namespace {

int KeptInside(int first, int last, int start, int length) {
  return std::max(first, std::min(start, last - length));
}

int RescaledPlace(int place, int fromFirst, int fromLength, int toFirst, int toLength) {
  if (fromLength <= 0 || (fromFirst == toFirst && fromLength == toLength)) {
    return place;
  }
  const std::int64_t distance = std::int64_t{place} - fromFirst;
  const std::int64_t result = toFirst + distance * toLength / fromLength;
  return static_cast<int>(std::clamp<std::int64_t>(result, std::numeric_limits<int>::min(),
                                                   std::numeric_limits<int>::max()));
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

CPoint Rescaled(const CPoint& point, const CRect& from, const CRect& to) {
  return {RescaledPlace(point.x, from.left, from.Width(), to.left, to.Width()),
          RescaledPlace(point.y, from.top, from.Height(), to.top, to.Height())};
}

}  // namespace quorvel
