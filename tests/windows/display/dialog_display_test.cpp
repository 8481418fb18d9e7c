// What holds on a display of any scale. The session of the tests gives the display: 96, 120, 144 or
// 192 dots per inch.
#include "display/layout_faults.h"
#include "framework/geometry.h"
#include "res/ids.h"
#include "support/layout_dialogs.h"
#include "support/work.h"

// Needs <windows.h> above.
#include <commctrl.h>

namespace quorvel::test {
namespace {

class DialogDisplay : public ::testing::TestWithParam<Entry> {};
INSTANTIATE_TEST_SUITE_P(Quorvel, DialogDisplay, ::testing::ValuesIn(AllDialogs()),
                         [](const auto& info) { return info.param.name; });

void ExpectNoFaults(HWND dialog) {
  for (const std::string& fault : LayoutFaults(dialog)) {
    ADD_FAILURE() << fault;
  }
}

TEST_P(DialogDisplay, NothingIsCutOffOrCovered) {
  ModalScript script;
  script.When(Painted(AnyDialog()), [](HWND dialog) {
    ExpectNoFaults(dialog);
    PressKey(dialog, VK_ESCAPE);
  });
  Work(script, [] { return GetParam().run(nullptr); });
}

TEST_P(DialogDisplay, IsWhollyOnTheScreen) {
  ModalScript script;
  script.When(Painted(AnyDialog()), [](HWND dialog) {
    MONITORINFO monitor{};
    monitor.cbSize = sizeof monitor;
    ::GetMonitorInfoW(::MonitorFromWindow(dialog, MONITOR_DEFAULTTONEAREST), &monitor);
    const CRect rect(WindowRect(dialog));
    RECT seen{};
    ::IntersectRect(&seen, &rect, &monitor.rcWork);
    EXPECT_EQ(CRect(seen), rect);
    PressKey(dialog, VK_ESCAPE);
  });
  Work(script, [] { return GetParam().run(nullptr); });
}

TEST(DialogDisplayPages, NothingIsCutOffOrCoveredOnAnyTab) {
  COLORREF color = RGB(153, 102, 51);
  ModalScript script;
  for (const int page : {0, 1, 2}) {
    script.When(Painted(AnyDialog()), [page](HWND dialog) {
      SCOPED_TRACE(page);
      ::SendMessageW(Control(dialog, IDC_COLOUR_TABS), TCM_SETCURFOCUS, static_cast<WPARAM>(page),
                     0);
    });
    script.When(Painted(AnyDialog()), [page](HWND dialog) {
      SCOPED_TRACE(page);
      ExpectNoFaults(dialog);
    });
  }
  script.When(Painted(AnyDialog()), Cancel);
  EXPECT_FALSE(Work(script, [&] { return __SelColorDlgEx(nullptr, &color, nullptr); }));
}

/// The thread as a host has it whose program says nothing of scales.
class UnawareHost {
public:
  UnawareHost() : m_previous(::SetThreadDpiAwarenessContext(DPI_AWARENESS_CONTEXT_UNAWARE)) {}
  ~UnawareHost() { ::SetThreadDpiAwarenessContext(m_previous); }
  UnawareHost(const UnawareHost&) = delete;
  UnawareHost& operator=(const UnawareHost&) = delete;

private:
  DPI_AWARENESS_CONTEXT m_previous;
};

DPI_AWARENESS AwarenessOfThread() {
  return ::GetAwarenessFromDpiAwarenessContext(::GetThreadDpiAwarenessContext());
}

class EntryOfUnawareHost : public ::testing::TestWithParam<Entry> {};
INSTANTIATE_TEST_SUITE_P(Quorvel, EntryOfUnawareHost, ::testing::ValuesIn(AllEntries()),
                         [](const auto& info) { return info.param.name; });

TEST_P(EntryOfUnawareHost, ShowsItsDialogAtTheDisplaysOwnScale) {
  const UINT dots = ::GetDpiForSystem();
  CSize aware;
  WorkDialog([] { return GetParam().run(nullptr); }, [&](HWND dialog) {
    aware = CRect(WindowRect(dialog)).Size();
    Cancel(dialog);
  });
  const UnawareHost host;
  WorkDialog([] { return GetParam().run(nullptr); }, [&](HWND dialog) {
    EXPECT_EQ(::GetAwarenessFromDpiAwarenessContext(::GetWindowDpiAwarenessContext(dialog)),
              DPI_AWARENESS_SYSTEM_AWARE);
    EXPECT_EQ(::GetDpiForWindow(dialog), dots);
    EXPECT_EQ(CRect(WindowRect(dialog)).Size(), aware);
    Cancel(dialog);
  });
  EXPECT_EQ(AwarenessOfThread(), DPI_AWARENESS_UNAWARE);
}

TEST_P(EntryOfUnawareHost, LeavesTheThreadAsItWasWhenItFails) {
  const UnawareHost host;
  EXPECT_EQ(GetParam().runWithNull(), GetParam().failure);
  EXPECT_EQ(AwarenessOfThread(), DPI_AWARENESS_UNAWARE);
}

std::vector<Entry> PlacedEntries() {
  std::vector<Entry> placed = AllEntries();
  std::erase_if(placed, [](const Entry& entry) { return !entry.hasPosition; });
  return placed;
}

class PlacedEntryOfUnawareHost : public EntryOfUnawareHost {};
INSTANTIATE_TEST_SUITE_P(Quorvel, PlacedEntryOfUnawareHost, ::testing::ValuesIn(PlacedEntries()),
                         [](const auto& info) { return info.param.name; });

TEST_P(PlacedEntryOfUnawareHost, TakesThePositionInTheHostsPixels) {
  const double rate = ::GetDpiForSystem() / 96.0;
  const UnawareHost host;
  CPoint position(60, 40);
  WorkDialog([&] { return GetParam().run(&position); }, [&](HWND dialog) {
    const CRect rect(WindowRect(dialog));
    EXPECT_NEAR(rect.left, 60 * rate, 1.0);
    EXPECT_NEAR(rect.top, 40 * rate, 1.0);
    Cancel(dialog);
  });
  EXPECT_EQ(position, CPoint(60, 40));
}

TEST_P(PlacedEntryOfUnawareHost, StaysOnTheScreenWhereverTheHostSays) {
  const UnawareHost host;
  CPoint position(30'000, 30'000);
  WorkDialog([&] { return GetParam().run(&position); }, [&](HWND dialog) {
    const CRect rect(WindowRect(dialog));
    EXPECT_LE(rect.right, ::GetSystemMetrics(SM_CXSCREEN));
    EXPECT_LE(rect.bottom, ::GetSystemMetrics(SM_CYSCREEN));
    Cancel(dialog);
  });
}

}  // namespace
}  // namespace quorvel::test
