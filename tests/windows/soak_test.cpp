// 1,000 openings confirmed and 1,000 cancelled of each entry leave nothing behind.
//
// The dialogs are worked by their owner: it hears that a dialog has nothing left to do, so has been
// painted whole, and presses the button. That is as fast as a user could ever be.
#include "driver/crash_guard.h"
#include "driver/leak_counters.h"
#include "support/entries.h"

#include <gtest/gtest.h>

#include <cstdio>
#include <string>

namespace quorvel::test {
namespace {

using quorvel::driver::CountResources;
using quorvel::driver::LeakCounters;
using quorvel::driver::WatchHooks;

constexpr int kOpenings = 1000;
constexpr int kWarmUps = 20;
constexpr wchar_t kOwnerClass[] = L"SoakOwner";
constexpr UINT_PTR kWatchdog = 1;
constexpr UINT kWatchdogMilliseconds = 60'000;

/// The host's window: presses `m_command` in every dialog that waits.
class Owner {
public:
  Owner() {
    WNDCLASSW description{};
    description.lpfnWndProc = &Owner::Proc;
    description.lpszClassName = kOwnerClass;
    ::RegisterClassW(&description);
    m_window = ::CreateWindowExW(0, kOwnerClass, L"soak", WS_OVERLAPPEDWINDOW | WS_VISIBLE, 300, 200,
                                 400, 300, nullptr, nullptr, nullptr, nullptr);
    ::SetActiveWindow(m_window);
  }
  ~Owner() {
    ::DestroyWindow(m_window);
    ::UnregisterClassW(kOwnerClass, nullptr);
  }
  Owner(const Owner&) = delete;
  Owner& operator=(const Owner&) = delete;

  void SetCommand(WORD command) {
    s_command = command;
    ::SetTimer(m_window, kWatchdog, kWatchdogMilliseconds, nullptr);
  }
  static int Pressed() { return s_pressed; }

private:
  static LRESULT CALLBACK Proc(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == WM_ENTERIDLE && wParam == MSGF_DIALOGBOX) {
      ++s_pressed;
      ::PostMessageW(reinterpret_cast<HWND>(lParam), WM_COMMAND, s_command, 0);
    } else if (message == WM_TIMER && wParam == kWatchdog) {
      std::fputs("the soak hangs\n", stderr);
      ::ExitProcess(99);
    }
    return ::DefWindowProcW(window, message, wParam, lParam);
  }

  static inline WORD s_command = IDCANCEL;
  static inline int s_pressed = 0;
  HWND m_window = nullptr;
};

/// Committed private memory of the process, by walking its address space.
std::size_t PrivateBytes() {
  std::size_t bytes = 0;
  MEMORY_BASIC_INFORMATION region{};
  for (const char* address = nullptr; ::VirtualQuery(address, &region, sizeof region) != 0;
       address = static_cast<const char*>(region.BaseAddress) + region.RegionSize) {
    if (region.State == MEM_COMMIT && region.Type == MEM_PRIVATE) {
      bytes += region.RegionSize;
    }
  }
  return bytes;
}

class Soak : public ::testing::TestWithParam<Entry> {};

INSTANTIATE_TEST_SUITE_P(Quorvel, Soak, ::testing::ValuesIn(AllEntries()),
                         [](const auto& info) { return info.param.name; });

TEST_P(Soak, LeavesNothingBehind) {
  Owner owner;
  const auto open = [&](WORD command, int times) {
    owner.SetCommand(command);
    for (int i = 0; i < times; ++i) {
      const Outcome outcome = GetParam().run(nullptr);
      ASSERT_EQ(outcome.confirmed, command == IDOK);
      ASSERT_TRUE(outcome.confirmed || outcome.unchanged);
    }
  };
  // The first dialogs of a kind fill the system's caches.
  open(IDOK, kWarmUps);
  open(IDCANCEL, kWarmUps);

  const int pressedBefore = Owner::Pressed();
  const LeakCounters before = CountResources();
  const std::size_t bytesBefore = PrivateBytes();
  open(IDOK, kOpenings);
  open(IDCANCEL, kOpenings);
  const std::size_t bytesAfter = PrivateBytes();
  EXPECT_EQ(CountResources(), before);
  EXPECT_GE(Owner::Pressed() - pressedBefore, 2 * kOpenings) << "some dialog never waited";

  // A leak of 64 bytes an opening would show; what the system's pages round does not.
  constexpr std::size_t kTrend = 64 * 2 * kOpenings;
  ASSERT_GT(bytesBefore, 0U);
  EXPECT_LE(bytesAfter, bytesBefore + kTrend);
  std::printf("%s: private bytes %zu -> %zu\n", GetParam().name.c_str(), bytesBefore, bytesAfter);
}

}  // namespace
}  // namespace quorvel::test

int main(int argc, char** argv) {
  quorvel::driver::InstallCrashGuard();
  ::testing::InitGoogleTest(&argc, argv);
  for (const wchar_t* module : {L"Frame64.dll", L"KivFcl64.dll", L"Quorvel.dll"}) {
    quorvel::driver::WatchHooks(::GetModuleHandleW(module));
  }
  return RUN_ALL_TESTS();
}
