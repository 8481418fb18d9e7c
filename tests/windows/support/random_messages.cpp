#include "support/random_messages.h"

#include "driver/controls.h"
#include "kivfcl/kiv_slider_ctrl.h"

// Needs <windows.h> above.
#include <commctrl.h>

#include <algorithm>
#include <array>
#include <cstdio>
#include <cstdlib>

namespace quorvel::test {

namespace {

constexpr int kMessages = 10'000;
constexpr unsigned kSeed = 20'240'417;
constexpr int kBurst = 200;
/// So many dialogs may lie over each other before only closing is tried.
constexpr std::size_t kDeepest = 4;
constexpr UINT kHangStatus = 99;
constexpr DWORD kHangMilliseconds = 60'000;

constexpr std::array kKeys{VK_LEFT, VK_RIGHT, VK_UP,  VK_DOWN,   VK_HOME, VK_END, VK_PRIOR,
                           VK_NEXT, VK_TAB,   VK_SPACE, VK_DELETE, VK_BACK, VK_F2};
constexpr std::array kTexts{L"", L"0", L"7", L"255", L"256", L"300", L"-1", L"99999999999", L"abc",
                            L"０１２", L"1e300", L"12 34"};
constexpr std::array kMouseMessages{UINT{WM_LBUTTONDOWN}, UINT{WM_LBUTTONUP}, UINT{WM_MOUSEMOVE},
                                    UINT{WM_MOUSEMOVE}};
/// To dialogs and pages only: the platform's own controls do not expect them from strangers.
constexpr std::array kDialogMessages{UINT{WM_CAPTURECHANGED}, UINT{WM_CANCELMODE},
                                     UINT{WM_QUERYDRAGICON}};

/// Neither mouse nor keys ever reach the others.
std::vector<HWND> VisibleWindowsOf(HWND dialog) {
  std::vector<HWND> windows{dialog};
  ::EnumChildWindows(
      dialog,
      [](HWND child, LPARAM parameter) -> BOOL {
        if (::IsWindowVisible(child) != FALSE && ::IsWindowEnabled(child) != FALSE) {
          reinterpret_cast<std::vector<HWND>*>(parameter)->push_back(child);
        }
        return TRUE;
      },
      reinterpret_cast<LPARAM>(&windows));
  return windows;
}

/// Wine's edit fields crash now and then when they are typed into while other messages select and
/// replace their texts.
bool ChangesAField(int key) {
  const bool deletes = key == VK_DELETE || key == VK_BACK;
  return deletes && driver::ClassName(::GetFocus()) == L"Edit";
}

/// Numbers of the system's own icons, from IDI_APPLICATION to IDI_ASTERISK, and cursors, from
/// IDC_ARROW to IDC_NO, IDC_HAND.
constexpr std::array kSystemIcons{32512, 32513, 32514, 32515, 32516};
constexpr std::array kSystemCursors{32512, 32513, 32514, 32515, 32642, 32643,
                                    32644, 32645, 32646, 32648, 32649};

void CALLBACK OnHang(PTP_CALLBACK_INSTANCE /*instance*/, void* /*context*/, PTP_TIMER /*timer*/) {
  std::fputs("a dialog hangs under random messages\n", stderr);
  ::TerminateProcess(::GetCurrentProcess(), kHangStatus);
}

}  // namespace

RandomMessages::RandomMessages(unsigned seed, int count) : m_random(seed), m_count(count) {
  s_running = this;
  m_timer = ::SetTimer(nullptr, 0, USER_TIMER_MINIMUM, OnTimer);
}

RandomMessages::~RandomMessages() {
  ::KillTimer(nullptr, m_timer);
  s_running = nullptr;
}

void CALLBACK RandomMessages::OnTimer(HWND /*window*/, UINT /*message*/, UINT_PTR /*timer*/,
                                      DWORD /*time*/) {
  if (s_running != nullptr) {
    s_running->Burst();
  }
}

void RandomMessages::Burst() {
  const std::vector<HWND> dialogs = driver::VisibleDialogs();
  if (dialogs.empty()) {
    return;
  }
  if (AreAllSent() || dialogs.size() > kDeepest) {
    Close(dialogs.front());
  } else {
    Work(dialogs.front());
  }
}

void RandomMessages::Work(HWND dialog) {
  const std::vector<HWND> windows = VisibleWindowsOf(dialog);
  m_bBurstEnds = false;
  for (int i = 0; i < kBurst && !m_bBurstEnds && !AreAllSent(); ++i) {
    const HWND window = OneOf(windows);
    if (::IsWindowEnabled(dialog) == FALSE) {
      return;  // closed, or something else is open above it
    }
    if (::IsWindowVisible(window) == FALSE || ::IsWindowEnabled(window) == FALSE) {
      continue;
    }
    ++m_sent;
    SendOne(dialog, window);
  }
}

void RandomMessages::Close(HWND dialog) {
  // A message box accepts only the buttons that it has.
  const int answer = ::GetDlgItem(dialog, IDNO) != nullptr ? IDNO : IDCANCEL;
  ::PostMessageW(dialog, WM_COMMAND, static_cast<WPARAM>(answer), 0);
}

void RandomMessages::SendOne(HWND dialog, HWND window) {
  const HWND parent = window == dialog ? dialog : ::GetParent(window);
  switch (Number(0, 11)) {
    case 0:
    case 1:
    case 2: {
      CRect client;
      ::GetClientRect(window, &client);
      const CPoint point = PointAround(client);
      SendMouse(window, OneOf(kMouseMessages), point);
      return;
    }
    case 3:
      // Keys go to where the focus is, and nowhere else.
      if (const int key = OneOf(kKeys); !ChangesAField(key)) {
        ::PostMessageW(::GetFocus(), WM_KEYDOWN, static_cast<WPARAM>(key), 1);
      }
      return;
    case 4:
      if (driver::ClassName(::GetFocus()) == L"Edit") {
        return;  // fields get whole texts: see case 8
      }
      ::PostMessageW(::GetFocus(), WM_CHAR, static_cast<WPARAM>(Number(L' ', L'9')), 1);
      return;
    case 5:
      SendCommand(parent, window);
      return;
    case 6:
      ::SendMessageW(parent, Number(0, 1) == 0 ? WM_HSCROLL : WM_VSCROLL,
                     MAKEWPARAM(Number(0, 9), Number(-300, 300)),
                     reinterpret_cast<LPARAM>(Number(0, 3) == 0 ? nullptr : window));
      return;
    case 7:
      SendSliderNotification(parent, window);
      return;
    case 8:
      if (driver::ClassName(window) == L"Edit") {
        ::SetWindowTextW(window, OneOf(kTexts));
      } else if (driver::ClassName(window) == L"SysTabControl32") {
        ::SendMessageW(window, TCM_SETCURFOCUS, static_cast<WPARAM>(Number(0, 2)), 0);
      }
      return;
    case 9:
      ::SendMessageW(window, WM_MOUSEWHEEL, MAKEWPARAM(0, Number(-400, 400)), 0);
      return;
    case 10:
      ::SetFocus(window);
      return;
    default:
      ::SendMessageW(parent, OneOf(kDialogMessages), 0, 0);
      return;
  }
}

CPoint RandomMessages::PointAround(const CRect& rect) {
  constexpr int kReach = 30;
  const CRect wide = rect.Grown(kReach, kReach);
  const int x = Number(wide.left, wide.right);
  return {x, Number(wide.top, wide.bottom)};
}

void RandomMessages::SendMouse(HWND window, UINT message, const CPoint& point) {
  const LPARAM packed = MAKELPARAM(point.x, point.y);
  if (message == WM_LBUTTONDOWN) {
    // Scroll bars wait for it in a loop of their own.
    ::PostMessageW(window, WM_LBUTTONUP, 0, packed);
  }
  ::SendMessageW(window, message, message == WM_LBUTTONUP ? 0 : MK_LBUTTON, packed);
}

/// OK and Cancel are rare, or there would be nothing but openings.
void RandomMessages::SendCommand(HWND parent, HWND window) {
  const int id = ::GetDlgCtrlID(window);
  const bool closes = id == IDOK || id == IDCANCEL || window == parent;
  if (closes && Number(0, 20) != 0) {
    return;
  }
  const int code = Number(0, 3) == 0 ? Number(0, 0x600) : Number(0, 5);
  ::SendMessageW(parent, WM_COMMAND,
                 MAKEWPARAM(closes ? OneOf(std::array{IDOK, IDCANCEL}) : id, closes ? 0 : code),
                 reinterpret_cast<LPARAM>(window));
}

void RandomMessages::SendSliderNotification(HWND parent, HWND window) {
  if (driver::ClassName(window) != L"KivSliderCtrl") {
    return;
  }
  NMKIVSLIDER notification{};
  notification.hdr.hwndFrom = window;
  notification.hdr.idFrom = static_cast<UINT_PTR>(::GetDlgCtrlID(window));
  notification.hdr.code = static_cast<UINT>(Number(1, 2));
  notification.nPos = Number(-50, 420);
  ::SendMessageW(parent, WM_NOTIFY, notification.hdr.idFrom,
                 reinterpret_cast<LPARAM>(&notification));
}

Watchdog::Watchdog() : m_timer(::CreateThreadpoolTimer(OnHang, nullptr, nullptr)) { Postpone(); }

Watchdog::~Watchdog() {
  ::SetThreadpoolTimer(m_timer, nullptr, 0, 0);
  ::WaitForThreadpoolTimerCallbacks(m_timer, TRUE);
  ::CloseThreadpoolTimer(m_timer);
}

void Watchdog::Postpone() const {
  const LARGE_INTEGER due{.QuadPart = LONGLONG{-10'000} * kHangMilliseconds};
  FILETIME dueTime{due.u.LowPart, static_cast<DWORD>(due.u.HighPart)};
  ::SetThreadpoolTimer(m_timer, &dueTime, 0, 0);
}

int MessageCount() {
  const char* wanted = std::getenv("QUORVEL_RANDOM_MESSAGES");
  return wanted != nullptr ? std::max(std::atoi(wanted), 1) : kMessages;
}

unsigned MessageSeed() {
  const char* wanted = std::getenv("QUORVEL_RANDOM_SEED");
  return wanted != nullptr ? static_cast<unsigned>(std::atoi(wanted)) : kSeed;
}

void FillSystemCaches() {
  for (const int icon : kSystemIcons) {
    ::LoadIconW(nullptr, MAKEINTRESOURCEW(icon));
  }
  for (const int cursor : kSystemCursors) {
    ::LoadCursorW(nullptr, MAKEINTRESOURCEW(cursor));
  }
  for (int color = 0; color <= COLOR_MENUBAR; ++color) {
    ::GetSysColorBrush(color);
  }
  constexpr int kMostContexts = 64;
  std::vector<HDC> contexts;
  contexts.reserve(kMostContexts);
  for (int i = 0; i < kMostContexts; ++i) {
    contexts.push_back(::GetDC(::GetDesktopWindow()));
  }
  // The hatched brush, made when a scroll bar first asks for its colour.
  ::DefWindowProcW(::GetDesktopWindow(), WM_CTLCOLORSCROLLBAR,
                   reinterpret_cast<WPARAM>(contexts.front()), 0);
  for (const HDC context : contexts) {
    ::ReleaseDC(::GetDesktopWindow(), context);
  }
}

}  // namespace quorvel::test
