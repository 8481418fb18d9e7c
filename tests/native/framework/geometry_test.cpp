#include "framework/geometry.h"

#include <gtest/gtest.h>

namespace {

TEST(Geometry, RectanglesFromCornersAndSizes) {
  const CRect rect(CPoint(10, 20), CSize(30, 40));
  EXPECT_EQ(rect, CRect(10, 20, 40, 60));
  EXPECT_EQ(rect.Width(), 30);
  EXPECT_EQ(rect.Height(), 40);
  EXPECT_EQ(rect.Size(), CSize(30, 40));
  EXPECT_EQ(rect.TopLeft(), CPoint(10, 20));
  EXPECT_FALSE(rect == CRect());
  EXPECT_FALSE(CPoint() == CPoint(0, 1));
  EXPECT_FALSE(CSize() == CSize(1, 0));
}

TEST(Geometry, OffsetMovesAllEdges) {
  CRect rect(1, 2, 3, 4);
  rect.OffsetRect(-10, 100);
  EXPECT_EQ(rect, CRect(-9, 102, -7, 104));
}

TEST(Geometry, TakesThePlatformsTypes) {
  EXPECT_EQ(CPoint(POINT{1, 2}), CPoint(1, 2));
  EXPECT_EQ(CSize(SIZE{1, 2}), CSize(1, 2));
  EXPECT_EQ(CRect(RECT{1, 2, 3, 4}), CRect(1, 2, 3, 4));
}

}  // namespace
