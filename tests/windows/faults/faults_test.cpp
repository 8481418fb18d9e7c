// Every call of the platform that a dialog makes from its opening to its end, while it is worked, fails
// once: the entry then returns, the caller's variables are as they were unless the user confirmed,
// and nothing is left.
#include "driver/controls.h"
#include "driver/leak_counters.h"
#include "faults/faults.h"
#include "res/ids.h"
#include "support/layout_dialogs.h"

#include <gtest/gtest.h>

#include <array>
#include <cstdio>
#include <cstdlib>
#include <cwchar>
#include <filesystem>
#include <new>
#include <string>
#include <vector>

namespace quorvel::test {
namespace {

using driver::CountResources;
using driver::kFileNameField;
using driver::LeakCounters;

/// A page of each kind to open and to save over.
class Files {
public:
  Files() {
    std::filesystem::create_directories(m_folder);
    CLayoutPageData().SaveFileW(Grid().c_str());
    CLayoutExPageData().SaveFileW(Extended().c_str());
  }
  ~Files() {
    std::error_code ignored;
    std::filesystem::remove_all(m_folder, ignored);
  }
  Files(const Files&) = delete;
  Files& operator=(const Files&) = delete;

  std::wstring Grid() const { return (m_folder / L"格子.mtpld").make_preferred().wstring(); }
  std::wstring Extended() const { return (m_folder / L"表.mtpld2").make_preferred().wstring(); }

private:
  std::filesystem::path m_folder = std::filesystem::temp_directory_path() / L"quorvel faults";
};

/// What is done in a dialog before it is answered: commands, each of which may open another dialog.
struct Script {
  std::vector<WORD> commands;
  std::wstring file;  ///< what the dialogs for files are told
};

/// Does what a script tells in the first dialog that comes, confirms what that opens, and ends it
/// with a command, all without allocating. Where commands do not help, dialogs are cancelled.
class Answerer {
public:
  /// What is being tried, for the report of a hang.
  static inline std::string s_run;

  Answerer(const Script& script, WORD command) {
    s_script = &script;
    s_command = command;
    s_done = 0;
    s_first = nullptr;
    s_last = nullptr;
    s_tries = 0;
    s_ticks = 0;
    constexpr UINT kInterval = 10;
    m_timer = ::SetTimer(nullptr, 0, kInterval, &Answerer::OnTimer);
  }
  ~Answerer() { ::KillTimer(nullptr, m_timer); }
  static std::size_t CommandsDone() { return s_done; }
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
    if (dialog != nullptr) {
      Answer(dialog);
    }
  }

  static void Answer(HWND dialog) {
    s_first = s_first == nullptr ? dialog : s_first;
    if (dialog != s_last) {
      s_last = dialog;
      s_tries = 0;
    }
    WORD command = IDOK;
    if (dialog == s_first && s_done < s_script->commands.size()) {
      command = s_script->commands[s_done++];
    } else {
      command = ++s_tries > kPatience ? WORD{IDCANCEL} : dialog == s_first ? s_command : command;
    }
    if (::GetDlgItem(dialog, kFileNameField) != nullptr) {
      ::SetDlgItemTextW(dialog, kFileNameField, s_script->file.c_str());
    }
    ::PostMessageW(dialog, WM_COMMAND, command, 0);
  }

  static constexpr int kMostTicks = 1'000;
  static constexpr int kPatience = 5;
  static constexpr UINT kHangStatus = 99;

  static inline const Script* s_script = nullptr;
  static inline WORD s_command = IDCANCEL;
  static inline std::size_t s_done = 0;
  static inline HWND s_first = nullptr;
  static inline HWND s_last = nullptr;
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

/// A dialog and what is done in it.
struct Case {
  Entry entry;
  std::string name;
  Script (*script)(const Files& files) = nullptr;
};

Script Nothing(const Files& /*files*/) { return {}; }

/// Everything that the tool bar of the first editor, and its buttons, can do; the first cell is
/// selected.
Script WorkOnGrid(const Files& files) {
  return {{IDM_ALIGN_MIDDLE, IDM_ALIGN_RIGHT, IDM_EDIT_TEXT, IDM_EDIT_FONT, IDM_MERGE_CELLS,
           IDM_SPLIT_CELLS, IDC_LAYOUT_TEXT_COLOUR_ARROW, IDC_LAYOUT_EQUAL_ROWS, IDM_SAVE_LAYOUT,
           IDM_OPEN_LAYOUT},
          files.Grid()};
}

Script WorkOnExtended(const Files& files) {
  return {{IDM_EDIT_LINES, IDC_LAYOUT_FIELD, IDM_INSERT_COLUMN, IDM_DELETE_ROW, IDM_EQUAL_COLUMNS,
           IDM_SAVE_LAYOUT, IDM_OPEN_LAYOUT},
          files.Extended()};
}

Script WorkOnList(const Files& /*files*/) {
  return {{IDM_EDIT_TEXT, IDM_EDIT_LINES, IDC_LAYOUT_FIELD, IDM_INSERT_ROW, IDM_MERGE_CELLS,
           IDM_EQUAL_ROWS},
          {}};
}

/// Each dialog opened and ended, and the editors worked.
std::vector<Case> Cases() {
  std::vector<Case> cases;
  for (const Entry& entry : AllDialogs()) {
    cases.push_back({entry, entry.name, Nothing});
    if (entry.name == "LayoutEdit") {
      cases.push_back({entry, entry.name + "Worked", WorkOnGrid});
    } else if (entry.name == "LayoutExEdit") {
      cases.push_back({entry, entry.name + "Worked", WorkOnExtended});
    } else if (entry.name == "LayoutListEdit") {
      cases.push_back({entry, entry.name + "Worked", WorkOnList});
    }
  }
  return cases;
}

class Faults : public ::testing::TestWithParam<Case> {
protected:
  static void SetUpTestSuite() { WatchCalls(); }
  static void TearDownTestSuite() {
    std::printf("faults: %d calls failed, one at a time\n", s_failed);
  }

  Outcome Run(WORD command) const {
    const Answerer answerer(m_script, command);
    try {
      return GetParam().entry.run(nullptr);
    } catch (const std::bad_alloc&) {
      return {false, true};  // in the test's own part of the call: no entry lets one out
    }
  }

  /// One more after another, so that caches are full.
  void WarmUp() const {
    constexpr int kWarmUps = 5;
    for (int i = 0; i < kWarmUps; ++i) {
      Run(IDOK);
      Run(IDCANCEL);
    }
  }

  void ExpectHarmless(WORD command) const {
    const std::vector<Fault> faults = FaultsOf(command);
    const LeakCounters before = CountResources();
    for (const Fault& fault : faults) {
      const Outcome outcome = RunWith(fault, command);
      EXPECT_TRUE(outcome.confirmed || outcome.unchanged || GetParam().entry.changesAtOnce)
          << fault.Name();
      EXPECT_EQ(outcome.fault, "") << fault.Name();
    }
    if (CountResources() != before) {
      TellWhatLeaks(faults, command);
    }
  }

private:
  /// A call that fails.
  struct Fault {
    std::size_t function;
    std::size_t call;   ///< of that function, from 0
    std::size_t calls;  ///< of that function in all

    std::string Name() const {
      return std::string(FaultyFunctionName(function)) + ", call " + std::to_string(call) +
             " of " + std::to_string(calls);
    }
  };

  /// Of each function that a run calls the first call, and every so many behind it.
  std::vector<Fault> FaultsOf(WORD command) const {
    {
      const CallCounter counter;
      Run(command);
    }
    EXPECT_EQ(Answerer::CommandsDone(), m_script.commands.size());
    std::vector<Fault> faults;
    for (std::size_t function = 0; function < FaultyFunctionCount(); ++function) {
      const std::size_t calls = CallCounter::CallsOf(function);
      for (std::size_t call = 0; call < calls; call += Step()) {
        faults.push_back({function, call, calls});
      }
    }
    return faults;
  }

  Outcome RunWith(const Fault& fault, WORD command) const {
    Answerer::s_run = GetParam().name + ": " + fault.Name();
    const FaultScope scope(fault.function, fault.call);
    Outcome outcome = Run(command);
    const FaultPause pause;
    // The first call always comes; a later one may not, where the first failure changed the rest.
    EXPECT_TRUE(scope.HasFailed() || fault.call > 0) << fault.Name();
    s_failed += scope.HasFailed() ? 1 : 0;
    return outcome;
  }

  /// Once more, counting after each. What a first failure fills for good, such as the run-time's tables
  /// for exceptions, is no leak: it does not come again.
  void TellWhatLeaks(const std::vector<Fault>& faults, WORD command) const {
    for (const Fault& fault : faults) {
      const LeakCounters before = CountResources();
      RunWith(fault, command);
      EXPECT_EQ(CountResources(), before) << fault.Name();
    }
  }

  static inline int s_failed = 0;

  const Files m_files;
  const Script m_script = GetParam().script(m_files);
};

INSTANTIATE_TEST_SUITE_P(Quorvel, Faults, ::testing::ValuesIn(Cases()),
                         [](const auto& info) { return info.param.name; });

TEST_P(Faults, LeaveTheCallersVariablesAndNothingElse) {
  WarmUp();
  ExpectHarmless(IDOK);
  ExpectHarmless(IDCANCEL);
}

}  // namespace
}  // namespace quorvel::test
