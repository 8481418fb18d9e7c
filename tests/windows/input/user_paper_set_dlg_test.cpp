#include "support/work.h"

#include <quorvel/quorvel.h>

#include <string>

namespace quorvel::test {
namespace {

constexpr int kName = 13367;
constexpr int kWidth = 13368;
constexpr int kHeight = 13369;
constexpr int kLabel = 13521;
constexpr int kClearAll = 13322;
constexpr int kBoxText = 0xFFFF;

struct Paper {
  INT_PTR result = -1;
  std::string name = "旧";
  int width = 420;
  int height = 297;
  int clearAll = 7;
};

Paper Ask(ModalScript& script) {
  Paper paper;
  CString name(paper.name.c_str());
  paper.result = Work(script, [&] {
    return __UserPaperSetDlg(&script, &name, &paper.width, &paper.height, &paper.clearAll, nullptr);
  });
  paper.name = name.GetString();
  return paper;
}

Condition Shown() { return Painted(DialogWithTitle(L"ﾕｰｻﾞｰ用紙設定")); }

Paper Ask(ModalScript::Action action) {
  ModalScript script;
  script.When(Shown(), std::move(action));
  return Ask(script);
}

void ExpectIntegerMessage(HWND box) {
  EXPECT_EQ(Text(box, kBoxText), L"整数を入力してください。");
  PressKey(box, VK_RETURN);
}

TEST(UserPaperSetDlg, ReturnsTheNameWithTheSize) {
  const Paper paper = Ask([](HWND dialog) {
    ReplaceText(Control(dialog, kName), L"A3");
    Confirm(dialog);
  });
  EXPECT_EQ(paper.result, 1);
  EXPECT_EQ(paper.name, "A3(420x297)");
  EXPECT_EQ(paper.width, 420);
  EXPECT_EQ(paper.height, 297);
  EXPECT_EQ(paper.clearAll, 0);
}

TEST(UserPaperSetDlg, TheNameFieldStartsEmptyAndFocused) {
  const Paper paper = Ask([](HWND dialog) {
    EXPECT_EQ(Text(dialog, kName), L"");
    EXPECT_EQ(FocusedControlId(dialog), kName);
    Confirm(dialog);
  });
  EXPECT_EQ(paper.name, "(420x297)");
}

TEST(UserPaperSetDlg, TheLabelFollowsTheFields) {
  ModalScript script;
  script.When(Shown(), [](HWND dialog) {
    EXPECT_EQ(Text(dialog, kLabel), L"(420x297)");
    ReplaceText(Control(dialog, kWidth), L"1000");
  });
  script.When(Shown(), [](HWND dialog) {
    EXPECT_EQ(Text(dialog, kLabel), L"(1000x297)");
    ::SetDlgItemTextW(dialog, kHeight, L"-5");
    EXPECT_EQ(Text(dialog, kLabel), L"(1000x-5)");
    ReplaceText(Control(dialog, kName), L"表%s");
    Confirm(dialog);
  });
  const Paper paper = Ask(script);
  EXPECT_EQ(paper.name, "表%s(1000x-5)");
  EXPECT_EQ(paper.width, 1000);
  EXPECT_EQ(paper.height, -5);
}

TEST(UserPaperSetDlg, OpeningShowsNoMessage) {
  Ask([](HWND dialog) {
    EXPECT_EQ(VisibleDialogs().size(), 1U);
    Cancel(dialog);
  });
}

TEST(UserPaperSetDlg, EmptyingASizeFieldIsReportedAtOnce) {
  for (const int field : {kWidth, kHeight}) {
    ModalScript script;
    script.When(Shown(), [field](HWND dialog) { ReplaceText(Control(dialog, field), L""); });
    script.When(MessageBoxShown(), ExpectIntegerMessage);
    script.When(Shown(), [field](HWND dialog) {
      EXPECT_EQ(FocusedControlId(dialog), field);
      EXPECT_EQ(Text(dialog, field), L"");
      EXPECT_EQ(Text(dialog, kLabel), L"(420x297)") << "the last accepted size";
      TypeText(Control(dialog, field), L"50");
    });
    script.When(Shown(), [field](HWND dialog) {
      EXPECT_EQ(Text(dialog, kLabel), field == kWidth ? L"(50x297)" : L"(420x50)");
      Confirm(dialog);
    });
    EXPECT_EQ(Ask(script).result, 1);
  }
}

TEST(UserPaperSetDlg, AWrongSizeIsReportedTwiceOnOkAndTheDialogStays) {
  ModalScript script;
  script.When(Shown(), [](HWND dialog) { TypeText(Control(dialog, kName), L"A3"); });
  script.When(Shown(), [](HWND dialog) { ReplaceText(Control(dialog, kHeight), L"x"); });
  script.When(MessageBoxShown(), ExpectIntegerMessage);  // while typing
  script.When(Shown(), Confirm);
  script.When(MessageBoxShown(), ExpectIntegerMessage);
  script.When(MessageBoxShown(), ExpectIntegerMessage);
  script.When(Shown(), [](HWND dialog) {
    EXPECT_EQ(FocusedControlId(dialog), kHeight);
    EXPECT_EQ(SelectionOf(Control(dialog, kHeight)), (Selection{0, 1}));
    EXPECT_EQ(Text(dialog, kName), L"A3");
    TypeText(Control(dialog, kHeight), L"210");
    PressKey(Control(dialog, kHeight), VK_RETURN);
  });
  EXPECT_EQ(Ask(script).name, "A3(420x210)");
}

TEST(UserPaperSetDlg, CancelReturns0AndClearsTheFlagOnly) {
  const Paper paper = Ask([](HWND dialog) {
    TypeText(Control(dialog, kName), L"A3");
    ReplaceText(Control(dialog, kWidth), L"10");
    Click(dialog, IDCANCEL);
  });
  EXPECT_EQ(paper.result, 0);
  EXPECT_EQ(paper.clearAll, 0);
  EXPECT_EQ(paper.name, "旧");
  EXPECT_EQ(paper.width, 420);
  EXPECT_EQ(paper.height, 297);
}

TEST(UserPaperSetDlg, ClearAllReturns1AndLeavesNameAndSize) {
  const Paper paper = Ask([](HWND dialog) {
    TypeText(Control(dialog, kName), L"A3");
    ReplaceText(Control(dialog, kWidth), L"10");
    Click(dialog, kClearAll);
  });
  EXPECT_EQ(paper.result, 1);
  EXPECT_EQ(paper.clearAll, 1);
  EXPECT_EQ(paper.name, "旧");
  EXPECT_EQ(paper.width, 420);
  EXPECT_EQ(paper.height, 297);
}

}  // namespace
}  // namespace quorvel::test
