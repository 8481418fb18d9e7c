#include "gallery/page_picture.h"

#include "dialogs/layout/page_block.h"
#include "gallery/page_words.h"
#include "gallery/value_text.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <iterator>
#include <memory>
#include <string>
#include <type_traits>
#include <vector>

namespace quorvel::gallery {

namespace {

struct ObjectDeleter {
  void operator()(HGDIOBJ object) const { ::DeleteObject(object); }
};
using OwnedFont = std::unique_ptr<std::remove_pointer_t<HFONT>, ObjectDeleter>;
using OwnedPen = std::unique_ptr<std::remove_pointer_t<HPEN>, ObjectDeleter>;

/// What is selected and set while this lives goes with it.
class SavedState {
public:
  explicit SavedState(HDC deviceContext)
      : m_deviceContext(deviceContext), m_state(::SaveDC(deviceContext)) {}
  ~SavedState() { ::RestoreDC(m_deviceContext, m_state); }
  SavedState(const SavedState&) = delete;
  SavedState& operator=(const SavedState&) = delete;

private:
  HDC m_deviceContext;
  int m_state;
};

constexpr COLORREF kPaper = RGB(255, 255, 255);
constexpr COLORREF kThinLine = RGB(96, 96, 96);

// The index is GetVPos and GetHPos.
constexpr std::array<UINT, 3> kDown{DT_TOP, DT_VCENTER, DT_BOTTOM};
constexpr std::array<UINT, 3> kAcross{DT_LEFT, DT_CENTER, DT_RIGHT};

// The index is the style of PEN_STATUS.
constexpr std::array<DWORD, 6> kPenStyles{PS_SOLID,   PS_DASH,       PS_DOT,
                                          PS_DASHDOT, PS_DASHDOTDOT, PS_NULL};

OwnedPen ThinPen() {
  return OwnedPen(::CreatePen(PS_SOLID, 1, kThinLine));
}

/// Draws grids of cells at one scale.
class GridPainter {
public:
  GridPainter(HDC deviceContext, double dotsPerMm)
      : m_deviceContext(deviceContext), m_dotsPerMm(dotsPerMm) {}

  int Dots(double millimetres) const {
    return static_cast<int>(std::lround(millimetres * m_dotsPerMm));
  }

  /// Backgrounds and texts of all cells; `drawLines` is called with each cell and its rectangle.
  template <class DrawLines>
  void DrawCels(const PageBlock& block, const CRect& area, DrawLines drawLines) const {
    Fill(area, kPaper);
    std::vector<CRect> table(static_cast<std::size_t>(block.CelCount()));
    block.InitRects(area, table.data());
    for (int index = 0; index < block.CelCount(); ++index) {
      CRect rect;
      if (block.RectOf(rect, table.data(), index)) {
        const CLayoutCelData& cel = *block.CelAt(index);
        Fill(rect, cel.GetFont()->GetBackColor());
        DrawCelText(cel, rect);
        drawLines(cel, rect);
      }
    }
  }

  OwnedPen LinePen(int isOn, const PEN_STATUS& status) const {
    if (isOn == 0) {
      return OwnedPen(::CreatePen(PS_NULL, 0, 0));
    }
    const auto type = static_cast<std::size_t>(status.style);
    const DWORD style = type < kPenStyles.size() ? kPenStyles.at(type) : PS_SOLID;
    const LOGBRUSH brush{BS_SOLID, status.color, 0};
    return OwnedPen(::ExtCreatePen(
        PS_GEOMETRIC | PS_ENDCAP_FLAT | style,
        static_cast<DWORD>(std::max(Dots(double{status.width}), 1)), &brush, 0, nullptr));
  }

  void DrawLine(HPEN pen, const POINT& from, const POINT& to) const {
    const SavedState state(m_deviceContext);
    ::SelectObject(m_deviceContext, pen);
    ::MoveToEx(m_deviceContext, from.x, from.y, nullptr);
    ::LineTo(m_deviceContext, to.x, to.y);
  }

  /// The right and the bottom edge lie on the first pixels of what is beside them, as those of the
  /// neighbours do.
  void DrawFrame(const CRect& rect, HPEN pen) const {
    const SavedState state(m_deviceContext);
    ::SelectObject(m_deviceContext, pen);
    const std::array<POINT, 5> corners{{{rect.left, rect.top},
                                        {rect.left, rect.bottom},
                                        {rect.right, rect.bottom},
                                        {rect.right, rect.top},
                                        {rect.left, rect.top}}};
    ::Polyline(m_deviceContext, corners.data(), static_cast<int>(corners.size()));
  }

private:
  void Fill(const CRect& rect, COLORREF color) const {
    ::SetDCBrushColor(m_deviceContext, color);
    ::FillRect(m_deviceContext, &rect, static_cast<HBRUSH>(::GetStockObject(DC_BRUSH)));
  }

  void DrawCelText(const CLayoutCelData& cel, CRect rect) const {
    const CKivFontEx& font = *cel.GetFont();
    const OwnedFont letters = MakeFont(font);
    const SavedState state(m_deviceContext);
    ::SelectObject(m_deviceContext, letters.get());
    ::SetTextColor(m_deviceContext, font.GetColor());
    ::SetBkMode(m_deviceContext, TRANSPARENT);
    const std::wstring text = TextInWords(cel.GetText());
    ::DrawTextW(m_deviceContext, text.c_str(), static_cast<int>(text.size()), &rect,
                kDown.at(font.GetVPos()) | kAcross.at(font.GetHPos()) | DT_SINGLELINE |
                    DT_NOPREFIX);
  }

  OwnedFont MakeFont(const CKivFontEx& font) const {
    const LOGFONTA told = font.GetLogFont(0);
    LOGFONTW made{};
    made.lfHeight = -std::max(Dots(font.GetV()), 1);
    made.lfWidth = Dots(font.GetH());
    made.lfWeight = told.lfWeight;
    made.lfItalic = told.lfItalic;
    made.lfUnderline = told.lfUnderline;
    made.lfStrikeOut = told.lfStrikeOut;
    made.lfCharSet = told.lfCharSet;
    Wide(CString(std::begin(told.lfFaceName))).copy(std::begin(made.lfFaceName), LF_FACESIZE - 1);
    return OwnedFont(::CreateFontIndirectW(&made));
  }

  HDC m_deviceContext;
  double m_dotsPerMm;
};

constexpr int kEdge = 1;  // for half of a line around the page

/// Dots for a millimetre so that these fit into `area`; 0 where nothing does.
double ScaleToFit(const CRect& area, double width, double height) {
  if (width <= 0 || height <= 0 || area.Width() <= 2 * kEdge || area.Height() <= 2 * kEdge) {
    return 0;
  }
  return std::min((area.Width() - 2 * kEdge) / width, (area.Height() - 2 * kEdge) / height);
}

/// The lines of one cell of a block, those at the block's edge with the outer pen.
class CelLines {
public:
  CelLines(const GridPainter& painter, const CRect& area, HPEN outer, HPEN inner)
      : m_painter(painter), m_area(area), m_outer(outer), m_inner(inner) {}

  void operator()(const CLayoutCelData& cel, const CRect& rect) const {
    const POINT topLeft{rect.left, rect.top};
    const POINT topRight{rect.right, rect.top};
    const POINT bottomLeft{rect.left, rect.bottom};
    const POINT bottomRight{rect.right, rect.bottom};
    Draw(cel.GetShowLineVT(), rect.top == m_area.top, topLeft, topRight);
    Draw(cel.GetShowLineVB(), rect.bottom == m_area.bottom, bottomLeft, bottomRight);
    Draw(cel.GetShowLineHL(), rect.left == m_area.left, topLeft, bottomLeft);
    Draw(cel.GetShowLineHR(), rect.right == m_area.right, topRight, bottomRight);
  }

private:
  void Draw(int isShown, bool isOuter, const POINT& from, const POINT& to) const {
    if (isShown != 0) {
      m_painter.DrawLine(isOuter ? m_outer : m_inner, from, to);
    }
  }

  const GridPainter& m_painter;
  CRect m_area;
  HPEN m_outer;
  HPEN m_inner;
};

}  // namespace

void DrawPage(HDC deviceContext, const CRect& area, const CLayoutPageData& page) {
  CLayoutPageData copy = page;
  const SheetBlock block(copy);
  const double dotsPerMm = ScaleToFit(area, block.Width(), block.Height());
  if (dotsPerMm == 0) {
    return;
  }
  const CRect fitted(area.left + kEdge, area.top + kEdge,
                     area.left + kEdge + static_cast<int>(block.Width() * dotsPerMm),
                     area.top + kEdge + static_cast<int>(block.Height() * dotsPerMm));
  const GridPainter painter(deviceContext, dotsPerMm);
  const bool isRuled = page.GetType() != 0;
  const OwnedPen inner =
      isRuled ? painter.LinePen(page.GetByEdgeInLine(), page.GetInLineStatus()) : ThinPen();
  const OwnedPen outer =
      isRuled ? painter.LinePen(page.GetByEdgeOutLine(), page.GetOutLineStatus()) : ThinPen();
  painter.DrawCels(block, fitted, [&](const CLayoutCelData&, const CRect& rect) {
    painter.DrawFrame(rect, inner.get());
  });
  painter.DrawFrame(fitted, outer.get());
}

void DrawPage(HDC deviceContext, const CRect& area, const CLayoutExPageData& page) {
  CLayoutExPageData copy = page;
  std::vector<CLayoutExPageData::LISTTYPE> used;
  double height = 0;
  for (const auto type : {CLayoutExPageData::LISTTYPE_HEADER, CLayoutExPageData::LISTTYPE_LIST,
                          CLayoutExPageData::LISTTYPE_FOOTER}) {
    if (page.GetUse(type) != 0) {
      used.push_back(type);
      height += page.GetAllLengthRow(type);
    }
  }
  const double width = page.GetAllLengthCol();
  const double dotsPerMm = ScaleToFit(area, width, height);
  if (dotsPerMm == 0) {
    return;
  }
  const GridPainter painter(deviceContext, dotsPerMm);
  const OwnedPen inner = painter.LinePen(page.GetByEdgeInLine(), page.GetInLineStatus());
  const OwnedPen outer = painter.LinePen(page.GetByEdgeOutLine(), page.GetOutLineStatus());
  CRect part(area.left + kEdge, area.top + kEdge,
             area.left + kEdge + static_cast<int>(width * dotsPerMm), area.top + kEdge);
  double down = 0;
  for (const auto type : used) {
    const ExtendedBlock block(copy, type);
    down += block.Height();
    part.top = part.bottom;
    part.bottom = area.top + kEdge + static_cast<int>(down * dotsPerMm);
    painter.DrawCels(block, part, CelLines(painter, part, outer.get(), inner.get()));
  }
}

}  // namespace quorvel::gallery
