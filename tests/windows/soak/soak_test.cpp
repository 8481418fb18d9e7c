// Every dialog of the library, worked by a user who does whatever comes: no crash, no hang, nothing
// left behind, the caller's variables as they were unless the dialog was confirmed, and a sound
// page after every single step.
//
// Dialogs follow each other in runs of kStepsOfRun steps, each with a seed of its own, until so
// many steps are done or so much time is over. What the environment tells:
//   QUORVEL_SOAK_STEPS    how many steps; otherwise kSteps
//   QUORVEL_SOAK_SECONDS  how long instead
//   QUORVEL_SOAK_SEED     where the seeds begin; otherwise kSeed
//   QUORVEL_SOAK_RUN      one run anew, as "SelRgb 20240417 2000": dialog, seed and steps
//   QUORVEL_SOAK_RECORD   the file for the record of the run that is under way
#include "driver/leak_counters.h"
#include "soak/editor_user.h"
#include "support/layout_dialogs.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <sstream>
#include <string>
#include <vector>

namespace quorvel::test {
namespace {

using driver::CountResources;
using driver::LeakCounters;

constexpr int kStepsOfRun = 2'000;
constexpr int kSteps = 40'000;
constexpr unsigned kSeed = 20'240'417;

struct SoakRun {
  std::string dialog;
  unsigned seed = 0;
  int steps = kStepsOfRun;

  std::string Name() const {
    return dialog + " " + std::to_string(seed) + " " + std::to_string(steps);
  }
};

struct Ending {
  int steps = 0;
  int openings = 0;
  int confirmed = 0;
  std::string fault;
};

std::string Told(const char* variable, const std::string& otherwise) {
  const char* const value = std::getenv(variable);
  return value != nullptr && *value != '\0' ? value : otherwise;
}

/// The first thing that is wrong with how a call ended; empty if nothing is.
std::string FaultOf(const Entry& entry, const Outcome& outcome) {
  if (!outcome.confirmed && !outcome.unchanged && !entry.changesAtOnce) {
    return "a variable changed though the dialog was cancelled";
  }
  return outcome.fault;
}

/// Opens the dialog again whenever it has been closed, until all steps are done. `text` gets the
/// record.
Ending Work(const Entry& entry, const SoakRun& run, std::string* text = nullptr) {
  ForgetSettings();
  StepRecord record(Told("QUORVEL_SOAK_RECORD", "build/soak-record.txt"));
  // Half of the runs are confirmed in the end, as far as what has been typed lets them.
  EditorUser user(run.seed, run.steps, record, run.seed % 2 == 0 ? IDOK : IDCANCEL);
  Ending ending;
  while (!user.IsDone() && ending.fault.empty()) {
    Watchdog::Postpone(run.Name());
    const Outcome outcome = entry.run(nullptr);
    ++ending.openings;
    ending.confirmed += outcome.confirmed ? 1 : 0;
    ending.fault = user.Fault().empty() ? FaultOf(entry, outcome) : user.Fault();
  }
  ending.steps = user.StepsDone();
  if (text != nullptr) {
    *text = record.Text();
  }
  return ending;
}

/// What a run leaves behind comes again with the same run; what the system keeps once it was needed
/// does not.
void ExpectNothingLeft(const Entry& entry, const SoakRun& run, const LeakCounters& before) {
  const LeakCounters after = CountResources();
  if (after != before) {
    Work(entry, run);
    EXPECT_EQ(CountResources(), after) << "left behind by each run of " << run.Name();
  }
}

class Soak : public ::testing::Test {
protected:
  Soak() { FillSystemCaches(); }

  const Watchdog m_watchdog;
};

/// Runs over all dialogs in turn.
class Runs {
public:
  Runs()
      : m_seed(static_cast<unsigned>(
            std::stoul(Told("QUORVEL_SOAK_SEED", std::to_string(kSeed))))),
        m_seconds(std::stoull(Told("QUORVEL_SOAK_SECONDS", "0"))),
        m_steps(std::stoll(Told("QUORVEL_SOAK_STEPS", std::to_string(kSteps)))) {}

  bool GoOn() const {
    constexpr ULONGLONG kMilliseconds = 1'000;
    return m_seconds > 0 ? ::GetTickCount64() - m_begin < m_seconds * kMilliseconds
                         : m_stepsDone < m_steps;
  }
  const Entry& Dialog() const { return m_dialogs[m_runs % m_dialogs.size()]; }
  SoakRun Current() const { return {Dialog().name, m_seed + static_cast<unsigned>(m_runs)}; }
  void Next(const Ending& ending) {
    ++m_runs;
    m_stepsDone += ending.steps;
    m_openings += ending.openings;
    m_confirmed += ending.confirmed;
  }
  void Tell() const {
    std::printf("soak: %lld steps in %zu runs, %d openings, %d of them confirmed, %llu s\n",
                m_stepsDone, m_runs, m_openings, m_confirmed,
                (::GetTickCount64() - m_begin) / 1'000);
  }

private:
  unsigned m_seed;
  ULONGLONG m_seconds;
  long long m_steps;
  ULONGLONG m_begin = ::GetTickCount64();
  std::vector<Entry> m_dialogs = AllDialogs();
  std::size_t m_runs = 0;
  long long m_stepsDone = 0;
  int m_openings = 0;
  int m_confirmed = 0;
};

TEST_F(Soak, DoesNoHarm) {
  if (std::getenv("QUORVEL_SOAK_RUN") != nullptr) {
    GTEST_SKIP() << "one run is asked for";
  }
  Runs runs;
  while (runs.GoOn()) {
    const SoakRun run = runs.Current();
    const LeakCounters before = CountResources();
    const Ending ending = Work(runs.Dialog(), run);
    ASSERT_EQ(ending.fault, "") << "make soak-run SOAK_RUN='" << run.Name() << "'";
    ExpectNothingLeft(runs.Dialog(), run, before);
    runs.Next(ending);
  }
  runs.Tell();
}

TEST_F(Soak, TheRunThatIsAskedForDoesNoHarm) {
  const std::string asked = Told("QUORVEL_SOAK_RUN", "");
  if (asked.empty()) {
    GTEST_SKIP() << "no run is asked for";
  }
  SoakRun run;
  std::istringstream(asked) >> run.dialog >> run.seed >> run.steps;
  const std::vector<Entry> dialogs = AllDialogs();
  const auto entry = std::ranges::find(dialogs, run.dialog, &Entry::name);
  ASSERT_NE(entry, dialogs.end()) << run.dialog;
  const LeakCounters before = CountResources();
  EXPECT_EQ(Work(*entry, run).fault, "");
  ExpectNothingLeft(*entry, run, before);
}

class SoakOfOneDialog : public ::testing::TestWithParam<Entry> {
protected:
  const Watchdog m_watchdog;
};

INSTANTIATE_TEST_SUITE_P(Quorvel, SoakOfOneDialog, ::testing::ValuesIn(AllDialogs()),
                         [](const auto& info) { return info.param.name; });

TEST_P(SoakOfOneDialog, IsReplayedByItsSeed) {
  constexpr int kStepsToCompare = 600;
  const SoakRun run{GetParam().name, kSeed, kStepsToCompare};
  std::string first;
  std::string second;
  const Ending once = Work(GetParam(), run, &first);
  const Ending again = Work(GetParam(), run, &second);
  EXPECT_EQ(once.openings, again.openings);
  EXPECT_EQ(once.confirmed, again.confirmed);
  if (first != second) {
    const auto differing = std::ranges::mismatch(first, second).in1;
    const auto place = static_cast<std::size_t>(differing - first.begin());
    const std::size_t line = first.rfind('\n', place) + 1;
    constexpr std::size_t kShown = 200;
    ADD_FAILURE() << "first:\n" << first.substr(line, kShown) << "\nthen:\n"
                  << second.substr(line, kShown);
  }
}

}  // namespace
}  // namespace quorvel::test
