#include "hostile/hostile_call.h"

#include "driver/dialog_owner.h"
#include "driver/leak_counters.h"
#include "support/work.h"

#include <algorithm>
#include <cstdlib>
#include <limits>

namespace quorvel::test {

namespace {

/// Answers one dialog with a command as soon as it has been painted whole; a message box in between
/// is confirmed, and the dialog behind it cancelled.
class Answer {
public:
  explicit Answer(WORD command) : m_timer(::SetTimer(nullptr, 0, kInterval, &Answer::OnTimer)) {
    m_owner.SetCommand(command);
    s_current = this;
  }
  ~Answer() {
    s_current = nullptr;
    ::KillTimer(nullptr, m_timer);
  }
  Answer(const Answer&) = delete;
  Answer& operator=(const Answer&) = delete;

  int Dialogs() const { return m_owner.Answered(); }
  int Messages() const { return m_nMessages; }
  LONGLONG PaintedAt() const { return m_owner.PaintedAt(); }

private:
  static constexpr UINT kInterval = 10;

  static void CALLBACK OnTimer(HWND /*window*/, UINT /*message*/, UINT_PTR /*timer*/,
                               DWORD /*time*/) {
    if (s_current != nullptr) {
      s_current->Look();
    }
  }

  void Look() {
    static const driver::Condition shown = driver::MessageBoxShown();
    if (const HWND box = shown.find()) {
      ++m_nMessages;
      ::PostMessageW(box, WM_COMMAND, IDOK, 0);
      const HWND behind = ::GetWindow(box, GW_OWNER);
      if (behind != nullptr && behind != m_owner.Window()) {
        m_refusing = behind;
      }
    } else if (m_refusing != nullptr) {
      ::PostMessageW(m_refusing, WM_COMMAND, IDCANCEL, 0);
      m_refusing = nullptr;
    }
  }

  static inline Answer* s_current = nullptr;

  driver::DialogOwner m_owner;
  UINT_PTR m_timer;
  HWND m_refusing = nullptr;
  int m_nMessages = 0;
};

LONGLONG Now() {
  LARGE_INTEGER now{};
  ::QueryPerformanceCounter(&now);
  return now.QuadPart;
}

double Seconds(LONGLONG ticks) {
  LARGE_INTEGER frequency{};
  ::QueryPerformanceFrequency(&frequency);
  return static_cast<double>(ticks) / static_cast<double>(frequency.QuadPart);
}

/// One opening.
struct Run {
  Outcome outcome{};
  int dialogs = 0;
  int messages = 0;
  double seconds = 0;  ///< until it had been painted
};

Run RunOnce(const HostileCall& call, WORD command) {
  Run run;
  const Answer answer(command);
  const LONGLONG begun = Now();
  run.outcome = call.run();
  run.dialogs = answer.Dialogs();
  run.messages = answer.Messages();
  run.seconds = Seconds(std::max(answer.PaintedAt(), begun) - begun);
  return run;
}

void ExpectNoDialog(const HostileCall& call) {
  const Run run = RunOnce(call, IDCANCEL);
  EXPECT_EQ(run.dialogs, 0);
  EXPECT_EQ(run.messages, 0);
  EXPECT_FALSE(run.outcome.confirmed);
  EXPECT_TRUE(run.outcome.unchanged);
}

/// Opens and cancels; how long it took.
double ExpectCancelled(const HostileCall& call) {
  const Run run = RunOnce(call, IDCANCEL);
  EXPECT_FALSE(run.outcome.confirmed);
  EXPECT_TRUE(run.outcome.unchanged);
  EXPECT_EQ(run.dialogs, 1);
  EXPECT_EQ(run.messages, 0);
  return run.seconds;
}

double ExpectConfirmed(const HostileCall& call) {
  const Run run = RunOnce(call, IDOK);
  const bool refuses = call.opening == Opening::kRefuses;
  EXPECT_EQ(run.dialogs, 1);
  EXPECT_EQ(run.outcome.confirmed, !refuses);
  EXPECT_TRUE(run.outcome.confirmed || run.outcome.unchanged);
  EXPECT_EQ(run.messages > 0, refuses);
  return run.seconds;
}

}  // namespace

std::size_t HostileStep() {
  static const std::size_t step = [] {
    const char* const given = std::getenv("QUORVEL_HOSTILE_STEP");
    return std::max<std::size_t>(given != nullptr ? std::strtoul(given, nullptr, 10) : 1, 1);
  }();
  return step;
}

void ExpectHarmless(const HostileArgument& argument) {
  constexpr double kLongest = 2.0;
  constexpr int kTries = 5;
  std::vector<double> fastest(argument.calls.size(), std::numeric_limits<double>::max());
  // Another place in each argument, so that each value is tried for some.
  const std::size_t places =
      std::min(HostileStep(), std::max<std::size_t>(argument.calls.size(), 1));
  const std::size_t first = argument.name.size() % places;
  const auto isTried = [&](std::size_t index) {
    return argument.calls[index].opening != Opening::kNone && index % HostileStep() == first;
  };
  const auto forEachDialog = [&](auto open) {
    for (std::size_t i = 0; i < argument.calls.size(); ++i) {
      const HostileCall& call = argument.calls[i];
      const ::testing::ScopedTrace trace(__FILE__, __LINE__, call.name);
      if (isTried(i)) {
        fastest[i] = std::min(fastest[i], open(call));
      }
    }
  };
  for (const HostileCall& call : argument.calls) {
    if (call.opening == Opening::kNone) {
      ExpectNoDialog(call);
    }
  }
  forEachDialog(ExpectCancelled);
  // What an opening leaves behind it leaves every time; the system's caches fill once.
  driver::LeakCounters before = driver::CountResources();
  driver::LeakCounters after;
  for (int i = 0; i < kTries; ++i) {
    forEachDialog(ExpectCancelled);
    after = driver::CountResources();
    if (after == before || ::testing::Test::HasFailure()) {
      break;
    }
    if (i < kTries - 1) {
      before = after;
    }
  }
  EXPECT_EQ(after, before);
  forEachDialog(ExpectConfirmed);
  for (std::size_t i = 0; i < argument.calls.size(); ++i) {
    if (isTried(i)) {
      EXPECT_LT(fastest[i], kLongest) << "seconds, " << argument.calls[i].name;
    }
  }
}

}  // namespace quorvel::test
