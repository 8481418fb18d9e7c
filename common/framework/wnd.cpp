#include "framework/wnd.h"

#include "framework/code_page.h"
#include "framework/control_window.h"
#include "framework/data_exchange.h"
#include "framework/dialog.h"
#include "framework/window_text.h"

#include <array>
#include <utility>

namespace {

/// More is out of sight on any screen. The system would take seconds for a megabyte.
constexpr std::size_t kLongestCaption = 1000;

/// The objects with a window, newest first: a list through the objects themselves, because there
/// are few of them and an attached window must leave no memory behind.
thread_local CWnd* g_firstAttached = nullptr;

constexpr std::array kNoEntries{AFX_MSGMAP_ENTRY{0, 0, 0, 0, nullptr}};
constexpr AFX_MSGMAP kRootMap{nullptr, kNoEntries.data()};

void MoveWindowTo(HWND window, const CPoint& topLeft) {
  ::SetWindowPos(window, nullptr, topLeft.x, topLeft.y, 0, 0,
                 SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
}

/// Sets a value for as long as the guard lives.
class ScopedFlag {
public:
  explicit ScopedFlag(bool& flag) : m_flag(flag), m_previous(std::exchange(flag, true)) {}
  ~ScopedFlag() { m_flag = m_previous; }
  ScopedFlag(const ScopedFlag&) = delete;
  ScopedFlag& operator=(const ScopedFlag&) = delete;

private:
  bool& m_flag;
  bool m_previous;
};

}  // namespace

CCmdTarget::~CCmdTarget() = default;

const AFX_MSGMAP* CCmdTarget::GetThisMessageMap() { return &kRootMap; }

const AFX_MSGMAP* CCmdTarget::GetMessageMap() const { return GetThisMessageMap(); }

const AFX_MSGMAP_ENTRY* CCmdTarget::FindHandler(UINT message, UINT code, UINT id) const {
  for (const AFX_MSGMAP* map = GetMessageMap(); map != nullptr;
       map = map->baseMap != nullptr ? map->baseMap() : nullptr) {
    for (const AFX_MSGMAP_ENTRY* entry = map->entries; entry->call != nullptr; ++entry) {
      if (entry->message == message && entry->code == code && entry->firstId <= id &&
          id <= entry->lastId) {
        return entry;
      }
    }
  }
  return nullptr;
}

BEGIN_MESSAGE_MAP(CWnd, CCmdTarget)
END_MESSAGE_MAP()

CWnd::~CWnd() { UnsubclassWindow(); }

CWnd* CWnd::FromHandlePermanent(HWND window) {
  if (window == nullptr) {
    return nullptr;
  }
  CWnd* object = g_firstAttached;
  while (object != nullptr && object->m_hWnd != window) {
    object = object->m_next;
  }
  return object;
}

BOOL CWnd::SubclassWindow(HWND window) {
  if (m_hWnd != nullptr || ::IsWindow(window) == FALSE) {
    return FALSE;
  }
  if (CWnd* attached = FromHandlePermanent(window)) {
    attached->UnsubclassWindow();
  }
  m_hWnd = window;
  m_next = std::exchange(g_firstAttached, this);
  m_previousProc = reinterpret_cast<WNDPROC>(::SetWindowLongPtrW(
      window, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(&CWnd::StaticWindowProc)));
  return TRUE;
}

BOOL CWnd::SubclassDlgItem(UINT id, CWnd* parent) {
  return SubclassWindow(parent->GetDlgItem(static_cast<int>(id)));
}

HWND CWnd::UnsubclassWindow() {
  const HWND window = m_hWnd;
  if (window != nullptr) {
    ::SetWindowLongPtrW(window, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(m_previousProc));
    Detach();
  }
  return window;
}

BOOL CWnd::CreateChild(const wchar_t* className, DWORD extendedStyle, DWORD style,
                       const CRect& rect, const CWnd* parent, UINT id) {
  if (m_hWnd != nullptr) {
    return FALSE;  // a second window would have no object
  }
  return SubclassWindow(quorvel::CreateControlWindow({.className = className,
                                                      .style = style,
                                                      .extendedStyle = extendedStyle,
                                                      .rect = rect,
                                                      .id = id},
                                                     parent->m_hWnd));
}

void CWnd::InvalidatePart(const RECT* part) const {
  if (m_hWnd != nullptr) {  // for the platform, no window means all that there are
    ::InvalidateRect(m_hWnd, part, FALSE);
  }
}

BOOL CWnd::DestroyWindow() { return m_hWnd != nullptr ? ::DestroyWindow(m_hWnd) : FALSE; }

void CWnd::Detach() {
  CWnd** link = &g_firstAttached;
  while (*link != this) {
    link = &(*link)->m_next;
  }
  *link = std::exchange(m_next, nullptr);
  m_hWnd = nullptr;
}

LRESULT CALLBACK CWnd::StaticWindowProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
  CWnd* object = FromHandlePermanent(window);
  if (object == nullptr) {
    return ::DefWindowProcW(window, message, wParam, lParam);
  }
  if (message == WM_NCDESTROY) {
    const WNDPROC previousProc = object->m_previousProc;
    object->UnsubclassWindow();
    const LRESULT result = ::CallWindowProcW(previousProc, window, message, wParam, lParam);
    object->PostNcDestroy();
    return result;
  }
  try {
    return object->WindowProc(message, wParam, lParam);
  } catch (...) {
    // It must not cross the system's code: the innermost modal dialog ends and throws it on.
    CDialog::EndInnermostWithException(std::current_exception());
    return 0;
  }
}

LRESULT CWnd::WindowProc(UINT message, WPARAM wParam, LPARAM lParam) {
  LRESULT result = 0;
  if (message == WM_COMMAND) {
    return OfferToSender(message, wParam, lParam, &result) || HandleCommand(wParam, lParam)
               ? result
               : CallPreviousProc(message, wParam, lParam);
  }
  UINT code = 0;
  UINT id = 0;
  if (message == WM_NOTIFY) {
    if (OfferToSender(message, wParam, lParam, &result)) {
      return result;
    }
    const auto& header = *reinterpret_cast<const NMHDR*>(lParam);
    code = header.code;
    id = static_cast<UINT>(header.idFrom);
  }
  if (const AFX_MSGMAP_ENTRY* entry = FindHandler(message, code, id)) {
    return entry->call(*this, wParam, lParam);
  }
  return Default(message, wParam, lParam);
}

LRESULT CWnd::Default(UINT message, WPARAM wParam, LPARAM lParam) {
  LRESULT result = 0;
  const bool drawsItself = message == WM_DRAWITEM || message == WM_MEASUREITEM;
  return drawsItself && OfferToSender(message, wParam, lParam, &result)
             ? result
             : CallPreviousProc(message, wParam, lParam);
}

bool CWnd::OfferToSender(UINT message, WPARAM wParam, LPARAM lParam, LRESULT* result) const {
  CWnd* sender = SenderOf(message, wParam, lParam);
  return sender != nullptr && sender != this &&
         sender->OnChildNotify(message, wParam, lParam, result) != FALSE;
}

CWnd* CWnd::SenderOf(UINT message, WPARAM wParam, LPARAM lParam) const {
  switch (message) {
    case WM_COMMAND:
      return FromHandlePermanent(reinterpret_cast<HWND>(lParam));
    case WM_NOTIFY:
      return FromHandlePermanent(reinterpret_cast<const NMHDR*>(lParam)->hwndFrom);
    case WM_DRAWITEM:
      // A menu that its owner draws has no identifier and no window here.
      return wParam != 0
                 ? FromHandlePermanent(reinterpret_cast<const DRAWITEMSTRUCT*>(lParam)->hwndItem)
                 : nullptr;
    case WM_MEASUREITEM:
      return FromHandlePermanent(GetDlgItem(static_cast<int>(wParam)));
    default:
      return nullptr;
  }
}

bool CWnd::HandleCommand(WPARAM wParam, LPARAM lParam) {
  if (m_bExchangingData && lParam != 0) {
    return true;  // the exchange itself makes its controls notify
  }
  const AFX_MSGMAP_ENTRY* entry = FindHandler(WM_COMMAND, HIWORD(wParam), LOWORD(wParam));
  if (entry == nullptr) {
    return false;
  }
  entry->call(*this, wParam, lParam);
  return true;
}

LRESULT CWnd::CallPreviousProc(UINT message, WPARAM wParam, LPARAM lParam) {
  return ::CallWindowProcW(m_previousProc, m_hWnd, message, wParam, lParam);
}

std::wstring CWnd::GivenText() {
  std::wstring text(static_cast<std::size_t>(CallPreviousProc(WM_GETTEXTLENGTH, 0, 0)), L'\0');
  const LRESULT length =
      CallPreviousProc(WM_GETTEXT, text.size() + 1, reinterpret_cast<LPARAM>(text.data()));
  text.resize(static_cast<std::size_t>(length));
  return text;
}

BOOL CWnd::PreTranslateMessage(MSG* /*message*/) { return FALSE; }

void CWnd::DoDataExchange(CDataExchange* /*pDX*/) {}

void CWnd::PostNcDestroy() {}

BOOL CWnd::OnChildNotify(UINT /*message*/, WPARAM /*wParam*/, LPARAM /*lParam*/,
                         LRESULT* /*result*/) {
  return FALSE;
}

BOOL CWnd::UpdateData(BOOL bSaveAndValidate) {
  if (m_hWnd == nullptr) {
    return FALSE;
  }
  const ScopedFlag exchanging(m_bExchangingData);
  CDataExchange exchange(this, bSaveAndValidate);
  try {
    DoDataExchange(&exchange);
  } catch (const CFieldRefused&) {
    return FALSE;  // whoever refused it has told the user
  }
  return TRUE;
}

HWND CWnd::GetDlgItem(int id) const { return ::GetDlgItem(m_hWnd, id); }

CString CWnd::GetWindowText() const {
  return CString(quorvel::CodePageFromWide(quorvel::WindowText(m_hWnd)));
}

void CWnd::SetWindowText(const char* text) {
  std::wstring wide = quorvel::WideFromCodePage(CString(text).View());
  const bool isCaption = (::GetWindowLongPtrW(m_hWnd, GWL_STYLE) & WS_CHILD) == 0;
  if (isCaption && wide.size() > kLongestCaption) {
    wide.resize(kLongestCaption);
  }
  ::SetWindowTextW(m_hWnd, wide.c_str());
}

CString CWnd::GetDlgItemText(int id) const {
  return CString(quorvel::CodePageFromWide(quorvel::WindowText(GetDlgItem(id))));
}

void CWnd::SetDlgItemText(int id, const char* text) {
  ::SetWindowTextW(GetDlgItem(id), quorvel::WideFromCodePage(CString(text).View()).c_str());
}

void CWnd::SetDlgItemNumber(int id, int number) {
  CString text;
  text.Format("%d", number);
  SetDlgItemText(id, text);
}

bool CWnd::ShowsNumber(int id, int number) const {
  CString text;
  text.Format("%d", number);
  return GetDlgItemText(id) == text;
}

CRect CWnd::GetClientRect() const {
  CRect rect;
  ::GetClientRect(m_hWnd, &rect);
  return rect;
}

CRect CWnd::GetWindowRect() const {
  CRect rect;
  ::GetWindowRect(m_hWnd, &rect);
  return rect;
}

CRect CWnd::GetDlgItemRect(int id) const {
  CRect rect;
  ::GetWindowRect(GetDlgItem(id), &rect);
  ::MapWindowPoints(HWND_DESKTOP, m_hWnd, reinterpret_cast<POINT*>(static_cast<RECT*>(&rect)), 2);
  return rect;
}

void CWnd::MoveTo(const CPoint& topLeft) { MoveWindowTo(m_hWnd, topLeft); }

void CWnd::MoveDlgItem(int id, const CPoint& topLeft) { MoveWindowTo(GetDlgItem(id), topLeft); }

void CWnd::ResizeTo(const CSize& size) {
  ::SetWindowPos(m_hWnd, nullptr, 0, 0, size.cx, size.cy,
                 SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE);
}

void CWnd::MoveWindow(const CRect& rect) {
  ::SetWindowPos(m_hWnd, nullptr, rect.left, rect.top, rect.Width(), rect.Height(),
                 SWP_NOZORDER | SWP_NOACTIVATE);
}
