#include "kivfcl/drawing_objects.h"

#include "driver/leak_counters.h"
#include "framework/geometry.h"

#include <gtest/gtest.h>

#include <array>
#include <cstdint>
#include <cstring>
#include <vector>

namespace quorvel::test {
namespace {

constexpr int kSize = 40;
constexpr COLORREF kWhite = RGB(255, 255, 255);
constexpr COLORREF kRed = RGB(255, 0, 0);

/// A picture in memory to draw into.
class DrawingObjects : public ::testing::Test {
protected:
  HDC DC() const { return m_memory.Handle(); }

  void Fill(COLORREF color) const { FillSolid(DC(), CRect(0, 0, kSize, kSize), color); }
  COLORREF At(int x, int y) const { return ::GetPixel(DC(), x, y); }
  std::vector<COLORREF> Pixels() const {
    std::vector<COLORREF> pixels;
    for (int y = 0; y < kSize; ++y) {
      for (int x = 0; x < kSize; ++x) {
        pixels.push_back(At(x, y));
      }
    }
    return pixels;
  }
  void Line(const CPoint& from, const CPoint& to) const {
    ::MoveToEx(DC(), from.x, from.y, nullptr);
    ::LineTo(DC(), to.x, to.y);
  }

private:
  static OwnedBitmap MakeBitmap() {
    BITMAPINFO info{};
    info.bmiHeader.biSize = sizeof info.bmiHeader;
    info.bmiHeader.biWidth = kSize;
    info.bmiHeader.biHeight = kSize;
    info.bmiHeader.biPlanes = 1;
    info.bmiHeader.biBitCount = 32;
    void* pixels = nullptr;
    return OwnedBitmap(
        ::CreateDIBSection(nullptr, &info, DIB_RGB_COLORS, &pixels, nullptr, 0));
  }

  MemoryDC m_memory{nullptr};
  OwnedBitmap m_bitmap{MakeBitmap()};
  SelectedObject m_selected{m_memory.Handle(), m_bitmap.get()};
};

TEST_F(DrawingObjects, ASolidPenHasItsWidthAndColour) {
  Fill(kWhite);
  {
    const CPenEx pen(DC(), PS_SOLID, 2, kRed);
    Line({5, 20}, {35, 20});
  }
  EXPECT_EQ(At(20, 18), kWhite);
  EXPECT_EQ(At(20, 19), kRed);
  EXPECT_EQ(At(20, 20), kRed);
  EXPECT_EQ(At(20, 21), kWhite);
}

TEST_F(DrawingObjects, WhatWasSelectedBeforeIsSelectedAgain) {
  const HGDIOBJ pen = ::GetCurrentObject(DC(), OBJ_PEN);
  const HGDIOBJ brush = ::GetCurrentObject(DC(), OBJ_BRUSH);
  const HGDIOBJ font = ::GetCurrentObject(DC(), OBJ_FONT);
  const int operation = ::GetROP2(DC());
  ::SetBkMode(DC(), OPAQUE);
  {
    const CPenEx solid(DC(), PS_SOLID, 1, kRed);
    const CBrushEx filling(DC(), kRed);
    const LOGFONTA description{};
    const CFontEx letters(DC(), description);
    const CXorPenEx guide(DC(), PS_DOT, 1, 0);
    EXPECT_NE(::GetCurrentObject(DC(), OBJ_PEN), pen);
    EXPECT_NE(::GetCurrentObject(DC(), OBJ_BRUSH), brush);
    EXPECT_NE(::GetCurrentObject(DC(), OBJ_FONT), font);
    EXPECT_EQ(::GetROP2(DC()), R2_XORPEN);
  }
  EXPECT_EQ(::GetCurrentObject(DC(), OBJ_PEN), pen);
  EXPECT_EQ(::GetCurrentObject(DC(), OBJ_BRUSH), brush);
  EXPECT_EQ(::GetCurrentObject(DC(), OBJ_FONT), font);
  EXPECT_EQ(::GetROP2(DC()), operation);
  EXPECT_EQ(::GetBkMode(DC()), OPAQUE);
}

TEST_F(DrawingObjects, ABrushFillsWithItsColour) {
  Fill(kWhite);
  {
    const CBrushEx brush(DC(), RGB(0xFF, 0xE2, 0xE2));
    ::Rectangle(DC(), 5, 5, 20, 20);
  }
  EXPECT_EQ(At(10, 10), RGB(0xFF, 0xE2, 0xE2));
  EXPECT_EQ(At(4, 10), kWhite);
}

TEST_F(DrawingObjects, AFontHasFaceAndSize) {
  LOGFONTA description{};
  description.lfHeight = 23;
  description.lfWeight = FW_BOLD;
  description.lfCharSet = SHIFTJIS_CHARSET;
  ::strcpy(description.lfFaceName, "ＭＳ ゴシック");
  const CFontEx font(DC(), description);
  LOGFONTW selected{};
  ::GetObjectW(::GetCurrentObject(DC(), OBJ_FONT), sizeof selected, &selected);
  EXPECT_STREQ(selected.lfFaceName, L"ＭＳ ゴシック");
  EXPECT_EQ(selected.lfWeight, FW_BOLD);
  EXPECT_EQ(selected.lfHeight, 23);
  EXPECT_EQ(selected.lfCharSet, SHIFTJIS_CHARSET);
}

TEST_F(DrawingObjects, AFaceOfAllItsBytesNeedsNoEnd) {
  LOGFONTA description{};
  std::memset(description.lfFaceName, 'x', sizeof description.lfFaceName);
  const CFontEx font(DC(), description);
  LOGFONTW selected{};
  ::GetObjectW(::GetCurrentObject(DC(), OBJ_FONT), sizeof selected, &selected);
  EXPECT_EQ(std::wstring(selected.lfFaceName), std::wstring(LF_FACESIZE - 1, L'x'));
}

int ChannelDifference(COLORREF one, COLORREF other, int shift) {
  return std::abs(static_cast<int>(one >> shift & 0xFF) - static_cast<int>(other >> shift & 0xFF));
}

TEST_F(DrawingObjects, TheGuideShowsOnEveryGreyAndIsGoneWhenDrawnAgain) {
  for (int level = 0; level <= 255; ++level) {
    const auto grey = static_cast<BYTE>(level);
    const COLORREF paper = RGB(grey, grey, grey);
    Fill(paper);
    const std::vector<COLORREF> before = Pixels();
    const CXorPenEx guide(DC(), PS_DOT, 1, 0);
    Line({20, 2}, {20, 38});
    int drawn = 0;
    for (int y = 2; y < 38; ++y) {
      if (At(20, y) == paper) {
        continue;
      }
      ++drawn;
      for (const int shift : {0, 8, 16}) {
        ASSERT_EQ(ChannelDifference(At(20, y), paper, shift), 128) << level;
      }
    }
    ASSERT_GE(drawn, 12) << "at " << level << ": a dotted line is a third ink at least";
    ASSERT_LT(drawn, 36) << "and has gaps";
    ASSERT_NE(Pixels(), before);
    Line({20, 2}, {20, 38});
    ASSERT_EQ(Pixels(), before) << level;
  }
}

TEST_F(DrawingObjects, TheGuideIsGoneOnAPictureOfManyColours) {
  std::uint32_t color = 1;
  for (int y = 0; y < kSize; ++y) {
    for (int x = 0; x < kSize; ++x) {
      color = color * 1'664'525 + 1'013'904'223;
      ::SetPixelV(DC(), x, y, color >> 8);
    }
  }
  const std::vector<COLORREF> before = Pixels();
  for (const COLORREF penColor : {RGB(0, 0, 0), RGB(255, 255, 255), RGB(128, 128, 128), kRed}) {
    for (const int style : {PS_SOLID, PS_DOT}) {
      const CXorPenEx guide(DC(), style, 1, penColor);
      Line({3, 10}, {37, 10});
      Line({8, 2}, {8, 38});
      EXPECT_NE(Pixels(), before);
      Line({8, 2}, {8, 38});
      Line({3, 10}, {37, 10});
      EXPECT_EQ(Pixels(), before);
    }
  }
}

TEST_F(DrawingObjects, LeaveNothing) {
  const auto useAll = [this] {
    const CPenEx pen(DC(), PS_SOLID, 2, kRed);
    const CXorPenEx guide(DC(), PS_DOT, 1, 0);
    const CBrushEx brush(DC(), kRed);
    const CFontEx font(DC(), LOGFONTA{});
    ::Rectangle(DC(), 3, 3, 30, 30);
    ::TextOutW(DC(), 3, 3, L"a", 1);
  };
  useAll();
  const driver::LeakCounters before = driver::CountResources();
  for (int i = 0; i < 100; ++i) {
    useAll();
  }
  EXPECT_EQ(driver::CountResources(), before);
}

}  // namespace
}  // namespace quorvel::test
