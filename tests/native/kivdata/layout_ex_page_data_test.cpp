#include "kivdata/layout_ex_page_data.h"

#include "sample_pages.h"

#include <gtest/gtest.h>

#include <limits>
#include <string>
#include <vector>

namespace {

using quorvel::test::BytesOf;
using quorvel::test::ListType;
using quorvel::test::SampleExPage;
using quorvel::test::SamplePage;
using quorvel::test::TemporaryFolder;
using quorvel::test::WriteBytes;

constexpr auto kHeader = ListType(0);
constexpr auto kList = ListType(1);
constexpr auto kFooter = ListType(2);

/// A list of rows x columns; the other blocks have one row.
CLayoutExPageData PageOf(BYTE rows, BYTE columns) {
  CLayoutExPageData page;
  page.DividePage(kList, rows, columns, 0);
  return page;
}

CLayoutCelData& Cell(CLayoutExPageData& page, int row, int col, ListType block = kList) {
  return *page.GetCelAt(block, page.GetIndexFromRowCol(row, col));
}

std::string Counts(const CLayoutExPageData& page) {
  return std::to_string(page.GetNumRow(kHeader)) + " " + std::to_string(page.GetNumRow(kList)) +
         " " + std::to_string(page.GetNumRow(kFooter)) + " x " + std::to_string(page.GetNumCol());
}

TEST(LayoutExPageData, BeginsAsOneCellInEachBlock) {
  const CLayoutExPageData page;
  EXPECT_EQ(Counts(page), "1 1 1 x 1");
  EXPECT_EQ(page.GetAllLengthRow(kFooter), 10);
  EXPECT_EQ(page.GetAllLengthCol(), 10);
  for (const int number : {0, 1, 2}) {
    EXPECT_EQ(page.GetUse(ListType(number)), 1);
    EXPECT_EQ(page.GetListShowByPage(number), 1);
  }
  EXPECT_EQ(page.GetRepeatRow(), 1);
  EXPECT_EQ(page.GetStIndex(), 1);
  EXPECT_EQ(page.GetByEdgeOutLine(), 0);
  EXPECT_EQ(page.GetInLineStatus().width, 0.1F);
}

TEST(LayoutExPageData, KeepsItsSettings) {
  CLayoutExPageData page;
  for (const int number : {0, 1, 2}) {
    page.SetUse(ListType(number), 0);
    page.SetListShowByPage(number, 0);
    for (const int other : {0, 1, 2}) {
      EXPECT_EQ(page.GetUse(ListType(other)), other == number ? 0 : 1);
      EXPECT_EQ(page.GetListShowByPage(other), other == number ? 0 : 1);
    }
    page.SetUse(ListType(number), 7);
    page.SetListShowByPage(number, 7);
  }
  page.SetRepeatRow(200);
  page.SetStIndex(1000);
  page.SetByEdgeOutLine(1);
  const PEN_STATUS pen = {RGB(1, 2, 3), 0.7F, 3};
  page.SetOutLineStatus(&pen);
  EXPECT_EQ(page.GetRepeatRow(), 200);
  EXPECT_EQ(page.GetStIndex(), 1000);
  EXPECT_EQ(page.GetByEdgeOutLine(), 1);
  EXPECT_EQ(page.GetByEdgeInLine(), 0);
  page.SetByEdgeInLine(1);
  EXPECT_EQ(page.GetByEdgeInLine(), 1);
  EXPECT_EQ(page.GetOutLineStatus().style, 3);
  page.SetInLineStatus(&pen);
  EXPECT_EQ(page.GetInLineStatus().width, 0.7F);
}

TEST(LayoutExPageData, ABlockThatDoesNotExistIsRefused) {
  CLayoutExPageData page = SampleExPage();
  const std::vector<BYTE> before = BytesOf(page);
  const CRect area(0, 0, 10, 10);
  CRect rect(1, 2, 3, 4);
  std::vector<CRect> table(100);
  int row = -7;
  BYTE count = 9;
  for (const int bad : {-1, 3, std::numeric_limits<int>::max(), std::numeric_limits<int>::min()}) {
    const auto block = ListType(bad);
    EXPECT_EQ(page.GetNumRow(block), 0);
    EXPECT_EQ(page.GetAllLengthRow(block), 0);
    EXPECT_EQ(page.GetLengthRow(block, 0), 0);
    EXPECT_EQ(page.GetCelSize(block), 0);
    EXPECT_EQ(page.GetCelAt(block, 0), nullptr);
    EXPECT_EQ(std::as_const(page).GetCelAt(block, 0), nullptr);
    EXPECT_EQ(page.GetUse(block), 0);
    EXPECT_EQ(page.GetListShowByPage(bad), 0);
    EXPECT_EQ(page.IsSelected(block), 0);
    EXPECT_EQ(page.IsInsertRow(block) + page.IsDeleteRow(block) + page.IsInsertCol(block) +
                  page.IsDeleteCol(block) + page.IsSelRowEq(block) + page.IsSelColEq(block) +
                  page.IsMeargePossibleCel(block) + page.IsDividePossibleCel(block),
              0);
    EXPECT_EQ(page.GetFirstSelectCel(block, &row, &row), 0);
    EXPECT_EQ(page.GetSerialSelCelCount(block, 0, 0, &count, &count), 0);
    EXPECT_EQ(page.MeargeCel(block, 0, 0), 0);
    EXPECT_EQ(page.DivideCel(block, 0, 1), 0);
    EXPECT_EQ(page.GetCelRect(block, &rect, table.data(), 0, &row, &row), 0);
    page.SetUse(block, 0);
    page.SetListShowByPage(bad, 0);
    page.DividePage(block, 5, 5, 0);
    page.SetAllLengthRow(block, 50, 1);
    page.SetLengthRow(block, 0, 50);
    page.InsertRow(block, 0);
    page.DeleteRow(block, 0);
    page.SelRowEq(block);
    page.SelColEq(block);
    page.SetShowLine(block, 0, 0, 0, 0, 0, 0);
    page.InitCelRect(block, &area, table.data());
  }
  EXPECT_EQ(row, -7);
  EXPECT_EQ(count, 0);
  EXPECT_EQ(rect, CRect(1, 2, 3, 4));
  EXPECT_EQ(table[0], CRect());
  EXPECT_EQ(BytesOf(page), before);
}

TEST(LayoutExPageData, BlocksShareColumnsAndHaveTheirOwnRows) {
  CLayoutExPageData page;
  page.DividePage(kHeader, 2, 1, 0);
  page.DividePage(kList, 5, 3, 0);
  EXPECT_EQ(Counts(page), "2 5 1 x 3");
  EXPECT_EQ(page.GetCelSize(kHeader), 6);
  EXPECT_EQ(page.GetCelSize(kFooter), 3);
  page.SetLengthRow(kHeader, 1, 4.5F);
  page.SetLengthCol(2, 7.5F);
  EXPECT_EQ(page.GetLengthRow(kHeader, 1), 4.5F);
  EXPECT_EQ(page.GetLengthRow(kList, 1), 10);
  EXPECT_EQ(page.GetAllLengthRow(kHeader), 14.5F);
  EXPECT_EQ(page.GetAllLengthCol(), 27.5F);
  EXPECT_EQ(page.GetLengthCol(2), 7.5F);
  page.DividePage(kList, 0, 3, 0);
  EXPECT_EQ(Counts(page), "2 0 1 x 3");
  EXPECT_EQ(page.GetAllLengthRow(kList), 0);
  page.DividePage(kList, 2, 0, 0);
  EXPECT_EQ(Counts(page), "2 0 1 x 3");
  page.DividePage(kList, 2, 3, 0);
  EXPECT_EQ(page.GetLengthRow(kList, 1), 10) << "where none stood";
}

TEST(LayoutExPageData, DividingByThePresentCountsChangesNothingAtAll) {
  CLayoutExPageData page = SampleExPage();
  Cell(page, 1, 0).SetSelected(1);
  const CLayoutCelData* const cell = page.GetCelAt(kList, 0);
  const std::vector<BYTE> before = BytesOf(page);
  for (const auto block : {kHeader, kList, kFooter}) {
    page.DividePage(block, page.GetNumRow(block), page.GetNumCol(), 5);
  }
  EXPECT_EQ(BytesOf(page), before);
  EXPECT_EQ(page.GetCelAt(kList, 0), cell);
  EXPECT_EQ(Cell(page, 1, 0).GetSelected(), 1);
}

TEST(LayoutExPageData, CellsOfOtherBlocksStayInPlace) {
  CLayoutExPageData page = PageOf(3, 3);
  const CLayoutCelData* const header = page.GetCelAt(kHeader, 0);
  const CLayoutCelData* const footer = page.GetCelAt(kFooter, 2);
  page.DividePage(kList, 6, 3, 0);
  page.InsertRow(kList, 2);
  page.DeleteRow(kList, 0);
  EXPECT_EQ(page.GetCelAt(kHeader, 0), header);
  EXPECT_EQ(page.GetCelAt(kFooter, 2), footer);
}

TEST(LayoutExPageData, ConversionsTakeAnyRowOfAnyBlock) {
  const CLayoutExPageData page = PageOf(2, 3);
  EXPECT_EQ(page.GetIndexFromRowCol(1, 2), 5);
  EXPECT_EQ(page.GetIndexFromRowCol(254, 0), 762);
  EXPECT_EQ(page.GetIndexFromRowCol(255, 0), -1);
  EXPECT_EQ(page.GetIndexFromRowCol(0, 3), -1);
  EXPECT_EQ(page.GetIndexFromRowCol(-1, 0), -1);
  int row = -7;
  int col = -7;
  EXPECT_EQ(page.GetRowColFromIndex(765, &row, &col), 0);
  EXPECT_EQ(page.GetRowColFromIndex(-1, &row, &col), 0);
  EXPECT_EQ(row, -7);
  EXPECT_NE(page.GetRowColFromIndex(764, &row, &col), 0);
  EXPECT_EQ(row, 254);
  EXPECT_EQ(col, 2);
}

TEST(LayoutExPageData, InsertsAndDeletesRowsOfOneBlock) {
  CLayoutExPageData page = PageOf(2, 2);
  page.SetLengthRow(kList, 1, 25);
  Cell(page, 0, 0).SetText("first");
  Cell(page, 1, 1).SetText("last");
  page.InsertRow(kList, 1);
  EXPECT_EQ(Counts(page), "1 3 1 x 2");
  EXPECT_EQ(page.GetLengthRow(kList, 1), 25);
  EXPECT_EQ(page.GetLengthRow(kList, 2), 25);
  EXPECT_STREQ(Cell(page, 2, 1).GetText(), "last");
  page.InsertRow(kList, 3);
  page.InsertRow(kList, -1);
  page.DeleteRow(kList, 3);
  page.DeleteRow(kList, -1);
  EXPECT_EQ(Counts(page), "1 3 1 x 2");
  page.DeleteRow(kList, 0);
  page.DeleteRow(kList, 0);
  EXPECT_STREQ(Cell(page, 0, 1).GetText(), "last");
  page.DeleteRow(kList, 0);
  EXPECT_EQ(Counts(page), "1 1 1 x 2") << "the last row stays";
}

TEST(LayoutExPageData, InsertsAndDeletesColumnsOfAllBlocks) {
  CLayoutExPageData page = PageOf(2, 2);
  page.SetLengthCol(0, 30);
  Cell(page, 0, 1, kFooter).SetText("footer");
  page.InsertCol(0);
  EXPECT_EQ(Counts(page), "1 2 1 x 3");
  EXPECT_EQ(page.GetLengthCol(0), 30);
  EXPECT_STREQ(Cell(page, 0, 2, kFooter).GetText(), "footer");
  page.InsertCol(3);
  page.InsertCol(-1);
  page.DeleteCol(3);
  page.DeleteCol(-1);
  EXPECT_EQ(Counts(page), "1 2 1 x 3");
  page.DeleteCol(0);
  page.DeleteCol(0);
  page.DeleteCol(0);
  EXPECT_EQ(Counts(page), "1 2 1 x 1") << "the last column stays";
  EXPECT_STREQ(Cell(page, 0, 0, kFooter).GetText(), "footer");
}

TEST(LayoutExPageData, InsertsUpToTheLargestCount) {
  CLayoutExPageData page = PageOf(254, 254);
  Cell(page, 0, 0).SetSelected(1);
  EXPECT_EQ(page.IsInsertRow(kList) + page.IsInsertCol(kList), 2);
  page.InsertRow(kList, 0);
  page.InsertCol(0);
  EXPECT_EQ(Counts(page), "1 255 1 x 255");
  EXPECT_EQ(page.IsInsertRow(kList) + page.IsInsertCol(kList), 0);
  page.InsertRow(kList, 0);
  page.InsertCol(0);
  EXPECT_EQ(Counts(page), "1 255 1 x 255");
  page.InsertRow(kHeader, 0);
  EXPECT_EQ(Counts(page), "2 255 1 x 255");
}

TEST(LayoutExPageData, TellsWhatTheSelectionAllows) {
  CLayoutExPageData page = PageOf(2, 2);
  EXPECT_EQ(page.IsInsertRow(kList) + page.IsDeleteRow(kList) + page.IsInsertCol(kList) +
                page.IsDeleteCol(kList) + page.IsSelRowEq(kList) + page.IsSelColEq(kList),
            0);
  int row = -7;
  int col = -7;
  EXPECT_EQ(page.GetFirstSelectCel(kList, &row, &col), 0);
  EXPECT_EQ(row, -7);
  Cell(page, 1, 0).SetSelected(1);
  EXPECT_EQ(page.IsInsertRow(kList) + page.IsDeleteRow(kList) + page.IsInsertCol(kList) +
                page.IsDeleteCol(kList),
            4);
  EXPECT_EQ(page.IsSelected(kList), 1);
  EXPECT_EQ(page.IsSelected(kHeader), 0);
  EXPECT_EQ(page.IsDeleteRow(kHeader), 0) << "each block has its own selection";
  EXPECT_EQ(page.IsSelRowEq(kList) + page.IsSelColEq(kList), 0);
  EXPECT_NE(page.GetFirstSelectCel(kList, &row, &col), 0);
  EXPECT_EQ(row, 1);
  EXPECT_EQ(col, 0);
  Cell(page, 1, 1).SetSelected(1);
  EXPECT_EQ(page.IsSelRowEq(kList), 0);
  EXPECT_EQ(page.IsSelColEq(kList), 1);
  Cell(page, 0, 1).SetSelected(1);
  EXPECT_EQ(page.IsSelRowEq(kList), 1);
  Cell(page, 0, 0, kHeader).SetSelected(1);
  EXPECT_EQ(page.IsDeleteRow(kHeader), 0) << "its only row";
  EXPECT_EQ(page.IsInsertRow(kHeader), 1);
}

TEST(LayoutExPageData, MakesSelectedLinesEquallyLong) {
  CLayoutExPageData page = PageOf(3, 3);
  page.SetLengthRow(kList, 0, 30);
  page.SetLengthCol(2, 50);
  Cell(page, 0, 2).SetSelected(1);
  Cell(page, 2, 0).SetSelected(1);
  page.SelRowEq(kList);
  EXPECT_EQ(page.GetLengthRow(kList, 0), 20);
  EXPECT_EQ(page.GetLengthRow(kList, 1), 10);
  EXPECT_EQ(page.GetLengthRow(kList, 2), 20);
  EXPECT_EQ(page.GetLengthCol(2), 50);
  page.SelColEq(kList);
  EXPECT_EQ(page.GetLengthCol(0), 30);
  EXPECT_EQ(page.GetLengthCol(1), 10);
  EXPECT_EQ(page.GetLengthCol(2), 30);
}

TEST(LayoutExPageData, SpreadsTotals) {
  CLayoutExPageData page = PageOf(3, 2);
  page.SetAllLengthRow(kList, 10, 1);
  EXPECT_EQ(page.GetLengthRow(kList, 0) + page.GetLengthRow(kList, 1) + page.GetLengthRow(kList, 2),
            10);
  EXPECT_EQ(page.GetAllLengthRow(kHeader), 10);
  page.SetLengthCol(0, 30);
  page.SetAllLengthCol(80, 0);
  EXPECT_EQ(page.GetLengthCol(0), 60);
  EXPECT_EQ(page.GetLengthCol(1), 20);
  page.SetAllLengthCol(80, 1);
  EXPECT_EQ(page.GetLengthCol(0), 40);
  page.SetAllLengthRow(kList, std::numeric_limits<float>::infinity(), 0);
  EXPECT_EQ(page.GetAllLengthRow(kList), 10);
}

TEST(LayoutExPageData, MergesEachRunByItself) {
  CLayoutExPageData page = PageOf(3, 4);
  for (const auto& [row, col] :
       {std::pair(0, 0), std::pair(0, 1), std::pair(2, 2), std::pair(2, 3)}) {
    Cell(page, row, col).SetSelected(1);
  }
  EXPECT_NE(page.IsMeargePossibleCel(kList), 0);
  EXPECT_EQ(page.IsMeargePossibleCel(kHeader), 0);
  BYTE rows = 0;
  BYTE cols = 0;
  EXPECT_NE(page.GetSerialSelCelCount(kList, 2, 2, &rows, &cols), 0);
  EXPECT_EQ(rows, 1);
  EXPECT_EQ(cols, 2);
  EXPECT_NE(page.MeargeCel(kList, 0, 0), 0);
  EXPECT_NE(page.MeargeCel(kList, 2, 2), 0);
  EXPECT_EQ(Cell(page, 0, 0).GetColMeargeSize(), 2);
  EXPECT_EQ(Cell(page, 2, 3).GetRowMeargeSize(), 0);
  EXPECT_NE(page.IsDividePossibleCel(kList), 0);
  EXPECT_NE(page.DivideCel(kList, 2, 2), 0);
  EXPECT_EQ(Cell(page, 2, 3).GetRowMeargeSize(), 1);
}

TEST(LayoutExPageData, TheSixLineSwitchesAreInTheirOrder) {
  for (int chosen = 0; chosen < 6; ++chosen) {
    CLayoutExPageData page = PageOf(2, 2);
    for (int index = 0; index < 4; ++index) {
      page.GetCelAt(kList, index)->SetSelected(1);
    }
    const auto on = [chosen](int number) { return chosen == number ? -1 : 0; };
    page.SetShowLine(kList, on(0), on(1), on(2), on(3), on(4), on(5));
    const CLayoutCelData& first = Cell(page, 0, 0);
    const CLayoutCelData& last = Cell(page, 1, 1);
    EXPECT_EQ(first.GetShowLineVT(), chosen == 0 ? 1 : 0);
    EXPECT_EQ(first.GetShowLineVB(), chosen == 1 ? 1 : 0);
    EXPECT_EQ(last.GetShowLineVT(), chosen == 1 ? 1 : 0);
    EXPECT_EQ(last.GetShowLineVB(), chosen == 2 ? 1 : 0);
    EXPECT_EQ(first.GetShowLineHL(), chosen == 3 ? 1 : 0);
    EXPECT_EQ(first.GetShowLineHR(), chosen == 4 ? 1 : 0);
    EXPECT_EQ(last.GetShowLineHL(), chosen == 4 ? 1 : 0);
    EXPECT_EQ(last.GetShowLineHR(), chosen == 5 ? 1 : 0);
    EXPECT_EQ(Cell(page, 0, 0, kHeader).GetShowLineVB(), 1) << "blocks do not touch";
  }
}

TEST(LayoutExPageData, RectanglesTileTheArea) {
  CLayoutExPageData page = PageOf(2, 2);
  std::vector<CRect> table(4);
  const CRect area(10, 20, 111, 41);
  page.InitCelRect(kList, &area, table.data());
  EXPECT_EQ(table[0], CRect(10, 20, 61, 31));
  EXPECT_EQ(table[3], CRect(61, 31, 111, 41));
  CRect rect;
  int row = 0;
  int col = 0;
  EXPECT_NE(page.GetCelRect(kList, &rect, table.data(), 3, &row, &col), 0);
  EXPECT_EQ(rect, table[3]);
  EXPECT_EQ(row, 1);
  EXPECT_EQ(col, 1);
  EXPECT_EQ(page.GetCelRect(kHeader, &rect, table.data(), 3, nullptr, nullptr), 0);
}

TEST(LayoutExPageData, CopiesAreDeepAndKeepCellsInPlace) {
  const CLayoutExPageData original = SampleExPage();
  CLayoutExPageData copy(original);
  EXPECT_EQ(BytesOf(copy), BytesOf(original));
  copy.GetCelAt(kList, 0)->SetText("changed");
  EXPECT_NE(BytesOf(copy), BytesOf(original));
  const CLayoutCelData* const cell = copy.GetCelAt(kList, 3);
  copy = original;
  EXPECT_EQ(copy.GetCelAt(kList, 3), cell);
  EXPECT_EQ(BytesOf(copy), BytesOf(original));
  CLayoutExPageData& itself = copy;
  copy = itself;
  EXPECT_EQ(BytesOf(copy), BytesOf(original));
}

TEST(LayoutExPageData, SavesAndOpens) {
  const TemporaryFolder folder;
  const std::string path = folder.File("page.mtpld2");
  const CLayoutExPageData original = SampleExPage();
  EXPECT_NE(original.SaveFile(path.c_str()), 0);
  CLayoutExPageData page;
  EXPECT_NE(page.OpenFile(path.c_str()), 0);
  EXPECT_EQ(BytesOf(page), BytesOf(original));
  EXPECT_EQ(page.IsSelected(kList), 0);
  const std::wstring wide = folder.WideFile(U"名前 €.mtpld2");
  EXPECT_NE(page.SaveFileW(wide.c_str()), 0);
  CLayoutExPageData other;
  EXPECT_NE(other.OpenFileW(wide.c_str()), 0);
  EXPECT_EQ(BytesOf(other), BytesOf(original));
}

TEST(LayoutExPageData, AFileThatCannotBeOpenedLeavesThePageAsItWas) {
  const TemporaryFolder folder;
  CLayoutExPageData page = SampleExPage();
  const std::vector<BYTE> before = BytesOf(page);
  std::vector<BYTE> bytes = before;
  bytes[100] ^= 0x10;
  WriteBytes(folder.Path() / "damaged", bytes);
  ASSERT_NE(SamplePage().SaveFile(folder.File("grid").c_str()), 0);
  EXPECT_EQ(page.OpenFile(folder.File("damaged").c_str()), 0);
  EXPECT_EQ(page.OpenFile(folder.File("grid").c_str()), 0);
  EXPECT_EQ(page.OpenFile(nullptr), 0);
  EXPECT_EQ(page.OpenFileW(nullptr), 0);
  EXPECT_EQ(page.SaveFile(nullptr), 0);
  EXPECT_EQ(page.SaveFileW(nullptr), 0);
  EXPECT_EQ(BytesOf(page), before);
}

}  // namespace
