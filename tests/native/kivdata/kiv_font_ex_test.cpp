#include "kivdata/kiv_font_ex.h"

#include <gtest/gtest.h>

namespace {

TEST(KivFontEx, BeginsAtTheTopLeftOnWhite) {
  const CKivFontEx font;
  EXPECT_EQ(font.GetBackColor(), RGB(255, 255, 255));
  EXPECT_EQ(font.GetHPos(), 0);
  EXPECT_EQ(font.GetVPos(), 0);
}

TEST(KivFontEx, TellsWidthBeforeHeight) {
  CKivFontEx font;
  font.SetV(7.5);
  font.SetH(2.5);
  EXPECT_EQ(font.GetMM().first, 2.5);
  EXPECT_EQ(font.GetMM().second, 7.5);
}

TEST(KivFontEx, KnowsThreePlacesEachWay) {
  CKivFontEx font;
  for (const BYTE place : {BYTE{0}, BYTE{1}, BYTE{2}}) {
    font.SetHPos(place);
    font.SetVPos(static_cast<BYTE>(2 - place));
    EXPECT_EQ(font.GetHPos(), place);
    EXPECT_EQ(font.GetVPos(), 2 - place);
  }
  font.SetHPos(3);
  font.SetVPos(255);
  EXPECT_EQ(font.GetHPos(), 2);
  EXPECT_EQ(font.GetVPos(), 0);
}

TEST(KivFontEx, CopiesEverything) {
  CKivFontEx font;
  const COLORREF blue = RGB(0, 0, 255);
  font.SetBackColor(&blue);
  font.SetBackColor(nullptr);
  font.SetColor(&blue);
  font.SetHPos(1);
  font.SetVPos(2);
  font.SetV(9);
  CKivFontEx copy;
  copy = font;
  EXPECT_EQ(copy.GetBackColor(), blue);
  EXPECT_EQ(copy.GetColor(), blue);
  EXPECT_EQ(copy.GetHPos(), 1);
  EXPECT_EQ(copy.GetVPos(), 2);
  EXPECT_EQ(copy.GetV(), 9);
}

}  // namespace
