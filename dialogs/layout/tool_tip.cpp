#include "dialogs/layout/tool_tip.h"

#include "framework/code_page.h"
#include "framework/device_context.h"
#include "framework/errors.h"
#include "framework/module_state.h"
#include "kivfcl/display_rate.h"

#include <algorithm>
#include <cstdint>
#include <iterator>
#include <memory>
#include <string>
#include <string_view>
#include <utility>

using quorvel::DisplayPixels;

namespace {

constexpr const wchar_t* kClassName = L"CToolTip";
constexpr std::wstring_view kFace = L"ＭＳ ゴシック";
constexpr UINT_PTR kTimer = 1010;

// In pixels of a display at 100 %.
constexpr CPoint kDefaultOffset{10, 5};
constexpr int kStayDistance = 2;
/// Below the rectangle's place, so that the pointer does not cover the text.
constexpr int kDrop = 15;
constexpr CSize kInitialSize{10, 10};
constexpr int kWidthWithoutLines = 10;
constexpr CSize kMarginOfOneLine{4, 2};
constexpr int kSideMarginOfLines = 2;
constexpr int kBottomMarginOfLines = 1;
constexpr int kTopOfOneLine = 1;

HINSTANCE OwnModule() {
  static const AFX_MODULE_STATE state(&state);
  return state.GetInstance();
}

quorvel::OwnedFont MakeFont() {
  LOGFONTW font{};
  ::GetObjectW(::GetStockObject(DEFAULT_GUI_FONT), sizeof font, &font);
  std::fill(std::begin(font.lfFaceName), std::end(font.lfFaceName), L'\0');
  kFace.copy(std::begin(font.lfFaceName), LF_FACESIZE - 1);
  return quorvel::OwnedFont(::CreateFontIndirectW(&font));
}

/// The window class with its brush. It goes with the module: a class that is left behind would be in
/// the way when the module is loaded again.
class TipClass {
public:
  TipClass() {
    quorvel::OwnedBrush background(::CreateSolidBrush(::GetSysColor(COLOR_INFOBK)));
    WNDCLASSEXW description{};
    description.cbSize = sizeof description;
    description.style = CS_DBLCLKS | CS_SAVEBITS;
    description.lpfnWndProc = &::DefWindowProcW;
    description.hInstance = OwnModule();
    description.hCursor = ::LoadCursorW(nullptr, reinterpret_cast<LPCWSTR>(IDC_ARROW));
    description.hbrBackground = background.get();
    description.lpszClassName = kClassName;
    if (::RegisterClassExW(&description) == 0) {
      AfxThrowResourceException();
    }
    // The class has it now, and the platform deletes it with the class.
    static_cast<void>(background.release());
  }
  ~TipClass() { ::UnregisterClassW(kClassName, OwnModule()); }
  TipClass(const TipClass&) = delete;
  TipClass& operator=(const TipClass&) = delete;
};

struct HookRemover {
  using pointer = HHOOK;
  void operator()(HHOOK hook) const { ::UnhookWindowsHookEx(hook); }
};

std::wstring Wide(const CString& text) { return quorvel::WideFromCodePage(text.View()); }

}  // namespace

struct CToolTip::Shared {
  quorvel::OwnedFont font = MakeFont();
  TipClass windowClass;
  /// For how long the pointer must stand still, in milliseconds; 0 is the least that the platform
  /// knows.
  std::int16_t delay = 0;
  std::uint16_t tips = 0;
  std::unique_ptr<HHOOK, HookRemover> hook;
  CToolTip* current = nullptr;  ///< the one on screen
};

CToolTip::Shared& CToolTip::TheShared() {
  static Shared shared;
  return shared;
}

BEGIN_MESSAGE_MAP(CToolTip, CWnd)
  ON_WM_PAINT(&CToolTip::OnPaint)
  ON_MESSAGE(WM_MOUSEMOVE, &CToolTip::OnMouseMove)
  ON_MESSAGE(WM_TIMER, &CToolTip::OnTimer)
END_MESSAGE_MAP()

CToolTip::CToolTip() : m_shared(TheShared()), m_offset(kDefaultOffset) {
  if (m_shared.hook == nullptr) {
    m_shared.hook.reset(::SetWindowsHookExW(WH_KEYBOARD, &CToolTip::KeyboardHook, nullptr,
                                            ::GetCurrentThreadId()));
  }
  ++m_shared.tips;
}

CToolTip::~CToolTip() {
  CToolTip::DestroyWindow();
  if (--m_shared.tips == 0) {
    m_shared.hook.reset();
  }
}

BOOL CToolTip::Create(CWnd* owner) {
  m_pOwner = owner;
  constexpr DWORD kStyle = WS_POPUP | WS_CLIPSIBLINGS | WS_BORDER;
  m_bCreated = SubclassWindow(::CreateWindowExW(WS_EX_TOOLWINDOW, kClassName, nullptr, kStyle, 0, 0,
                                                kInitialSize.cx, kInitialSize.cy, owner->m_hWnd,
                                                nullptr, OwnModule(), nullptr));
  m_bEnabled = m_bCreated;
  return m_bCreated;
}

BOOL CToolTip::DestroyWindow() {
  KillTimer();
  return CWnd::DestroyWindow();
}

void CToolTip::PostNcDestroy() {
  if (m_shared.current == this) {
    m_shared.current = nullptr;
  }
  m_nTimer = 0;
  m_bCreated = FALSE;
  m_bEnabled = FALSE;
}

void CToolTip::Request(CPoint point, const CString& text) {
  if (m_bEnabled == FALSE || !m_pOwner->GetClientRect().Contains(point)) {
    return;
  }
  ::ClientToScreen(m_pOwner->m_hWnd, &point);
  if (point == m_anchor) {
    return;
  }
  m_lines.RemoveAll();
  m_lines.Add(text);
  m_anchor = point;
  KillTimer();
  m_nTimer = ::SetTimer(m_hWnd, kTimer, static_cast<UINT>(m_shared.delay), nullptr);
}

void CToolTip::Hide() {
  if (m_bCreated != FALSE) {
    ::ShowWindow(m_hWnd, SW_HIDE);
    KillTimer();
    m_shared.current = nullptr;
  }
}

void CToolTip::KillTimer() {
  if (m_hWnd != nullptr) {  // for the platform, no window means timers of the thread
    ::KillTimer(m_hWnd, m_nTimer);
  }
}

BOOL CToolTip::PreTranslateMessage(MSG* message) {
  switch (message->message) {
    case WM_CANCELMODE:
    case WM_LBUTTONDOWN:
    case WM_LBUTTONUP:
    case WM_RBUTTONDOWN:
    case WM_RBUTTONUP:
    case WM_MBUTTONDOWN:
      Hide();
      break;
    default:
      break;
  }
  return CWnd::PreTranslateMessage(message);
}

LRESULT CALLBACK CToolTip::KeyboardHook(int code, WPARAM wParam, LPARAM lParam) {
  const Shared& shared = TheShared();
  if (code >= 0 && shared.current != nullptr) {
    shared.current->Hide();
  }
  return ::CallNextHookEx(shared.hook.get(), code, wParam, lParam);
}

LRESULT CToolTip::OnTimer(WPARAM /*wParam*/, LPARAM /*lParam*/) {
  KillTimer();
  CPoint pointer;
  if (::GetCursorPos(&pointer) != FALSE && pointer == m_anchor) {
    Show();
  }
  return 0;
}

void CToolTip::Show() {
  if (m_bCreated == FALSE) {
    return;
  }
  if (m_shared.current != nullptr) {
    m_shared.current->Hide();
  }
  const CSize line = MeasureLines();
  const auto lines = static_cast<int>(m_lines.GetSize());
  CRect rect(m_anchor, CSize(line.cx, lines * line.cy));
  if (lines == 1) {
    rect = rect.Grown(DisplayPixels(kMarginOfOneLine.cx), DisplayPixels(kMarginOfOneLine.cy));
  } else if (lines > 1) {
    rect = rect.Grown(DisplayPixels(kSideMarginOfLines), 0);
    rect.bottom += DisplayPixels(kBottomMarginOfLines);
  }
  rect.OffsetRect(DisplayPixels(m_offset.x), DisplayPixels(m_offset.y));
  ::SetWindowPos(m_hWnd, HWND_TOP, rect.left, rect.top + DisplayPixels(kDrop), rect.Width(),
                 rect.Height(), SWP_NOACTIVATE | SWP_SHOWWINDOW);
  const int stay = DisplayPixels(kStayDistance);
  m_stayRect = CRect(m_anchor, CSize()).Grown(stay, stay);
  m_shared.current = this;
}

CSize CToolTip::MeasureLines() const {
  std::wstring longest;
  for (INT_PTR i = 0; i < m_lines.GetSize(); ++i) {
    if (std::wstring line = Wide(m_lines.GetAt(i)); line.size() > longest.size() || i == 0) {
      longest = std::move(line);
    }
  }
  const CClientDC deviceContext(this);
  const quorvel::SelectedObject font(deviceContext.Handle(), m_shared.font.get());
  CSize size;
  ::GetTextExtentPoint32W(deviceContext.Handle(), longest.data(), static_cast<int>(longest.size()),
                          &size);
  return m_lines.IsEmpty() ? CSize(kWidthWithoutLines, size.cy) : size;
}

void CToolTip::OnPaint() {
  const CPaintDC paint(this);
  if (m_lines.IsEmpty()) {
    AfxThrowInvalidArgException();
  }
  const HDC deviceContext = paint.Handle();
  const quorvel::SelectedObject font(deviceContext, m_shared.font.get());
  ::SetBkColor(deviceContext, ::GetSysColor(COLOR_INFOBK));
  ::SetTextColor(deviceContext, ::GetSysColor(COLOR_INFOTEXT));
  std::wstring text = Wide(m_lines.GetAt(0));
  for (INT_PTR i = 1; i < m_lines.GetSize(); ++i) {
    text += L'\n' + Wide(m_lines.GetAt(i));
  }
  CRect client = GetClientRect();
  if (m_lines.GetSize() == 1) {
    ::SetTextAlign(deviceContext, TA_CENTER | TA_TOP);
    ::TextOutW(deviceContext, client.Width() / 2, DisplayPixels(kTopOfOneLine), text.data(),
               static_cast<int>(text.size()));
  } else {
    ::DrawTextW(deviceContext, text.data(), static_cast<int>(text.size()), &client,
                DT_END_ELLIPSIS);
  }
}

LRESULT CToolTip::OnMouseMove(WPARAM wParam, LPARAM lParam) {
  const LRESULT result = Default(WM_MOUSEMOVE, wParam, lParam);
  CPoint point(static_cast<short>(LOWORD(lParam)), static_cast<short>(HIWORD(lParam)));
  ::ClientToScreen(m_hWnd, &point);
  if (!m_stayRect.Contains(point)) {
    Hide();
  }
  return result;
}
