#include "support/work.h"

#include <quorvel/quorvel.h>

#include <string>

namespace quorvel::test {
namespace {

constexpr int kValue = 1939;
constexpr int kBoxText = 0xFFFF;

struct Answer {
  bool confirmed;
  int dpi;
};

Answer Ask(int dpi, ModalScript& script) {
  const bool confirmed = Work(script, [&] { return __InputDpiDlg(&dpi, nullptr); }) != FALSE;
  return {confirmed, dpi};
}

Answer Ask(int dpi, ModalScript::Action action) {
  ModalScript script;
  script.When(Painted(DialogWithTitle(L"解像度入力")), std::move(action));
  return Ask(dpi, script);
}

Answer AskFor(const std::wstring& text) {
  return Ask(300, [&](HWND dialog) {
    ReplaceText(Control(dialog, kValue), text);
    PressKey(Control(dialog, kValue), VK_RETURN);
  });
}

TEST(InputDpiDlg, ReturnsTheWholeNumberTyped) {
  const Answer answer = AskFor(L"600");
  EXPECT_TRUE(answer.confirmed);
  EXPECT_EQ(answer.dpi, 600);
}

TEST(InputDpiDlg, ChecksNoRange) {
  EXPECT_EQ(AskFor(L"0").dpi, 0);
  EXPECT_EQ(AskFor(L"-72").dpi, -72);
  EXPECT_EQ(AskFor(L"2147483647").dpi, 2147483647);
}

TEST(InputDpiDlg, TheFieldHasTheFocusWithItsTextSelected) {
  Ask(300, [](HWND dialog) {
    EXPECT_EQ(FocusedControlId(dialog), kValue);
    EXPECT_EQ(SelectionOf(Control(dialog, kValue)), (Selection{0, 3}));
    Cancel(dialog);
  });
}

TEST(InputDpiDlg, EscapeCancelsThoughThereIsNoCancelButton) {
  const Answer answer = Ask(300, [](HWND dialog) {
    EXPECT_EQ(::GetDlgItem(dialog, IDCANCEL), nullptr);
    ReplaceText(Control(dialog, kValue), L"72");
    PressKey(Control(dialog, kValue), VK_ESCAPE);
  });
  EXPECT_FALSE(answer.confirmed);
  EXPECT_EQ(answer.dpi, 300);
}

TEST(InputDpiDlg, WhatIsNoWholeNumberIsReportedAndTheDialogStays) {
  for (const wchar_t* text : {L"", L"abc", L"72.5", L"72dpi", L"2147483648"}) {
    ModalScript script;
    script.When(Painted(DialogWithTitle(L"解像度入力")), [text](HWND dialog) {
      ReplaceText(Control(dialog, kValue), text);
      Confirm(dialog);
    });
    script.When(MessageBoxShown(), [](HWND box) {
      EXPECT_EQ(Text(box, kBoxText), L"整数を入力してください。");
      EXPECT_EQ(Text(box), L"解像度入力");
      Confirm(box);
    });
    script.When(Focused(kValue, kValue), [text](HWND dialog) {
      EXPECT_EQ(Text(dialog, kValue), text);
      EXPECT_EQ(SelectionOf(Control(dialog, kValue)), WholeText(Control(dialog, kValue)));
      TypeText(Control(dialog, kValue), L"1200");
      PressKey(Control(dialog, kValue), VK_RETURN);
    });
    const Answer answer = Ask(300, script);
    EXPECT_TRUE(answer.confirmed) << text;
    EXPECT_EQ(answer.dpi, 1200) << text;
  }
}

}  // namespace
}  // namespace quorvel::test
