#include "kivfcl/kiv_slider_ctrl.h"

#include "kivfcl/control_class.h"
#include "kivfcl/control_paint.h"
#include "kivfcl/spoken_text.h"

#include <algorithm>
#include <utility>

using quorvel::SliderStep;

namespace {

constexpr int kStripBits = 32;
/// In WM_KEYDOWN's lParam: the key was down before.
constexpr LPARAM kRepeatedKey = LPARAM{1} << 30;

const wchar_t* ClassName() {
  static const quorvel::ControlClass registered(L"KivSliderCtrl");
  return registered.Name();
}

std::optional<SliderStep> StepOfKey(WPARAM key) {
  switch (key) {
    case VK_RIGHT:
    case VK_UP:
      return SliderStep::kRaise;
    case VK_LEFT:
    case VK_DOWN:
      return SliderStep::kLower;
    case VK_PRIOR:
      return SliderStep::kPageRaise;
    case VK_NEXT:
      return SliderStep::kPageLower;
    case VK_HOME:
      return SliderStep::kLowest;
    case VK_END:
      return SliderStep::kHighest;
    default:
      return std::nullopt;
  }
}

quorvel::GradientModel ModelOf(int gradation) {
  switch (gradation) {
    case KIVGRADATION_CMYK:
      return quorvel::GradientModel::kCmyk;
    case KIVGRADATION_HSB:
      return quorvel::GradientModel::kHsb;
    default:
      return quorvel::GradientModel::kRgb;
  }
}

/// An Escape that is held down: it has done its work with its first message.
bool IsHeldEscape(const MSG* message) {
  return message != nullptr && message->message == WM_KEYDOWN && message->wParam == VK_ESCAPE &&
         (message->lParam & kRepeatedKey) != 0;
}

}  // namespace

BEGIN_MESSAGE_MAP(CKivSliderCtrl, CWnd)
  ON_WM_PAINT(&CKivSliderCtrl::OnPaint)
  ON_WM_LBUTTONDOWN(&CKivSliderCtrl::OnLButtonDown)
  ON_WM_LBUTTONDBLCLK(&CKivSliderCtrl::OnLButtonDown)
  ON_WM_MOUSEMOVE(&CKivSliderCtrl::OnMouseMove)
  ON_WM_LBUTTONUP(&CKivSliderCtrl::OnLButtonUp)
  ON_MESSAGE(WM_CAPTURECHANGED, &CKivSliderCtrl::OnDragTakenAway)
  ON_MESSAGE(WM_DESTROY, &CKivSliderCtrl::OnDestroy)
  ON_MESSAGE(WM_KEYDOWN, &CKivSliderCtrl::OnKeyDown)
  ON_MESSAGE(WM_MOUSEWHEEL, &CKivSliderCtrl::OnMouseWheel)
  ON_MESSAGE(WM_GETDLGCODE, &CKivSliderCtrl::OnGetDlgCode)
  ON_MESSAGE(WM_SETFOCUS, &CKivSliderCtrl::OnLookChanged)
  ON_MESSAGE(WM_KILLFOCUS, &CKivSliderCtrl::OnLookChanged)
  ON_MESSAGE(WM_SIZE, &CKivSliderCtrl::OnLookChanged)
  ON_MESSAGE(WM_ENABLE, &CKivSliderCtrl::OnLookChanged)
  ON_MESSAGE(WM_SYSCOLORCHANGE, &CKivSliderCtrl::OnLookChanged)
END_MESSAGE_MAP()

CKivSliderCtrl::~CKivSliderCtrl() {
  if (std::exchange(m_drag, std::nullopt).has_value() && ::GetCapture() == m_hWnd) {
    ::ReleaseCapture();  // or the window, which goes on, would keep the mouse
  }
}

BOOL CKivSliderCtrl::Create(DWORD style, const CRect& rect, CWnd* parent, UINT id, int kind) {
  if (CreateChild(ClassName(), 0, style, rect, parent, id) == FALSE) {
    return FALSE;
  }
  m_nKind = kind;
  m_bStripIsOld = true;
  m_drag.reset();
  return TRUE;
}

void CKivSliderCtrl::SetRange(int lowest, int highest) {
  const quorvel::SliderRange range{lowest, std::max(lowest, highest)};
  if (range != std::exchange(m_range, range)) {
    m_nPos = quorvel::KeptInRange(m_nPos, range);
    Invalidate();
  }
}

void CKivSliderCtrl::SetPos(int position) { MoveThumb(quorvel::KeptInRange(position, m_range)); }

void CKivSliderCtrl::SetGradation(int model, const KIVCOLORCOMPONENTS& start,
                                  const KIVCOLORCOMPONENTS& end) {
  const quorvel::Gradient gradient{ModelOf(model), start, end};
  if (gradient != std::exchange(m_gradient, gradient)) {
    m_bStripIsOld = true;
    Invalidate();
  }
}

LRESULT CKivSliderCtrl::WindowProc(UINT message, WPARAM wParam, LPARAM lParam) {
  switch (message) {
    case WM_GETTEXTLENGTH:
    case WM_GETTEXT:
      return quorvel::AnswerWithText(message, wParam, lParam,
                                     quorvel::Named(GivenText(), std::to_wstring(m_nPos)));
    default:
      return CWnd::WindowProc(message, wParam, lParam);
  }
}

quorvel::SliderTrack CKivSliderCtrl::Track() const {
  const CSize client = GetClientRect().Size();
  return quorvel::TrackOf(IsUpright() ? client.cy : client.cx, m_displayRate);
}

CRect CKivSliderCtrl::Thumb() const {
  return quorvel::ThumbRect(quorvel::PlaceOfPosition(m_nPos, m_range, Track()),
                            GetClientRect().Size(), IsUpright(), m_displayRate);
}

bool CKivSliderCtrl::MoveThumb(int position) {
  const CRect before = Thumb();
  const bool changed = position != std::exchange(m_nPos, position);
  if (const CRect after = Thumb(); after != before) {
    InvalidateRect(before);
    InvalidateRect(after);
  }
  return changed;
}

void CKivSliderCtrl::OnLButtonDown(UINT /*keys*/, CPoint point) {
  if (m_drag.has_value()) {
    return;
  }
  // Whoever loses the focus or the mouse may end the dialog over it.
  const HWND window = m_hWnd;
  ::SetFocus(window);
  if (FromHandlePermanent(window) != this) {
    return;
  }
  ::SetCapture(window);
  if (FromHandlePermanent(window) != this || ::GetCapture() != window) {
    return;
  }
  const int place = quorvel::PlaceOfPoint(point, GetClientRect().Size(), IsUpright());
  const quorvel::SliderTrack track = Track();
  const int thumbPlace = quorvel::PlaceOfPosition(m_nPos, m_range, track);
  m_drag = DragState{m_nPos, quorvel::GripAt(place, thumbPlace, track), false};
  DragTo(place);
}

void CKivSliderCtrl::OnMouseMove(UINT /*keys*/, CPoint point) {
  if (m_drag.has_value()) {
    DragTo(quorvel::PlaceOfPoint(point, GetClientRect().Size(), IsUpright()));
  }
}

void CKivSliderCtrl::OnLButtonUp(UINT /*keys*/, CPoint /*point*/) { EndDrag(); }

LRESULT CKivSliderCtrl::OnDragTakenAway(WPARAM /*wParam*/, LPARAM /*lParam*/) {
  // By WM_CANCELMODE, too: its default handling releases the mouse.
  EndDrag();
  return 0;
}

LRESULT CKivSliderCtrl::OnDestroy(WPARAM wParam, LPARAM lParam) {
  m_drag.reset();  // nobody is told any more
  return Default(WM_DESTROY, wParam, lParam);
}

void CKivSliderCtrl::DragTo(int place) {
  // The thumb stays where a handler may have set it until the mouse moves to another position.
  if (MoveThumb(quorvel::DraggedPosition(place, m_drag->grip, m_range, Track()))) {
    m_drag->moved = true;
    Notify(KIVSLIDER_MOVING);
  }
}

void CKivSliderCtrl::EndDrag() {
  const std::optional<DragState> drag = std::exchange(m_drag, std::nullopt);
  if (!drag.has_value()) {
    return;
  }
  if (::GetCapture() == m_hWnd) {
    ::ReleaseCapture();
  }
  if (drag->moved) {
    Notify(KIVSLIDER_MOVED);
  }
}

LRESULT CKivSliderCtrl::OnKeyDown(WPARAM wParam, LPARAM lParam) {
  if (m_drag.has_value()) {
    if (wParam == VK_ESCAPE) {
      MoveThumb(quorvel::KeptInRange(m_drag->positionBefore, m_range));
      EndDrag();
    }
    return 0;
  }
  const std::optional<SliderStep> step = StepOfKey(wParam);
  if (!step.has_value()) {
    return Default(WM_KEYDOWN, wParam, lParam);
  }
  if (MoveThumb(quorvel::Stepped(m_nPos, m_range, *step))) {
    Notify(KIVSLIDER_MOVED);
  }
  return 0;
}

LRESULT CKivSliderCtrl::OnMouseWheel(WPARAM wParam, LPARAM /*lParam*/) {
  if (m_drag.has_value()) {
    return 0;
  }
  const long long steps = m_wheel.Add(GET_WHEEL_DELTA_WPARAM(wParam), 1);
  if (MoveThumb(quorvel::KeptInRange(m_nPos + steps, m_range))) {
    Notify(KIVSLIDER_MOVED);
  }
  return 0;
}

LRESULT CKivSliderCtrl::OnGetDlgCode(WPARAM /*wParam*/, LPARAM lParam) {
  // During a drag no key is the dialog's: Escape ends the drag.
  const bool wantsAll =
      m_drag.has_value() || IsHeldEscape(reinterpret_cast<const MSG*>(lParam));
  return DLGC_WANTARROWS | (wantsAll ? DLGC_WANTALLKEYS : 0);
}

LRESULT CKivSliderCtrl::OnLookChanged(WPARAM /*wParam*/, LPARAM /*lParam*/) {
  m_bStripIsOld = true;
  Invalidate();
  return 0;
}

void CKivSliderCtrl::Notify(UINT code) const {
  NMKIVSLIDER notification{};
  notification.hdr.hwndFrom = m_hWnd;
  notification.hdr.idFrom = static_cast<UINT_PTR>(::GetDlgCtrlID(m_hWnd));
  notification.hdr.code = code;
  notification.nPos = m_nPos;
  ::SendMessageW(::GetParent(m_hWnd), WM_NOTIFY, notification.hdr.idFrom,
                 reinterpret_cast<LPARAM>(&notification));
}

void CKivSliderCtrl::OnPaint() {
  const CPaintDC paint(this);
  const quorvel::PaintBuffer buffer(paint.Handle(), paint.Area(), &m_memory);
  Draw(buffer.Handle());
}

void CKivSliderCtrl::Draw(HDC deviceContext) {
  DrawBackground(deviceContext);
  DrawStrip(deviceContext);
  if (::IsWindowEnabled(m_hWnd) != FALSE) {
    quorvel::DrawFrames(deviceContext, Thumb(),
                        {quorvel::kBlack, quorvel::kWhite, quorvel::kBlack});
  } else {
    const COLORREF shadow = ::GetSysColor(COLOR_BTNSHADOW);
    quorvel::DrawFrames(deviceContext, Thumb(), {shadow, ::GetSysColor(COLOR_BTNFACE), shadow});
  }
  if (::GetFocus() == m_hWnd) {
    quorvel::DrawFrames(deviceContext, GetClientRect(), {::GetSysColor(COLOR_BTNTEXT)});
  }
}

void CKivSliderCtrl::DrawBackground(HDC deviceContext) const {
  quorvel::FillAsBehind(deviceContext, m_hWnd);
}

void CKivSliderCtrl::DrawStrip(HDC deviceContext) {
  const CRect strip = quorvel::StripRect(GetClientRect().Size());
  const CRect inner = strip.Grown(-1, -1);
  if (inner.Width() <= 0 || inner.Height() <= 0) {
    return;
  }
  quorvel::FrameSolid(deviceContext, strip, ::GetSysColor(COLOR_BTNSHADOW));
  if (std::exchange(m_bStripIsOld, false)) {
    RenderStrip(inner);
  }
  m_strip.StretchDIBit(deviceContext, inner.left, inner.top, inner.Width(), inner.Height(), 0, 0,
                       m_strip.GetWidth(), m_strip.GetHeight(), SRCCOPY);
}

void CKivSliderCtrl::RenderStrip(const CRect& inner) {
  const bool upright = IsUpright();
  const int length = upright ? inner.Height() : inner.Width();
  if (m_strip.MakeImageData(upright ? 1 : length, upright ? length : 1, kStripBits, 0) == FALSE) {
    return;  // longer than any picture
  }
  const bool enabled = ::IsWindowEnabled(m_hWnd) != FALSE;
  // The strip begins as far from its low end as from its high end.
  const int firstPlace = upright ? inner.top : inner.left;
  const auto colours = quorvel::StripColours(m_gradient, Track(), firstPlace, length);
  for (int i = 0; i < length; ++i) {
    const quorvel::RgbColour& colour = colours[static_cast<std::size_t>(i)];
    COLORREF color = RGB(colour.red, colour.green, colour.blue);
    color = enabled ? color : quorvel::MutedColor(color);
    BYTE* pixel = upright ? m_strip.GetLineImage(length - 1 - i)
                          : m_strip.GetLineImage(0) + static_cast<std::ptrdiff_t>(i) * 4;
    pixel[0] = GetBValue(color);
    pixel[1] = GetGValue(color);
    pixel[2] = GetRValue(color);
  }
}
