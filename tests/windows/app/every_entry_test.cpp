// What holds for every entry, whichever dialog it shows.
#include "support/entries.h"
#include "support/work.h"

// Needs <windows.h> above.
#include <commctrl.h>

#include <array>
#include <cstdlib>
#include <functional>
#include <utility>

namespace quorvel::test {
namespace {

class EveryEntry : public ::testing::TestWithParam<Entry> {
protected:
  Outcome Run(CPoint* position = nullptr) const { return GetParam().run(position); }

  void CancelWhere(CPoint& position, Condition place) const {
    ModalScript script;
    script.When(Painted(std::move(place)), Cancel);
    Work(script, [&] { return Run(&position); });
  }
};

INSTANTIATE_TEST_SUITE_P(Quorvel, EveryEntry, ::testing::ValuesIn(AllEntries()),
                         [](const auto& info) { return info.param.name; });

TEST_P(EveryEntry, EscapeCancelsAndLeavesTheCallersVariables) {
  const Outcome outcome = WorkDialog([this] { return Run(); }, Cancel);
  EXPECT_FALSE(outcome.confirmed);
  EXPECT_TRUE(outcome.unchanged);
}

TEST_P(EveryEntry, ClosingTheWindowCancels) {
  const Outcome outcome = WorkDialog([this] { return Run(); },
                                     [](HWND dialog) { ::PostMessageW(dialog, WM_CLOSE, 0, 0); });
  EXPECT_FALSE(outcome.confirmed);
  EXPECT_TRUE(outcome.unchanged);
}

TEST_P(EveryEntry, EscapeWorksFromEveryControl) {
  ModalScript script;
  script.When(Painted(AnyDialog()), [](HWND dialog) {
    for (const HWND control : TabOrder(dialog)) {
      Focus(control);
      const HWND focused = ::GetFocus();  // in a combo box its field
      EXPECT_TRUE(focused == control || ::IsChild(control, focused)) << ::GetDlgCtrlID(control);
    }
    PressKey(TabOrder(dialog).back(), VK_ESCAPE);
  });
  EXPECT_FALSE(Work(script, [this] { return Run(); }).confirmed);
}

TEST_P(EveryEntry, EnterConfirmsFromEveryFieldAndTheOkButton) {
  const Outcome outcome = WorkDialog(
      [this] { return Run(); }, [](HWND dialog) { PressKey(TabOrder(dialog).front(), VK_RETURN); });
  EXPECT_TRUE(outcome.confirmed);
}

/// Where a control is read: of a tab control, its row of tabs, since its pages follow it.
CRect ReadingRect(HWND control) {
  CRect rect(WindowRect(control));
  if (ClassName(control) == L"SysTabControl32") {
    RECT tab{};
    TabCtrl_GetItemRect(control, 0, &tab);
    rect.bottom = rect.top + tab.bottom;
  }
  return rect;
}

TEST_P(EveryEntry, TabVisitsTheControlsInReadingOrder) {
  const Outcome outcome = WorkDialog([this] { return Run(); }, [](HWND dialog) {
    std::vector<HWND> order = TabOrder(dialog);
    // The order goes round: it reads from the control nearest to the top-left corner, where being
    // higher counts for more than being farther to the left.
    const auto isBefore = [](HWND one, HWND other) {
      constexpr int kHigher = 4;
      const CRect first = ReadingRect(one);
      const CRect second = ReadingRect(other);
      return first.left + kHigher * first.top < second.left + kHigher * second.top;
    };
    std::rotate(order.begin(), std::min_element(order.begin(), order.end(), isBefore), order.end());
    for (std::size_t i = 1; i < order.size(); ++i) {
      const CRect before = ReadingRect(order[i - 1]);
      const CRect after = ReadingRect(order[i]);
      // The lines of a dialog may stand closer together than a list is high.
      const LONG middle = (after.top + after.bottom) / 2;
      EXPECT_TRUE(middle >= before.bottom || after.left >= before.right)
          << ::GetDlgCtrlID(order[i - 1]) << " stands after " << ::GetDlgCtrlID(order[i]);
    }
    Cancel(dialog);
  });
  EXPECT_FALSE(outcome.confirmed);
}

/// A dialog in its place. A window manager may tell of the place where it puts the frame first somewhat
/// later than of the frame.
Condition DialogPlaced(const char* what, std::function<bool(const RECT&)> isThere) {
  return {what, [isThere = std::move(isThere)]() -> HWND {
            const HWND dialog = AnyDialog().find();
            return dialog != nullptr && isThere(WindowRect(dialog)) ? dialog : nullptr;
          }};
}

TEST_P(EveryEntry, APositionThatFitsIsTakenExactly) {
  if (!GetParam().hasPosition) {
    return;
  }
  for (const CPoint wanted : {CPoint(300, 200), CPoint(0, 0), CPoint(1, 600)}) {
    CPoint position = wanted;
    CancelWhere(position, DialogPlaced("a dialog where it was told to be", [=](const RECT& rect) {
                  return CPoint(rect.left, rect.top) == wanted;
                }));
    EXPECT_EQ(position, wanted);
  }
}

TEST_P(EveryEntry, APositionOffTheScreenIsMovedByTheLeast) {
  if (!GetParam().hasPosition) {
    return;
  }
  const int screenWidth = ::GetSystemMetrics(SM_CXSCREEN);
  const int screenHeight = ::GetSystemMetrics(SM_CYSCREEN);
  CPoint farOut(screenWidth - 5, 20'000);
  CancelWhere(farOut, DialogPlaced("a dialog in the corner", [=](const RECT& rect) {
                return rect.right == screenWidth && rect.bottom == screenHeight;
              }));
  CPoint leftOut(-30, 100);
  CancelWhere(leftOut, DialogPlaced("a dialog at the edge", [](const RECT& rect) {
                return rect.left == 0 && rect.top == 100;
              }));
}

Condition DialogInTheMiddle() {
  const auto isNear = [](LONG first, LONG last, int length) {
    return std::abs(static_cast<int>(first + last) - length) <= 2;
  };
  return DialogPlaced("a dialog in the middle of the screen", [isNear](const RECT& rect) {
    return isNear(rect.left, rect.right, ::GetSystemMetrics(SM_CXSCREEN)) &&
           isNear(rect.top, rect.bottom, ::GetSystemMetrics(SM_CYSCREEN));
  });
}

TEST_P(EveryEntry, WithoutAPositionTheDialogStandsInTheMiddle) {
  ModalScript script;
  script.When(Painted(DialogInTheMiddle()), Cancel);
  EXPECT_FALSE(Work(script, [this] { return Run(); }).confirmed);
}

TEST_P(EveryEntry, RestoresTheActivationContext) {
  HANDLE before = nullptr;
  HANDLE during = nullptr;
  HANDLE after = nullptr;
  ::GetCurrentActCtx(&before);
  WorkDialog([this] { return Run(); }, [&](HWND dialog) {
    ::GetCurrentActCtx(&during);
    Confirm(dialog);
  });
  ::GetCurrentActCtx(&after);
  EXPECT_EQ(after, before);
  EXPECT_NE(during, before);
  for (const HANDLE context : {before, during, after}) {
    ::ReleaseActCtx(context);
  }
}

TEST_P(EveryEntry, GivesItsFailureValueWhereAValueIsMissing) {
  EXPECT_EQ(GetParam().runWithNull(), GetParam().failure);
}

/// Lets no dialog be created on this thread.
class NoDialogs {
public:
  NoDialogs() : m_hook(::SetWindowsHookExW(WH_CBT, OnCbt, nullptr, ::GetCurrentThreadId())) {}
  ~NoDialogs() { ::UnhookWindowsHookEx(m_hook); }
  NoDialogs(const NoDialogs&) = delete;
  NoDialogs& operator=(const NoDialogs&) = delete;

private:
  static LRESULT CALLBACK OnCbt(int code, WPARAM wParam, LPARAM lParam) {
    const bool refuse =
        code == HCBT_CREATEWND && ClassName(reinterpret_cast<HWND>(wParam)) == L"#32770";
    return refuse ? 1 : ::CallNextHookEx(nullptr, code, wParam, lParam);
  }

  HHOOK m_hook;
};

TEST_P(EveryEntry, ADialogThatCannotBeCreatedChangesNothing) {
  const NoDialogs noDialogs;
  const Outcome outcome = Run();
  EXPECT_FALSE(outcome.confirmed);
  EXPECT_TRUE(outcome.unchanged);
}

TEST(Entries, ADialogThatCannotBeCreatedGivesTheFailureValue) {
  const NoDialogs noDialogs;
  CString text;
  double number = 1.0;
  int whole = 1;
  int clearAll = 7;
  std::array point{1.0, 2.0, 3.0};
  const CString title;
  const CArray<CString, CString&> items;
  CByteArray states;
  EXPECT_EQ(__InputTextDlg("", "", &text, nullptr), FALSE);
  EXPECT_EQ(__InputScaleDlg("", "", &number, nullptr), FALSE);
  EXPECT_EQ(__InputDpiDlg(&whole, nullptr), FALSE);
  EXPECT_EQ(__InputPointXYDlg(point.data(), FALSE, nullptr), 1);
  EXPECT_EQ(__InputPointXYZDlg(point.data(), FALSE, nullptr), 1);
  EXPECT_EQ(__UserPaperSetDlg(nullptr, &text, &whole, &whole, &clearAll, nullptr), 0);
  EXPECT_EQ(clearAll, 7);
  EXPECT_EQ(__CheckListDlg(&title, &items, &states), -1);
  CKivFontEx font;
  EXPECT_EQ(__SelFontDlg(nullptr, &font, 0.0, "", TRUE, FALSE, QUORVEL_FONT_ALL), FALSE);
  EXPECT_EQ(__SelFontExDlg(nullptr, &font, 0.0, "", FALSE, QUORVEL_FONT_ALL), FALSE);
  CLayoutPageData page;
  EXPECT_EQ(__LayoutEditDlg(nullptr, &page, nullptr, nullptr, 0.0, 0, nullptr), FALSE);
  CLayoutExPageData extendedPage;
  EXPECT_EQ(
      __LayoutExEditDlg(nullptr, &extendedPage, nullptr, nullptr, nullptr, 0.0, nullptr), FALSE);
}

}  // namespace
}  // namespace quorvel::test
