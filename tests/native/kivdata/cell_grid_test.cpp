#include "kivdata/cell_grid.h"

#include "grid_pictures.h"

#include <gtest/gtest.h>

#include <optional>
#include <string>
#include <vector>

namespace {

using quorvel::CellGrid;
using quorvel::CellRange;
using quorvel::Direction;
using quorvel::RunLines;
using quorvel::test::Borders;
using quorvel::test::GridWith;
using quorvel::test::MergePicture;
using quorvel::test::Select;
using quorvel::test::SelectOnly;
using quorvel::test::TextPicture;

/// Letters a, b, c... as the cells' texts.
void Letter(CellGrid& grid) {
  for (int index = 0; index < grid.Size(); ++index) {
    const std::string text(1, static_cast<char>('a' + index));
    grid.At(index)->SetText(text.c_str());
  }
}

std::optional<CRect> RectOf(const CellGrid& grid, int index, const CRect* table) {
  CRect rect;
  return grid.RectOf(index, table, rect) ? std::optional(rect) : std::nullopt;
}

std::string RunPicture(const CellGrid& grid, int row, int col, bool wholeSelection) {
  const auto run = grid.RunAt(row, col, wholeSelection);
  return run ? std::to_string(run->rows) + "x" + std::to_string(run->cols) : "none";
}

// Merging.

TEST(CellGridMerge, MakesOneBlockOfTheSelection) {
  CellGrid grid(3, 4);
  Letter(grid);
  SelectOnly(grid, {1, 1, 2, 3});
  EXPECT_TRUE(grid.Merge(1, 1, true));
  EXPECT_EQ(MergePicture(grid),
            "....\n"
            ".aaa\n"
            ".aaa\n");
  EXPECT_EQ(grid.At(5)->GetSelected(), 1) << "the top-left cell stays selected";
  EXPECT_EQ(grid.At(6)->GetSelected(), 0);
  EXPECT_EQ(grid.At(11)->GetSelected(), 0);
  EXPECT_EQ(TextPicture(grid), "abcd\nefgh\nijkl\n") << "covered cells keep their texts";
}

TEST(CellGridMerge, TakesWholeBlocksIn) {
  CellGrid grid = GridWith(2, 3, {{0, 0, 1, 2}, {0, 2, 2, 1}});
  EXPECT_EQ(MergePicture(grid), "aab\n..b\n");
  Select(grid, {{0, 0}, {0, 2}, {1, 0}, {1, 1}});
  EXPECT_EQ(RunPicture(grid, 0, 0, true), "2x3");
  EXPECT_TRUE(grid.Merge(0, 0, true));
  EXPECT_EQ(MergePicture(grid), "aaa\naaa\n");
}

TEST(CellGridMerge, NeedsTwoCells) {
  CellGrid grid = GridWith(2, 2, {{0, 0, 2, 1}});
  Select(grid, {{0, 1}});
  EXPECT_FALSE(grid.Merge(0, 1, true));
  SelectOnly(grid, {0, 0, 1, 1});
  EXPECT_FALSE(grid.Merge(0, 0, true)) << "a merged cell alone is one cell";
  EXPECT_EQ(MergePicture(grid), "a.\na.\n");
}

TEST(CellGridMerge, RefusesASelectionThatCutsThroughABlock) {
  CellGrid grid = GridWith(2, 3, {{0, 0, 1, 2}});
  SelectOnly(grid, {0, 1, 2, 2});  // the covered cell, not its owner
  EXPECT_FALSE(grid.IsMergePossible(true));
  EXPECT_FALSE(grid.IsMergePossible(false));
  EXPECT_FALSE(grid.Merge(0, 2, true));
  EXPECT_FALSE(grid.Merge(0, 2, false));
  EXPECT_FALSE(grid.Merge(1, 1, false));
  SelectOnly(grid, {0, 0, 2, 1});  // the owner, not all of its block
  EXPECT_FALSE(grid.IsMergePossible(false));
  EXPECT_FALSE(grid.Merge(0, 0, false));
  EXPECT_EQ(MergePicture(grid), "aa.\n...\n");
}

TEST(CellGridMerge, RefusesShapesThatAreNoRectangle) {
  CellGrid grid(3, 3);
  Select(grid, {{0, 0}, {0, 1}, {1, 0}});
  EXPECT_FALSE(grid.Merge(0, 0, true));
  EXPECT_FALSE(grid.Merge(0, 0, false));
  Select(grid, {{1, 1}});
  EXPECT_TRUE(grid.IsMergePossible(true));
  Select(grid, {{2, 1}});
  EXPECT_FALSE(grid.IsMergePossible(true)) << "a cell that hangs on below";
  EXPECT_FALSE(grid.IsMergePossible(false));
}

TEST(CellGridMerge, RefusesRectanglesWithHoles) {
  CellGrid grid(3, 3);
  SelectOnly(grid, {0, 0, 3, 3});
  grid.At(4)->SetSelected(0);
  EXPECT_FALSE(grid.Merge(0, 0, true));
  EXPECT_EQ(RunPicture(grid, 0, 0, false), "none");
}

TEST(CellGridMerge, SplittingMakesSingleCellsAgain) {
  CellGrid grid(2, 3);
  Letter(grid);
  SelectOnly(grid, {0, 0, 2, 2});
  grid.Merge(0, 0, true);
  EXPECT_TRUE(grid.IsSplitPossible());
  EXPECT_TRUE(grid.Split(0, 0));
  EXPECT_EQ(MergePicture(grid), "...\n...\n");
  EXPECT_EQ(TextPicture(grid), "abc\ndef\n");
  EXPECT_FALSE(grid.IsSelected());
  EXPECT_FALSE(grid.Split(0, 0));
  EXPECT_FALSE(grid.Split(9, 9));
}

TEST(CellGridMerge, OnlyASelectedBlockCanBeSplit) {
  CellGrid grid = GridWith(2, 2, {{0, 0, 1, 2}});
  EXPECT_FALSE(grid.IsSplitPossible());
  Select(grid, {{1, 1}});
  EXPECT_FALSE(grid.IsSplitPossible());
  Select(grid, {{0, 1}});
  EXPECT_FALSE(grid.IsSplitPossible()) << "a covered cell is no block";
  Select(grid, {{0, 0}});
  EXPECT_TRUE(grid.IsSplitPossible());
}

// Merges that a caller left unsound.

TEST(CellGridUnsound, SizesBeyondTheGridCountAsNotMerged) {
  CellGrid grid(2, 2);
  grid.At(3)->SetRowMeargeSize(200);
  grid.At(3)->SetColMeargeSize(200);
  EXPECT_FALSE(grid.IsSound());
  EXPECT_TRUE(grid.Merges().empty());
  const std::vector<CRect> table(4, CRect(1, 2, 3, 4));
  EXPECT_EQ(RectOf(grid, 3, table.data()), CRect(1, 2, 3, 4));
  grid.Insert(Direction::kRows, 0);
  EXPECT_EQ(MergePicture(grid), "..\n..\n..\n");
  EXPECT_TRUE(grid.IsSound());
}

TEST(CellGridUnsound, CoveredCellsWithoutABlockComeBack) {
  CellGrid grid(2, 2);
  grid.At(3)->SetRowMeargeSize(0);
  grid.At(3)->SetColMeargeSize(0);
  grid.At(3)->SetSelected(1);
  EXPECT_FALSE(grid.IsSound());
  EXPECT_FALSE(grid.RunAt(1, 1, false));
  EXPECT_FALSE(grid.FirstSelected());
  EXPECT_FALSE(RectOf(grid, 3, std::vector<CRect>(4).data()));
  grid.Delete(Direction::kColumns, 0);
  EXPECT_EQ(MergePicture(grid), ".\n.\n");
}

TEST(CellGridUnsound, ACoveredCellWithoutABlockSpoilsNoRun) {
  CellGrid grid(2, 2);
  grid.At(3)->SetRowMeargeSize(0);
  Select(grid, {{1, 0}});
  EXPECT_EQ(RunPicture(grid, 1, 0, true), "1x1");
}

TEST(CellGridUnsound, BlocksThatOverlapAreNotMerged) {
  CellGrid grid(2, 3);
  grid.At(0)->SetColMeargeSize(2);
  grid.At(1)->SetColMeargeSize(2);
  grid.At(2)->SetRowMeargeSize(0);
  grid.At(2)->SetColMeargeSize(0);
  EXPECT_FALSE(grid.IsSound());
  ASSERT_EQ(grid.Merges().size(), 1U) << "the second is sound by itself";
  SelectOnly(grid, {0, 0, 1, 3});
  EXPECT_FALSE(grid.RunAt(0, 0, false));
  EXPECT_FALSE(grid.IsMergePossible(false));
}

TEST(CellGridUnsound, HalfSizesAreNotSound) {
  CellGrid grid(2, 2);
  grid.At(0)->SetColMeargeSize(0);
  EXPECT_FALSE(grid.IsSound());
  EXPECT_TRUE(RectOf(grid, 0, std::vector<CRect>(4).data())) << "not covered: it has a row";
  CellGrid other(2, 2);
  other.At(0)->SetRowMeargeSize(2);
  other.At(2)->SetRowMeargeSize(0);  // its columns are still 1
  EXPECT_TRUE(other.Merges().empty());
}

TEST(CellGridUnsound, MergedCellByCellIsAsGoodAsMergedAtOnce) {
  CellGrid grid(2, 2);
  grid.At(0)->SetRowMeargeSize(2);
  grid.At(0)->SetColMeargeSize(2);
  for (const int covered : {1, 2, 3}) {
    grid.At(covered)->SetRowMeargeSize(0);
    grid.At(covered)->SetColMeargeSize(0);
  }
  EXPECT_TRUE(grid.IsSound());
  EXPECT_EQ(grid.Merges().size(), 1U);
}

// Selection.

TEST(CellGridSelection, RunsAreTheSeparateRectangles) {
  CellGrid grid(5, 5);
  Select(grid, {{0, 0}, {0, 1}, {1, 0}, {1, 1}, {3, 3}, {3, 4}});
  EXPECT_EQ(RunPicture(grid, 0, 0, false), "2x2");
  EXPECT_EQ(RunPicture(grid, 3, 3, false), "1x2");
  EXPECT_EQ(RunPicture(grid, 0, 1, false), "none") << "not the top-left cell";
  EXPECT_EQ(RunPicture(grid, 1, 0, false), "none");
  EXPECT_EQ(RunPicture(grid, 3, 4, false), "none");
  EXPECT_EQ(RunPicture(grid, 2, 2, false), "none") << "not selected";
  EXPECT_EQ(RunPicture(grid, -1, 0, false), "none");
  EXPECT_EQ(RunPicture(grid, 0, 5, false), "none");
  EXPECT_EQ(RunPicture(grid, 0, 0, true), "none") << "not the whole selection";
  EXPECT_EQ(RunPicture(grid, 3, 3, true), "none");
  EXPECT_TRUE(grid.IsMergePossible(false));
  EXPECT_FALSE(grid.IsMergePossible(true));
}

TEST(CellGridSelection, TouchingAtACornerIsSeparate) {
  CellGrid grid(2, 2);
  Select(grid, {{0, 0}, {1, 1}});
  EXPECT_EQ(RunPicture(grid, 0, 0, false), "1x1");
  EXPECT_EQ(RunPicture(grid, 1, 1, false), "1x1");
  EXPECT_FALSE(grid.IsMergePossible(false));
}

TEST(CellGridSelection, NeighboursOfAnotherHeightSpoilARun) {
  CellGrid grid(3, 3);
  Select(grid, {{0, 0}, {1, 0}, {1, 1}});
  EXPECT_EQ(RunPicture(grid, 0, 0, false), "none");
  EXPECT_EQ(RunPicture(grid, 1, 1, false), "none");
  SelectOnly(grid, {1, 1, 1, 1});
  for (const auto& [row, col] : {std::pair(0, 1), std::pair(1, 0)}) {
    Select(grid, {{row, col}});
    EXPECT_EQ(RunPicture(grid, 1, 1, false), "none");
    SelectOnly(grid, {1, 1, 1, 1});
  }
}

TEST(CellGridSelection, ASelectedBlockStandsForAllOfIt) {
  CellGrid grid = GridWith(3, 3, {{0, 0, 2, 2}});
  Select(grid, {{0, 0}});
  EXPECT_EQ(RunPicture(grid, 0, 0, false), "1x1");
  EXPECT_EQ(RunPicture(grid, 0, 0, true), "1x1");
  Select(grid, {{0, 2}, {1, 2}});
  EXPECT_EQ(RunPicture(grid, 0, 0, true), "2x3");
  EXPECT_EQ(RunPicture(grid, 0, 2, false), "none") << "the block on its left is selected";
  grid.At(5)->SetSelected(0);
  EXPECT_EQ(RunPicture(grid, 0, 0, true), "none");
  EXPECT_EQ(RunPicture(grid, 0, 2, false), "none");
}

TEST(CellGridSelection, ABlockThatReachesOutSpoilsTheRun) {
  CellGrid grid = GridWith(3, 3, {{1, 1, 2, 1}});
  Select(grid, {{0, 0}, {0, 1}, {1, 0}, {1, 1}});
  EXPECT_EQ(RunPicture(grid, 0, 0, false), "none");
  Select(grid, {{2, 0}});
  EXPECT_EQ(RunPicture(grid, 0, 0, false), "3x2");
}

TEST(CellGridSelection, CommandsPassCoveredCellsOver) {
  CellGrid grid = GridWith(3, 3, {{0, 0, 1, 2}});
  Select(grid, {{0, 1}});
  EXPECT_TRUE(grid.IsSelected());
  EXPECT_FALSE(grid.FirstSelected());
  EXPECT_EQ(RunPicture(grid, 0, 1, false), "none");
  const std::vector<bool> none(3, false);
  EXPECT_EQ(grid.SelectedLines(Direction::kRows), none);
  Select(grid, {{2, 2}});
  ASSERT_TRUE(grid.FirstSelected());
  EXPECT_EQ(grid.FirstSelected()->row, 2);
  EXPECT_EQ(grid.FirstSelected()->col, 2);
  EXPECT_EQ(RunPicture(grid, 2, 2, false), "1x1");
  EXPECT_EQ(RunPicture(grid, 2, 2, true), "none") << "the mark cuts through a block";
}

TEST(CellGridSelection, LinesAreThoseThatSelectedCellsSpan) {
  CellGrid grid = GridWith(4, 3, {{1, 0, 2, 2}});
  Select(grid, {{1, 0}});
  EXPECT_EQ(grid.SelectedLines(Direction::kRows), (std::vector<bool>{false, true, true, false}));
  EXPECT_EQ(grid.SelectedLines(Direction::kColumns), (std::vector<bool>{true, true, false}));
}

// Shape.

TEST(CellGridShape, ReshapingKeepsWhatLiesInBoth) {
  CellGrid grid(2, 3);
  Letter(grid);
  SelectOnly(grid, {0, 1, 1, 1});
  CLayoutCelData fresh;
  fresh.SetText("*");
  grid.Reshape(3, 2, fresh);
  EXPECT_EQ(TextPicture(grid), "ab\nde\n**\n");
  EXPECT_EQ(grid.At(1)->GetSelected(), 1);
  grid.Reshape(1, 4, fresh);
  EXPECT_EQ(TextPicture(grid), "ab**\n");
  grid.Reshape(0, 4, fresh);
  EXPECT_EQ(grid.Size(), 0);
  grid.Reshape(1, 1, fresh);
  EXPECT_EQ(TextPicture(grid), "*\n");
}

TEST(CellGridShape, ReshapingClipsMerges) {
  CellGrid grid = GridWith(3, 3, {{0, 0, 1, 3}, {1, 1, 2, 2}, {1, 0, 2, 1}});
  EXPECT_EQ(MergePicture(grid), "aaa\nbcc\nbcc\n");
  CellGrid smaller = grid;
  smaller.Reshape(2, 2, {});
  EXPECT_EQ(MergePicture(smaller), "aa\n..\n");
  CellGrid lower = grid;
  lower.Reshape(2, 3, {});
  EXPECT_EQ(MergePicture(lower), "aaa\n.bb\n");
  CellGrid larger = grid;
  larger.Reshape(4, 4, {});
  EXPECT_EQ(MergePicture(larger), "aaa.\nbcc.\nbcc.\n....\n");
}

TEST(CellGridShape, InsertingGrowsMergesThatItCutsThrough) {
  const CellGrid grid = GridWith(3, 3, {{0, 0, 2, 2}, {1, 2, 2, 1}});
  EXPECT_EQ(MergePicture(grid), "aa.\naab\n..b\n");
  CellGrid before = grid;
  before.Insert(Direction::kRows, 0);
  EXPECT_EQ(MergePicture(before), "...\naa.\naab\n..b\n");
  CellGrid through = grid;
  through.Insert(Direction::kRows, 1);
  EXPECT_EQ(MergePicture(through), "aa.\naa.\naab\n..b\n");
  CellGrid lower = grid;
  lower.Insert(Direction::kRows, 2);
  EXPECT_EQ(MergePicture(lower), "aa.\naab\n..b\n..b\n");
  CellGrid columns = grid;
  columns.Insert(Direction::kColumns, 1);
  EXPECT_EQ(MergePicture(columns), "aaa.\naaab\n...b\n");
}

TEST(CellGridShape, AnInsertedLineIsEmptyWithItsNeighboursFonts) {
  CellGrid grid = GridWith(2, 2, {{1, 0, 1, 2}});
  Letter(grid);
  SelectOnly(grid, {0, 0, 2, 2});
  CKivFontEx font;
  font.SetV(9);
  grid.At(2)->SetFont(&font);
  grid.Insert(Direction::kRows, 1);
  EXPECT_EQ(TextPicture(grid), "ab\n..\ncd\n");
  EXPECT_EQ(grid.At(2)->GetSelected(), 0);
  EXPECT_EQ(grid.At(2)->GetFont()->GetV(), 9);
  EXPECT_EQ(grid.At(3)->GetFont()->GetV(), 9) << "the block's font, not the covered cell's";
}

TEST(CellGridShape, DeletingShrinksMergesThatItCutsThrough) {
  const CellGrid grid = GridWith(3, 3, {{0, 0, 3, 2}, {1, 2, 2, 1}});
  EXPECT_EQ(MergePicture(grid), "aa.\naab\naab\n");
  CellGrid rows = grid;
  rows.Delete(Direction::kRows, 1);
  EXPECT_EQ(MergePicture(rows), "aa.\naa.\n");
  CellGrid columns = grid;
  columns.Delete(Direction::kColumns, 2);
  EXPECT_EQ(MergePicture(columns), "aa\naa\naa\n");
  columns.Delete(Direction::kColumns, 0);
  EXPECT_EQ(MergePicture(columns), "a\na\na\n");
}

TEST(CellGridShape, DeletingMovesLaterMergesUp) {
  CellGrid grid = GridWith(4, 2, {{1, 0, 1, 2}, {2, 1, 2, 1}});
  grid.Delete(Direction::kRows, 0);
  EXPECT_EQ(MergePicture(grid), "aa\n.b\n.b\n");
  grid.Delete(Direction::kColumns, 0);
  EXPECT_EQ(MergePicture(grid), ".\na\na\n");
}

TEST(CellGridShape, DeletingTheFirstLineOfABlockMovesItsContent) {
  CellGrid grid = GridWith(3, 2, {{0, 0, 2, 2}});
  Letter(grid);
  SelectOnly(grid, {0, 0, 1, 1});
  CellGrid rows = grid;
  rows.Delete(Direction::kRows, 0);
  EXPECT_EQ(MergePicture(rows), "aa\n..\n");
  EXPECT_EQ(TextPicture(rows), "ad\nef\n");
  EXPECT_EQ(rows.At(0)->GetSelected(), 1);
  grid.Delete(Direction::kColumns, 0);
  EXPECT_EQ(MergePicture(grid), "a\na\n.\n");
  EXPECT_EQ(TextPicture(grid), "a\nd\nf\n");
}

TEST(CellGridShape, CellsStayWhereTheyAreWhileTheShapeStays) {
  CellGrid grid(2, 2);
  const CLayoutCelData* const first = grid.At(0);
  CellGrid other(2, 2);
  other.At(0)->SetText("new");
  grid = std::move(other);
  EXPECT_EQ(grid.At(0), first);
  EXPECT_EQ(first->TextView(), "new");
  CellGrid wider(2, 3);
  wider.At(5)->SetText("last");
  grid = std::move(wider);
  EXPECT_EQ(grid.Columns(), 3);
  EXPECT_EQ(grid.At(5)->TextView(), "last");
  CellGrid& same = grid;
  grid = std::move(same);
  EXPECT_EQ(grid.At(5)->TextView(), "last");
}

// Ruled lines.

constexpr RunLines kNone{};

TEST(CellGridLines, TheSixSwitchesGoToTheirLines) {
  struct Case {
    RunLines lines;
    std::vector<std::string> cells;  // the four of the run, row by row
  };
  const std::vector<Case> cases = {
      {{.top = true}, {"lrTb", "lrTb", "lrtb", "lrtb"}},
      {{.innerHorizontal = true}, {"lrtB", "lrtB", "lrTb", "lrTb"}},
      {{.bottom = true}, {"lrtb", "lrtb", "lrtB", "lrtB"}},
      {{.left = true}, {"Lrtb", "lrtb", "Lrtb", "lrtb"}},
      {{.innerVertical = true}, {"lRtb", "Lrtb", "lRtb", "Lrtb"}},
      {{.right = true}, {"lrtb", "lRtb", "lrtb", "lRtb"}},
  };
  for (const Case& each : cases) {
    CellGrid grid(4, 4);
    SelectOnly(grid, {1, 1, 2, 2});
    grid.SetShowLine(each.lines);
    EXPECT_EQ(Borders(grid, 1, 1), each.cells[0]);
    EXPECT_EQ(Borders(grid, 1, 2), each.cells[1]);
    EXPECT_EQ(Borders(grid, 2, 1), each.cells[2]);
    EXPECT_EQ(Borders(grid, 2, 2), each.cells[3]);
    // The neighbours' facing edges and nothing else of theirs.
    EXPECT_EQ(Borders(grid, 0, 1), each.lines.top ? "LRTB" : "LRTb");
    EXPECT_EQ(Borders(grid, 3, 2), each.lines.bottom ? "LRTB" : "LRtB");
    EXPECT_EQ(Borders(grid, 1, 0), each.lines.left ? "LRTB" : "LrTB");
    EXPECT_EQ(Borders(grid, 2, 3), each.lines.right ? "LRTB" : "lRTB");
    EXPECT_EQ(Borders(grid, 0, 0), "LRTB");
  }
}

TEST(CellGridLines, EachRunGetsThem) {
  CellGrid grid(3, 3);
  Select(grid, {{0, 0}, {2, 2}});
  grid.SetShowLine(kNone);
  EXPECT_EQ(Borders(grid, 0, 0), "lrtb");
  EXPECT_EQ(Borders(grid, 2, 2), "lrtb");
  EXPECT_EQ(Borders(grid, 1, 1), "LRTB");
}

TEST(CellGridLines, WithoutARunNothingChanges) {
  CellGrid grid(3, 3);
  grid.SetShowLine(kNone);
  EXPECT_EQ(Borders(grid, 0, 0), "LRTB");
  Select(grid, {{0, 0}, {0, 1}, {1, 0}});
  grid.SetShowLine(kNone);
  EXPECT_EQ(Borders(grid, 0, 0), "LRTB");
}

TEST(CellGridLines, ABlockHasTheLinesAroundIt) {
  CellGrid grid = GridWith(3, 3, {{0, 0, 2, 2}});
  Select(grid, {{0, 0}});
  grid.SetShowLine({.bottom = true, .right = true});
  EXPECT_EQ(Borders(grid, 0, 0), "lRtB");
  EXPECT_EQ(Borders(grid, 2, 1), "LRTB");
  grid.SetShowLine({.top = true, .left = true});
  EXPECT_EQ(Borders(grid, 0, 0), "LrTb");
  EXPECT_EQ(Borders(grid, 2, 0), "LRtB");
  EXPECT_EQ(Borders(grid, 2, 1), "LRtB");
  EXPECT_EQ(Borders(grid, 0, 2), "lRTB");
  EXPECT_EQ(Borders(grid, 1, 2), "lRTB");
  EXPECT_EQ(Borders(grid, 1, 1), "LrTb") << "the last cell of the block tells its outer lines";
}

TEST(CellGridLines, ALineAlongABlockIsOneLine) {
  CellGrid grid = GridWith(2, 3, {{0, 0, 1, 2}});
  Select(grid, {{1, 0}});
  grid.SetShowLine({.bottom = true, .left = true, .right = true});
  EXPECT_EQ(Borders(grid, 0, 0), "LRTb");
  EXPECT_EQ(Borders(grid, 1, 0), "LRtB");
  EXPECT_EQ(Borders(grid, 1, 1), "LRtB") << "opposite the same edge of the block";
  EXPECT_EQ(Borders(grid, 1, 2), "LRTB");
}

TEST(CellGridLines, InnerLinesOfARunPassBlocksBy) {
  CellGrid grid = GridWith(2, 3, {{0, 0, 2, 1}});
  SelectOnly(grid, {0, 0, 2, 3});
  grid.SetShowLine({.innerVertical = true});
  EXPECT_EQ(Borders(grid, 0, 0), "lRtb");
  EXPECT_EQ(Borders(grid, 0, 1), "LRtb");
  EXPECT_EQ(Borders(grid, 1, 2), "Lrtb");
}

TEST(CellGridLines, MergingKeepsTheOuterLinesOfItsCorners) {
  CellGrid grid(3, 3);
  Select(grid, {{1, 1}});
  grid.SetShowLine(kNone);  // hides all around the middle
  SelectOnly(grid, {1, 1, 2, 2});
  grid.Merge(1, 1, true);
  EXPECT_EQ(Borders(grid, 1, 1), "lRtB");
  EXPECT_EQ(Borders(grid, 0, 2), "LRTb") << "the whole upper edge went with its first cell";
  EXPECT_EQ(Borders(grid, 2, 0), "LrTB");
}

TEST(CellGridLines, SplittingShowsTheInnerLines) {
  CellGrid grid(2, 2);
  SelectOnly(grid, {0, 0, 2, 2});
  grid.SetShowLine(kNone);
  grid.Merge(0, 0, true);
  grid.Split(0, 0);
  EXPECT_EQ(Borders(grid, 0, 0), "lRtB");
  EXPECT_EQ(Borders(grid, 1, 1), "LrTb");
}

TEST(CellGridLines, AnInsertedLineHasTheBordersOfTheDisplacedOne) {
  CellGrid grid(2, 2);
  Select(grid, {{1, 0}});
  grid.SetShowLine({.bottom = true, .left = true});  // top and right hidden
  grid.Insert(Direction::kRows, 1);
  EXPECT_EQ(Borders(grid, 0, 0), "LRTb");
  EXPECT_EQ(Borders(grid, 1, 0), "Lrtb");
  EXPECT_EQ(Borders(grid, 1, 1), "lRTB");
  EXPECT_EQ(Borders(grid, 2, 0), "LrtB");
  EXPECT_EQ(Borders(grid, 0, 1), "LRTB");
}

TEST(CellGridLines, ADeletedLineLeavesOneOfItsTwoBorders) {
  CellGrid grid(3, 1);
  Select(grid, {{0, 0}});
  grid.SetShowLine(kNone);  // hides the page's upper edge and the line below row 0
  CellGrid middle = grid;
  middle.Delete(Direction::kRows, 1);
  EXPECT_EQ(Borders(middle, 0, 0), "lrtB") << "shown, since one of the two was";
  EXPECT_EQ(Borders(middle, 1, 0), "LRTB");
  CellGrid first = grid;
  first.Delete(Direction::kRows, 0);
  EXPECT_EQ(Borders(first, 0, 0), "LRtB") << "the page's edge stays hidden";
  SelectOnly(grid, {2, 0, 1, 1});
  grid.SetShowLine({.top = true, .left = true, .right = true});
  grid.Delete(Direction::kRows, 2);
  EXPECT_EQ(Borders(grid, 1, 0), "LRtb");
}

TEST(CellGridLines, ADeletedLineOfABlockLeavesTheBlocksEdge) {
  CellGrid grid = GridWith(4, 1, {{1, 0, 2, 1}});
  Select(grid, {{1, 0}});
  grid.SetShowLine({.left = true, .right = true});  // above and below hidden
  CellGrid upper = grid;
  upper.Delete(Direction::kRows, 1);
  EXPECT_EQ(Borders(upper, 1, 0), "LRtb");
  CellGrid lower = grid;
  lower.Delete(Direction::kRows, 2);
  EXPECT_EQ(Borders(lower, 1, 0), "LRtb");
}

TEST(CellGridLines, ADeletedLineMakesOneLineAlongABlock) {
  CellGrid grid = GridWith(3, 2, {{0, 0, 1, 2}});
  SelectOnly(grid, {1, 0, 1, 2});
  grid.SetShowLine(kNone);
  SelectOnly(grid, {2, 0, 1, 1});
  grid.SetShowLine({.top = true});
  grid.Delete(Direction::kRows, 1);
  EXPECT_EQ(Borders(grid, 0, 0)[3], 'B');
  EXPECT_EQ(Borders(grid, 1, 0)[2], 'T');
  EXPECT_EQ(Borders(grid, 1, 1)[2], 'T') << "opposite the same edge of the block";
}

TEST(CellGridLines, ReshapingKeepsLinesAndAClippedBlocksEdge) {
  CellGrid grid = GridWith(3, 3, {{1, 1, 2, 2}});
  Select(grid, {{1, 1}});
  grid.SetShowLine({.top = true, .left = true});
  grid.Reshape(2, 2, {});
  EXPECT_EQ(Borders(grid, 1, 1), "LrTb");
  EXPECT_EQ(Borders(grid, 0, 0), "LRTB");
  grid.Reshape(3, 3, {});
  EXPECT_EQ(Borders(grid, 1, 1), "LrTb");
  EXPECT_EQ(Borders(grid, 1, 2), "lRTB");
  EXPECT_EQ(Borders(grid, 2, 1), "LRtB");
  EXPECT_EQ(Borders(grid, 2, 2), "LRTB");
}

TEST(CellGridLines, BordersSetOnOneSideStayUntilTheirLineIsSet) {
  CellGrid grid(3, 3);
  grid.At(8)->SetShowLineHL(0);  // the cell to its left still shows its side
  Select(grid, {{0, 0}});
  grid.SetShowLine(kNone);
  SelectOnly(grid, {0, 1, 1, 2});
  grid.Merge(0, 1, true);
  grid.Split(0, 1);
  EXPECT_EQ(Borders(grid, 2, 2), "lRTB");
  EXPECT_EQ(Borders(grid, 2, 1), "LRTB");
  SelectOnly(grid, {2, 1, 1, 1});
  grid.SetShowLine({.top = true, .bottom = true, .left = true, .right = true});
  EXPECT_EQ(Borders(grid, 2, 2), "LRTB");
}

TEST(CellGridLines, DeletingThePagesEdgeMakesOneLineAlongABlock) {
  CellGrid grid(2, 2);
  Select(grid, {{0, 1}});
  grid.SetShowLine({.top = true, .bottom = true, .left = true});
  SelectOnly(grid, {0, 0, 2, 1});
  grid.Merge(0, 0, true);
  grid.Delete(Direction::kColumns, 1);
  EXPECT_EQ(Borders(grid, 0, 0)[1], Borders(grid, 1, 0)[1]);
}

// Rectangles.

TEST(CellGridRectangles, SpanTheMergedArea) {
  CellGrid grid = GridWith(3, 3, {{1, 1, 2, 2}});
  std::vector<CRect> table;
  for (int row = 0; row < 3; ++row) {
    for (int col = 0; col < 3; ++col) {
      table.emplace_back(col * 10, row * 5, col * 10 + 10, row * 5 + 5);
    }
  }
  EXPECT_EQ(RectOf(grid, 0, table.data()), CRect(0, 0, 10, 5));
  EXPECT_EQ(RectOf(grid, 4, table.data()), CRect(10, 5, 30, 15));
  const CellGrid flat = GridWith(3, 3, {{0, 0, 1, 2}, {1, 0, 2, 1}});
  EXPECT_EQ(RectOf(flat, 0, table.data()), CRect(0, 0, 20, 5));
  EXPECT_EQ(RectOf(flat, 3, table.data()), CRect(0, 5, 10, 15));
  EXPECT_FALSE(RectOf(grid, 5, table.data()));
  EXPECT_FALSE(RectOf(grid, 8, table.data()));
  EXPECT_FALSE(RectOf(grid, 9, table.data()));
  EXPECT_FALSE(RectOf(grid, -1, table.data()));
}

}  // namespace
