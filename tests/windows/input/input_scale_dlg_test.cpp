#include "support/work.h"

#include <quorvel/quorvel.h>

#include <string>

namespace quorvel::test {
namespace {

constexpr int kComment = 10000;
constexpr int kValue = 10001;

struct Answer {
  bool confirmed;
  double scale;
};

Answer Ask(double scale, ModalScript::Action action) {
  const bool confirmed =
      WorkDialog([&] { return __InputScaleDlg("題名", "説明", &scale, nullptr); },
                 std::move(action)) != FALSE;
  return {confirmed, scale};
}

ModalScript::Action EnterAndConfirm(std::wstring text) {
  return [text = std::move(text)](HWND dialog) {
    ReplaceText(Control(dialog, kValue), text);
    Confirm(dialog);
  };
}

TEST(InputScaleDlg, ShowsAWholeNumberAndReturnsIt) {
  const Answer answer = Ask(1000.4, [](HWND dialog) {
    EXPECT_EQ(Text(dialog, kValue), L"1000");
    EXPECT_EQ(Text(dialog, kComment), L"説明");
    Confirm(dialog);
  });
  EXPECT_TRUE(answer.confirmed);
  EXPECT_EQ(answer.scale, 1000.0);
}

TEST(InputScaleDlg, ReturnsWhatWasTypedWithItsDecimals) {
  EXPECT_EQ(Ask(1.0, EnterAndConfirm(L"500.5")).scale, 500.5);
  EXPECT_EQ(Ask(1.0, EnterAndConfirm(L"-2")).scale, -2.0);
  EXPECT_EQ(Ask(1.0, EnterAndConfirm(L"２５０")).scale, 250.0);
}

TEST(InputScaleDlg, ATextThatIsNoNumberGivesZero) {
  const Answer answer = Ask(7.0, EnterAndConfirm(L"abc"));
  EXPECT_TRUE(answer.confirmed);
  EXPECT_EQ(answer.scale, 0.0);
  EXPECT_EQ(Ask(7.0, EnterAndConfirm(L"")).scale, 0.0);
}

TEST(InputScaleDlg, CancelLeavesTheScale) {
  const Answer answer = Ask(1000.4, [](HWND dialog) {
    ReplaceText(Control(dialog, kValue), L"20");
    Click(dialog, IDCANCEL);
  });
  EXPECT_FALSE(answer.confirmed);
  EXPECT_EQ(answer.scale, 1000.4);
}

TEST(InputScaleDlg, AnEmptyTitleReplacesTheTemplatesCaption) {
  double scale = 1.0;
  ModalScript script;
  script.When(Painted(DialogWithControl(kValue)), [](HWND dialog) {
    EXPECT_EQ(Text(dialog), L"");
    Cancel(dialog);
  });
  Work(script, [&] { return __InputScaleDlg("", nullptr, &scale, nullptr); });
}

TEST(InputScaleDlg, TheSystemGivesTheFocusToTheFirstControlTheOkButton) {
  Ask(1.0, [](HWND dialog) {
    EXPECT_EQ(FocusedControlId(dialog), IDOK);
    Cancel(dialog);
  });
}

TEST(InputScaleDlg, TabIntoTheFieldSelectsItsText) {
  ModalScript script;
  const Condition shown = Painted(DialogWithControl(kValue));
  script.When(shown, [](HWND dialog) { PressTab(dialog); });
  script.When(shown, [](HWND dialog) {
    EXPECT_EQ(FocusedControlId(dialog), IDCANCEL);
    PressTab(dialog);
  });
  script.When(shown, [](HWND dialog) {
    EXPECT_EQ(FocusedControlId(dialog), kValue);
    EXPECT_EQ(SelectionOf(Control(dialog, kValue)), WholeText(Control(dialog, kValue)));
    TypeText(Control(dialog, kValue), L"25");
    PressKey(Control(dialog, kValue), VK_RETURN);
  });
  double scale = 100.0;
  EXPECT_EQ(Work(script, [&] { return __InputScaleDlg("", "", &scale, nullptr); }), TRUE);
  EXPECT_EQ(scale, 25.0);
}

}  // namespace
}  // namespace quorvel::test
