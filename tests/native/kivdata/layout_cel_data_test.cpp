#include "kivdata/layout_cel_data.h"

#include <gtest/gtest.h>

namespace {

// A page of 255 x 255 cells must not weigh more than 256 bytes a cell beyond the texts.
static_assert(sizeof(CLayoutCelData) <= 256);

TEST(LayoutCelData, BeginsEmptySingleUnselectedAndRuled) {
  const CLayoutCelData cell;
  EXPECT_TRUE(cell.GetText().IsEmpty());
  EXPECT_EQ(cell.GetSelected(), 0);
  EXPECT_EQ(cell.GetRowMeargeSize(), 1);
  EXPECT_EQ(cell.GetColMeargeSize(), 1);
  EXPECT_EQ(cell.GetShowLineHL() + cell.GetShowLineHR() + cell.GetShowLineVT() +
                cell.GetShowLineVB(),
            4);
}

TEST(LayoutCelData, KeepsATextByteForByte) {
  CLayoutCelData cell;
  cell.SetText("%s\x83\x5C<\xFF");
  EXPECT_STREQ(cell.GetText(), "%s\x83\x5C<\xFF");
  EXPECT_EQ(cell.TextView(), "%s\x83\x5C<\xFF");
  cell.SetText(static_cast<const char*>(nullptr));
  EXPECT_TRUE(cell.GetText().IsEmpty());
  cell.SetText(nullptr);
  EXPECT_TRUE(cell.GetText().IsEmpty());
  cell.SetText(CString("whole"));
  EXPECT_STREQ(cell.GetText(), "whole");
  cell.SetText(CString("cut\0off", 7));
  EXPECT_EQ(cell.TextView(), "cut") << "a text ends with its first zero byte";
}

TEST(LayoutCelData, CopiesTheFontGiven) {
  CLayoutCelData cell;
  CKivFontEx* const own = cell.GetFont();
  CKivFontEx font;
  font.SetV(8);
  cell.SetFont(&font);
  font.SetV(9);
  EXPECT_EQ(cell.GetFont(), own) << "the font stays the cell's own";
  EXPECT_EQ(own->GetV(), 8);
  cell.SetFont(nullptr);
  EXPECT_EQ(own->GetV(), 8);
  cell.SetFont(own);
  EXPECT_EQ(own->GetV(), 8);
  const CLayoutCelData& constant = cell;
  EXPECT_EQ(constant.GetFont(), own);
}

TEST(LayoutCelData, FlagsAreNoughtOrOne) {
  CLayoutCelData cell;
  cell.SetSelected(-5);
  EXPECT_EQ(cell.GetSelected(), 1);
  cell.SetSelected(0);
  EXPECT_EQ(cell.GetSelected(), 0);
}

TEST(LayoutCelData, EachBorderIsItsOwn) {
  for (int chosen = 0; chosen < 4; ++chosen) {
    CLayoutCelData cell;
    cell.SetShowLineHL(chosen == 0 ? 9 : 0);
    cell.SetShowLineHR(chosen == 1 ? 9 : 0);
    cell.SetShowLineVT(chosen == 2 ? 9 : 0);
    cell.SetShowLineVB(chosen == 3 ? 9 : 0);
    EXPECT_EQ(cell.GetShowLineHL(), chosen == 0 ? 1 : 0);
    EXPECT_EQ(cell.GetShowLineHR(), chosen == 1 ? 1 : 0);
    EXPECT_EQ(cell.GetShowLineVT(), chosen == 2 ? 1 : 0);
    EXPECT_EQ(cell.GetShowLineVB(), chosen == 3 ? 1 : 0);
  }
}

}  // namespace
