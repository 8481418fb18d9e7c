#include "kivdata/layout_page_data.h"

#include "sample_pages.h"

#include <gtest/gtest.h>

#include <limits>
#include <string>
#include <vector>

namespace {

using quorvel::test::BytesOf;
using quorvel::test::SampleExPage;
using quorvel::test::SamplePage;
using quorvel::test::TemporaryFolder;
using quorvel::test::WriteBytes;

CLayoutPageData PageOf(BYTE rows, BYTE columns) {
  CLayoutPageData page;
  page.DividePage(rows, columns, 0);
  return page;
}

void Select(CLayoutPageData& page, int row, int col) {
  page.GetCelAt(page.GetIndexFromRowCol(row, col))->SetSelected(1);
}

TEST(LayoutPageData, BeginsAsOneCell) {
  const CLayoutPageData page;
  EXPECT_EQ(page.GetNumRow(), 1);
  EXPECT_EQ(page.GetNumCol(), 1);
  EXPECT_EQ(page.GetCelSize(), 1);
  EXPECT_EQ(page.GetAllLengthRow(), 10);
  EXPECT_EQ(page.GetAllLengthCol(), 10);
  EXPECT_EQ(page.GetType(), 0);
  EXPECT_EQ(page.GetMargin(), 0);
  EXPECT_EQ(page.GetShowFrame(), 1);
  EXPECT_EQ(page.GetByEdgeOutLine(), 0);
  EXPECT_EQ(page.GetByEdgeInLine(), 0);
  EXPECT_EQ(page.GetOutLineStatus().color, 0U);
  EXPECT_EQ(page.GetOutLineStatus().width, 0.1F);
  EXPECT_EQ(page.GetInLineStatus().style, 0);
}

TEST(LayoutPageData, KeepsItsSettings) {
  CLayoutPageData page;
  page.SetType(1);
  page.SetMargin(12.5F);
  page.SetShowFrame(0);
  page.SetByEdgeOutLine(5);
  EXPECT_EQ(page.GetType(), 1);
  EXPECT_EQ(page.GetMargin(), 12.5F);
  EXPECT_EQ(page.GetShowFrame(), 0);
  EXPECT_EQ(page.GetByEdgeOutLine(), 1);
  EXPECT_EQ(page.GetByEdgeInLine(), 0);
  page.SetByEdgeInLine(1);
  EXPECT_EQ(page.GetByEdgeInLine(), 1);
  for (const float bad :
       {-1.0F, std::numeric_limits<float>::infinity(), std::numeric_limits<float>::quiet_NaN()}) {
    page.SetMargin(bad);
    EXPECT_EQ(page.GetMargin(), 12.5F);
  }
}

TEST(LayoutPageData, KeepsBothLineStyles) {
  CLayoutPageData page;
  PEN_STATUS outer = {RGB(255, 0, 0), 0.5F, 2};
  PEN_STATUS inner = {RGB(0, 0, 255), 0, 5};
  page.SetOutLineStatus(&outer);
  page.SetInLineStatus(&inner);
  EXPECT_EQ(page.GetOutLineStatus().color, outer.color);
  EXPECT_EQ(page.GetOutLineStatus().width, outer.width);
  EXPECT_EQ(page.GetOutLineStatus().style, outer.style);
  EXPECT_EQ(page.GetInLineStatus().color, inner.color);
  EXPECT_EQ(page.GetInLineStatus().width, inner.width);
  EXPECT_EQ(page.GetInLineStatus().style, inner.style);
  for (const float bad :
       {-0.1F, std::numeric_limits<float>::infinity(), std::numeric_limits<float>::quiet_NaN()}) {
    outer.width = bad;
    page.SetOutLineStatus(&outer);
    page.SetInLineStatus(&outer);
  }
  page.SetOutLineStatus(nullptr);
  page.SetInLineStatus(nullptr);
  EXPECT_EQ(page.GetOutLineStatus().width, 0.5F);
  EXPECT_EQ(page.GetInLineStatus().width, 0);
}

TEST(LayoutPageData, AddressesCellsRowByRow) {
  const CLayoutPageData page = PageOf(3, 4);
  EXPECT_EQ(page.GetCelSize(), 12);
  EXPECT_EQ(page.GetIndexFromRowCol(2, 1), 9);
  int row = -7;
  int col = -7;
  EXPECT_NE(page.GetRowColFromIndex(9, &row, &col), 0);
  EXPECT_EQ(row, 2);
  EXPECT_EQ(col, 1);
  EXPECT_NE(page.GetRowColFromIndex(9, nullptr, nullptr), 0);
}

TEST(LayoutPageData, RefusesWhatNamesNoCell) {
  CLayoutPageData page = PageOf(3, 4);
  EXPECT_EQ(page.GetIndexFromRowCol(3, 0), -1);
  EXPECT_EQ(page.GetIndexFromRowCol(0, 4), -1);
  EXPECT_EQ(page.GetIndexFromRowCol(-1, 0), -1);
  EXPECT_EQ(page.GetIndexFromRowCol(0, -1), -1);
  int row = -7;
  int col = -7;
  for (const int bad : {-1, 12, std::numeric_limits<int>::max(), std::numeric_limits<int>::min()}) {
    EXPECT_EQ(page.GetCelAt(bad), nullptr);
    EXPECT_EQ(std::as_const(page).GetCelAt(bad), nullptr);
    EXPECT_EQ(page.GetRowColFromIndex(bad, &row, &col), 0);
    EXPECT_EQ(page.GetLengthRow(bad), 0);
    EXPECT_EQ(page.GetLengthCol(bad), 0);
    page.SetLengthRow(bad, 5);
    page.SetLengthCol(bad, 5);
    EXPECT_EQ(page.MeargeCel(bad, 0), 0);
    EXPECT_EQ(page.DivideCel(0, bad), 0);
    BYTE rows = 9;
    BYTE cols = 9;
    EXPECT_EQ(page.GetSerialSelCelCount(bad, bad, &rows, &cols), 0);
    EXPECT_EQ(rows + cols, 0);
  }
  EXPECT_EQ(row, -7);
  EXPECT_EQ(col, -7);
  EXPECT_EQ(BytesOf(page), BytesOf(PageOf(3, 4)));
}

TEST(LayoutPageData, DividingKeepsCellsAndGivesNewLinesTheAverage) {
  CLayoutPageData page = PageOf(2, 2);
  page.SetLengthRow(0, 4);
  page.SetLengthRow(1, 8);
  page.SetLengthCol(0, 30);
  page.GetCelAt(3)->SetText("kept");
  page.DividePage(3, 4, 20);
  EXPECT_EQ(page.GetNumRow(), 3);
  EXPECT_EQ(page.GetNumCol(), 4);
  EXPECT_EQ(page.GetLengthRow(1), 8);
  EXPECT_EQ(page.GetLengthRow(2), 6);
  EXPECT_EQ(page.GetLengthCol(3), 20);
  EXPECT_STREQ(page.GetCelAt(page.GetIndexFromRowCol(1, 1))->GetText(), "kept");
}

TEST(LayoutPageData, NewCellsHaveFontsForTheResolution) {
  CLayoutPageData page;
  page.DividePage(1, 2, 20);
  EXPECT_EQ(page.GetCelAt(1)->GetFont()->GetLogFont(0).lfHeight, -70);
  page.DividePage(1, 3, 0);
  EXPECT_EQ(page.GetCelAt(2)->GetFont()->GetLogFont(0).lfHeight, -41);
  page.DividePage(1, 4, 0.0000005);
  EXPECT_EQ(page.GetCelAt(3)->GetFont()->GetLogFont(0).lfHeight, -41) << "as good as none";
  page.DividePage(1, 5, std::numeric_limits<double>::quiet_NaN());
  EXPECT_EQ(page.GetCelAt(4)->GetFont()->GetLogFont(0).lfHeight, -41);
}

TEST(LayoutPageData, DividingByThePresentCountsChangesNothingAtAll) {
  CLayoutPageData page = SamplePage();
  const CLayoutCelData* const cell = page.GetCelAt(0);
  page.GetCelAt(3)->SetShowLineHL(0);       // the neighbour shows its side
  page.GetCelAt(11)->SetRowMeargeSize(20);  // not sound
  const std::vector<BYTE> before = BytesOf(page);
  page.DividePage(page.GetNumRow(), page.GetNumCol(), 99);
  EXPECT_EQ(page.GetCelAt(2)->GetShowLineHR(), 1);
  EXPECT_EQ(page.GetCelAt(11)->GetRowMeargeSize(), 20);
  EXPECT_EQ(BytesOf(page), before);
  EXPECT_EQ(page.GetCelAt(0), cell);
  EXPECT_EQ(page.GetCelAt(5)->GetSelected(), 1) << "the merged cell is still selected";
}

TEST(LayoutPageData, RefusesNoRowsOrColumns) {
  CLayoutPageData page = SamplePage();
  const std::vector<BYTE> before = BytesOf(page);
  page.DividePage(0, 4, 0);
  page.DividePage(3, 0, 0);
  EXPECT_EQ(BytesOf(page), before);
}

TEST(LayoutPageData, SpreadsTotals) {
  CLayoutPageData page = PageOf(2, 3);
  page.SetLengthCol(0, 20);
  page.SetAllLengthCol(80, 0);
  EXPECT_EQ(page.GetLengthCol(0), 40);
  EXPECT_EQ(page.GetLengthCol(1), 20);
  EXPECT_EQ(page.GetAllLengthCol(), 80);
  page.SetAllLengthCol(90, 1);
  EXPECT_EQ(page.GetLengthCol(0), 30);
  page.SetAllLengthRow(7, 0);
  EXPECT_EQ(page.GetLengthRow(1), 3.5);
  page.SetAllLengthRow(-7, 1);
  page.SetAllLengthCol(-7, 1);
  EXPECT_EQ(page.GetAllLengthRow(), 7);
  EXPECT_EQ(page.GetAllLengthCol(), 90);
}

TEST(LayoutPageData, AMergedBlockSpansTheTable) {
  CLayoutPageData page = PageOf(4, 5);
  for (const int row : {1, 2}) {
    for (const int col : {1, 2, 3}) {
      Select(page, row, col);
    }
  }
  EXPECT_NE(page.IsMeargePossibleCel(), 0);
  BYTE rows = 0;
  BYTE cols = 0;
  EXPECT_NE(page.GetSerialSelCelCount(1, 1, &rows, &cols), 0);
  EXPECT_EQ(rows, 2);
  EXPECT_EQ(cols, 3);
  EXPECT_NE(page.GetSerialSelCelCount(1, 1, nullptr, nullptr), 0);
  EXPECT_NE(page.MeargeCel(1, 1), 0);
  EXPECT_NE(page.IsDividePossibleCel(), 0);
  EXPECT_EQ(page.IsMeargePossibleCel(), 0);

  std::vector<CRect> table(20);
  const CRect area(0, 0, 500, 400);
  page.InitCelRect(&area, table.data());
  CRect rect;
  int row = 0;
  int col = 0;
  EXPECT_NE(page.GetCelRect(&rect, table.data(), 6, &row, &col), 0);
  EXPECT_EQ(rect, CRect(100, 100, 400, 300));
  EXPECT_EQ(row, 1);
  EXPECT_EQ(col, 1);
  EXPECT_EQ(page.GetCelRect(&rect, table.data(), page.GetIndexFromRowCol(2, 3), nullptr, nullptr),
            0);
  EXPECT_EQ(page.GetCelRect(&rect, table.data(), -1, nullptr, nullptr), 0);
  EXPECT_EQ(page.GetCelRect(&rect, table.data(), 20, nullptr, nullptr), 0);
  EXPECT_EQ(page.GetCelRect(&rect, nullptr, 6, nullptr, nullptr), 0);
  EXPECT_EQ(rect, CRect(100, 100, 400, 300)) << "a refusal writes nothing";
  EXPECT_NE(page.GetCelRect(nullptr, table.data(), 6, nullptr, nullptr), 0);

  EXPECT_NE(page.DivideCel(1, 1), 0);
  EXPECT_EQ(page.IsSelected(), 0);
  EXPECT_NE(page.GetCelRect(&rect, table.data(), page.GetIndexFromRowCol(2, 3), nullptr, nullptr),
            0);
}

TEST(LayoutPageData, RectanglesTileTheArea) {
  CLayoutPageData page = PageOf(2, 3);
  page.SetLengthCol(1, 15);
  std::vector<CRect> table(6);
  const CRect area(7, 3, 108, 54);
  page.InitCelRect(&area, table.data());
  EXPECT_EQ(table[0], CRect(7, 3, 36, 29));
  EXPECT_EQ(table[1], CRect(36, 3, 79, 29));
  EXPECT_EQ(table[5], CRect(79, 29, 108, 54));
  page.InitCelRect(nullptr, table.data());
  page.InitCelRect(&area, nullptr);
  EXPECT_EQ(table[0], CRect(7, 3, 36, 29));
}

TEST(LayoutPageData, ASelectionOfSeveralRunsIsNone) {
  CLayoutPageData page = PageOf(3, 3);
  Select(page, 0, 0);
  Select(page, 0, 1);
  Select(page, 2, 2);
  BYTE rows = 9;
  BYTE cols = 9;
  EXPECT_EQ(page.GetSerialSelCelCount(0, 0, &rows, &cols), 0);
  EXPECT_EQ(rows + cols, 0);
  EXPECT_EQ(page.IsMeargePossibleCel(), 0);
  EXPECT_EQ(page.MeargeCel(0, 0), 0);
}

TEST(LayoutPageData, CopiesAreDeepAndKeepCellsInPlace) {
  const CLayoutPageData original = SamplePage();
  CLayoutPageData copy(original);
  EXPECT_EQ(BytesOf(copy), BytesOf(original));
  copy.GetCelAt(0)->SetText("changed");
  EXPECT_NE(BytesOf(copy), BytesOf(original));
  const CLayoutCelData* const cell = copy.GetCelAt(7);
  copy = original;
  EXPECT_EQ(copy.GetCelAt(7), cell) << "same shape, same place";
  EXPECT_EQ(BytesOf(copy), BytesOf(original));
  EXPECT_EQ(copy.GetCelAt(5)->GetSelected(), 1) << "the selection is copied, too";
  CLayoutPageData& itself = copy;
  copy = itself;
  EXPECT_EQ(BytesOf(copy), BytesOf(original));
  CLayoutPageData small;
  small = original;
  EXPECT_EQ(BytesOf(small), BytesOf(original));
}

TEST(LayoutPageData, SavesAndOpens) {
  const TemporaryFolder folder;
  const std::string path = folder.File("page.mtpld");
  const CLayoutPageData original = SamplePage();
  EXPECT_NE(original.SaveFile(path.c_str()), 0);
  CLayoutPageData page;
  EXPECT_NE(page.OpenFile(path.c_str()), 0);
  EXPECT_EQ(BytesOf(page), BytesOf(original));
  EXPECT_EQ(page.IsSelected(), 0);
  EXPECT_NE(page.SaveFile(path.c_str()), 0) << "over the file that is there";
  EXPECT_EQ(folder.Count(), 1);
}

TEST(LayoutPageData, SavesAndOpensByWidePaths) {
  const TemporaryFolder folder;
  const std::wstring path = folder.WideFile(U"名前 €.mtpld");
  EXPECT_NE(SamplePage().SaveFileW(path.c_str()), 0);
  CLayoutPageData page;
  EXPECT_NE(page.OpenFileW(path.c_str()), 0);
  EXPECT_EQ(BytesOf(page), BytesOf(SamplePage()));
  EXPECT_EQ(page.OpenFileW(nullptr), 0);
  EXPECT_EQ(page.SaveFileW(nullptr), 0);
}

TEST(LayoutPageData, AFileThatCannotBeOpenedLeavesThePageAsItWas) {
  const TemporaryFolder folder;
  CLayoutPageData page = SamplePage();
  const CLayoutCelData* const cell = page.GetCelAt(0);
  const std::vector<BYTE> before = BytesOf(page);
  const std::string damaged = folder.File("damaged.mtpld");
  std::vector<BYTE> bytes = before;
  bytes.back() ^= 1;
  WriteBytes(damaged, bytes);
  const std::string other = folder.File("other.mtpld2");
  ASSERT_NE(SampleExPage().SaveFile(other.c_str()), 0);
  const std::string empty = folder.File("empty.mtpld");
  WriteBytes(empty, {});
  EXPECT_EQ(page.OpenFile(damaged.c_str()), 0);
  EXPECT_EQ(page.OpenFile(other.c_str()), 0);
  EXPECT_EQ(page.OpenFile(empty.c_str()), 0);
  EXPECT_EQ(page.OpenFile(folder.File("missing").c_str()), 0);
  EXPECT_EQ(page.OpenFile(folder.Path().c_str()), 0);
  EXPECT_EQ(page.OpenFile(nullptr), 0);
  EXPECT_EQ(page.OpenFile(""), 0);
  EXPECT_EQ(page.GetCelAt(0), cell);
  EXPECT_EQ(BytesOf(page), before);
  EXPECT_EQ(page.GetCelAt(5)->GetSelected(), 1);
}

TEST(LayoutPageData, ASaveThatFailsSaysSo) {
  const TemporaryFolder folder;
  const CLayoutPageData page = SamplePage();
  EXPECT_EQ(page.SaveFile(nullptr), 0);
  EXPECT_EQ(page.SaveFile(""), 0);
  EXPECT_EQ(page.SaveFile(folder.Path().c_str()), 0);
  EXPECT_EQ(page.SaveFile(folder.File("missing/page").c_str()), 0);
  EXPECT_EQ(folder.Count(), 0);
}

TEST(LayoutPageData, ThePageMayBeAsLargeAsCountsAllow) {
  CLayoutPageData page = PageOf(255, 255);
  EXPECT_EQ(page.GetCelSize(), 65025);
  EXPECT_EQ(page.GetAllLengthRow(), 2550);
  page.GetCelAt(65024)->SetText("last");
  CLayoutPageData copy;
  const TemporaryFolder folder;
  ASSERT_NE(page.SaveFile(folder.File("large").c_str()), 0);
  ASSERT_NE(copy.OpenFile(folder.File("large").c_str()), 0);
  EXPECT_STREQ(copy.GetCelAt(65024)->GetText(), "last");
  for (int index = 0; index < page.GetCelSize(); ++index) {
    page.GetCelAt(index)->SetSelected(1);
  }
  EXPECT_NE(page.MeargeCel(0, 0), 0);
  EXPECT_EQ(page.GetCelAt(0)->GetRowMeargeSize(), 255);
  EXPECT_EQ(page.GetCelAt(0)->GetColMeargeSize(), 255);
}

}  // namespace
