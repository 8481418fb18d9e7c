#include "dialogs/layout/layout_cel_size_edit_dlg.h"

#include "driver/product_state.h"
#include "support/work.h"

#include <string>

namespace quorvel::test {
namespace {

constexpr int kFirst = 4055;
constexpr int kSecond = 4056;
constexpr int kBoxText = 0xFFFF;

struct Sizes {
  INT_PTR result = -1;
  float first = 10.0F;
  float second = 5.0F;
};

Condition Shown() { return Painted(DialogWithTitle(L"ｾﾙｻｲｽﾞ編集")); }

Sizes Ask(ModalScript& script, Sizes sizes = {}) {
  CLayoutCelSizeEditDlg dialog(&sizes.first, &sizes.second);
  sizes.result = Work(script, [&] { return RunWithProductResources(dialog); });
  return sizes;
}

Sizes Ask(ModalScript::Action action, const Sizes& sizes = {}) {
  ModalScript script;
  script.When(Shown(), std::move(action));
  return Ask(script, sizes);
}

void ExpectShown(HWND dialog, const wchar_t* first, const wchar_t* second) {
  EXPECT_EQ(Text(dialog, kFirst), first);
  EXPECT_EQ(Text(dialog, kSecond), second);
}

/// Types, handled before the call returns, and leaves the field.
void TypeAndLeave(HWND dialog, int id, const wchar_t* text) {
  ::SetFocus(Control(dialog, id));
  ::SetWindowTextW(Control(dialog, id), text);
  ::SetFocus(Control(dialog, id == kFirst ? kSecond : kFirst));
}

TEST(LayoutCelSizeEditDlg, ShowsBothLengthsAndSelectsTheFirst) {
  const Sizes sizes = Ask(
      [](HWND dialog) {
        ExpectShown(dialog, L"10.3", L"5.1");
        EXPECT_EQ(FocusedControlId(dialog), kFirst);
        EXPECT_EQ(SelectionOf(Control(dialog, kFirst)), WholeText(Control(dialog, kFirst)));
        Cancel(dialog);
      },
      {.first = 10.26F, .second = 5.14F});
  EXPECT_EQ(sizes.result, IDCANCEL);
  EXPECT_EQ(sizes.first, 10.26F);
  EXPECT_EQ(sizes.second, 5.14F);
}

TEST(LayoutCelSizeEditDlg, AFieldThatIsLeftGivesTheOtherTheRest) {
  Ask([](HWND dialog) {
    TypeAndLeave(dialog, kFirst, L"12.34");
    ExpectShown(dialog, L"12.3", L"2.7");
    TypeAndLeave(dialog, kSecond, L"1.27");
    ExpectShown(dialog, L"13.7", L"1.3");
    TypeAndLeave(dialog, kFirst, L"abc");
    ExpectShown(dialog, L"0.0", L"15.0");
    Cancel(dialog);
  });
}

TEST(LayoutCelSizeEditDlg, TypingAloneChangesNothing) {
  Ask([](HWND dialog) {
    ::SetWindowTextW(Control(dialog, kFirst), L"12.34");
    ExpectShown(dialog, L"12.34", L"5.0");
    Cancel(dialog);
  });
}

TEST(LayoutCelSizeEditDlg, TheTabKeyLeavesAFieldToo) {
  ModalScript script;
  script.When(Shown(), [](HWND dialog) {
    ReplaceText(Control(dialog, kFirst), L"１２．３４");
    PressTab(dialog);
  });
  script.When(Shown(), [](HWND dialog) {
    ExpectShown(dialog, L"12.3", L"2.7");
    EXPECT_EQ(FocusedControlId(dialog), kSecond);
    Confirm(dialog);
  });
  const Sizes sizes = Ask(script);
  EXPECT_EQ(sizes.result, IDOK);
  EXPECT_EQ(sizes.first, 12.3F);
  EXPECT_EQ(sizes.second, static_cast<float>(15.0 - 12.3));
}

TEST(LayoutCelSizeEditDlg, EnterTakesAllDecimals) {
  const Sizes sizes = Ask([](HWND dialog) {
    ReplaceText(Control(dialog, kFirst), L"12.34");
    PressKey(Control(dialog, kFirst), VK_RETURN);
  });
  EXPECT_EQ(sizes.first, 12.34F);
  EXPECT_EQ(sizes.second, static_cast<float>(15.0 - 12.34));
}

TEST(LayoutCelSizeEditDlg, AClickOnOkLeavesTheFieldBefore) {
  const Sizes sizes = Ask([](HWND dialog) {
    ReplaceText(Control(dialog, kSecond), L"1.26");
    Click(dialog, IDOK);
  });
  EXPECT_EQ(sizes.first, 13.7F);
}

TEST(LayoutCelSizeEditDlg, EnterInTheSecondFieldReadsTheFirst) {
  const Sizes sizes = Ask([](HWND dialog) {
    ReplaceText(Control(dialog, kSecond), L"2");
    PressKey(Control(dialog, kSecond), VK_RETURN);
  });
  EXPECT_EQ(sizes.result, IDOK);
  EXPECT_EQ(sizes.first, 10.0F);
  EXPECT_EQ(sizes.second, 5.0F);
}

TEST(LayoutCelSizeEditDlg, RefusesWhatLeavesNothingForEither) {
  for (const wchar_t* text : {L"15", L"0.00000001", L"0", L"-3", L"20", L"長い", L""}) {
    ModalScript script;
    script.When(Shown(), [text](HWND dialog) {
      ReplaceText(Control(dialog, kFirst), text);
      PressKey(Control(dialog, kFirst), VK_RETURN);
    });
    script.When(MessageBoxShown(), [](HWND box) {
      EXPECT_EQ(Text(box, kBoxText), L"値が不正です。＋値を設定してください。");
      EXPECT_EQ(Text(box), L"ｾﾙｻｲｽﾞ編集");
      PressKey(box, VK_RETURN);
    });
    script.When(Shown(), [text](HWND dialog) {
      ExpectShown(dialog, text, L"5.0");  // as it was typed
      EXPECT_EQ(FocusedControlId(dialog), kFirst);
      Cancel(dialog);
    });
    const Sizes sizes = Ask(script);
    EXPECT_EQ(sizes.result, IDCANCEL);
    EXPECT_EQ(sizes.first, 10.0F);
    EXPECT_EQ(sizes.second, 5.0F);
  }
}

TEST(LayoutCelSizeEditDlg, ARefusalLeadsOutOfTheSecondFieldWithoutReadingIt) {
  ModalScript script;
  script.When(Shown(), [](HWND dialog) {
    ::SetWindowTextW(Control(dialog, kFirst), L"x");
    ReplaceText(Control(dialog, kSecond), L"2");
  });
  script.When(Shown(), [](HWND dialog) {
    ExpectShown(dialog, L"0.0", L"2");
    PressKey(Control(dialog, kSecond), VK_RETURN);
  });
  script.When(MessageBoxShown(), [](HWND box) { PressKey(box, VK_RETURN); });
  script.When(Shown(), [](HWND dialog) {
    ExpectShown(dialog, L"0.0", L"2");
    EXPECT_EQ(FocusedControlId(dialog), kFirst);
    Cancel(dialog);
  });
  Ask(script);
}

TEST(LayoutCelSizeEditDlg, AfterARefusalTheFieldsWorkOn) {
  ModalScript script;
  script.When(Shown(), [](HWND dialog) {
    ReplaceText(Control(dialog, kSecond), L"15");
    Click(dialog, IDOK);  // leaves the field: nothing is left for the first
  });
  script.When(MessageBoxShown(), [](HWND box) { PressKey(box, VK_RETURN); });
  script.When(Shown(), [](HWND dialog) {
    ExpectShown(dialog, L"0.0", L"15.0");
    EXPECT_EQ(FocusedControlId(dialog), kFirst);
    TypeAndLeave(dialog, kFirst, L"6");
    ExpectShown(dialog, L"6.0", L"9.0");
    Confirm(dialog);
  });
  const Sizes sizes = Ask(script);
  EXPECT_EQ(sizes.result, IDOK);
  EXPECT_EQ(sizes.first, 6.0F);
  EXPECT_EQ(sizes.second, 9.0F);
}

TEST(LayoutCelSizeEditDlg, StepsOfATenthKeepASumOfTen) {
  Ask(
      [](HWND dialog) {
        for (int tenths = 1; tenths < 100; ++tenths) {
          const auto text = [](int value) {
            return std::to_wstring(value / 10) + L"." + std::to_wstring(value % 10);
          };
          TypeAndLeave(dialog, kFirst, text(tenths).c_str());
          ExpectShown(dialog, text(tenths).c_str(), text(100 - tenths).c_str());
          TypeAndLeave(dialog, kSecond, text(tenths).c_str());
          ExpectShown(dialog, text(100 - tenths).c_str(), text(tenths).c_str());
        }
        Cancel(dialog);
      },
      {.first = 4.0F, .second = 6.0F});
}

}  // namespace
}  // namespace quorvel::test
