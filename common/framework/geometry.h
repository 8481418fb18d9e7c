// Points, sizes and rectangles in whole pixels.
#pragma once

#include "framework/base_types.h"

struct CPoint : tagPOINT {
  constexpr CPoint() : CPoint(0, 0) {}
  constexpr CPoint(int pointX, int pointY) : tagPOINT{} {
    x = pointX;
    y = pointY;
  }
  constexpr CPoint(const POINT& point) : tagPOINT(point) {}

  friend constexpr bool operator==(const CPoint& left, const CPoint& right) {
    return left.x == right.x && left.y == right.y;
  }
};

struct CSize : tagSIZE {
  constexpr CSize() : CSize(0, 0) {}
  constexpr CSize(int width, int height) : tagSIZE{} {
    cx = width;
    cy = height;
  }
  constexpr CSize(const SIZE& size) : tagSIZE(size) {}

  friend constexpr bool operator==(const CSize& left, const CSize& right) {
    return left.cx == right.cx && left.cy == right.cy;
  }
};

/// Right and bottom lie just outside the rectangle.
struct CRect : tagRECT {
  constexpr CRect() : CRect(0, 0, 0, 0) {}
  constexpr CRect(int edgeLeft, int edgeTop, int edgeRight, int edgeBottom) : tagRECT{} {
    left = edgeLeft;
    top = edgeTop;
    right = edgeRight;
    bottom = edgeBottom;
  }
  constexpr CRect(const RECT& rect) : tagRECT(rect) {}
  constexpr CRect(const CPoint& topLeft, const CSize& size)
      : CRect(topLeft.x, topLeft.y, topLeft.x + size.cx, topLeft.y + size.cy) {}

  constexpr int Width() const { return right - left; }
  constexpr int Height() const { return bottom - top; }
  constexpr CSize Size() const { return {Width(), Height()}; }
  constexpr CPoint TopLeft() const { return {left, top}; }
  constexpr bool Contains(const CPoint& point) const {
    return left <= point.x && point.x < right && top <= point.y && point.y < bottom;
  }
  constexpr bool Contains(const CRect& other) const {
    return left <= other.left && top <= other.top && other.right <= right && other.bottom <= bottom;
  }
  /// Grown by `dx` at the left and the right edge, by `dy` at the top and the bottom.
  constexpr CRect Grown(int dx, int dy) const {
    return {left - dx, top - dy, right + dx, bottom + dy};
  }
  constexpr void OffsetRect(int dx, int dy) {
    left += dx;
    right += dx;
    top += dy;
    bottom += dy;
  }

  friend constexpr bool operator==(const CRect& one, const CRect& other) {
    return one.left == other.left && one.top == other.top && one.right == other.right &&
           one.bottom == other.bottom;
  }
};
