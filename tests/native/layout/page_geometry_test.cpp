#include "dialogs/layout/page_geometry.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <vector>

namespace quorvel::test {
namespace {

constexpr DotsPerInch kDots{96.0, 96.0};
constexpr double kDotsPerMm = 11.811;
constexpr CRect kControl(0, 0, 402, 302);

CLayoutPageData PageOf(BYTE rows, BYTE cols, double height, double width) {
  CLayoutPageData page;
  page.DividePage(rows, cols, kDotsPerMm);
  page.SetAllLengthRow(height, 1);
  page.SetAllLengthCol(width, 1);
  return page;
}

TEST(NaturalSize, IsThatOfTheDisplayRounded) {
  EXPECT_EQ(NaturalSize({25.4, 50.8}, kDots), CSize(96, 192));
  EXPECT_EQ(NaturalSize({10.0, 10.2}, kDots), CSize(38, 39));  // 37.80 and 38.55
  EXPECT_EQ(NaturalSize({25.4, 25.4}, {120.0, 72.0}), CSize(120, 72));
}

TEST(NaturalSize, IsAtLeastOnePixel) {
  EXPECT_EQ(NaturalSize({0.0, 0.0}, kDots), CSize(1, 1));
  EXPECT_EQ(NaturalSize({0.1, 0.13}, kDots), CSize(1, 1));
}

TEST(NaturalSize, StaysWithinWholeNumbers) {
  EXPECT_GT(NaturalSize({1e12, 1e12}, kDots).cx, 1'000'000);
}

TEST(ScaledPixels, AreRoundedAndAtLeastOne) {
  EXPECT_EQ(ScaledPixels(25.4, 1.0, 96.0), 96);
  EXPECT_EQ(ScaledPixels(25.4, 0.5, 96.0), 48);
  EXPECT_EQ(ScaledPixels(3.5, 1.0, 96.0), 13);  // 13.23
  EXPECT_EQ(ScaledPixels(3.6, 1.0, 96.0), 14);  // 13.61
  EXPECT_EQ(ScaledPixels(0.0, 1.0, 96.0), 1);
}

TEST(FitPage, AWidePageFillsTheWidthAndIsCentredUpright) {
  const FittedPage fitted = FitPage(kControl, {254.0, 25.4}, kDots);  // 960 x 96
  EXPECT_DOUBLE_EQ(fitted.scale, 400.0 / 960.0);
  EXPECT_EQ(fitted.area, CRect(1, 131, 401, 171));  // 40 of 300 high
}

TEST(FitPage, AHighPageFillsTheHeightAndIsCentredAcross) {
  const FittedPage fitted = FitPage(kControl, {25.4, 254.0}, kDots);  // 96 x 960
  EXPECT_DOUBLE_EQ(fitted.scale, 300.0 / 960.0);
  EXPECT_EQ(fitted.area, CRect(186, 1, 216, 301));
}

TEST(FitPage, CutsFractionsOff) {
  const FittedPage fitted = FitPage({0, 0, 103, 52}, {70.0, 30.0}, kDots);  // 265 x 113
  const double scale = 50.0 / 113.0;  // less than 101 / 265
  EXPECT_GT(scale, 101.0 / 265.0);
  EXPECT_DOUBLE_EQ(fitted.scale, 101.0 / 265.0);
  EXPECT_EQ(fitted.area.Height(), 43);  // 43.07
  EXPECT_EQ(fitted.area.top, 4);        // 1 + half of 7
}

TEST(FitPage, APageThatFitsExactlyIsNotMoved) {
  const FittedPage fitted = FitPage({0, 0, 98, 98}, {25.4, 25.4}, kDots);
  EXPECT_DOUBLE_EQ(fitted.scale, 1.0);
  EXPECT_EQ(fitted.area, CRect(1, 1, 97, 97));
}

TEST(FitPage, APageWithoutWidthIsOnePixelWideByNature) {
  const FittedPage fitted = FitPage(kControl, {0.0, 25.4}, kDots);
  EXPECT_DOUBLE_EQ(fitted.scale, 300.0 / 96.0);
  EXPECT_EQ(fitted.area.Width(), 3);
  EXPECT_EQ(fitted.area.Height(), 300);
}

TEST(PlacePage, StandsInTheMiddleAtTheScaleGiven) {
  const FittedPage placed = PlacePage(kControl, {254.0, 25.4}, kDots, 0.25);  // 960 x 96
  EXPECT_EQ(placed.area, CRect(81, 139, 321, 163));
  EXPECT_EQ(placed.scale, 0.25);
  EXPECT_DOUBLE_EQ(ScaleToFit(kControl, {254.0, 25.4}, kDots), 400.0 / 960.0);
}

TEST(PlacePage, PagesOfOneWidthStandAboveEachOther) {
  const FittedPage high = PlacePage({0, 0, 402, 302}, {180.0, 90.0}, kDots, 0.3);
  const FittedPage low = PlacePage({0, 0, 402, 62}, {180.0, 10.0}, kDots, 0.3);
  EXPECT_EQ(high.area.left, low.area.left);
  EXPECT_EQ(high.area.right, low.area.right);
}

/// 3 x 2 cells of 40 x 50 pixels.
class GridOfThreeByTwo : public ::testing::Test {
protected:
  GridOfThreeByTwo() { m_table = RectTable(m_block, {10, 20, 110, 140}); }

  std::optional<BorderDrag> At(int x, int y) const {
    return FindBorder(m_table, m_block.Rows(), m_block.Cols(), {x, y});
  }

  CLayoutPageData m_page = PageOf(3, 2, 120.0, 100.0);
  SheetBlock m_block{m_page};
  std::vector<CRect> m_table;
};

TEST_F(GridOfThreeByTwo, ABorderIsTakenWithinThreePixels) {
  for (int y = 15; y < 145; ++y) {
    SCOPED_TRACE(y);
    const std::optional<BorderDrag> drag = At(30, y);
    const int row = std::abs(y - 60) < 4 ? 0 : std::abs(y - 100) < 4 ? 1 : -1;
    ASSERT_EQ(drag.has_value(), row >= 0);
    if (drag) {
      EXPECT_EQ(drag->row, row);
      EXPECT_EQ(drag->col, -1);
      EXPECT_EQ(drag->start, y);
      EXPECT_EQ(drag->guide, y);
      EXPECT_EQ(drag->first, row == 0 ? 20 : 60);
      EXPECT_EQ(drag->last, row == 0 ? 100 : 140);
    }
  }
  for (int x = 5; x < 115; ++x) {
    SCOPED_TRACE(x);
    const std::optional<BorderDrag> drag = At(x, 40);
    ASSERT_EQ(drag.has_value(), std::abs(x - 60) < 4);
    if (drag) {
      EXPECT_EQ(drag->row, -1);
      EXPECT_EQ(drag->col, 0);
      EXPECT_EQ(drag->start, x);
      EXPECT_EQ(drag->first, 10);
      EXPECT_EQ(drag->last, 110);
    }
  }
}

TEST_F(GridOfThreeByTwo, WhereBothMeetTheRowIsTaken) {
  const std::optional<BorderDrag> drag = At(61, 98);
  ASSERT_TRUE(drag);
  EXPECT_EQ(drag->row, 1);
  EXPECT_EQ(drag->col, -1);
}

TEST_F(GridOfThreeByTwo, MergedCellsDoNotHideABorder) {
  m_page.GetCelAt(0)->SetSelected(1);
  m_page.GetCelAt(2)->SetSelected(1);
  ASSERT_TRUE(m_page.MeargeCel(0, 0));
  EXPECT_TRUE(At(30, 60));
}

TEST(FindBorder, OneRowAndOneColumnHaveNone) {
  CLayoutPageData page = PageOf(1, 1, 20.0, 20.0);
  const SheetBlock block(page);
  const std::vector<CRect> table = RectTable(block, {0, 0, 20, 20});
  for (int y = -5; y < 26; ++y) {
    for (int x = -5; x < 26; ++x) {
      EXPECT_FALSE(FindBorder(table, 1, 1, {x, y})) << x << ", " << y;
    }
  }
}

TEST(FindBorder, TheLowestIsTakenWhereSeveralAreNear) {
  CLayoutPageData page = PageOf(4, 4, 8.0, 8.0);
  const SheetBlock block(page);
  const std::vector<CRect> table = RectTable(block, {0, 0, 8, 100});
  const std::optional<BorderDrag> drag = FindBorder(table, 4, 4, {4, 12});
  ASSERT_TRUE(drag);
  EXPECT_EQ(drag->col, 0);
}

TEST_F(GridOfThreeByTwo, TheGuideStopsAtTheLastPlaceBetweenTheNeighbours) {
  std::optional<BorderDrag> drag = At(30, 60);
  ASSERT_TRUE(drag);
  EXPECT_TRUE(MoveGuide(*drag, {500, 21}));
  EXPECT_EQ(drag->guide, 21);
  for (const int y : {20, 19, -300, 100, 101, 900}) {
    EXPECT_FALSE(MoveGuide(*drag, {30, y})) << y;
    EXPECT_EQ(drag->guide, 21);
  }
  EXPECT_TRUE(MoveGuide(*drag, {30, 99}));
  EXPECT_EQ(drag->guide, 99);
  drag = At(60, 40);
  ASSERT_TRUE(drag);
  EXPECT_FALSE(MoveGuide(*drag, {10, 40}));
  EXPECT_FALSE(MoveGuide(*drag, {110, 40}));
  EXPECT_TRUE(MoveGuide(*drag, {109, 40}));
  EXPECT_EQ(drag->guide, 109);
}

TEST_F(GridOfThreeByTwo, TheGuideLineCrossesThePage) {
  const CRect page(10, 20, 110, 140);
  const GuideLine row = GuideOf(*At(30, 61), page);
  EXPECT_EQ(row.from, CPoint(10, 61));
  EXPECT_EQ(row.to, CPoint(110, 61));
  const GuideLine column = GuideOf(*At(59, 40), page);
  EXPECT_EQ(column.from, CPoint(59, 20));
  EXPECT_EQ(column.to, CPoint(59, 140));
}

/// Rows of 40 mm, columns of 50 mm, a pixel each millimetre.
class Dragging : public GridOfThreeByTwo {
protected:
  static constexpr DotsPerInch kOneADot{25.4, 50.8};

  PairOfLengths RowMovedBy(int pixels, double scale = 2.0) const {
    return DraggedLengths({.row = 0, .start = 60, .guide = 60 + pixels}, m_block, scale, kOneADot);
  }
  PairOfLengths ColumnMovedBy(int pixels, double scale = 1.0) const {
    return DraggedLengths({.col = 0, .start = 60, .guide = 60 + pixels}, m_block, scale, kOneADot);
  }
};

TEST_F(Dragging, WhatOneGainsTheOtherLoses) {
  EXPECT_EQ(ColumnMovedBy(0).first, 50.0);
  EXPECT_EQ(ColumnMovedBy(7).first, 57.0);
  EXPECT_EQ(ColumnMovedBy(7).second, 43.0);
  EXPECT_EQ(ColumnMovedBy(-7).first, 43.0);
  EXPECT_EQ(ColumnMovedBy(-7).second, 57.0);
}

TEST_F(Dragging, EachWayHasItsOwnResolutionAndScale) {
  EXPECT_EQ(ColumnMovedBy(8, 0.5).first, 66.0);
  EXPECT_EQ(RowMovedBy(8).first, 42.0);  // a quarter of a millimetre each pixel
  EXPECT_EQ(RowMovedBy(8).second, 38.0);
}

TEST_F(Dragging, MovesByWholeMillimetres) {
  EXPECT_EQ(RowMovedBy(1).first, 40.0);  // 0.25
  EXPECT_EQ(RowMovedBy(3).first, 41.0);  // 0.75
  EXPECT_EQ(RowMovedBy(5).first, 41.0);  // 1.25
  EXPECT_EQ(RowMovedBy(-1).first, 40.0);
  EXPECT_EQ(RowMovedBy(-3).first, 39.0);
}

TEST_F(Dragging, LengthsMayBecomeNothingButNotLess) {
  EXPECT_EQ(ColumnMovedBy(-50).first, 0.0);
  EXPECT_EQ(ColumnMovedBy(-80).first, 0.0);
  EXPECT_EQ(ColumnMovedBy(-80).second, 100.0);
  EXPECT_EQ(ColumnMovedBy(50).second, 0.0);
  EXPECT_EQ(ColumnMovedBy(80).second, 0.0);
  EXPECT_EQ(ColumnMovedBy(80).first, 100.0);
}

TEST_F(Dragging, TheTwoLengthsAreStored) {
  StoreLengths({.row = 1}, {33.0, 47.0}, m_block);
  EXPECT_EQ(m_page.GetLengthRow(0), 40.0);
  EXPECT_EQ(m_page.GetLengthRow(1), 33.0);
  EXPECT_EQ(m_page.GetLengthRow(2), 47.0);
  StoreLengths({.col = 0}, {0.0, 100.0}, m_block);
  EXPECT_EQ(m_page.GetLengthCol(0), 0.0);
  EXPECT_EQ(m_page.GetLengthCol(1), 100.0);
}

TEST(BorderBeyond, IsThatOfAllThatACelCovers) {
  CLayoutPageData page;
  page.DividePage(3, 4, 11.811);
  for (const int index : {0, 1, 4, 5}) {
    page.GetCelAt(index)->SetSelected(1);
  }
  ASSERT_TRUE(page.MeargeCel(0, 0));
  const SheetBlock block(page);
  const auto rowOf = [&](int index) { return BorderBeyond(block, index, true).value().row; };
  const auto colOf = [&](int index) { return BorderBeyond(block, index, false).value().col; };
  EXPECT_EQ(rowOf(0), 1);  // two rows and two columns are one cell
  EXPECT_EQ(colOf(0), 1);
  EXPECT_EQ(rowOf(2), 0);
  EXPECT_EQ(colOf(2), 2);
  EXPECT_TRUE(BorderBeyond(block, 2, true)->IsRow());
  EXPECT_FALSE(BorderBeyond(block, 2, false)->IsRow());
}

TEST(BorderBeyond, IsMissingAtTheEdgeOfThePage) {
  CLayoutPageData page;
  page.DividePage(3, 4, 11.811);
  const SheetBlock block(page);
  EXPECT_FALSE(BorderBeyond(block, 11, true).has_value());
  EXPECT_FALSE(BorderBeyond(block, 11, false).has_value());
  EXPECT_FALSE(BorderBeyond(block, 3, false).has_value());
  EXPECT_TRUE(BorderBeyond(block, 3, true).has_value());
  EXPECT_FALSE(BorderBeyond(block, -1, false).has_value());
  EXPECT_FALSE(BorderBeyond(block, 12, true).has_value());
}

TEST_F(Dragging, ABorderIsSteppedWithinItsTwoLengths) {
  const BorderDrag border{.row = 0};
  m_page.SetLengthRow(0, 1.5);
  m_page.SetLengthRow(1, 0.25);
  const auto expect = [&](double millimetres, double first, double second) {
    const PairOfLengths lengths = SteppedLengths(border, m_block, millimetres);
    EXPECT_EQ(lengths.first, first) << millimetres;
    EXPECT_EQ(lengths.second, second) << millimetres;
  };
  expect(-1.0, 0.5, 1.25);
  expect(-2.0, 0.0, 1.75);
  expect(1.0, 1.75, 0.0);
  expect(0.125, 1.625, 0.125);
}

/// The cell whose rectangle has a point, looked for without the table.
int NaiveCelAt(const CLayoutPageData& page, const CRect& area, int rows, int cols, int x, int y,
               const CSize& margin) {
  for (int row = 0; row < rows; ++row) {
    for (int col = 0; col < cols; ++col) {
      const CLayoutCelData& cel = *page.GetCelAt(row * cols + col);
      if (cel.GetRowMeargeSize() < 1) {
        continue;
      }
      const int width = area.Width() / cols;
      const int height = area.Height() / rows;
      const int left = area.left + col * width + margin.cx;
      const int right = area.left + (col + cel.GetColMeargeSize()) * width - margin.cx;
      const int top = area.top + row * height + margin.cy;
      const int bottom = area.top + (row + cel.GetRowMeargeSize()) * height - margin.cy;
      if (left <= x && x < right && top <= y && y < bottom) {
        return row * cols + col;
      }
    }
  }
  return -1;
}

TEST(CelAtPoint, EveryPointOfASmallPicture) {
  constexpr CRect kArea(3, 5, 63, 45);
  CLayoutPageData page = PageOf(4, 6, 40.0, 60.0);
  const SheetBlock block(page);
  for (const int index : {7, 8, 13, 14}) {
    page.GetCelAt(index)->SetSelected(1);
  }
  ASSERT_TRUE(page.MeargeCel(1, 1));
  const std::vector<CRect> table = RectTable(block, kArea);
  for (const CSize margin : {CSize(0, 0), CSize(3, 2)}) {
    for (int y = 0; y < 50; ++y) {
      for (int x = 0; x < 70; ++x) {
        ASSERT_EQ(CelAtPoint(block, table, {x, y}, margin),
                  NaiveCelAt(page, kArea, 4, 6, x, y, margin))
            << x << ", " << y;
      }
    }
  }
}

TEST(RectTable, OfABlockOfAnExtendedPage) {
  CLayoutExPageData page;
  page.DividePage(CLayoutExPageData::LISTTYPE_LIST, 2, 3, kDotsPerMm);
  const ExtendedBlock block(page, CLayoutExPageData::LISTTYPE_LIST);
  const std::vector<CRect> table = RectTable(block, {0, 0, 30, 20});
  ASSERT_EQ(table.size(), 6U);
  EXPECT_EQ(table[5], CRect(20, 10, 30, 20));
  EXPECT_EQ(CelAtPoint(block, table, {25, 15}), 5);
}

TEST(FindBorder, TheGripFollowsTheDisplaysScale) {
  const std::vector<CRect> table{{0, 0, 100, 50}, {0, 50, 100, 100}};
  EXPECT_FALSE(FindBorder(table, 2, 1, {10, 54}));
  EXPECT_TRUE(FindBorder(table, 2, 1, {10, 57}, 2.0));
  EXPECT_FALSE(FindBorder(table, 2, 1, {10, 58}, 2.0));
}

}  // namespace
}  // namespace quorvel::test
