#include "dialogs/layout/frame_lines.h"

#include <gtest/gtest.h>

#include <array>
#include <initializer_list>

namespace quorvel::test {
namespace {

constexpr auto kBlock = CLayoutExPageData::LISTTYPE_LIST;
constexpr double kDotsPerMm = 11.811;
using Flags = std::array<int, kFrameLineCount>;

/// A page whose list block has so many cells without a line; the header keeps its own.
CLayoutExPageData BarePage(BYTE rows, BYTE cols) {
  CLayoutExPageData page;
  page.DividePage(kBlock, rows, cols, kDotsPerMm);
  for (int index = 0; index < page.GetCelSize(kBlock); ++index) {
    CLayoutCelData& cell = *page.GetCelAt(kBlock, index);
    cell.SetShowLineHL(0);
    cell.SetShowLineHR(0);
    cell.SetShowLineVT(0);
    cell.SetShowLineVB(0);
  }
  return page;
}

CLayoutCelData& CellAt(CLayoutExPageData& page, int row, int col) {
  return *page.GetCelAt(kBlock, page.GetIndexFromRowCol(row, col));
}

void Select(CLayoutExPageData& page, int row, int col, int rows, int cols) {
  for (int atRow = row; atRow < row + rows; ++atRow) {
    for (int atCol = col; atCol < col + cols; ++atCol) {
      CellAt(page, atRow, atCol).SetSelected(1);
    }
  }
}

TEST(FrameLines, BeginWithoutLinesAndWithRoomForBothInnerOnes) {
  const FrameLines lines;
  EXPECT_EQ(lines.shown, Flags{});
  EXPECT_EQ(lines.multiRow, 1);
  EXPECT_EQ(lines.multiColumn, 1);
}

TEST(FrameLines, WithoutASelectionNothingIsShown) {
  CLayoutExPageData page;  // with all lines shown
  const FrameLines lines = ReadFrameLines(page, kBlock);
  EXPECT_EQ(lines.shown, Flags{});
  EXPECT_EQ(lines.multiRow, 0);
  EXPECT_EQ(lines.multiColumn, 0);
}

TEST(FrameLines, ABlockWithoutRowsIsRead) {
  CLayoutExPageData page;
  page.DividePage(kBlock, 0, 3, kDotsPerMm);
  EXPECT_EQ(ReadFrameLines(page, kBlock).shown, Flags{});
}

TEST(FrameLines, OneCellHasOuterLinesOnly) {
  CLayoutExPageData page = BarePage(3, 3);
  Select(page, 1, 1, 1, 1);
  CLayoutCelData& cell = CellAt(page, 1, 1);
  cell.SetShowLineVT(1);
  cell.SetShowLineHR(1);
  const FrameLines lines = ReadFrameLines(page, kBlock);
  EXPECT_EQ(lines.shown, (Flags{1, 0, 0, 0, 0, 1, 0, 0}));
  EXPECT_EQ(lines.multiRow, 0);
  EXPECT_EQ(lines.multiColumn, 0);
}

/// Each flag of the cells of a run of 2 x 3 and the one line that it makes.
TEST(FrameLines, ComeFromTheFirstAndTheLastCellOfARun) {
  struct Case {
    int row;
    int col;
    void (CLayoutCelData::*set)(int);
    Flags expected;
  };
  const Flags none{};
  for (const Case& each : std::initializer_list<Case>{
           {0, 0, &CLayoutCelData::SetShowLineVT, {1, 0, 0, 0, 0, 0, 0, 0}},
           {0, 0, &CLayoutCelData::SetShowLineVB, {0, 1, 0, 0, 0, 0, 0, 0}},
           {0, 0, &CLayoutCelData::SetShowLineHL, {0, 0, 0, 1, 0, 0, 0, 0}},
           {0, 0, &CLayoutCelData::SetShowLineHR, {0, 0, 0, 0, 1, 0, 0, 0}},
           {1, 2, &CLayoutCelData::SetShowLineVB, {0, 0, 1, 0, 0, 0, 0, 0}},
           {1, 2, &CLayoutCelData::SetShowLineHR, {0, 0, 0, 0, 0, 1, 0, 0}},
           {1, 2, &CLayoutCelData::SetShowLineVT, none},
           {1, 2, &CLayoutCelData::SetShowLineHL, none},
           {0, 1, &CLayoutCelData::SetShowLineVT, none},
           {0, 1, &CLayoutCelData::SetShowLineVB, none},
           {0, 1, &CLayoutCelData::SetShowLineHR, none},
           {1, 0, &CLayoutCelData::SetShowLineVB, none},
           {1, 0, &CLayoutCelData::SetShowLineHL, none}}) {
    CLayoutExPageData page = BarePage(4, 4);
    for (int row = 0; row < 2; ++row) {
      for (int col = 0; col < 3; ++col) {
        CellAt(page, row + 1, col + 1).SetSelected(1);
      }
    }
    (CellAt(page, each.row + 1, each.col + 1).*each.set)(1);
    EXPECT_EQ(ReadFrameLines(page, kBlock).shown, each.expected) << each.row << ", " << each.col;
  }
}

TEST(FrameLines, TwoRowsOfOneColumnHaveNoInnerVerticalLine) {
  CLayoutExPageData page = BarePage(3, 2);
  Select(page, 0, 0, 2, 1);
  CellAt(page, 0, 0).SetShowLineVB(1);
  CellAt(page, 0, 0).SetShowLineHR(1);  // the right line of a cell that is not the last
  const FrameLines lines = ReadFrameLines(page, kBlock);
  EXPECT_EQ(lines.shown, (Flags{0, 1, 0, 0, 0, 0, 0, 0}));
  EXPECT_EQ(lines.multiRow, 1);
  EXPECT_EQ(lines.multiColumn, 0);
}

TEST(FrameLines, OfSeveralRunsAreOnIfAnyRunHasThem) {
  CLayoutExPageData page = BarePage(5, 5);
  Select(page, 0, 0, 2, 1);
  Select(page, 3, 2, 1, 2);
  CellAt(page, 0, 0).SetShowLineVT(1);
  CellAt(page, 3, 3).SetShowLineVB(1);
  CellAt(page, 3, 2).SetShowLineHR(1);
  const FrameLines lines = ReadFrameLines(page, kBlock);
  EXPECT_EQ(lines.shown, (Flags{1, 0, 1, 0, 1, 0, 0, 0}));
  EXPECT_EQ(lines.multiRow, 1);
  EXPECT_EQ(lines.multiColumn, 1);
}

TEST(FrameLines, ASelectionThatIsNoRunIsIgnored) {
  CLayoutExPageData page;  // with all lines shown
  page.DividePage(kBlock, 3, 3, kDotsPerMm);
  Select(page, 0, 0, 2, 1);
  Select(page, 1, 1, 1, 1);  // an angle
  const FrameLines lines = ReadFrameLines(page, kBlock);
  EXPECT_EQ(lines.shown, Flags{});
  EXPECT_EQ(lines.multiRow, 0);
}

TEST(FrameLines, OtherBlocksAreNotRead) {
  CLayoutExPageData page;
  page.GetCelAt(CLayoutExPageData::LISTTYPE_HEADER, 0)->SetSelected(1);
  EXPECT_EQ(ReadFrameLines(page, kBlock).shown, Flags{});
  EXPECT_EQ(ReadFrameLines(page, CLayoutExPageData::LISTTYPE_HEADER).shown,
            (Flags{1, 0, 1, 1, 0, 1, 0, 0}));
}

/// What is written is read again, with every run shape and with merged cells.
TEST(FrameLines, ComeBackFromThePage) {
  constexpr int kOuter = 1 + 4 + 8 + 32;
  for (const bool merged : {false, true}) {
    for (const auto& [rows, cols] :
         std::initializer_list<std::array<int, 2>>{{1, 1}, {2, 1}, {1, 2}, {2, 2}, {3, 4}}) {
      for (int bits = 0; bits < 64; ++bits) {
        CLayoutExPageData page = BarePage(6, 6);
        Select(page, 1, 1, rows, cols);
        if (merged && (rows > 1 || cols > 1)) {
          ASSERT_NE(page.MeargeCel(kBlock, 1, 1), 0);
        }
        FrameLines lines;
        for (std::size_t line = 0; line < 6; ++line) {
          lines.shown[line] = bits >> line & 1;
        }
        lines.shown[6] = 1;  // a diagonal goes nowhere
        WriteFrameLines(lines, page, kBlock);
        const FrameLines read = ReadFrameLines(page, kBlock);
        int readBits = 0;
        for (std::size_t line = 0; line < kFrameLineCount; ++line) {
          readBits |= read.shown[line] << line;
        }
        const int inner = merged ? 0 : (rows > 1 ? 2 : 0) + (cols > 1 ? 16 : 0);
        EXPECT_EQ(readBits & (kOuter + inner), bits & (kOuter + inner))
            << rows << " x " << cols << ", merged " << merged;
        EXPECT_EQ(readBits & 0xC0, 0);
      }
    }
  }
}

TEST(FrameLines, PresetsChangeWhatTheyAreAbout) {
  FrameLines lines;
  lines.shown.fill(1);
  HideAllLines(lines);
  EXPECT_EQ(lines.shown, Flags{});
  ShowInnerLines(lines);
  EXPECT_EQ(lines.shown, (Flags{0, 1, 0, 0, 1, 0, 0, 0}));
  ShowOuterLines(lines);
  EXPECT_EQ(lines.shown, (Flags{1, 1, 1, 1, 1, 1, 0, 0}));
  HideAllLines(lines);
  ShowOuterLines(lines);
  EXPECT_EQ(lines.shown, (Flags{1, 0, 1, 1, 0, 1, 0, 0}));
}

TEST(FrameLines, InnerPresetSetsBothLinesWhateverTheSelectionHas) {
  FrameLines lines;
  lines.multiColumn = 0;
  ShowInnerLines(lines);
  EXPECT_EQ(lines.shown, (Flags{0, 1, 0, 0, 1, 0, 0, 0}));
}

TEST(FrameLines, AreToggledOneByOne) {
  for (std::size_t line = 0; line < kFrameLineCount; ++line) {
    FrameLines lines;
    Flags expected{};
    ToggleLine(lines, static_cast<FrameLine>(line));
    expected[line] = 1;
    EXPECT_EQ(lines.shown, expected);
    ToggleLine(lines, static_cast<FrameLine>(line));
    EXPECT_EQ(lines.shown, Flags{});
  }
}

TEST(FrameLines, InnerLinesWithoutRoomAndDiagonalsAreNotDrawn) {
  FrameLines lines;
  lines.shown = {1, 1, 0, 1, 1, 0, 1, 1};
  const auto strokes = [&lines] {
    std::array<FrameStroke, kFrameLineCount> all{};
    for (std::size_t line = 0; line < kFrameLineCount; ++line) {
      all[line] = StrokeOf(lines, static_cast<FrameLine>(line));
    }
    return all;
  };
  using enum FrameStroke;
  EXPECT_EQ(strokes(),
            (std::array{kSolid, kSolid, kDotted, kSolid, kSolid, kDotted, kNone, kNone}));
  lines.multiRow = 0;
  EXPECT_EQ(strokes(), (std::array{kSolid, kNone, kDotted, kSolid, kSolid, kDotted, kNone, kNone}));
  lines.multiColumn = 0;
  EXPECT_EQ(strokes(), (std::array{kSolid, kNone, kDotted, kSolid, kNone, kDotted, kNone, kNone}));
}

TEST(FrameLines, SegmentsStandAtFixedPixels) {
  const auto is = [](FrameLine line, CPoint from, CPoint to) {
    const FrameSegment segment = SegmentOf(line, 1.0);
    return segment.from == from && segment.to == to;
  };
  EXPECT_TRUE(is(FrameLine::kTop, {5, 5}, {125, 5}));
  EXPECT_TRUE(is(FrameLine::kInnerHorizontal, {5, 40}, {125, 40}));
  EXPECT_TRUE(is(FrameLine::kBottom, {5, 75}, {125, 75}));
  EXPECT_TRUE(is(FrameLine::kLeft, {5, 5}, {5, 75}));
  EXPECT_TRUE(is(FrameLine::kInnerVertical, {65, 5}, {65, 75}));
  EXPECT_TRUE(is(FrameLine::kRight, {125, 5}, {125, 75}));
  EXPECT_TRUE(is(FrameLine::kRisingDiagonal, {5, 75}, {125, 5}));
  EXPECT_TRUE(is(FrameLine::kFallingDiagonal, {5, 5}, {125, 75}));
}

TEST(SegmentOf, FollowsTheDisplaysScale) {
  const FrameSegment segment = SegmentOf(FrameLine::kInnerVertical, 1.5);
  EXPECT_EQ(segment.from, CPoint(98, 8));  // 97.5 and 7.5
  EXPECT_EQ(segment.to, CPoint(98, 113));
}

}  // namespace
}  // namespace quorvel::test
