#include "framework/placing.h"

#include <gtest/gtest.h>

#include <climits>

namespace quorvel {
namespace {

constexpr CRect kMonitor(-100, 50, 900, 850);  // left of and below the origin
constexpr CSize kDialog(200, 100);

TEST(KeptVisible, KeepsAPointWhereTheDialogFits) {
  for (const CPoint& point : {CPoint(-100, 50), CPoint(0, 60), CPoint(700, 750)}) {
    EXPECT_EQ(KeptVisible(kMonitor, point, kDialog), point);
  }
}

TEST(KeptVisible, MovesAnyOtherByTheLeastInEachDirection) {
  EXPECT_EQ(KeptVisible(kMonitor, {-101, 60}, kDialog), CPoint(-100, 60));
  EXPECT_EQ(KeptVisible(kMonitor, {701, 60}, kDialog), CPoint(700, 60));
  EXPECT_EQ(KeptVisible(kMonitor, {0, 49}, kDialog), CPoint(0, 50));
  EXPECT_EQ(KeptVisible(kMonitor, {0, 751}, kDialog), CPoint(0, 750));
  EXPECT_EQ(KeptVisible(kMonitor, {30'000, -30'000}, kDialog), CPoint(700, 50));
}

TEST(KeptVisible, ShowsTheTopLeftOfADialogThatIsTooLarge) {
  EXPECT_EQ(KeptVisible(kMonitor, {0, 60}, {1001, 100}), CPoint(-100, 60));
  EXPECT_EQ(KeptVisible(kMonitor, {0, 60}, {100, 2000}), CPoint(0, 50));
}

TEST(CentredIn, LeavesTheSameMarginOnBothSides) {
  EXPECT_EQ(CentredIn(kMonitor, kDialog), CPoint(300, 400));
  EXPECT_EQ(CentredIn({0, 0, 101, 101}, {100, 100}), CPoint(0, 0));
  EXPECT_EQ(CentredIn({0, 0, 100, 100}, {300, 100}), CPoint(-100, 0));
}

TEST(Rescaled, KeepsAPointsShareOfTheArea) {
  constexpr CRect kDoubled(-200, 100, 1800, 1700);
  EXPECT_EQ(Rescaled({-100, 50}, kMonitor, kDoubled), CPoint(-200, 100));
  EXPECT_EQ(Rescaled({150, 451}, kMonitor, kDoubled), CPoint(300, 902));
  EXPECT_EQ(Rescaled({300, 902}, kDoubled, kMonitor), CPoint(150, 451));
  EXPECT_EQ(Rescaled({-110, 40}, kMonitor, kDoubled), CPoint(-220, 80)) << "beside the area";
}

TEST(Rescaled, LeavesAPointAloneWhereTheAreaStays) {
  for (const CPoint& point : {CPoint(3, 7), CPoint(INT_MIN, INT_MAX)}) {
    EXPECT_EQ(Rescaled(point, kMonitor, kMonitor), point);
    EXPECT_EQ(Rescaled(point, {}, kMonitor), point) << "no area at all";
  }
}

TEST(Rescaled, EndsAtTheLargestNumbers) {
  constexpr CRect kTenfold(-1000, 500, 9000, 8500);
  EXPECT_EQ(Rescaled({INT_MIN, INT_MAX}, kMonitor, kTenfold), CPoint(INT_MIN, INT_MAX));
}

}  // namespace
}  // namespace quorvel
