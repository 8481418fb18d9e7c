#include "kivfcl/calc_text.h"

#include "framework/dialog.h"
#include "support/work.h"
#include "tests/windows/framework/test_dialogs.h"

#include <limits>
#include <string>

namespace quorvel::test {
namespace {

constexpr int kBoxText = 0xFFFF;

/// Exchanges one number of each type.
class CalcDialog : public CDialog {
public:
  CalcDialog() : CDialog(IDD_NUMBERS) {}

  int m_rows = 3;
  float m_width = 0.1F;
  double m_total = 297.0;

  using CDialog::EndDialog;

protected:
  void DoDataExchange(CDataExchange* pDX) override {
    CDialog::DoDataExchange(pDX);
    DDX_CalcText(pDX, IDC_WHOLE, m_rows);
    DDV_MinMaxInt(pDX, m_rows, 1, 20);
    DDX_CalcText(pDX, IDC_DECIMAL, m_width, 1, 0);
    DDX_CalcText(pDX, IDC_TEXT, m_total, 0, 0);
  }
};

template <class Action>
INT_PTR WorkCalc(CalcDialog& dialog, Action action) {
  return WorkDialog([&] { return dialog.DoModal(); }, action);
}

TEST(CalcText, ShowsAllDecimalsAndAtLeastThoseAskedFor) {
  CalcDialog dialog;
  WorkCalc(dialog, [](HWND window) {
    EXPECT_EQ(Text(window, IDC_WHOLE), L"3");
    EXPECT_EQ(Text(window, IDC_DECIMAL), L"0.1");
    EXPECT_EQ(Text(window, IDC_TEXT), L"297");
    Cancel(window);
  });
  dialog.m_width = 2.0F;
  dialog.m_total = 1000.0 / 3;
  WorkCalc(dialog, [](HWND window) {
    EXPECT_EQ(Text(window, IDC_DECIMAL), L"2.0");
    EXPECT_EQ(Text(window, IDC_TEXT), L"333.3333333333333");
    Cancel(window);
  });
}

TEST(CalcText, ShowingAndReadingBackChangesNoBit) {
  for (const double total :
       {0.0, 1.0 / 3, 0.1, static_cast<double>(0.1F), 1e12, 1e-9, -5.25,
        std::numeric_limits<double>::max(), std::numeric_limits<double>::denorm_min()}) {
    CalcDialog dialog;
    dialog.m_total = total;
    dialog.m_width = static_cast<float>(total > 1e30 ? 1.0 / 3 : total);
    const float width = dialog.m_width;
    EXPECT_EQ(WorkCalc(dialog, Confirm), IDOK);
    EXPECT_EQ(dialog.m_total, total);
    EXPECT_EQ(dialog.m_width, width);
  }
}

TEST(CalcText, ReadsNumbersAndCalculations) {
  CalcDialog dialog;
  const INT_PTR result = WorkCalc(dialog, [](HWND window) {
    ReplaceText(Control(window, IDC_WHOLE), L"２×３");
    ReplaceText(Control(window, IDC_DECIMAL), L"1000/3");
    ReplaceText(Control(window, IDC_TEXT), L"（２９７－２０）÷４");
    Confirm(window);
  });
  EXPECT_EQ(result, IDOK);
  EXPECT_EQ(dialog.m_rows, 6);
  EXPECT_EQ(dialog.m_width, static_cast<float>(1000.0 / 3));
  EXPECT_EQ(dialog.m_total, 69.25);
}

TEST(CalcText, AFieldKeepsWhatWasTypedIntoIt) {
  CalcDialog dialog;
  WorkCalc(dialog, [&](HWND window) {
    ::SetDlgItemTextW(window, IDC_WHOLE, L"2*3");
    ::SetDlgItemTextW(window, IDC_DECIMAL, L"1000/3");
    ::SetDlgItemTextW(window, IDC_TEXT, L"210-2*15.5");
    EXPECT_TRUE(dialog.UpdateData(TRUE));
    EXPECT_TRUE(dialog.UpdateData(FALSE));
    EXPECT_EQ(Text(window, IDC_WHOLE), L"2*3");
    EXPECT_EQ(Text(window, IDC_DECIMAL), L"1000/3");
    EXPECT_EQ(Text(window, IDC_TEXT), L"210-2*15.5");
    // Another value replaces it.
    dialog.m_rows = 7;
    dialog.m_width = 0.5F;
    dialog.m_total = 178;
    EXPECT_TRUE(dialog.UpdateData(FALSE));
    EXPECT_EQ(Text(window, IDC_WHOLE), L"7");
    EXPECT_EQ(Text(window, IDC_DECIMAL), L"0.5");
    EXPECT_EQ(Text(window, IDC_TEXT), L"178");
    Cancel(window);
  });
}

TEST(CalcText, AnUnreadableTextIsReplacedWhenTheValueIsShown) {
  CalcDialog dialog;
  dialog.m_total = 0;
  WorkCalc(dialog, [&](HWND window) {
    ::SetDlgItemTextW(window, IDC_TEXT, L"x");
    EXPECT_TRUE(dialog.UpdateData(FALSE));
    EXPECT_EQ(Text(window, IDC_TEXT), L"0");
    Cancel(window);
  });
}

struct Refused {
  int field;
  const wchar_t* text;
  const wchar_t* message;
};

class CalcTextRefuses : public ::testing::TestWithParam<Refused> {};

INSTANTIATE_TEST_SUITE_P(
    Quorvel, CalcTextRefuses,
    ::testing::Values(
        Refused{IDC_WHOLE, L"abc", L"「abc」 は数値または計算式ではありません。"},
        Refused{IDC_WHOLE, L"10/4", L"「10/4」 の値が整数になりません。"},
        Refused{IDC_WHOLE, L"1e9*1e9", L"「1e9*1e9」 の値が大きすぎます。"},
        Refused{IDC_WHOLE, L"", L"整数を入力してください。"},
        Refused{IDC_WHOLE, L"4*6", L"1 から 20 までの整数を入力してください。"},
        Refused{IDC_DECIMAL, L" 　", L"数値を入力してください。"},
        Refused{IDC_DECIMAL, L"1/0", L"「1/0」 は 0 で割っているため計算できません。"},
        Refused{IDC_DECIMAL, L"1e30*1e30", L"「1e30*1e30」 の値が大きすぎます。"},
        Refused{IDC_TEXT, L"２９７ー（", L"「２９７ー（」 は数値または計算式ではありません。"},
        Refused{IDC_TEXT, L"nan", L"「nan」 は数値または計算式ではありません。"},
        Refused{IDC_TEXT, L"%s%n%d", L"「%s%n%d」 は数値または計算式ではありません。"},
        Refused{IDC_TEXT, L"1e999", L"「1e999」 の値が大きすぎます。"},
        Refused{IDC_TEXT, L"あいうえおかきくけこさしすせそたちつてとなにぬねの",
                L"「あいうえおかきくけこさしすせそたちつてと...」 は数値または計算式ではありません。"}));

TEST_P(CalcTextRefuses, WithTheTextAtFaultWhichStays) {
  const Refused& refused = GetParam();
  CalcDialog dialog;
  ModalScript script;
  script.When(Painted(DialogWithControl(IDC_WHOLE)), [&](HWND window) {
    ReplaceText(Control(window, refused.field), refused.text);
    Confirm(window);
  });
  script.When(MessageBoxShown(), [&](HWND box) {
    EXPECT_EQ(Text(box, kBoxText), refused.message);
    Click(box, IDOK);
  });
  script.When(Painted(DialogWithControl(IDC_WHOLE)), [&](HWND window) {
    EXPECT_EQ(Text(window, refused.field), refused.text);
    EXPECT_EQ(FocusedControlId(window), refused.field);
    EXPECT_EQ(SelectionOf(Control(window, refused.field)),
              WholeText(Control(window, refused.field)));
    Cancel(window);
  });
  EXPECT_EQ(Work(script, [&] { return dialog.DoModal(); }), IDCANCEL);
  EXPECT_EQ(dialog.m_width, 0.1F);
  EXPECT_EQ(dialog.m_total, 297.0);
}

}  // namespace
}  // namespace quorvel::test
