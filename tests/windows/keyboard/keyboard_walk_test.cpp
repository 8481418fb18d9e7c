// What holds for every dialog that is worked with the keyboard alone: Tab, Shift+Tab, Enter, Escape.
#include "keyboard/keyboard_walk.h"
#include "support/colour_environment.h"
#include "support/layout_dialogs.h"

// Needs <windows.h> above.
#include <commctrl.h>

#include <algorithm>
#include <functional>
#include <iterator>
#include <vector>

namespace quorvel::test {
namespace {

std::vector<int> Ids(const std::vector<HWND>& controls) {
  std::vector<int> ids;
  std::ranges::transform(controls, std::back_inserter(ids), ::GetDlgCtrlID);
  return ids;
}

/// `prepare` is done to the dialog before.
template <class Call>
void ExpectWalkOf(Call call, bool backwards, const std::function<void(HWND)>& prepare) {
  ModalScript script;
  TabWalk walk(script, backwards, [&](HWND dialog) {
    std::vector<HWND> expected = StopsFrom(dialog, walk.Visited().front());
    if (backwards) {
      std::reverse(expected.begin() + 1, expected.end());
    }
    EXPECT_EQ(Ids(walk.Visited()), Ids(expected));
    for (const HWND stop : walk.WithoutMark()) {
      ADD_FAILURE() << "no mark of the focus on " << ::GetDlgCtrlID(stop);
    }
    Cancel(dialog);
  });
  script.When(Painted(AnyDialog()), prepare);
  script.When(Painted(AnyDialog()), [&](HWND dialog) { walk.Start(dialog); });
  Work(script, call);
}

class KeyboardWalk : public ::testing::TestWithParam<Entry> {
protected:
  static void ExpectWalk(bool backwards) {
    ExpectWalkOf([] { return GetParam().run(nullptr).confirmed; }, backwards,
                 [](HWND /*dialog*/) {});
  }
};

INSTANTIATE_TEST_SUITE_P(Quorvel, KeyboardWalk, ::testing::ValuesIn(AllDialogs()),
                         [](const auto& info) { return info.param.name; });

TEST_P(KeyboardWalk, TabVisitsEveryControlOnceAndComesBack) { ExpectWalk(false); }

TEST_P(KeyboardWalk, ShiftTabGoesTheOtherWay) { ExpectWalk(true); }

TEST(KeyboardWalkOfColourTabs, TabVisitsThePaletteAndTheField) {
  constexpr int kTabs = 1000;
  constexpr int kColours = 45;
  ColourEnvironment environment;
  std::vector<COLORREF> palette;
  palette.reserve(kColours);
  for (int i = 0; i < kColours; ++i) {
    palette.push_back(RGB(i, 0, 0));
  }
  environment.Store(palette);
  COLORREF color = palette.back();  // which can be deleted: all buttons are enabled
  for (const WPARAM page : {0U, 2U}) {
    for (const bool backwards : {false, true}) {
      ExpectWalkOf([&] { return __SelColorDlgEx(&environment.Env(), &color, nullptr); }, backwards,
                 [page](HWND dialog) {
                   ::SendMessageW(Control(dialog, kTabs), TCM_SETCURFOCUS, page, 0);
                 });
    }
  }
}

/// The dialog of the ruled lines begins on a button, and Enter presses the button that has the focus.
TEST_P(KeyboardWalk, EnterConfirms) {
  const Outcome outcome = WorkDialog([] { return GetParam().run(nullptr); }, [](HWND dialog) {
    const LRESULT code = ::SendMessageW(::GetFocus(), WM_GETDLGCODE, 0, 0);
    if ((code & (DLGC_DEFPUSHBUTTON | DLGC_UNDEFPUSHBUTTON)) != 0) {
      Focus(Control(dialog, IDOK));
    }
    PressKey(::GetFocus(), VK_RETURN);
  });
  EXPECT_TRUE(outcome.confirmed);
}

TEST_P(KeyboardWalk, EscapeCancelsAndChangesNothing) {
  const Outcome outcome =
      WorkDialog([] { return GetParam().run(nullptr); },
                 [](HWND /*dialog*/) { PressKey(::GetFocus(), VK_ESCAPE); });
  EXPECT_FALSE(outcome.confirmed);
  EXPECT_TRUE(outcome.unchanged);
}

}  // namespace
}  // namespace quorvel::test
