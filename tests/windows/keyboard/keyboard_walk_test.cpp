// What holds for every dialog that is worked with the keyboard alone: Tab, Shift+Tab, Enter, Escape.
#include "keyboard/keyboard_walk.h"
#include "support/every_dialog.h"

#include <algorithm>
#include <iterator>
#include <vector>

namespace quorvel::test {
namespace {

class KeyboardWalk : public ::testing::TestWithParam<AnyDialogOfOurs> {
protected:
  static void ExpectWalk(bool backwards) {
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
    script.When(Painted(AnyDialog()), [&](HWND dialog) { walk.Start(dialog); });
    EXPECT_FALSE(Work(script, GetParam().run).confirmed);
  }

  static std::vector<int> Ids(const std::vector<HWND>& controls) {
    std::vector<int> ids;
    std::ranges::transform(controls, std::back_inserter(ids), ::GetDlgCtrlID);
    return ids;
  }
};

INSTANTIATE_TEST_SUITE_P(Quorvel, KeyboardWalk, ::testing::ValuesIn(AllDialogs()),
                         [](const auto& info) { return info.param.name; });

TEST_P(KeyboardWalk, TabVisitsEveryControlOnceAndComesBack) { ExpectWalk(false); }

TEST_P(KeyboardWalk, ShiftTabGoesTheOtherWay) { ExpectWalk(true); }

/// The dialog of the ruled lines begins on a button, and Enter presses the button that has the focus.
TEST_P(KeyboardWalk, EnterConfirms) {
  const Outcome outcome = WorkDialog(GetParam().run, [](HWND dialog) {
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
      WorkDialog(GetParam().run, [](HWND /*dialog*/) { PressKey(::GetFocus(), VK_ESCAPE); });
  EXPECT_FALSE(outcome.confirmed);
  EXPECT_TRUE(outcome.unchanged);
}

}  // namespace
}  // namespace quorvel::test
