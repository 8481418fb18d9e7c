// Random messages to each colour dialog, and to whatever it opens, do no harm: no crash, no hang,
// nothing left behind, and a cancelled dialog has not changed the caller's variable.
//
// The environment variable QUORVEL_RANDOM_MESSAGES tells how many for each dialog.
// The same seed gives the same choices; what the system makes of them may differ a little.
#include "driver/controls.h"
#include "driver/leak_counters.h"
#include "kivfcl/kiv_slider_ctrl.h"
#include "support/entries.h"

#include <gtest/gtest.h>

// Needs <windows.h> above.
#include <commctrl.h>

#include <algorithm>
#include <array>
#include <cstdio>
#include <cstdlib>
#include <random>
#include <string>
#include <vector>

namespace quorvel::test {
namespace {

using driver::CountResources;
using driver::LeakCounters;

constexpr int kMessages = 20'000;
constexpr int kWarmUps = 5'000;
constexpr int kBurst = 200;
constexpr unsigned kSeed = 20'240'417;
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

class Messages {
public:
  Messages(unsigned seed, int count) : m_random(seed), m_count(count) {
    g_running = this;
    m_timer = ::SetTimer(nullptr, 0, USER_TIMER_MINIMUM, OnTimer);
  }
  ~Messages() {
    ::KillTimer(nullptr, m_timer);
    g_running = nullptr;
  }
  Messages(const Messages&) = delete;
  Messages& operator=(const Messages&) = delete;

  bool AreAllSent() const { return m_sent >= m_count; }

private:
  int Number(int lowest, int highest) {
    return std::uniform_int_distribution(lowest, highest)(m_random);
  }
  template <class List>
  auto OneOf(const List& list) {
    return list[static_cast<std::size_t>(Number(0, static_cast<int>(std::size(list)) - 1))];
  }

  static void CALLBACK OnTimer(HWND /*window*/, UINT /*message*/, UINT_PTR /*timer*/,
                               DWORD /*time*/) {
    if (g_running != nullptr) {
      g_running->Burst();
    }
  }

  void Burst() {
    const std::vector<HWND> dialogs = driver::VisibleDialogs();
    if (dialogs.empty()) {
      return;
    }
    const HWND dialog = dialogs.front();
    if (AreAllSent() || dialogs.size() > kDeepest) {
      Close(dialog);
      return;
    }
    const std::vector<HWND> windows = VisibleWindowsOf(dialog);
    for (int i = 0; i < kBurst && !AreAllSent(); ++i) {
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

  static void Close(HWND dialog) {
    // A message box accepts only the buttons that it has.
    const int answer = ::GetDlgItem(dialog, IDNO) != nullptr ? IDNO : IDCANCEL;
    ::PostMessageW(dialog, WM_COMMAND, static_cast<WPARAM>(answer), 0);
  }

  /// Neither mouse nor keys ever reach the others.
  static std::vector<HWND> VisibleWindowsOf(HWND dialog) {
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

  void SendOne(HWND dialog, HWND window) {
    const HWND parent = window == dialog ? dialog : ::GetParent(window);
    switch (Number(0, 11)) {
      case 0:
      case 1:
      case 2:
        SendMouse(window);
        return;
      case 3:
        // Keys go to where the focus is, and nowhere else.
        ::PostMessageW(::GetFocus(), WM_KEYDOWN, static_cast<WPARAM>(OneOf(kKeys)), 1);
        return;
      case 4:
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

  void SendMouse(HWND window) {
    RECT client{};
    ::GetClientRect(window, &client);
    const LPARAM point = MAKELPARAM(Number(-30, client.right + 30), Number(-30, client.bottom + 30));
    const UINT message = OneOf(kMouseMessages);
    if (message == WM_LBUTTONDOWN) {
      // Scroll bars wait for it in a loop of their own.
      ::PostMessageW(window, WM_LBUTTONUP, 0, point);
    }
    ::SendMessageW(window, message, message == WM_LBUTTONUP ? 0 : MK_LBUTTON, point);
  }

  /// OK and Cancel are rare, or there would be nothing but openings.
  void SendCommand(HWND parent, HWND window) {
    const int id = ::GetDlgCtrlID(window);
    const bool closes = id == IDOK || id == IDCANCEL || window == parent;
    if (closes && Number(0, 20) != 0) {
      return;
    }
    const int code = Number(0, 3) == 0 ? Number(0, 0x600) : Number(0, 5);
    ::SendMessageW(parent, WM_COMMAND, MAKEWPARAM(closes ? OneOf(std::array{IDOK, IDCANCEL}) : id, closes ? 0 : code),
                   reinterpret_cast<LPARAM>(window));
  }

  void SendSliderNotification(HWND parent, HWND window) {
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

  static inline Messages* g_running = nullptr;

  std::mt19937 m_random;
  int m_count;
  UINT_PTR m_timer = 0;
  int m_sent = 0;
};

/// Ends the process when nobody tells it for a minute that all is well.
class Watchdog {
public:
  Watchdog() : m_timer(::CreateThreadpoolTimer(OnHang, nullptr, nullptr)) { Postpone(); }
  ~Watchdog() {
    ::SetThreadpoolTimer(m_timer, nullptr, 0, 0);
    ::WaitForThreadpoolTimerCallbacks(m_timer, TRUE);
    ::CloseThreadpoolTimer(m_timer);
  }
  Watchdog(const Watchdog&) = delete;
  Watchdog& operator=(const Watchdog&) = delete;

  void Postpone() const {
    const LARGE_INTEGER due{.QuadPart = LONGLONG{-10'000} * kHangMilliseconds};
    FILETIME dueTime{due.u.LowPart, static_cast<DWORD>(due.u.HighPart)};
    ::SetThreadpoolTimer(m_timer, &dueTime, 0, 0);
  }

private:
  static void CALLBACK OnHang(PTP_CALLBACK_INSTANCE /*instance*/, void* /*context*/,
                              PTP_TIMER /*timer*/) {
    std::fputs("a dialog hangs under random messages\n", stderr);
    ::TerminateProcess(::GetCurrentProcess(), kHangStatus);
  }

  PTP_TIMER m_timer;
};

int MessageCount() {
  const char* wanted = std::getenv("QUORVEL_RANDOM_MESSAGES");
  return wanted != nullptr ? std::max(std::atoi(wanted), 1) : kMessages;
}

std::vector<Entry> ColourEntries() {
  std::vector<Entry> entries;
  std::ranges::copy_if(AllEntries(), std::back_inserter(entries), [](const Entry& entry) {
    return entry.name.find("Color") != std::string::npos ||
           entry.name.find("Rgb") != std::string::npos;
  });
  return entries;
}

class RandomMessages : public ::testing::TestWithParam<Entry> {};

INSTANTIATE_TEST_SUITE_P(Quorvel, RandomMessages, ::testing::ValuesIn(ColourEntries()),
                         [](const auto& info) { return info.param.name; });

TEST_P(RandomMessages, DoNoHarm) {
  const Watchdog watchdog;
  const auto run = [&](unsigned seed, int count) {
    Messages messages(seed, count);
    int openings = 0;
    while (!messages.AreAllSent()) {
      const Outcome outcome = GetParam().run(nullptr);
      ASSERT_TRUE(outcome.confirmed || outcome.unchanged);
      ++openings;
      watchdog.Postpone();
    }
    std::printf("%s: %d openings\n", GetParam().name.c_str(), openings);
  };
  run(kSeed, kWarmUps);  // the first dialogs of a kind fill the system's caches
  const LeakCounters before = CountResources();
  run(kSeed + 1, MessageCount());
  EXPECT_EQ(CountResources(), before);
}

}  // namespace
}  // namespace quorvel::test
