#include "gallery/page_picture.h"

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

/// Draws one page at one scale.
class PagePainter {
public:
  PagePainter(HDC deviceContext, const CLayoutPageData& page, const CRect& area, double dotsPerMm)
      : m_deviceContext(deviceContext), m_page(page), m_area(area), m_dotsPerMm(dotsPerMm) {}

  void Draw() const {
    Fill(m_area, kPaper);
    std::vector<CRect> table(static_cast<std::size_t>(m_page.GetCelSize()));
    m_page.InitCelRect(&m_area, table.data());
    const OwnedPen inner = InnerPen();
    for (int index = 0; index < m_page.GetCelSize(); ++index) {
      CRect rect;
      if (m_page.GetCelRect(&rect, table.data(), index, nullptr, nullptr) != 0) {
        const CLayoutCelData& cel = *m_page.GetCelAt(index);
        Fill(rect, cel.GetFont()->GetBackColor());
        DrawCelText(cel, rect);
        DrawFrame(rect, inner.get());
      }
    }
    DrawFrame(m_area, OuterPen().get());
  }

private:
  bool IsRuled() const { return m_page.GetType() != 0; }
  int Dots(double millimetres) const {
    return static_cast<int>(std::lround(millimetres * m_dotsPerMm));
  }

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
    const std::wstring text = Wide(cel.GetText());
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

  OwnedPen InnerPen() const {
    return IsRuled() ? LinePen(m_page.GetByEdgeInLine(), m_page.GetInLineStatus()) : ThinPen();
  }
  OwnedPen OuterPen() const {
    return IsRuled() ? LinePen(m_page.GetByEdgeOutLine(), m_page.GetOutLineStatus()) : ThinPen();
  }
  static OwnedPen ThinPen() { return OwnedPen(::CreatePen(PS_SOLID, 1, kThinLine)); }
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

  HDC m_deviceContext;
  const CLayoutPageData& m_page;
  CRect m_area;
  double m_dotsPerMm;
};

}  // namespace

void DrawPage(HDC deviceContext, const CRect& area, const CLayoutPageData& page) {
  constexpr int kEdge = 1;  // for half of a line around the page
  const double width = page.GetAllLengthCol();
  const double height = page.GetAllLengthRow();
  if (width <= 0 || height <= 0 || area.Width() <= 2 * kEdge || area.Height() <= 2 * kEdge) {
    return;
  }
  const double dotsPerMm =
      std::min((area.Width() - 2 * kEdge) / width, (area.Height() - 2 * kEdge) / height);
  const CRect fitted(area.left + kEdge, area.top + kEdge,
                     area.left + kEdge + static_cast<int>(width * dotsPerMm),
                     area.top + kEdge + static_cast<int>(height * dotsPerMm));
  PagePainter(deviceContext, page, fitted, dotsPerMm).Draw();
}

}  // namespace quorvel::gallery
