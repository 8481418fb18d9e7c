#include "dialogs/layout/cel_painter.h"

#include "framework/code_page.h"
#include "kivfcl/display_pixels.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstring>
#include <string>
#include <utility>

namespace quorvel {

namespace {

constexpr COLORREF kBlack = RGB(0, 0, 0);
constexpr COLORREF kRed = RGB(255, 0, 0);
constexpr COLORREF kMagenta = RGB(255, 0, 255);
constexpr COLORREF kTint = 0x00E2E2FF;
// In pixels of a display at 100 %.
constexpr int kLineWidth = 2;
constexpr int kFixedHeight = -11;
constexpr double kNoWidth = 1e-6;
/// Of a letter, several times the largest picture: no more of a larger one is in sight, and the system
/// would be busy with it for minutes.
constexpr LONG kMostLetterPixels = 4096;

// Indices are GetVPos and GetHPos.
constexpr std::array<UINT, 3> kVerticalPlaces{DT_TOP, DT_VCENTER, DT_BOTTOM};
constexpr std::array<UINT, 3> kHorizontalPlaces{DT_LEFT, DT_CENTER, DT_RIGHT};

/// DrawTextW would take & as the mark of an access key; && is the character.
std::wstring WithoutAccessKeys(std::wstring text) {
  const auto marks = std::count(text.begin(), text.end(), L'&');
  if (marks == 0) {
    return text;
  }
  // Built anew: inserting would take for ever where a long text has nothing else.
  std::wstring doubled;
  doubled.reserve(text.size() + static_cast<std::size_t>(marks));
  for (const wchar_t character : text) {
    doubled.append(character == L'&' ? 2 : 1, character);
  }
  return doubled;
}

LOGFONTA WithinSight(LOGFONTA logFont) {
  logFont.lfHeight = std::clamp(logFont.lfHeight, -kMostLetterPixels, kMostLetterPixels);
  logFont.lfWidth = std::clamp(logFont.lfWidth, -kMostLetterPixels, kMostLetterPixels);
  return logFont;
}

}  // namespace

LOGFONTA ScaledCelFont(const CKivFontEx& font, const TextScale& scale) {
  LOGFONTA logFont = font.GetLogFont(0);
  if (scale.fixedHeight) {
    logFont.lfHeight = PixelsAt(RateOf(scale.dots), kFixedHeight);
    return WithinSight(logFont);
  }
  const auto [width, height] = font.GetMM();
  logFont.lfHeight = ScaledPixels(height, scale.scale, scale.dots.vertical);
  if (std::abs(width) >= kNoWidth) {
    logFont.lfWidth = ScaledPixels(width, scale.scale, scale.dots.horizontal);
  }
  return WithinSight(logFont);
}

CelPainter::CelPainter(HDC deviceContext, CelStyle style, const TextScale& scale)
    : m_hDC(deviceContext),
      m_style(style),
      m_scale(scale),
      m_nLineWidth(PixelsAt(RateOf(scale.dots), kLineWidth)),
      m_previousText(::GetTextColor(deviceContext)),
      m_previousBack(::GetBkColor(deviceContext)),
      m_nPreviousMode(::SetBkMode(deviceContext, OPAQUE)),
      m_previousPen(deviceContext, ::GetStockObject(BLACK_PEN)) {}

CelPainter::~CelPainter() {
  ::SetTextColor(m_hDC, m_previousText);
  ::SetBkColor(m_hDC, m_previousBack);
  ::SetBkMode(m_hDC, m_nPreviousMode);
}

bool CelPainter::ShowsText(const CLayoutCelData& cel, const CRect& rect, const CRect& part) const {
  if (cel.TextView().empty()) {
    return false;
  }
  // A frame is never narrower, and covers the text: a neighbour that is painted again for the line
  // between them need not be read.
  constexpr int kInsideOfFrame = 1;
  const bool framed = m_style == CelStyle::kFramed;
  return Overlap(framed ? rect.Grown(-kInsideOfFrame, -kInsideOfFrame) : rect, part);
}

void CelPainter::Draw(const CLayoutCelData& cel, const CRect& rect, int kind, const CRect& part) {
  FillSolid(m_hDC, rect, cel.GetFont()->GetBackColor());
  const bool ruled = m_style == CelStyle::kRuled;
  if (ruled && kind == kSelectedCel) {
    const int operation = ::SetROP2(m_hDC, R2_NOTXORPEN);
    UsePen({PS_SOLID, 1, kBlack});
    {
      const CBrushEx tint(m_hDC, kTint);
      ::Rectangle(m_hDC, rect.left, rect.top, rect.right, rect.bottom);
    }
    ::SetROP2(m_hDC, operation);
  }
  if (ShowsText(cel, rect, part)) {
    DrawCelText(cel, rect);
  }
  if (ruled) {
    DrawEdges(cel, rect, kind);
  } else {
    DrawFrame(rect, kind);
  }
}

void CelPainter::DrawCelText(const CLayoutCelData& cel, CRect rect) {
  const CKivFontEx& font = *cel.GetFont();
  UseFont(ScaledCelFont(font, m_scale));
  ::SetTextColor(m_hDC, PlainColor(font.GetColor()));
  // Between rules a text lets the cell's colour through, with the tint of a selected one.
  const bool ruled = m_style == CelStyle::kRuled;
  if (ruled) {
    ::SetBkMode(m_hDC, TRANSPARENT);
  } else {
    ::SetBkColor(m_hDC, PlainColor(font.GetBackColor()));
  }
  const std::wstring text = WithoutAccessKeys(WideFromCodePage(cel.TextView()));
  ::DrawTextW(m_hDC, text.c_str(), static_cast<int>(text.size()), &rect,
              kVerticalPlaces[font.GetVPos()] | kHorizontalPlaces[font.GetHPos()] | DT_SINGLELINE);
  if (ruled) {
    ::SetBkMode(m_hDC, OPAQUE);
  }
}

void CelPainter::DrawFrame(const CRect& rect, int kind) {
  const COLORREF color = kind == kNormalCel ? kBlack : kind == kSelectedCel ? kRed : kMagenta;
  UsePen({PS_SOLID, m_nLineWidth, color});
  const std::array<POINT, 5> corners{{{rect.left, rect.top},
                                      {rect.left, rect.bottom},
                                      {rect.right, rect.bottom},
                                      {rect.right, rect.top},
                                      {rect.left, rect.top}}};
  ::Polyline(m_hDC, corners.data(), static_cast<int>(corners.size()));
}

void CelPainter::DrawEdges(const CLayoutCelData& cel, const CRect& rect, int kind) {
  struct Edge {
    bool shown;
    POINT from;
    POINT to;
  };
  const std::array edges{
      Edge{cel.GetShowLineVT() != 0, {rect.left, rect.top}, {rect.right, rect.top}},
      Edge{cel.GetShowLineVB() != 0, {rect.left, rect.bottom}, {rect.right, rect.bottom}},
      Edge{cel.GetShowLineHR() != 0, {rect.right, rect.top}, {rect.right, rect.bottom}},
      Edge{cel.GetShowLineHL() != 0, {rect.left, rect.top}, {rect.left, rect.bottom}},
  };
  const COLORREF color = kind == kNormalCel     ? kBlack
                         : kind == kSelectedCel ? kRed
                                                : PlainColor(cel.GetFont()->GetBackColor());
  for (const bool shown : {true, false}) {
    for (const Edge& edge : edges) {
      if (edge.shown == shown) {
        UsePen(shown ? Pen{PS_SOLID, m_nLineWidth, color} : Pen{PS_DOT, 1, color});
        ::MoveToEx(m_hDC, edge.from.x, edge.from.y, nullptr);
        ::LineTo(m_hDC, edge.to.x, edge.to.y);
      }
    }
  }
}

void CelPainter::UseFont(const LOGFONTA& font) {
  if (!m_font || std::memcmp(&m_logFont, &font, sizeof font) != 0) {
    m_font.reset();  // it goes before the next one is selected
    m_font.emplace(m_hDC, font);
    m_logFont = font;
  }
}

void CelPainter::UsePen(const Pen& pen) {
  MadePen& made = pen.style == PS_SOLID ? m_linePen : m_dottedPen;
  OwnedPen unused;  // goes when another one is selected
  if (made.pen == nullptr || made.like != pen) {
    unused = std::exchange(made.pen, OwnedPen(::CreatePen(pen.style, pen.width, pen.color)));
    made.like = pen;
  }
  ::SelectObject(m_hDC, made.pen.get());
}

}  // namespace quorvel
