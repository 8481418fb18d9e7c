// Every call of the platform that a dialog makes from its opening to its end fails once: the entry then
// returns, the caller's variables are as they were unless the user confirmed, and nothing is left.
#include "driver/leak_counters.h"
#include "faults/faults.h"
#include "support/layout_dialogs.h"

#include <gtest/gtest.h>

#include <array>
#include <cstdio>
#include <cstdlib>
#include <cwchar>
#include <new>
#include <string>

namespace quorvel::test {
namespace {

using driver::CountResources;
using driver::LeakCounters;

/// Ends whatever dialog comes, without allocating: by the command, and where that does not help, by
/// closing it.
class Answerer {
public:
  /// What is being tried, for the report of a hang.
  static inline std::string s_run;

  explicit Answerer(WORD command) {
    s_command = command;
    s_tries = 0;
    s_ticks = 0;
    constexpr UINT kInterval = 10;
    m_timer = ::SetTimer(nullptr, 0, kInterval, &Answerer::OnTimer);
  }
  ~Answerer() { ::KillTimer(nullptr, m_timer); }
  Answerer(const Answerer&) = delete;
  Answerer& operator=(const Answerer&) = delete;

private:
  static BOOL CALLBACK Find(HWND window, LPARAM found) {
    std::array<wchar_t, 8> name{};
    ::GetClassNameW(window, name.data(), static_cast<int>(name.size()));
    if (::wcscmp(name.data(), L"#32770") != 0 || ::IsWindowVisible(window) == FALSE ||
        ::IsWindowEnabled(window) == FALSE) {
      return TRUE;
    }
    *reinterpret_cast<HWND*>(found) = window;
    return FALSE;
  }

  static void CALLBACK OnTimer(HWND /*window*/, UINT /*message*/, UINT_PTR /*timer*/,
                               DWORD /*time*/) {
    const FaultPause pause;
    if (++s_ticks > kMostTicks) {
      std::fprintf(stderr, "a dialog hangs: %s\n", s_run.c_str());
      std::fflush(stderr);
      ::TerminateProcess(::GetCurrentProcess(), kHangStatus);
    }
    HWND dialog = nullptr;
    ::EnumThreadWindows(::GetCurrentThreadId(), &Answerer::Find,
                        reinterpret_cast<LPARAM>(&dialog));
    if (dialog == nullptr) {
      return;
    }
    constexpr int kPatience = 5;
    const WORD command = ++s_tries > kPatience ? WORD{IDCANCEL} : s_command;
    ::PostMessageW(dialog, WM_COMMAND, command, 0);
  }

  static constexpr int kMostTicks = 500;
  static constexpr UINT kHangStatus = 99;

  static inline WORD s_command = IDCANCEL;
  static inline int s_tries = 0;
  static inline int s_ticks = 0;

  UINT_PTR m_timer = 0;
};

/// Every so many calls one is tried: QUORVEL_FAULT_STEP, 1 for all of them.
std::size_t Step() {
  const char* const told = std::getenv("QUORVEL_FAULT_STEP");
  const int step = told != nullptr ? std::atoi(told) : 1;
  return step > 1 ? static_cast<std::size_t>(step) : 1;
}

class Faults : public ::testing::TestWithParam<Entry> {
protected:
  static void SetUpTestSuite() { WatchCalls(); }
  static void TearDownTestSuite() { std::printf("faults: %d calls failed, one at a time\n", s_failed); }

  static Outcome Run(WORD command) {
    const Answerer answerer(command);
    try {
      return GetParam().run(nullptr);
    } catch (const std::bad_alloc&) {
      return {false, true};  // in the test's own part of the call: no entry lets one out
    }
  }

  /// One more after another, so that caches are full.
  static void WarmUp() {
    constexpr int kWarmUps = 5;
    for (int i = 0; i < kWarmUps; ++i) {
      Run(IDOK);
      Run(IDCANCEL);
    }
  }

  static void ExpectHarmless(std::size_t function, WORD command) {
    {
      const CallCounter counter;
      Run(command);
    }
    const std::size_t calls = CallCounter::CallsOf(function);
    if (calls == 0) {
      return;
    }
    const LeakCounters before = CountResources();
    for (std::size_t call = 0; call < calls; call += Step()) {
      const std::string tried = Tried(function, call, calls);
      const Outcome outcome = RunWithFault(function, call, command, tried);
      EXPECT_TRUE(outcome.confirmed || outcome.unchanged) << tried;
    }
    if (CountResources() != before) {
      TellWhatLeaks(function, calls, command);
    }
  }

private:
  static std::string Tried(std::size_t function, std::size_t call, std::size_t calls) {
    return std::string(FaultyFunctionName(function)) + ", call " + std::to_string(call) + " of " +
           std::to_string(calls);
  }

  static Outcome RunWithFault(std::size_t function, std::size_t call, WORD command,
                              const std::string& tried) {
    Answerer::s_run = tried;
    const FaultScope fault(function, call);
    const Outcome outcome = Run(command);
    const FaultPause pause;
    // The first call always comes; a later one may not, where the first failure changed the rest.
    EXPECT_TRUE(fault.HasFailed() || call > 0) << tried;
    s_failed += fault.HasFailed() ? 1 : 0;
    return outcome;
  }

  static inline int s_failed = 0;

  /// Once more, counting after each. What a first failure fills for good, such as the run-time's tables
  /// for exceptions, is no leak: it does not come again.
  static void TellWhatLeaks(std::size_t function, std::size_t calls, WORD command) {
    for (std::size_t call = 0; call < calls; call += Step()) {
      const std::string tried = Tried(function, call, calls);
      const LeakCounters before = CountResources();
      RunWithFault(function, call, command, tried);
      EXPECT_EQ(CountResources(), before) << tried;
    }
  }
};

INSTANTIATE_TEST_SUITE_P(Quorvel, Faults, ::testing::ValuesIn(AllDialogs()),
                         [](const auto& info) { return info.param.name; });

TEST_P(Faults, LeaveTheCallersVariablesAndNothingElse) {
  WarmUp();
  for (std::size_t function = 0; function < FaultyFunctionCount(); ++function) {
    ExpectHarmless(function, IDOK);
    ExpectHarmless(function, IDCANCEL);
  }
}

}  // namespace
}  // namespace quorvel::test
