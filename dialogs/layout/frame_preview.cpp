#include "dialogs/layout/frame_preview.h"

#include "framework/device_context.h"
#include "kivfcl/display_rate.h"
#include "kivfcl/spoken_text.h"

using quorvel::FrameLine;
using quorvel::FrameSegment;
using quorvel::FrameStroke;

namespace {

constexpr int kMargin = 2;
constexpr COLORREF kPaper = RGB(255, 255, 255);
constexpr COLORREF kShownColor = RGB(0, 0, 0);
constexpr COLORREF kHiddenColor = RGB(192, 192, 192);

/// The device context of a control's parent, in the control's client pixels.
class ParentDC {
public:
  explicit ParentDC(HWND control)
      : m_hParent(::GetParent(control)), m_hDC(::GetDC(m_hParent)) {
    POINT origin{0, 0};
    ::MapWindowPoints(control, m_hParent, &origin, 1);
    ::SetViewportOrgEx(m_hDC, origin.x, origin.y, nullptr);
  }
  ~ParentDC() { ::ReleaseDC(m_hParent, m_hDC); }
  ParentDC(const ParentDC&) = delete;
  ParentDC& operator=(const ParentDC&) = delete;

  HDC Handle() const { return m_hDC; }

private:
  HWND m_hParent;
  HDC m_hDC;
};

}  // namespace

BEGIN_MESSAGE_MAP(CFramePreview, CStatic)
  ON_WM_PAINT(&CFramePreview::OnPaint)
END_MESSAGE_MAP()

LRESULT CFramePreview::WindowProc(UINT message, WPARAM wParam, LPARAM lParam) {
  if (message == WM_GETTEXTLENGTH || message == WM_GETTEXT) {
    return quorvel::AnswerWithText(message, wParam, lParam, L"罫線の見本");
  }
  return CStatic::WindowProc(message, wParam, lParam);
}

CRect CFramePreview::Area() const { return GetClientRect().Grown(kMargin, kMargin); }

// The control's own white rectangle would cover what the dialog draws.
void CFramePreview::OnPaint() {
  const CPaintDC paint(this);
  Draw();
}

void CFramePreview::Draw() const {
  // Beyond the control's edges, too: with a low font the bottom line lies there. Some platforms end
  // the control's own device context at its edges.
  const CRect area = Area();
  const double rate = __KivFcl_GetDispRate();
  const ParentDC deviceContext(m_hWnd);
  const quorvel::PaintBuffer buffer(deviceContext.Handle(), area);
  quorvel::FillSolid(buffer.Handle(), area, kPaper);
  const quorvel::OwnedPen shown(::CreatePen(PS_SOLID, 1, kShownColor));
  const quorvel::OwnedPen hidden(::CreatePen(PS_DOT, 1, kHiddenColor));
  for (std::size_t i = 0; i < quorvel::kFrameLineCount; ++i) {
    const auto line = static_cast<FrameLine>(i);
    const FrameStroke stroke = quorvel::StrokeOf(m_lines, line);
    if (stroke == FrameStroke::kNone) {
      continue;
    }
    const quorvel::SelectedObject pen(
        buffer.Handle(), stroke == FrameStroke::kSolid ? shown.get() : hidden.get());
    const FrameSegment segment = quorvel::SegmentOf(line, rate);
    ::MoveToEx(buffer.Handle(), segment.from.x, segment.from.y, nullptr);
    ::LineTo(buffer.Handle(), segment.to.x, segment.to.y);
  }
}
