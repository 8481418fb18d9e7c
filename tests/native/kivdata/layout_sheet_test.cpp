#include "kivdata/layout_sheet.h"

#include <gtest/gtest.h>

namespace {

using quorvel::GridLengths;
using quorvel::LayoutSheet;

TEST(LayoutSheet, IsAsManyBlocksAsItWasMadeOf) {
  LayoutSheet sheet(GridLengths::Precision::kDouble, 2, 1);
  EXPECT_EQ(sheet.NumRow(1), 1);
  EXPECT_EQ(sheet.NumRow(2), 0);
  EXPECT_EQ(sheet.Cell(2, 0), nullptr);
}

TEST(LayoutSheet, AssignedCellsStayWhereTheShapeStays) {
  LayoutSheet sheet(GridLengths::Precision::kDouble, 2, 1);
  LayoutSheet other = sheet;
  other.Divide(1, 3, 1, 0);
  other.Cell(0, 0)->SetText("new");
  const CLayoutCelData* const first = sheet.Cell(0, 0);
  sheet = std::move(other);
  EXPECT_EQ(sheet.Cell(0, 0), first);
  EXPECT_EQ(first->TextView(), "new");
  EXPECT_EQ(sheet.NumRow(1), 3);
}

TEST(LayoutSheet, MayBeAssignedAnotherNumberOfBlocks) {
  LayoutSheet sheet(GridLengths::Precision::kDouble, 1, 1);
  LayoutSheet three(GridLengths::Precision::kSingle, 3, 0);
  sheet = std::move(three);
  EXPECT_EQ(sheet.Blocks().size(), 3U);
  EXPECT_EQ(sheet.FewestRows(), 0);
  EXPECT_TRUE(sheet.Divide(2, 0, 1, 0));
}

TEST(LayoutSheet, OnlyASheetOfOneBlockWantsTheWholeSelection) {
  for (const int blocks : {1, 2}) {
    LayoutSheet sheet(GridLengths::Precision::kDouble, blocks, 1);
    sheet.Divide(0, 3, 3, 0);
    for (const int selected : {0, 1, 8}) {
      sheet.Cell(0, selected)->SetSelected(1);
    }
    EXPECT_EQ(sheet.RunAt(0, 0, 0).has_value(), blocks == 2);
    EXPECT_EQ(sheet.IsMergePossible(0), blocks == 2);
    EXPECT_EQ(sheet.Merge(0, 0, 0), blocks == 2);
  }
}

}  // namespace
