#include "dialogs/layout/cel_commands.h"

#include <gtest/gtest.h>

#include <string>

namespace quorvel::test {
namespace {

constexpr double kDotsPerMm = 11.811;
constexpr int kCols = 4;

/// 3 x 4 cells.
class CelCommands : public ::testing::Test {
protected:
  CelCommands() { m_page.DividePage(3, kCols, kDotsPerMm); }

  CLayoutCelData& Cel(int index) { return *m_page.GetCelAt(index); }
  void Select(const CelList& cels) {
    for (const int index : cels) {
      Cel(index).SetSelected(1);
    }
  }
  std::string TextOf(int index) { return Cel(index).GetText().GetString(); }

  CLayoutPageData m_page;
  SheetBlock m_block{m_page};
};

TEST_F(CelCommands, AClickSelectsOneCell) {
  EXPECT_EQ(SelectCels(m_block, 5, 5, false), CelList({5}));
  EXPECT_EQ(SelectedCels(m_block), CelList({5}));
  EXPECT_EQ(FirstSelectedCel(m_block), 5);
}

TEST_F(CelCommands, AClickOnTheOnlySelectedCellDeselectsIt) {
  Select({5});
  EXPECT_EQ(SelectCels(m_block, 5, 5, false), CelList({5}));
  EXPECT_EQ(SelectedCels(m_block), CelList());
  EXPECT_EQ(FirstSelectedCel(m_block), -1);
}

TEST_F(CelCommands, AClickOnOneOfSeveralLeavesThatOne) {
  Select({1, 5, 6});
  EXPECT_EQ(SelectCels(m_block, 5, 5, false), CelList({1, 5, 6, 5}));
  EXPECT_EQ(SelectedCels(m_block), CelList({5}));
  EXPECT_EQ(SelectCels(m_block, 0, 0, false), CelList({5, 0}));
  EXPECT_EQ(SelectedCels(m_block), CelList({0}));
}

TEST_F(CelCommands, ADragSelectsTheRectangleOfBothCells) {
  Select({11});
  for (const auto& [anchor, end] : {std::pair(1, 6), std::pair(6, 1), std::pair(2, 5),
                                    std::pair(5, 2)}) {
    SelectCels(m_block, anchor, end, false);
    EXPECT_EQ(SelectedCels(m_block), CelList({1, 2, 5, 6})) << anchor << " to " << end;
  }
}

TEST_F(CelCommands, ADragMarksCoveredCells) {
  Select({1, 2, 5, 6});
  ASSERT_TRUE(m_page.MeargeCel(0, 1));
  SelectCels(m_block, 0, 11, false);
  EXPECT_EQ(SelectedCels(m_block).size(), 12U);
  EXPECT_EQ(Cel(6).GetSelected(), 1);
}

TEST_F(CelCommands, NoCellAtEitherEndChangesNothing) {
  Select({3});
  EXPECT_EQ(SelectCels(m_block, -1, 5, false), CelList());
  EXPECT_EQ(SelectCels(m_block, 5, -1, false), CelList());
  EXPECT_EQ(SelectCels(m_block, 5, 12, false), CelList());
  EXPECT_EQ(SelectedCels(m_block), CelList({3}));
}

TEST_F(CelCommands, AddingKeepsWhatWasSelected) {
  Select({3});
  SelectCels(m_block, 0, 0, true);
  EXPECT_EQ(SelectedCels(m_block), CelList({0, 3}));
  SelectCels(m_block, 0, 0, true);  // once more does not take it away
  EXPECT_EQ(SelectedCels(m_block), CelList({0, 3}));
  SelectCels(m_block, 8, 9, true);
  EXPECT_EQ(SelectedCels(m_block), CelList({0, 3, 8, 9}));
}

TEST_F(CelCommands, PlacesGoToTheSelectedCellsAlone) {
  Select({0, 7});
  EXPECT_EQ(SetVerticalPlace(m_block, 2), CelList({0, 7}));
  EXPECT_EQ(SetHorizontalPlace(m_block, 1), CelList({0, 7}));
  for (int index = 0; index < 12; ++index) {
    const bool selected = index == 0 || index == 7;
    EXPECT_EQ(Cel(index).GetFont()->GetVPos(), selected ? 2 : 0) << index;
    EXPECT_EQ(Cel(index).GetFont()->GetHPos(), selected ? 1 : 0) << index;
  }
}

TEST_F(CelCommands, ColoursAndFonts) {
  Select({4});
  EXPECT_EQ(SetTextColor(m_block, RGB(1, 2, 3)), CelList({4}));
  EXPECT_EQ(SetBackColor(m_block, RGB(4, 5, 6)), CelList({4}));
  EXPECT_EQ(Cel(4).GetFont()->GetColor(), RGB(1, 2, 3));
  EXPECT_EQ(Cel(4).GetFont()->GetBackColor(), RGB(4, 5, 6));
  EXPECT_EQ(Cel(3).GetFont()->GetColor(), RGB(0, 0, 0));
  CKivFontEx font;
  font.SetVPos(1);
  EXPECT_EQ(SetFont(m_block, font), CelList({4}));
  EXPECT_EQ(Cel(4).GetFont()->GetVPos(), 1);
  EXPECT_EQ(Cel(5).GetFont()->GetVPos(), 0);
}

TEST_F(CelCommands, ATextGoesToEverySelectedCell) {
  Cel(1).SetText("old");
  Select({1, 2});
  EXPECT_EQ(SetText(m_block, "100%s"), CelList({1, 2}));
  EXPECT_EQ(TextOf(1), "100%s");
  EXPECT_EQ(TextOf(2), "100%s");
  EXPECT_EQ(TextOf(0), "");
}

TEST_F(CelCommands, AnInsertionGoesBehindTheTextOrReplacesIt) {
  Cel(1).SetText("%d ");
  Select({1, 2});
  InsertText(m_block, "<M>1 a</M>", true);
  EXPECT_EQ(TextOf(1), "%d <M>1 a</M>");
  EXPECT_EQ(TextOf(2), "<M>1 a</M>");
  InsertText(m_block, "b", false);
  EXPECT_EQ(TextOf(1), "b");
}

TEST_F(CelCommands, MergingASolidRectangleLeavesItsFirstCellSelected) {
  Select({1, 2, 5, 6});
  EXPECT_EQ(MergeSelected(m_block), CelList({1}));
  EXPECT_EQ(SelectedCels(m_block), CelList({1}));
  EXPECT_EQ(Cel(1).GetRowMeargeSize(), 2);
  EXPECT_EQ(Cel(1).GetColMeargeSize(), 2);
  for (const int covered : {2, 5, 6}) {
    EXPECT_EQ(Cel(covered).GetRowMeargeSize(), 0);
    EXPECT_EQ(Cel(covered).GetColMeargeSize(), 0);
  }
}

TEST_F(CelCommands, WhatIsNoRectangleIsNotMerged) {
  for (const CelList& cels : {CelList({1, 2, 5}), CelList({0, 2}), CelList({4}), CelList()}) {
    DeselectAll(m_block);
    Select(cels);
    EXPECT_EQ(MergeSelected(m_block), CelList());
    EXPECT_EQ(SelectedCels(m_block), cels);
    for (int index = 0; index < 12; ++index) {
      EXPECT_EQ(Cel(index).GetRowMeargeSize(), 1);
    }
  }
}

TEST_F(CelCommands, SplittingMakesSingleCellsAndDeselects) {
  Select({1, 2, 5, 6});
  MergeSelected(m_block);
  Select({0});
  EXPECT_EQ(SplitSelected(m_block), CelList({0, 1, 2, 5, 6}));
  EXPECT_EQ(SelectedCels(m_block), CelList());
  for (int index = 0; index < 12; ++index) {
    EXPECT_EQ(Cel(index).GetRowMeargeSize(), 1);
    EXPECT_EQ(Cel(index).GetColMeargeSize(), 1);
  }
}

TEST_F(CelCommands, TheNextCellIsBesideAMergedOne) {
  Select({1, 2, 5, 6});
  ASSERT_TRUE(m_page.MeargeCel(0, 1));
  EXPECT_EQ(NeighbourCel(m_block, -1, 0, 1), 0);  // none was selected
  EXPECT_EQ(NeighbourCel(m_block, 0, 0, 1), 1);
  EXPECT_EQ(NeighbourCel(m_block, 1, 0, 1), 3);
  EXPECT_EQ(NeighbourCel(m_block, 1, 1, 0), 9);
  EXPECT_EQ(NeighbourCel(m_block, 3, 0, -1), 1);
  EXPECT_EQ(NeighbourCel(m_block, 7, 0, -1), 1);
  EXPECT_EQ(NeighbourCel(m_block, 10, -1, 0), 1);
  EXPECT_EQ(NeighbourCel(m_block, 4, -1, 0), 0);
}

TEST_F(CelCommands, AtTheEdgeOfThePageThereIsNoNextCell) {
  EXPECT_EQ(NeighbourCel(m_block, 0, -1, 0), 0);
  EXPECT_EQ(NeighbourCel(m_block, 0, 0, -1), 0);
  EXPECT_EQ(NeighbourCel(m_block, 11, 1, 0), 11);
  EXPECT_EQ(NeighbourCel(m_block, 11, 0, 1), 11);
}

TEST_F(CelCommands, TheCellsOfTheOuterRowsCountMergedOnes) {
  Select({1, 2, 5, 6});
  ASSERT_TRUE(m_page.MeargeCel(0, 1));
  EXPECT_EQ(CelOfFirstRow(m_block, 0), 0);
  EXPECT_EQ(CelOfFirstRow(m_block, 2), 1);  // merged with the one before
  EXPECT_EQ(CelOfLastRow(m_block, 3), 11);
  EXPECT_EQ(CelOfFirstRow(m_block, 4), -1);
}

class InsertionTags : public ::testing::Test {
protected:
  InsertionTags() {
    for (const char* name : {"drawing", "100%s", "scale"}) {
      m_names.Add(name);
    }
  }
  static CDWordArray Numbers(std::initializer_list<DWORD> numbers) {
    CDWordArray array;
    for (const DWORD number : numbers) {
      array.Add(number);
    }
    return array;
  }
  std::string Tag(const CDWordArray* numbers, int choice) const {
    return InsertionTag(m_names, numbers, choice).GetString();
  }

  CStringArray m_names;
};

TEST_F(InsertionTags, AreNumberedByTheirPlace) {
  EXPECT_EQ(Tag(nullptr, 1), "<M>1 drawing</M>");
  EXPECT_EQ(Tag(nullptr, 2), "<M>2 100%s</M>");
  EXPECT_EQ(Tag(nullptr, 3), "<M>3 scale</M>");
}

TEST_F(InsertionTags, OrByTheirNumberAndOneMore) {
  const CDWordArray numbers = Numbers({7, 0, 41});
  EXPECT_EQ(Tag(&numbers, 1), "<M>8 drawing</M>");
  EXPECT_EQ(Tag(&numbers, 2), "<M>1 100%s</M>");
  EXPECT_EQ(Tag(&numbers, 3), "<M>42 scale</M>");
}

TEST_F(InsertionTags, NumbersOfAnotherCountDoNotCount) {
  const CDWordArray two = Numbers({7, 8});
  const CDWordArray four = Numbers({7, 8, 9, 10});
  EXPECT_EQ(Tag(&two, 2), "<M>2 100%s</M>");
  EXPECT_EQ(Tag(&four, 2), "<M>2 100%s</M>");
}

TEST_F(InsertionTags, TheLargestNumbersRunOver) {
  const CDWordArray numbers = Numbers({0xFFFFFFFF, 0x7FFFFFFF, 0xFFFFFFFE});
  EXPECT_EQ(Tag(&numbers, 1), "<M>0 drawing</M>");
  EXPECT_EQ(Tag(&numbers, 2), "<M>-2147483648 100%s</M>");
  EXPECT_EQ(Tag(&numbers, 3), "<M>-1 scale</M>");
}

}  // namespace
}  // namespace quorvel::test
