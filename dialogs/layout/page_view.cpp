#include "dialogs/layout/page_view.h"

#include "framework/device_context.h"
#include "kivfcl/display_pixels.h"

#include <memory>
#include <type_traits>

using quorvel::PairOfLengths;

namespace {

constexpr COLORREF kAround = RGB(0xBF, 0xBF, 0xBF);
constexpr COLORREF kPaper = RGB(0xFF, 0xFF, 0xFF);
constexpr COLORREF kGuideColor = RGB(0, 0, 0);
/// A cell's lines reach this far out of its rectangle on a display at 100 %.
constexpr int kLineReach = 1;

struct RegionDeleter {
  void operator()(HRGN region) const { ::DeleteObject(region); }
};
using OwnedRegion = std::unique_ptr<std::remove_pointer_t<HRGN>, RegionDeleter>;

}  // namespace

BEGIN_MESSAGE_MAP(CPageView, CStatic)
  ON_WM_PAINT(&CPageView::OnPaint)
  ON_MESSAGE(WM_ERASEBKGND, &CPageView::OnEraseBackground)
END_MESSAGE_MAP()

void CPageView::Attach(UINT id, CWnd* dialog) {
  SubclassDlgItem(id, dialog);
  ::SetWindowLongPtrW(m_hWnd, GWL_STYLE,
                      ::GetWindowLongPtrW(m_hWnd, GWL_STYLE) | WS_CLIPSIBLINGS);
  ::SetWindowPos(m_hWnd, HWND_TOP, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE);
  m_dialogArea = dialog->GetDlgItemRect(static_cast<int>(id));
  const CClientDC client(this);
  m_dots = {static_cast<double>(::GetDeviceCaps(client.Handle(), LOGPIXELSX)),
            static_cast<double>(::GetDeviceCaps(client.Handle(), LOGPIXELSY))};
}

void CPageView::LayOut() {
  Place(quorvel::FitPage(GetClientRect(), PageSize(), m_dots));
}

void CPageView::LayOutAt(double scale) {
  Place(quorvel::PlacePage(GetClientRect(), PageSize(), m_dots, scale));
}

double CPageView::ScaleToFit() const {
  return quorvel::ScaleToFit(GetClientRect(), PageSize(), m_dots);
}

void CPageView::Place(const quorvel::FittedPage& page) {
  m_page = page;
  m_bLaidOut = true;
  FillTable();
  Invalidate();
}

void CPageView::FillTable() {
  m_table = quorvel::RectTable(m_block, m_page.area);
  m_tableShape = {m_block.Cols(), m_block.Rows()};
}

bool CPageView::IsTableOfBlock() const {
  return m_tableShape == CSize(m_block.Cols(), m_block.Rows());
}

CRect CPageView::WithLines(const CRect& cel) const {
  const int reach = quorvel::PixelsAt(Rate(), kLineReach);
  return cel.Grown(reach, reach);
}

void CPageView::InvalidateCels(const quorvel::CelList& cels) const {
  // Told cell by cell, the platform would need as long as for painting them.
  const OwnedRegion changed(::CreateRectRgn(0, 0, 0, 0));
  const OwnedRegion next(::CreateRectRgn(0, 0, 0, 0));
  for (const int index : cels) {
    if (const std::optional<CRect> rect = RectOf(index)) {
      const CRect reach = WithLines(*rect);
      ::SetRectRgn(next.get(), reach.left, reach.top, reach.right, reach.bottom);
      ::CombineRgn(changed.get(), changed.get(), next.get(), RGN_OR);
    }
  }
  ::InvalidateRgn(m_hWnd, changed.get(), TRUE);
}

CPoint CPageView::FromDialog(const CPoint& point) const {
  return {point.x - m_dialogArea.left, point.y - m_dialogArea.top};
}

CRect CPageView::ToDialog(const CRect& rect) const {
  CRect moved = rect;
  moved.OffsetRect(m_dialogArea.left, m_dialogArea.top);
  return moved;
}

int CPageView::CelAt(const CPoint& point, const CSize& margin) const {
  return IsTableOfBlock() ? quorvel::CelAtPoint(m_block, m_table, point,
                                                 {quorvel::PixelsAt(Rate(), margin.cx),
                                                  quorvel::PixelsAt(Rate(), margin.cy)})
                           : -1;
}

std::optional<CRect> CPageView::RectOf(int index) const {
  CRect rect;
  if (m_table.empty() || !IsTableOfBlock() || !m_block.RectOf(rect, m_table.data(), index)) {
    return std::nullopt;
  }
  return rect;
}

void CPageView::SetFixedTextHeight(bool fixed) {
  m_bFixedTextHeight = fixed;
  Invalidate();
}

void CPageView::SetEditedCel(int index) {
  InvalidateCels({m_nEditedCel, index});
  m_nEditedCel = index;
}

bool CPageView::TakeBorder(const CPoint& point) {
  if (!IsTableOfBlock()) {
    return false;
  }
  m_border = quorvel::FindBorder(m_table, m_block.Rows(), m_block.Cols(), point, Rate());
  if (m_border) {
    ToggleGuide();
  }
  return m_border.has_value();
}

std::optional<PairOfLengths> CPageView::DragBorder(const CPoint& point) {
  if (!m_border) {
    return std::nullopt;
  }
  quorvel::BorderDrag moved = *m_border;
  if (!quorvel::MoveGuide(moved, point)) {
    return std::nullopt;
  }
  ToggleGuide();
  m_border = moved;
  ToggleGuide();
  return quorvel::DraggedLengths(moved, m_block, m_page.scale, m_dots);
}

void CPageView::StoreBorder() {
  if (m_border) {
    quorvel::StoreLengths(
        *m_border, quorvel::DraggedLengths(*m_border, m_block, m_page.scale, m_dots), m_block);
  }
}

void CPageView::DropBorder() {
  if (m_border) {
    ToggleGuide();
    m_border.reset();
  }
}

void CPageView::OnPaint() {
  const CPaintDC paint(this);
  if (!m_bLaidOut) {
    return;
  }
  if (!IsTableOfBlock()) {
    FillTable();
  }
  const quorvel::PaintBuffer buffer(paint.Handle(), paint.Area(), &m_memory);
  Paint(buffer.Handle(), paint.Area());
}

/// The painting covers all.
// NOLINTNEXTLINE(readability-convert-member-functions-to-static): called as a member by the map
LRESULT CPageView::OnEraseBackground(WPARAM /*wParam*/, LPARAM /*lParam*/) { return TRUE; }

void CPageView::Paint(HDC deviceContext, const CRect& part) const {
  quorvel::FillSolid(deviceContext, GetClientRect(), kAround);
  quorvel::FillSolid(deviceContext, m_page.area, kPaper);
  {
    quorvel::CelPainter painter(deviceContext, m_style,
                                {m_page.scale, m_dots, m_bFixedTextHeight});
    PaintCels(painter, part, quorvel::kNormalCel);
    PaintCels(painter, part, quorvel::kSelectedCel);  // their lines lie over the neighbours'
  }
  if (m_border) {
    DrawGuide(deviceContext);
  }
}

void CPageView::PaintCels(quorvel::CelPainter& painter, const CRect& part, int kind) const {
  const bool ruled = m_style == quorvel::CelStyle::kRuled;
  const int count = m_block.Rows() * m_block.Cols();
  for (int index = 0; index < count; ++index) {
    const CLayoutCelData* const cel = m_block.CelAt(index);
    if (cel == nullptr || (ruled && index == m_nEditedCel)) {
      continue;
    }
    // Of a framed cell nothing shows below its selected look; ruled ones have dotted lines.
    const bool selected = cel->GetSelected() != 0;
    if (kind == quorvel::kSelectedCel ? !selected : selected && !ruled) {
      continue;
    }
    const std::optional<CRect> rect = RectOf(index);
    if (rect && quorvel::Overlap(WithLines(*rect), part)) {
      painter.Draw(*cel, *rect, kind, part);
    }
  }
}

void CPageView::DrawGuide(HDC deviceContext) const {
  const CXorPenEx pen(deviceContext, PS_DOT, 1, kGuideColor);
  const auto [from, to] = quorvel::GuideOf(*m_border, m_page.area);
  ::MoveToEx(deviceContext, from.x, from.y, nullptr);
  ::LineTo(deviceContext, to.x, to.y);
}

void CPageView::ToggleGuide() const {
  const CClientDC client(this);
  DrawGuide(client.Handle());
}
