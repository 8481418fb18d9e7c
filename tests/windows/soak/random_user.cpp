#include "soak/random_user.h"

#include "driver/controls.h"
#include "kivfcl/kiv_slider_ctrl.h"

// Needs <windows.h> above.
#include <commctrl.h>

#include <algorithm>
#include <array>
#include <cstdio>

namespace quorvel::test {

namespace {

constexpr int kLongestBurst = 200;
/// So many dialogs may lie over each other before only closing is tried.
constexpr std::size_t kDeepest = 4;
constexpr UINT kHangStatus = 99;
constexpr DWORD kHangMilliseconds = 60'000;

constexpr std::array kKeys{VK_LEFT, VK_RIGHT, VK_UP,  VK_DOWN,   VK_HOME, VK_END, VK_PRIOR,
                           VK_NEXT, VK_TAB,   VK_SPACE, VK_DELETE, VK_BACK, VK_F2, VK_F4};
constexpr std::array kTexts{L"", L"0", L"7", L"255", L"256", L"300", L"-1", L"99999999999", L"abc",
                            L"０１２", L"1e300", L"12 34", L"nan", L"%s%n", L"表\\ソ&", L"\x1\x7F\t",
                            L"2*(3+", L"1/0", L"\xD83D\xDE00"};
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
bool IsFieldFocused() { return driver::ClassName(::GetFocus()) == L"Edit"; }

/// What a letter finds there depends on how long ago the last one came.
bool SearchesByTheClock(HWND window) {
  const std::wstring className = driver::ClassName(window);
  return className == L"ComboBox" || className == L"SysListView32";
}

/// Numbers of the system's own icons, from IDI_APPLICATION to IDI_ASTERISK, and cursors, from
/// IDC_ARROW to IDC_NO, IDC_HAND.
constexpr std::array kSystemIcons{32512, 32513, 32514, 32515, 32516};
constexpr std::array kSystemCursors{32512, 32513, 32514, 32515, 32642, 32643,
                                    32644, 32645, 32646, 32648, 32649};

/// What is told when a run hangs, whose thread cannot tell it.
std::array<char, 256> g_run{};

void CALLBACK OnHang(PTP_CALLBACK_INSTANCE /*instance*/, void* /*context*/, PTP_TIMER /*timer*/) {
  std::fprintf(stderr, "a dialog hangs: %s\n", g_run.data());
  std::fflush(stderr);  // which the end of the process does not do
  ::TerminateProcess(::GetCurrentProcess(), kHangStatus);
}

}  // namespace

RandomUser::RandomUser(unsigned seed, int steps, StepRecord& record)
    : m_random(seed), m_steps(steps), m_record(record) {
  s_running = this;
  m_timer = ::SetTimer(nullptr, 0, USER_TIMER_MINIMUM, OnTimer);
}

RandomUser::~RandomUser() {
  ::KillTimer(nullptr, m_timer);
  s_running = nullptr;
}

void CALLBACK RandomUser::OnTimer(HWND /*window*/, UINT /*message*/, UINT_PTR /*timer*/,
                                  DWORD /*time*/) {
  if (s_running != nullptr) {
    s_running->Burst();
  }
}

void RandomUser::Burst() {
  const std::vector<HWND> dialogs = driver::VisibleDialogs();
  if (dialogs.empty()) {
    return;
  }
  if (IsDone() || dialogs.size() > kDeepest) {
    Close(dialogs.front());
  } else {
    Work(dialogs.front());
  }
}

void RandomUser::Work(HWND dialog) {
  const std::vector<HWND> windows = VisibleWindowsOf(dialog);
  m_record.AddState(dialog, StateOf(dialog));
  m_bBurstEnds = false;
  for (int left = Number(1, kLongestBurst); left > 0 && !m_bBurstEnds && !IsDone(); --left) {
    const HWND window = OneOf(windows);
    if (::IsWindowVisible(dialog) == FALSE || ::IsWindowEnabled(dialog) == FALSE) {
      return;  // closed, or something else is open above it
    }
    if (::IsWindowVisible(window) == FALSE || ::IsWindowEnabled(window) == FALSE) {
      continue;
    }
    DoStep(dialog, window);
    const std::string fault = FaultNow(dialog);
    if (!fault.empty()) {
      m_fault = "step " + std::to_string(m_done) + ": " + fault;
      m_done = m_steps;
    }
  }
}

void RandomUser::Close(HWND dialog) {
  // A message box accepts only the buttons that it has.
  const int answer = ::GetDlgItem(dialog, IDNO) != nullptr ? IDNO : IDCANCEL;
  ::PostMessageW(dialog, WM_COMMAND, static_cast<WPARAM>(answer), 0);
}

void RandomUser::DoStep(HWND dialog, HWND window) {
  const HWND parent = window == dialog ? dialog : ::GetParent(window);
  switch (Number(0, 13)) {
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
      PressKey(dialog, OneOf(kKeys));
      return;
    case 4:
      TypeCharacter(dialog);
      return;
    case 5:
      SendCommand(parent, window);
      return;
    case 6:
      SendScroll(parent, window);
      return;
    case 7:
      SendSliderNotification(parent, window);
      return;
    case 8:
      GiveText(window);
      return;
    case 9: {
      const int turned = Number(-400, 400);
      Record("wheel", window, turned);
      ::SendMessageW(window, WM_MOUSEWHEEL, MAKEWPARAM(0, turned), 0);
      return;
    }
    case 10:
      Record("focus", window);
      ::SetFocus(window);
      return;
    case 11:
      Choose(window);
      return;
    case 12:
      ClickButton(window);
      return;
    default: {
      const UINT message = OneOf(kDialogMessages);
      Record("message", parent, static_cast<int>(message));
      ::SendMessageW(parent, message, 0, 0);
      return;
    }
  }
}

CPoint RandomUser::PointAround(const CRect& rect) {
  constexpr int kReach = 30;
  const CRect wide = rect.Grown(kReach, kReach);
  const int x = Number(wide.left, wide.right);
  return {x, Number(wide.top, wide.bottom)};
}

void RandomUser::SendMouse(HWND window, UINT message, const CPoint& point) {
  Record("mouse", window, static_cast<int>(message), MAKELONG(point.x, point.y));
  const LPARAM packed = MAKELPARAM(point.x, point.y);
  if (message == WM_LBUTTONDOWN) {
    // Scroll bars wait for it in a loop of their own.
    ::PostMessageW(window, WM_LBUTTONUP, 0, packed);
  }
  ::SendMessageW(window, message, message == WM_LBUTTONUP ? 0 : MK_LBUTTON, packed);
}

void RandomUser::PressKey(HWND dialog, int key) {
  Record("key", dialog, key, driver::FocusedControlId(dialog));
  const bool changesField = (key == VK_DELETE || key == VK_BACK) && IsFieldFocused();
  if (!changesField) {
    ::PostMessageW(::GetFocus(), WM_KEYDOWN, static_cast<WPARAM>(key), 1);
  }
}

void RandomUser::TypeCharacter(HWND dialog) {
  const int character = Number(L' ', L'9');
  Record("character", dialog, character, driver::FocusedControlId(dialog));
  // Fields get whole texts.
  if (!IsFieldFocused() && !SearchesByTheClock(::GetFocus())) {
    ::PostMessageW(::GetFocus(), WM_CHAR, static_cast<WPARAM>(character), 1);
  }
}

/// OK and Cancel are rare, or there would be nothing but openings.
void RandomUser::SendCommand(HWND parent, HWND window) {
  constexpr int kRarity = 6;
  const int id = ::GetDlgCtrlID(window);
  const bool closes = id == IDOK || id == IDCANCEL || window == parent;
  if (closes && !OneIn(kRarity)) {
    return;
  }
  const int code = OneIn(4) ? Number(0, 0x600) : Number(0, 5);
  const int command = closes ? OneOf(std::array{IDOK, IDCANCEL}) : id;
  Record("command", window, command, closes ? 0 : code);
  ::SendMessageW(parent, WM_COMMAND, MAKEWPARAM(command, closes ? 0 : code),
                 reinterpret_cast<LPARAM>(window));
}

void RandomUser::SendScroll(HWND parent, HWND window) {
  const UINT message = OneIn(2) ? WM_HSCROLL : WM_VSCROLL;
  const int code = Number(0, 9);
  const int place = Number(-300, 300);
  const bool isOfDialog = OneIn(4);
  Record(isOfDialog ? "scroll dialog" : "scroll", window, static_cast<int>(message),
         MAKELONG(code, place));
  ::SendMessageW(parent, message, MAKEWPARAM(code, place),
                 reinterpret_cast<LPARAM>(isOfDialog ? nullptr : window));
}

void RandomUser::SendSliderNotification(HWND parent, HWND window) {
  if (driver::ClassName(window) != L"KivSliderCtrl") {
    return;
  }
  NMKIVSLIDER notification{};
  notification.hdr.hwndFrom = window;
  notification.hdr.idFrom = static_cast<UINT_PTR>(::GetDlgCtrlID(window));
  notification.hdr.code = static_cast<UINT>(Number(1, 2));
  notification.nPos = Number(-50, 420);
  Record("slider", window, static_cast<int>(notification.hdr.code), notification.nPos);
  ::SendMessageW(parent, WM_NOTIFY, notification.hdr.idFrom,
                 reinterpret_cast<LPARAM>(&notification));
}

void RandomUser::GiveText(HWND window) {
  const std::wstring className = driver::ClassName(window);
  if (className == L"Edit") {
    const int text = Number(0, static_cast<int>(kTexts.size()) - 1);
    Record("text", window, text);
    ::SetWindowTextW(window, kTexts[static_cast<std::size_t>(text)]);
  } else if (className == L"SysTabControl32") {
    const int tab = Number(0, 2);
    Record("tab", window, tab);
    ::SendMessageW(window, TCM_SETCURFOCUS, static_cast<WPARAM>(tab), 0);
  }
}

void RandomUser::Choose(HWND list) {
  if (driver::ClassName(list) != L"ComboBox") {
    return;
  }
  const auto count = static_cast<int>(::SendMessageW(list, CB_GETCOUNT, 0, 0));
  const int chosen = Number(-1, count);
  Record("choice", list, chosen);
  ::SendMessageW(list, CB_SETCURSEL, static_cast<WPARAM>(chosen), 0);
  for (const int code : {CBN_SELCHANGE, CBN_SELENDOK}) {
    ::SendMessageW(::GetParent(list), WM_COMMAND, MAKEWPARAM(::GetDlgCtrlID(list), code),
                   reinterpret_cast<LPARAM>(list));
  }
}

void RandomUser::ClickButton(HWND window) {
  const int id = ::GetDlgCtrlID(window);
  if (driver::ClassName(window) == L"Button" && id != IDOK && id != IDCANCEL) {
    Record("click", window);
    ::SendMessageW(window, BM_CLICK, 0, 0);
  }
}

Watchdog::Watchdog() { s_timer = ::CreateThreadpoolTimer(OnHang, nullptr, nullptr); }

Watchdog::~Watchdog() {
  ::SetThreadpoolTimer(s_timer, nullptr, 0, 0);
  ::WaitForThreadpoolTimerCallbacks(s_timer, TRUE);
  ::CloseThreadpoolTimer(s_timer);
}

void Watchdog::Postpone(const std::string& run) {
  std::fill(g_run.begin(), g_run.end(), '\0');
  std::copy_n(run.begin(), std::min(run.size(), g_run.size() - 1), g_run.begin());
  const LARGE_INTEGER due{.QuadPart = LONGLONG{-10'000} * kHangMilliseconds};
  FILETIME dueTime{due.u.LowPart, static_cast<DWORD>(due.u.HighPart)};
  ::SetThreadpoolTimer(s_timer, &dueTime, 0, 0);
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
