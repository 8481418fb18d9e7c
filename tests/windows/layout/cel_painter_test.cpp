#include "dialogs/layout/cel_painter.h"

#include "framework/device_context.h"
#include "support/pixels.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cstdint>
#include <string>

namespace quorvel::test {
namespace {

constexpr int kWidth = 100;
constexpr int kHeight = 60;
constexpr CRect kCel(20, 10, 80, 50);
constexpr CRect kWhole(0, 0, kWidth, kHeight);
constexpr std::uint32_t kCanvas = 0x808080;
constexpr std::uint32_t kWhite = 0xFFFFFF;
constexpr std::uint32_t kBlack = 0x000000;
constexpr std::uint32_t kRed = 0xFF0000;
constexpr std::uint32_t kTint = 0xFFE2E2;
constexpr TextScale kScale{1.0, {96.0, 96.0}};

/// A picture in memory on which one cell is drawn.
class Canvas {
public:
  Canvas() {
    BITMAPINFO info{};
    info.bmiHeader = {sizeof info.bmiHeader, kWidth, -kHeight, 1, 32, BI_RGB, 0, 0, 0, 0, 0};
    m_bitmap.reset(::CreateDIBSection(nullptr, &info, DIB_RGB_COLORS,
                                      reinterpret_cast<void**>(&m_pixels), nullptr, 0));
  }

  void Draw(const CLayoutCelData& cel, CelStyle style, int kind, const TextScale& scale = kScale,
            const CRect& part = kWhole) {
    const MemoryDC memory(nullptr);
    const SelectedObject selected(memory.Handle(), m_bitmap.get());
    FillSolid(memory.Handle(), kWhole, RGB(0x80, 0x80, 0x80));
    CelPainter(memory.Handle(), style, scale).Draw(cel, kCel, kind, part);
    ::GdiFlush();
  }
  std::uint32_t At(int x, int y) const { return m_pixels[y * kWidth + x] & 0xFFFFFF; }

  /// Pixels of a colour along a line, from one end to before the other.
  int Count(const CPoint& from, const CPoint& to, std::uint32_t color) const {
    const int length = std::max(to.x - from.x, to.y - from.y);
    int count = 0;
    for (int i = 0; i < length; ++i) {
      count += At(from.x + (to.x > from.x ? i : 0), from.y + (to.y > from.y ? i : 0)) == color ? 1 : 0;
    }
    return count;
  }
  /// Rows that the letters of a cell take.
  int LetterHeight(std::uint32_t background) const {
    int height = 0;
    for (int y = kCel.top + 2; y < kCel.bottom - 2; ++y) {
      const int length = kCel.Width() - 4;
      height += Count({kCel.left + 2, y}, {kCel.right - 2, y}, background) < length ? 1 : 0;
    }
    return height;
  }

private:
  OwnedBitmap m_bitmap;
  std::uint32_t* m_pixels = nullptr;
};

class CelPainting : public ::testing::Test {
protected:
  CLayoutCelData m_cel;
  Canvas m_canvas;
};

TEST_F(CelPainting, AFramedCelHasAClosedFrameOfItsKind) {
  struct Kind {
    int kind;
    std::uint32_t color;
  };
  for (const auto& [kind, color] :
       std::array{Kind{0, kBlack}, Kind{1, kRed}, Kind{2, 0xFF00FF}, Kind{-1, 0xFF00FF}}) {
    m_canvas.Draw(m_cel, CelStyle::kFramed, kind);
    for (const int x : {20, 80}) {
      EXPECT_EQ(m_canvas.At(x, 30), color);
      EXPECT_EQ(m_canvas.At(x - 1, 30), color);
    }
    for (const int y : {10, 50}) {
      EXPECT_EQ(m_canvas.At(50, y), color);
      EXPECT_EQ(m_canvas.At(50, y - 1), color);
    }
    EXPECT_EQ(m_canvas.At(50, 30), kWhite);
    EXPECT_EQ(m_canvas.At(82, 30), kCanvas);
  }
}

TEST_F(CelPainting, AFramedCelDoesNotAskWhichLinesAreShown) {
  m_cel.SetShowLineHL(0);
  m_cel.SetShowLineVT(0);
  m_canvas.Draw(m_cel, CelStyle::kFramed, kNormalCel);
  EXPECT_EQ(m_canvas.At(20, 30), kBlack);
  EXPECT_EQ(m_canvas.At(50, 10), kBlack);
}

struct Edge {
  void (CLayoutCelData::*show)(int) = nullptr;
  CPoint from;
  CPoint to;
};

/// Solid and two pixels wide, or dotted and one.
void ExpectEdge(const Canvas& canvas, const Edge& edge, std::uint32_t color, bool shown) {
  const bool across = edge.from.y == edge.to.y;
  const int length = across ? edge.to.x - edge.from.x : edge.to.y - edge.from.y;
  const CPoint from(edge.from.x - (across ? 0 : 1), edge.from.y - (across ? 1 : 0));
  const CPoint to(edge.to.x - (across ? 0 : 1), edge.to.y - (across ? 1 : 0));
  const int drawn = canvas.Count(edge.from, edge.to, color);
  const int beside = canvas.Count(from, to, color);
  EXPECT_EQ(beside, shown ? length : 0);
  EXPECT_EQ(drawn == length, shown);
  EXPECT_GT(drawn, length / 4);
}

TEST_F(CelPainting, EachShownEdgeIsSolidAndEachHiddenOneDotted) {
  const std::array edges{Edge{&CLayoutCelData::SetShowLineVT, {24, 10}, {76, 10}},
                         Edge{&CLayoutCelData::SetShowLineVB, {24, 50}, {76, 50}},
                         Edge{&CLayoutCelData::SetShowLineHR, {80, 14}, {80, 46}},
                         Edge{&CLayoutCelData::SetShowLineHL, {20, 14}, {20, 46}}};
  for (const int kind : {kNormalCel, kSelectedCel}) {
    const std::uint32_t color = kind == kSelectedCel ? kRed : kBlack;
    for (const Edge& hidden : edges) {
      m_cel = CLayoutCelData();
      (m_cel.*hidden.show)(0);
      m_canvas.Draw(m_cel, CelStyle::kRuled, kind);
      for (const Edge& edge : edges) {
        ExpectEdge(m_canvas, edge, color, &edge != &hidden);
      }
    }
  }
}

TEST_F(CelPainting, TheGapsOfAHiddenEdgeAreWhiteOnAnyColour) {
  const COLORREF blue = RGB(0, 0, 255);
  m_cel.GetFont()->SetBackColor(&blue);
  m_cel.SetShowLineVT(0);
  m_cel.SetText("あ");  // which is drawn on its colour
  for (const auto& [kind, line] : {std::pair(kNormalCel, kBlack), std::pair(kSelectedCel, kRed)}) {
    m_canvas.Draw(m_cel, CelStyle::kRuled, kind);
    const CPoint from(24, 10);
    const CPoint to(76, 10);
    EXPECT_GT(m_canvas.Count(from, to, kWhite), 0);
    EXPECT_EQ(m_canvas.Count(from, to, kWhite) + m_canvas.Count(from, to, line), to.x - from.x);
  }
  m_canvas.Draw(m_cel, CelStyle::kRuled, kNormalCel);
  EXPECT_EQ(m_canvas.Count({21, 30}, {79, 30}, kWhite), 0);
}

TEST_F(CelPainting, ASelectedRuledCelIsTinted) {
  m_canvas.Draw(m_cel, CelStyle::kRuled, kSelectedCel);
  EXPECT_EQ(m_canvas.At(50, 30), kTint);
  const COLORREF blue = RGB(0, 0, 255);
  m_cel.GetFont()->SetBackColor(&blue);
  m_canvas.Draw(m_cel, CelStyle::kRuled, kSelectedCel);
  EXPECT_EQ(m_canvas.At(50, 30), 0x001DE2U);  // neither one colour nor the other, bit by bit
  m_canvas.Draw(m_cel, CelStyle::kRuled, kNormalCel);
  EXPECT_EQ(m_canvas.At(50, 30), 0x0000FFU);
  m_canvas.Draw(m_cel, CelStyle::kFramed, kSelectedCel);
  EXPECT_EQ(m_canvas.At(50, 30), 0x0000FFU);
}

TEST_F(CelPainting, OfAnyOtherKindARuledCelHasEdgesInItsOwnColour) {
  const COLORREF green = RGB(0, 255, 0);
  m_cel.GetFont()->SetBackColor(&green);
  m_canvas.Draw(m_cel, CelStyle::kRuled, 2);
  EXPECT_EQ(m_canvas.At(20, 30), 0x00FF00U);
  EXPECT_EQ(m_canvas.At(80, 30), 0x00FF00U);
}

TEST_F(CelPainting, LettersAreScaledOrElevenPixelsHigh) {
  m_cel.SetText("■");
  TextScale fixed = kScale;
  fixed.fixedHeight = true;
  std::array<int, 2> fixedHeights{};
  std::array<int, 2> scaledHeights{};
  for (const std::size_t at : {0U, 1U}) {
    m_cel.GetFont()->SetV(at == 0 ? 3.0 : 9.0);
    m_canvas.Draw(m_cel, CelStyle::kRuled, kNormalCel, fixed);
    fixedHeights[at] = m_canvas.LetterHeight(kWhite);
    m_canvas.Draw(m_cel, CelStyle::kRuled, kNormalCel);
    scaledHeights[at] = m_canvas.LetterHeight(kWhite);
  }
  EXPECT_EQ(fixedHeights[0], fixedHeights[1]);
  EXPECT_GT(fixedHeights[0], 5);
  EXPECT_LE(fixedHeights[0], 11);
  EXPECT_GT(scaledHeights[1], 2 * scaledHeights[0]);
}

TEST_F(CelPainting, TheScaledFontHasTheMillimetresSizes) {
  CKivFontEx font;
  font.SetV(10.0);
  font.SetH(0.0);
  const LONG natural = font.GetLogFont(0).lfWidth;
  EXPECT_EQ(ScaledCelFont(font, {0.5, {96.0, 192.0}}).lfHeight, 38);  // 37.8
  EXPECT_EQ(ScaledCelFont(font, {0.5, {96.0, 192.0}}).lfWidth, natural);
  font.SetH(5.0);
  EXPECT_EQ(ScaledCelFont(font, {0.5, {96.0, 192.0}}).lfWidth, 9);  // 9.45
  EXPECT_EQ(ScaledCelFont(font, {0.0001, {96.0, 192.0}}).lfHeight, 1);
  EXPECT_EQ(ScaledCelFont(font, {0.0001, {96.0, 192.0}}).lfWidth, 1);
}

TEST_F(CelPainting, ATextIsOpaqueInAFrameAndTransparentBetweenRules) {
  // The letters' own background shows where the text reaches over what the tint changed.
  m_cel.SetText("1");
  m_cel.GetFont()->SetV(8.0);
  m_canvas.Draw(m_cel, CelStyle::kRuled, kSelectedCel);
  EXPECT_EQ(m_canvas.Count({22, 13}, {78, 13}, kWhite), 0);
  m_canvas.Draw(m_cel, CelStyle::kFramed, kSelectedCel);
  EXPECT_GT(m_canvas.Count({22, 13}, {78, 13}, kWhite), 0);
}

TEST_F(CelPainting, APartLooksAsItDoesInTheWhole) {
  m_cel.SetText("■■■■■■");
  m_cel.GetFont()->SetV(10.0);
  m_cel.SetShowLineHR(0);
  Canvas whole;
  for (const CelStyle style : {CelStyle::kFramed, CelStyle::kRuled}) {
    whole.Draw(m_cel, style, kNormalCel);
    for (int x = 0; x < kWidth; ++x) {
      const CRect part(x, 0, x + 1, kHeight);
      m_canvas.Draw(m_cel, style, kNormalCel, kScale, part);
      for (int y = 0; y < kHeight; ++y) {
        ASSERT_EQ(m_canvas.At(x, y), whole.At(x, y)) << static_cast<int>(style) << ": " << x << ", " << y;
      }
    }
  }
}

TEST_F(CelPainting, AnEdgeAloneIsPaintedWithoutTheText) {
  m_cel.SetText("■■■■■■");
  m_cel.GetFont()->SetV(10.0);
  const CRect edge(kCel.right - 1, kCel.top, kCel.right + 1, kCel.bottom);
  m_canvas.Draw(m_cel, CelStyle::kFramed, kNormalCel, kScale, edge);
  EXPECT_EQ(m_canvas.LetterHeight(kWhite), 0);
  m_canvas.Draw(m_cel, CelStyle::kRuled, kNormalCel, kScale, edge);
  EXPECT_GT(m_canvas.LetterHeight(kWhite), 0);  // a hidden line lets it show through
}

TEST_F(CelPainting, LeavesTheDeviceContextAsItWas) {
  const MemoryDC memory(nullptr);
  ::SetTextColor(memory.Handle(), RGB(1, 2, 3));
  ::SetBkColor(memory.Handle(), RGB(4, 5, 6));
  ::SetBkMode(memory.Handle(), OPAQUE);
  ::SetROP2(memory.Handle(), R2_COPYPEN);
  const HGDIOBJ font = ::GetCurrentObject(memory.Handle(), OBJ_FONT);
  const HGDIOBJ pen = ::GetCurrentObject(memory.Handle(), OBJ_PEN);
  const HGDIOBJ brush = ::GetCurrentObject(memory.Handle(), OBJ_BRUSH);
  m_cel.SetText("a");
  const COLORREF red = RGB(255, 0, 0);
  m_cel.GetFont()->SetColor(&red);
  CelPainter(memory.Handle(), CelStyle::kRuled, kScale).Draw(m_cel, kCel, kSelectedCel, kWhole);
  EXPECT_EQ(::GetTextColor(memory.Handle()), RGB(1, 2, 3));
  EXPECT_EQ(::GetBkColor(memory.Handle()), RGB(4, 5, 6));
  EXPECT_EQ(::GetBkMode(memory.Handle()), OPAQUE);
  EXPECT_EQ(::GetROP2(memory.Handle()), R2_COPYPEN);
  EXPECT_EQ(::GetCurrentObject(memory.Handle(), OBJ_FONT), font);
  EXPECT_EQ(::GetCurrentObject(memory.Handle(), OBJ_PEN), pen);
  EXPECT_EQ(::GetCurrentObject(memory.Handle(), OBJ_BRUSH), brush);
}

}  // namespace
}  // namespace quorvel::test
