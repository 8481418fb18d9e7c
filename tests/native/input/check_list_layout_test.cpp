#include "dialogs/input/check_list_layout.h"

#include <gtest/gtest.h>

namespace quorvel {
namespace {

constexpr CheckListMeasures kWide{
    .widestName = 300, .characterHeight = 16, .descent = 3, .rows = 8};
constexpr CheckListMeasures kOneName{
    .widestName = 0, .characterHeight = 16, .descent = 3, .rows = 1};

TEST(CheckListLayout, TheListIsAsWideAsItsColumns) {
  EXPECT_EQ(NameColumnWidth(kWide), 320);
  EXPECT_EQ(CheckListSize(kWide).cx, NameColumnWidth(kWide) + CheckColumnWidth(1.0));
}

TEST(CheckListLayout, TheListIsAtLeast200Wide) {
  EXPECT_EQ(NameColumnWidth(kOneName), 20);
  EXPECT_EQ(CheckListSize(kOneName), CSize(200, 26));
  EXPECT_EQ(CheckListSize({159, 16, 3, 1}).cx, 200);
  EXPECT_EQ(CheckListSize({160, 16, 3, 1}).cx, 201);
}

TEST(CheckListLayout, TheListIsAsTallAsItsHeadingsAndRows) {
  EXPECT_EQ(RowHeight(kWide), 13);
  EXPECT_EQ(CheckListSize(kWide).cy, 13 * 9);
  EXPECT_EQ(CheckListSize({0, 16, 3, 0}).cy, 13);
}

TEST(CheckListLayout, TheButtonsEndWithTheListAndStand10Below) {
  const auto [ok, cancel] = PlaceCheckListButtons({7, 8, 207, 108}, 75, 1.0);
  EXPECT_EQ(cancel, CPoint(207 - 75, 118));
  EXPECT_EQ(ok, CPoint(207 - 150 - 10, 118));
}

TEST(CheckListLayout, TheDialogHoldsTheListAndTheButtons) {
  EXPECT_EQ(CheckListDialogSize({341, 117}, 23, 19, 1.0), CSize(361, 117 + 23 + 19 + 30));
}

TEST(CheckListLayout, FollowsTheDisplaysScale) {
  constexpr CheckListMeasures kDoubled{
      .widestName = 60, .characterHeight = 32, .descent = 6, .rows = 1, .rate = 2.0};
  EXPECT_EQ(CheckColumnWidth(2.0), 42);
  EXPECT_EQ(NameColumnWidth(kDoubled), 60 + 40);
  EXPECT_EQ(CheckListSize(kDoubled), CSize(400, 52));
  const auto [ok, cancel] = PlaceCheckListButtons({14, 16, 414, 68}, 150, 2.0);
  EXPECT_EQ(cancel, CPoint(414 - 150, 88));
  EXPECT_EQ(ok, CPoint(414 - 300 - 20, 88));
  EXPECT_EQ(CheckListDialogSize({400, 52}, 46, 38, 2.0), CSize(440, 52 + 46 + 38 + 60));
}

}  // namespace
}  // namespace quorvel
