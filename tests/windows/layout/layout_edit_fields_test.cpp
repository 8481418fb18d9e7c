// Fields, lines, files and the end of the layout editor.
#include "layout/layout_editor.h"
#include "res/ids.h"
#include "support/templates.h"

#include <array>
#include <filesystem>
#include <fstream>
#include <functional>
#include <limits>
#include <string>
#include <vector>

namespace quorvel::test {
namespace {

using layout_editor::kDotsPerMm;
using layout_editor::kImage;

constexpr int kRows = 2011;
constexpr int kColumns = 2022;
constexpr int kHeight = 2023;
constexpr int kWidth = 2024;
constexpr int kMargin = 2026;
constexpr int kShowFrame = 2029;
constexpr int kOuter = 2030;
constexpr int kInner = 2035;
constexpr int kEqualRows = 10002;
constexpr int kEqualColumns = 10003;

class LayoutEditFields : public ::testing::Test {
protected:
  /// 3 x 4 cells of 20 x 40 mm.
  LayoutEditor m_editor{3, 4, 60.0, 160.0};

  std::wstring Refusal(int id, const wchar_t* text) {
    return RefusalOf(m_editor, kImage, id, text);
  }
};

TEST_F(LayoutEditFields, TheTemplate) {
  m_editor.names.Add("図面名");
  m_editor.Run([](HWND dialog) {
    for (int bars = 0; bars < 2; ++bars) {  // which the dialog makes itself
      ::DestroyWindow(::FindWindowExW(dialog, nullptr, TOOLBARCLASSNAMEW, nullptr));
    }
    ExpectTemplate(dialog, L"ﾚｲｱｳﾄ編集", {472, 268}, L"MS Shell Dlg",
                   {{2040, L"Static", L"ﾚｲｱｳﾄのｲﾒｰｼﾞ", {20, 90, 432, 140}},  // above its group
                    {kNoId, L"Button", L"分割数", {8, 6, 84, 52}},
                    {kNoId, L"Static", L"行(&R):", {14, 20, 28, 12}},
                    {2011, L"Edit", L"3", {46, 20, 36, 12}},
                    {kNoId, L"Static", L"列(&C):", {14, 38, 28, 12}},
                    {2022, L"Edit", L"4", {46, 38, 36, 12}},
                    {kNoId, L"Button", L"全長", {98, 6, 146, 52}},
                    {kNoId, L"Static", L"行(&O):", {104, 20, 28, 12}},
                    {2023, L"Edit", L"60", {136, 20, 50, 12}},
                    {kNoId, L"Static", L"mm", {189, 20, 14, 12}},
                    {10002, L"Button", L"均等", {205, 19, 32, 14}},
                    {kNoId, L"Static", L"列(&L):", {104, 38, 28, 12}},
                    {2024, L"Edit", L"160", {136, 38, 50, 12}},
                    {kNoId, L"Static", L"mm", {189, 38, 14, 12}},
                    {10003, L"Button", L"均等", {205, 37, 32, 14}},
                    {kNoId, L"Button", L"枠線", {250, 6, 214, 52}},
                    {2027, L"Static", L"ﾏｰｼﾞﾝ(&M):", {256, 20, 40, 12}},
                    {2026, L"Edit", L"0", {300, 20, 50, 12}},
                    {2028, L"Static", L"mm", {353, 20, 14, 12}},
                    {2029, L"Button", L"ﾌﾚｰﾑを表示(&F)", {300, 38, 90, 12}},
                    {2030, L"Button", L"外側", {258, 20, 34, 12}},
                    {2031, L"ComboBox", L"", {296, 20, 74, 110}},
                    {2032, L"Button", L"赤 0 緑 0 青 0", {376, 20, 16, 12}},
                    {2033, L"Edit", L"0.1", {398, 20, 40, 12}},
                    {2034, L"Static", L"mm", {441, 20, 14, 12}},
                    {2035, L"Button", L"内側", {258, 38, 34, 12}},
                    {2036, L"ComboBox", L"", {296, 38, 74, 110}},
                    {2037, L"Button", L"赤 0 緑 0 青 0", {376, 38, 16, 12}},
                    {2038, L"Edit", L"0.1", {398, 38, 40, 12}},
                    {2039, L"Static", L"mm", {441, 38, 14, 12}},
                    {kNoId, L"Button", L"ﾚｲｱｳﾄｲﾒｰｼﾞ", {8, 62, 456, 178}},
                    {2041, L"Button", L"文字の色 赤 0 緑 0 青 0", {220, 76, 12, 10}},
                    {2043, L"Button", L"文字の色を選ぶ", {232, 76, 6, 10}},
                    {2042, L"Button", L"背景の色 赤 255 緑 255 青 255", {242, 76, 12, 10}},
                    {2044, L"Button", L"背景の色を選ぶ", {254, 76, 6, 10}},
                    {2045, L"ComboBox", L"", {270, 75, 100, 272}},
                    {4029, L"Button", L"挿入", {376, 76, 36, 10}},
                    {IDOK, L"Button", L"OK", {358, 247, 50, 14}},
                    {IDCANCEL, L"Button", L"キャンセル", {414, 247, 50, 14}}});
    Cancel(dialog);
  });
}

// ---- Counts and totals

TEST_F(LayoutEditFields, CountsChangeTheGridWhenTheirFieldIsLeft) {
  m_editor.Cel(0).SetText("残る");
  const double height = m_editor.page.GetAllLengthRow();
  const double width = m_editor.page.GetAllLengthCol();
  CLayoutPageData expected = m_editor.page;
  expected.DividePage(5, 2, kDotsPerMm);
  expected.SetAllLengthRow(height, 0);
  expected.SetAllLengthCol(width, 0);
  m_editor.Run([&](HWND dialog) {
    const std::wstring shownHeight = Text(dialog, kHeight);
    const std::wstring shownWidth = Text(dialog, kWidth);
    const CRect drawn = DrawnArea(dialog, kImage);
    TypeAndLeave(dialog, kRows, L"5");
    TypeAndLeave(dialog, kColumns, L"2");
    EXPECT_EQ(Text(dialog, kHeight), shownHeight);
    EXPECT_EQ(Text(dialog, kWidth), shownWidth);
    EXPECT_EQ(DrawnArea(dialog, kImage), drawn) << "the page is where it was";
    PageOnScreen(dialog, expected).ClickCel(9);
    Confirm(dialog);
  });
  EXPECT_EQ(m_editor.page.GetAllLengthRow(), height);
  EXPECT_EQ(m_editor.page.GetAllLengthCol(), width);
  EXPECT_EQ(m_editor.page.GetNumRow(), 5);
  EXPECT_EQ(m_editor.page.GetNumCol(), 2);
  for (int row = 0; row < 5; ++row) {
    EXPECT_EQ(m_editor.page.GetLengthRow(row), expected.GetLengthRow(row));
  }
  EXPECT_EQ(m_editor.TextOf(0), "残る");
  EXPECT_EQ(m_editor.Selected(), std::vector<int>({9}));
}

TEST_F(LayoutEditFields, NewCountsShareTheLengthsInProportion) {
  m_editor.page.SetLengthRow(0, 30.0);
  m_editor.page.SetLengthRow(1, 10.0);  // 30, 10, 20
  m_editor.Run([](HWND dialog) {
    TypeAndLeave(dialog, kRows, L"2");
    Confirm(dialog);
  });
  EXPECT_EQ(m_editor.page.GetLengthRow(0), 45.0);
  EXPECT_EQ(m_editor.page.GetLengthRow(1), 15.0);
  m_editor.Run([](HWND dialog) {
    TypeAndLeave(dialog, kRows, L"3");
    Confirm(dialog);
  });
  EXPECT_EQ(m_editor.page.GetLengthRow(0), 30.0);
  EXPECT_EQ(m_editor.page.GetLengthRow(1), 10.0);
  EXPECT_EQ(m_editor.page.GetLengthRow(2), 20.0);  // the average
}

TEST_F(LayoutEditFields, CountsAreOneToTwenty) {
  for (const int id : {kRows, kColumns}) {
    for (const wchar_t* text : {L"0", L"21", L"-3"}) {
      EXPECT_NE(Refusal(id, text).find(L"20"), std::wstring::npos) << id;
    }
  }
  m_editor.Run([](HWND dialog) {
    TypeAndLeave(dialog, kRows, L"20");
    TypeAndLeave(dialog, kColumns, L"1");
    Confirm(dialog);
  });
  EXPECT_EQ(m_editor.page.GetNumRow(), 20);
  EXPECT_EQ(m_editor.page.GetNumCol(), 1);
}

TEST_F(LayoutEditFields, TotalsScaleTheLengths) {
  m_editor.page.SetLengthRow(0, 40.0);  // 40, 20, 20
  m_editor.Run([](HWND dialog) {
    EXPECT_EQ(Text(dialog, kHeight), L"80");
    TypeAndLeave(dialog, kHeight, L"(297-20)/4+10.75");  // 80, as it is
    TypeAndLeave(dialog, kHeight, L"２０＊２");
    TypeAndLeave(dialog, kWidth, L"100");
    Confirm(dialog);
  });
  EXPECT_EQ(m_editor.page.GetLengthRow(0), 20.0);
  EXPECT_EQ(m_editor.page.GetLengthRow(1), 10.0);
  EXPECT_EQ(m_editor.page.GetAllLengthRow(), 40.0);
  EXPECT_EQ(m_editor.page.GetLengthCol(3), 25.0);
}

TEST_F(LayoutEditFields, ATotalOfNothingIsLaidOut) {
  m_editor.Run([](HWND dialog) {
    TypeAndLeave(dialog, kWidth, L"0");
    ::UpdateWindow(Control(dialog, kImage));
    Confirm(dialog);
  });
  EXPECT_EQ(m_editor.page.GetAllLengthCol(), 0.0);
}

TEST_F(LayoutEditFields, EqualButtonsSpreadTheTotal) {
  m_editor.page.SetLengthRow(0, 40.0);
  m_editor.page.SetLengthCol(0, 10.0);
  m_editor.Run([](HWND dialog) {
    Press(dialog, kEqualRows);
    Press(dialog, kEqualColumns);
    Confirm(dialog);
  });
  EXPECT_DOUBLE_EQ(m_editor.page.GetLengthRow(0), 80.0 / 3.0);
  EXPECT_EQ(m_editor.page.GetLengthCol(0), 130.0 / 4.0);
}

TEST_F(LayoutEditFields, EqualButtonsDoNotReadTheFields) {
  m_editor.page.SetLengthRow(0, 40.0);
  m_editor.Run([](HWND dialog) {
    ::SetFocus(Control(dialog, IDOK));
    ::SetWindowTextW(Control(dialog, kRows), L"??");
    Press(dialog, kEqualRows);
    EXPECT_EQ(VisibleDialogs().size(), 1U);
    ::SetWindowTextW(Control(dialog, kRows), L"3");
    Confirm(dialog);
  });
  EXPECT_DOUBLE_EQ(m_editor.page.GetLengthRow(0), 80.0 / 3.0);
}

TEST_F(LayoutEditFields, WhatIsNoLengthIsRefused) {
  for (const int id : {kHeight, kWidth, kMargin}) {
    for (const wchar_t* text : {L"-1", L"1/0", L"abc", L"1e400", L""}) {
      EXPECT_NE(Refusal(id, text), L"") << id;
    }
  }
  EXPECT_NE(Refusal(kHeight, L"12x").find(L"12x"), std::wstring::npos);
  EXPECT_EQ(m_editor.page.GetAllLengthRow(), 60.0);
}

TEST_F(LayoutEditFields, EnterAppliesTheFieldThatIsTypedIn) {
  for (const auto& [id, text] : {std::pair(kRows, L"4"), std::pair(kWidth, L"200")}) {
    ModalScript script;
    script.When(Painted(DialogWithControl(kImage)), [&, id = id, text = text](HWND dialog) {
      ReplaceText(Control(dialog, id), text);
      PressKey(Control(dialog, id), VK_RETURN);
    });
    EXPECT_TRUE(m_editor.Run(script));
  }
  EXPECT_EQ(m_editor.page.GetNumRow(), 4);
  EXPECT_EQ(m_editor.page.GetAllLengthCol(), 200.0);
}

TEST_F(LayoutEditFields, OkDropsARefusedNumberAndKeepsTheLastOne) {
  ModalScript script;
  script.When(Painted(DialogWithControl(kImage)), [](HWND dialog) {
    TypeAndLeave(dialog, kRows, L"5");
    ReplaceText(Control(dialog, kRows), L"99");
    PressKey(Control(dialog, kRows), VK_RETURN);
  });
  script.When(MessageBoxShown(), [](HWND box) { Click(box, IDOK); });
  EXPECT_TRUE(m_editor.Run(script));
  EXPECT_EQ(m_editor.page.GetNumRow(), 5);
}

TEST_F(LayoutEditFields, CancellingDoesNotAskAboutAField) {
  for (const bool byMouse : {true, false}) {
    EXPECT_FALSE(m_editor.Run([byMouse](HWND dialog) {
      ReplaceText(Control(dialog, kRows), L"99");
      if (byMouse) {
        Click(dialog, IDCANCEL);
      } else {
        PressKey(Control(dialog, kRows), VK_ESCAPE);
      }
    }));
  }
  EXPECT_EQ(m_editor.page.GetNumRow(), 3);
}

TEST_F(LayoutEditFields, ATextThatIsEditedIsNotLostWhenTheGridChanges) {
  m_editor.Run([&](HWND dialog) {
    PageOnScreen(dialog, m_editor.page).ClickCel(0);
    Command(dialog, IDM_EDIT_TEXT);
    ::SendMessageW(Control(dialog, kCelTextEdit), WM_CHAR, L'a', 0);
    TypeAndLeave(dialog, kRows, L"2");
    EXPECT_EQ(::GetDlgItem(dialog, kCelTextEdit), nullptr);
    Confirm(dialog);
  });
  EXPECT_EQ(m_editor.TextOf(0), "a");
}

TEST_F(LayoutEditFields, APageWithMoreRowsThanOneMakesIsKept) {
  m_editor = LayoutEditor(25, 2, 250.0, 100.0);
  m_editor.Run([](HWND dialog) {
    EXPECT_EQ(Text(dialog, kRows), L"25");
    TypeAndLeave(dialog, kWidth, L"90");
    Confirm(dialog);
  });
  EXPECT_EQ(m_editor.page.GetNumRow(), 25);
  EXPECT_EQ(m_editor.page.GetAllLengthCol(), 90.0);
  EXPECT_NE(Refusal(kRows, L"24"), L"");
}

// ---- Margin and frame

TEST_F(LayoutEditFields, MarginAndFrame) {
  m_editor.page.SetMargin(2.5F);
  m_editor.page.SetShowFrame(0);
  m_editor.page.SetType(1);
  m_editor.Run([](HWND dialog) {
    for (int id = kOuter; id <= 2039; ++id) {
      EXPECT_FALSE(IsShown(dialog, id)) << id;
    }
    for (int id = kMargin; id <= kShowFrame; ++id) {
      EXPECT_TRUE(IsShown(dialog, id)) << id;
    }
    EXPECT_EQ(Text(dialog, kMargin), L"2.5");
    EXPECT_FALSE(IsChecked(dialog, kShowFrame));
    ::SetWindowTextW(Control(dialog, kMargin), L"0.1");
    Press(dialog, kShowFrame);
    Confirm(dialog);
  });
  EXPECT_EQ(m_editor.page.GetMargin(), 0.1F);
  EXPECT_EQ(m_editor.page.GetShowFrame(), 1);
  EXPECT_EQ(m_editor.page.GetType(), 0);
  EXPECT_EQ(m_editor.page.GetByEdgeOutLine(), CLayoutPageData().GetByEdgeOutLine());
}

// ---- Lines

class LayoutEditLines : public LayoutEditFields {
protected:
  LayoutEditLines() {
    m_editor.lineMode = 1;
    const PEN_STATUS outer{.color = RGB(255, 0, 0), .width = 0.35F, .style = 3};
    const PEN_STATUS inner{.color = RGB(0, 0, 255), .width = 2.0F, .style = 1};
    m_editor.page.SetByEdgeOutLine(1);
    m_editor.page.SetByEdgeInLine(0);
    m_editor.page.SetOutLineStatus(&outer);
    m_editor.page.SetInLineStatus(&inner);
    m_editor.page.SetMargin(7.0F);
  }
};

TEST_F(LayoutEditLines, ThePagesLinesAreShown) {
  m_editor.Run([](HWND dialog) {
    for (int id = kMargin; id <= kShowFrame; ++id) {
      EXPECT_FALSE(IsShown(dialog, id)) << id;
    }
    for (int id = kOuter; id <= 2039; ++id) {
      EXPECT_TRUE(IsShown(dialog, id)) << id;
    }
    EXPECT_TRUE(IsChecked(dialog, kOuter));
    EXPECT_FALSE(IsChecked(dialog, kInner));
    EXPECT_EQ(Text(dialog, kOuter + line_field::kType), L"一点鎖線");
    EXPECT_EQ(Text(dialog, kInner + line_field::kType), L"破線");
    EXPECT_EQ(Text(dialog, kOuter + line_field::kColour), L"外側の線の色 赤 255 緑 0 青 0");
    EXPECT_EQ(Text(dialog, kInner + line_field::kColour), L"内側の線の色 赤 0 緑 0 青 255");
    EXPECT_EQ(Text(dialog, kOuter + line_field::kWidth), L"0.35");
    EXPECT_EQ(Text(dialog, kInner + line_field::kWidth), L"2.0");
    Confirm(dialog);
  });
  EXPECT_EQ(m_editor.page.GetType(), 1);
  EXPECT_EQ(m_editor.page.GetOutLineStatus().width, 0.35F);
  EXPECT_EQ(m_editor.page.GetMargin(), 7.0F);
}

TEST_F(LayoutEditLines, TheTypesInTheirOrder) {
  m_editor.Run([](HWND dialog) {
    ExpectLineTypes(dialog, kOuter);
    ExpectLineTypes(dialog, kInner);
    Confirm(dialog);
  });
  EXPECT_EQ(m_editor.page.GetOutLineStatus().style, 5);
  EXPECT_EQ(m_editor.page.GetInLineStatus().style, 5);
}

TEST_F(LayoutEditLines, ALinesFieldsCanBeChangedWhileItIsOn) {
  m_editor.Run([](HWND dialog) {
    for (int part = line_field::kType; part <= line_field::kWidth; ++part) {
      EXPECT_TRUE(IsEnabled(dialog, kOuter + part));
      EXPECT_FALSE(IsEnabled(dialog, kInner + part));
    }
    Press(dialog, kOuter);
    Press(dialog, kInner);
    for (int part = line_field::kType; part <= line_field::kWidth; ++part) {
      EXPECT_FALSE(IsEnabled(dialog, kOuter + part));
      EXPECT_TRUE(IsEnabled(dialog, kInner + part));
    }
    ::SetWindowTextW(Control(dialog, kInner + line_field::kWidth), L"1/4");
    Confirm(dialog);
  });
  EXPECT_EQ(m_editor.page.GetByEdgeOutLine(), 0);
  EXPECT_EQ(m_editor.page.GetByEdgeInLine(), 1);
  EXPECT_EQ(m_editor.page.GetInLineStatus().width, 0.25F);
}

TEST_F(LayoutEditLines, AColourIsAskedFor) {
  constexpr int kBlackButton = 13383;
  ModalScript script;
  script.When(Painted(DialogWithControl(kImage)),
              [](HWND dialog) { Click(dialog, kOuter + line_field::kColour); });
  script.When(Painted(DialogWithControl(kBlackButton)), [](HWND dialog) {
    EXPECT_EQ(Text(dialog), L"色設定");
    Click(dialog, kBlackButton);
    Click(dialog, IDOK);
  });
  std::wstring shown;
  script.When(DialogWithControl(kImage), [&](HWND dialog) {
    shown = Text(dialog, kOuter + line_field::kColour);
    EXPECT_NE(shown, L"赤 255 緑 0 青 0");
    Confirm(dialog);
  });
  EXPECT_TRUE(m_editor.Run(script));
  EXPECT_NE(m_editor.page.GetOutLineStatus().color, RGB(255, 0, 0));
  EXPECT_EQ(m_editor.page.GetInLineStatus().color, RGB(0, 0, 255));
}

TEST_F(LayoutEditLines, AStyleThatTheListLacksStays) {
  const PEN_STATUS unknown{.color = 0, .width = 1.0F, .style = 9};
  m_editor.page.SetInLineStatus(&unknown);
  m_editor.Run([](HWND dialog) {
    EXPECT_EQ(Text(dialog, kInner + line_field::kType), L"");
    Confirm(dialog);
  });
  EXPECT_EQ(m_editor.page.GetInLineStatus().style, 9);
}

TEST_F(LayoutEditLines, CancelChangesNothing) {
  m_editor.Run([](HWND dialog) {
    Press(dialog, kInner);
    TypeAndLeave(dialog, kRows, L"1");
    Cancel(dialog);
  });
  EXPECT_EQ(m_editor.page.GetByEdgeInLine(), 0);
  EXPECT_EQ(m_editor.page.GetType(), CLayoutPageData().GetType());
  EXPECT_EQ(m_editor.page.GetNumRow(), 3);
}

// ---- Files

class LayoutEditFiles : public LayoutEditFields {
protected:
  void Choose(ModalScript& script, UINT command, const char* name) const {
    ChooseFile(script, kImage, command, m_folder.PathOf(name));
  }

  FolderOfPages m_folder;
};

TEST_F(LayoutEditFiles, ASavedPageIsOpenedAgain) {
  CLayoutPageData saved;
  saved.DividePage(2, 5, kDotsPerMm);
  saved.SetAllLengthRow(33.0, 1);
  saved.SetAllLengthCol(99.0, 1);
  saved.GetCelAt(7)->SetText("保存");
  saved.SetMargin(4.0F);
  saved.SetShowFrame(0);
  m_editor.page = saved;
  {
    ModalScript saving;
    Choose(saving, IDM_SAVE_LAYOUT, "page.mtpld");
    saving.When(DialogWithControl(kImage), Cancel);
    EXPECT_FALSE(m_editor.Run(saving));
  }
  ASSERT_TRUE(std::filesystem::exists(m_folder.Path() / "page.mtpld"));

  m_editor = LayoutEditor(3, 4, 60.0, 160.0);
  m_editor.Select({0, 1});
  ModalScript opening;
  Choose(opening, IDM_OPEN_LAYOUT, "page.mtpld");
  opening.When(Painted(DialogWithControl(kImage)), [&](HWND dialog) {
    EXPECT_EQ(Text(dialog, kRows), L"2");
    EXPECT_EQ(Text(dialog, kColumns), L"5");
    EXPECT_EQ(Text(dialog, kHeight), L"33");
    EXPECT_EQ(Text(dialog, kWidth), L"99");
    EXPECT_EQ(Text(dialog, kMargin), L"4");
    EXPECT_FALSE(IsChecked(dialog, kShowFrame));
    PageOnScreen(dialog, saved).ClickCel(8);
    Confirm(dialog);
  });
  EXPECT_TRUE(m_editor.Run(opening));
  EXPECT_EQ(m_editor.page.GetNumCol(), 5);
  EXPECT_EQ(m_editor.TextOf(7), "保存");
  EXPECT_EQ(m_editor.Selected(), std::vector<int>({8}));
}

TEST_F(LayoutEditFiles, SavingWritesWhatTheCommandsChangedAndNotTheMargin) {
  ModalScript script;
  script.When(Painted(DialogWithControl(kImage)), [&](HWND dialog) {
    PageOnScreen(dialog, m_editor.page).ClickCel(0);
    Command(dialog, IDM_ALIGN_BOTTOM);
    Command(dialog, IDM_EDIT_TEXT);
    ::SendMessageW(Control(dialog, kCelTextEdit), WM_CHAR, L'x', 0);
    ::SetWindowTextW(Control(dialog, kMargin), L"9");
  });
  Choose(script, IDM_SAVE_LAYOUT, "page.mtpld");
  script.When(DialogWithControl(kImage), Cancel);
  EXPECT_FALSE(m_editor.Run(script));
  CLayoutPageData saved;
  ASSERT_TRUE(saved.OpenFileW(m_folder.PathOf("page.mtpld").c_str()));
  EXPECT_EQ(saved.GetCelAt(0)->GetFont()->GetVPos(), 2);
  EXPECT_STREQ(saved.GetCelAt(0)->GetText(), "x");
  EXPECT_EQ(saved.GetMargin(), 0.0F);
}

TEST_F(LayoutEditFiles, NothingIsSavedWhileAFieldIsRefused) {
  ModalScript script;
  script.When(Painted(DialogWithControl(kImage)), [](HWND dialog) {
    ::SetWindowTextW(Control(dialog, kMargin), L"x");
    ::PostMessageW(dialog, WM_COMMAND, IDM_SAVE_LAYOUT, 0);
  });
  script.When(MessageBoxShown(), [](HWND box) { Click(box, IDOK); });
  script.When(DialogWithControl(kImage), Cancel);
  EXPECT_FALSE(m_editor.Run(script));
}

TEST_F(LayoutEditFiles, AFileThatIsNoneOfThisKindIsRefused) {
  CLayoutExPageData other;
  ASSERT_TRUE(other.SaveFileW(m_folder.PathOf("other.mtpld").c_str()));
  std::ofstream(m_folder.Path() / "damaged.mtpld") << "damaged";
  for (const char* name : {"other.mtpld", "damaged.mtpld"}) {
    m_editor = LayoutEditor(3, 4, 60.0, 160.0);
    m_editor.Cel(0).SetText("前のまま");
    ModalScript script;
    Choose(script, IDM_OPEN_LAYOUT, name);
    script.When(MessageBoxShown(), [](HWND box) {
      EXPECT_EQ(Text(box, 0xFFFF), L"ﾌｧｲﾙが正常に読み込み出来ません。");
      Click(box, IDOK);
    });
    script.When(DialogWithControl(kImage), [](HWND dialog) {
      EXPECT_EQ(Text(dialog, kColumns), L"4");
      Confirm(dialog);
    });
    EXPECT_TRUE(m_editor.Run(script));
    EXPECT_EQ(m_editor.TextOf(0), "前のまま");
  }
}

TEST_F(LayoutEditFiles, ACancelledFileDialogChangesNothing) {
  for (const UINT command : {IDM_OPEN_LAYOUT, IDM_SAVE_LAYOUT}) {
    ModalScript script;
    script.When(Painted(DialogWithControl(kImage)),
                [command](HWND dialog) { ::PostMessageW(dialog, WM_COMMAND, command, 0); });
    script.When(FileDialogShown(), Cancel);
    script.When(DialogWithControl(kImage), Confirm);
    EXPECT_TRUE(m_editor.Run(script));
  }
  EXPECT_TRUE(std::filesystem::is_empty(m_folder.Path()));
}

// ---- The dialog

TEST_F(LayoutEditFields, ItIsPlacedWhereTheCallerSays) {
  CPoint position(40, 60);
  m_editor.position = &position;
  m_editor.Run([](HWND dialog) {
    EXPECT_EQ(WindowRect(dialog).left, 40);
    EXPECT_EQ(WindowRect(dialog).top, 60);
    Cancel(dialog);
  });
}

TEST_F(LayoutEditFields, TabVisitsTheFieldsInReadingOrder) {
  m_editor.names.Add("図面名");
  m_editor.Select({0});
  m_editor.Run([](HWND dialog) {
    std::vector<int> order;
    for (const HWND control : TabOrder(dialog)) {
      order.push_back(::GetDlgCtrlID(control));
    }
    EXPECT_EQ(order, std::vector<int>({2011, 2022, 2023, 10002, 2024, 10003, 2026, 2029, 2041, 2043,
                                       2042, 2044, 2045, 4029, IDOK, IDCANCEL}));
    EXPECT_EQ(FocusedControlId(dialog), kRows);
    Cancel(dialog);
  });
}

}  // namespace
}  // namespace quorvel::test
