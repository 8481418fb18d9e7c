// Fields, settings, files and the end of the editor of an extended page.
#include "layout/extended_editor.h"
#include "res/ids.h"
#include "support/colour_environment.h"
#include "support/same_page.h"
#include "support/templates.h"

#include <array>
#include <fstream>
#include <string>
#include <vector>

namespace quorvel::test {
namespace {

using namespace extended_editor;

constexpr std::array kUses{kHeaderUse, kListUse, kFooterUse};
constexpr std::array kShownOn{4051, 4052, 4053};
constexpr int kAppend = 4029;
constexpr int kTextColour = 2041;
constexpr int kBackColour = 2042;
constexpr int kOuter = 2030;
constexpr int kInner = 2035;

class LayoutExEditFields : public ExtendedEditorTest {
protected:
  std::wstring Refusal(int id, const wchar_t* text) {
    return RefusalOf(m_editor, kImages[1], id, text);
  }
};

TEST_F(LayoutExEditFields, TheTemplate) {
  m_editor.names.Add("図面名");
  m_editor.hasFields = true;
  Run([](HWND dialog, const PagesOnScreen&) {
    for (const HWND bar : ToolBars(dialog)) {  // which the dialog makes itself
      ::DestroyWindow(bar);
    }
    ExpectTemplate(dialog, L"ﾚｲｱｳﾄ編集", {520, 352}, L"MS Shell Dlg",
                   {{4035, L"Static", L"ﾌｯﾀｰのｲﾒｰｼﾞ", {130, 256, 370, 50}},  // the pictures above their group
                    {4033, L"Static", L"ﾘｽﾄのｲﾒｰｼﾞ", {130, 162, 370, 90}},
                    {4031, L"Static", L"ﾍｯﾀﾞｰのｲﾒｰｼﾞ", {130, 108, 370, 50}},
                    {kNoId, L"Button", L"全体", {8, 6, 504, 52}},
                    {kNoId, L"Static", L"全幅:", {14, 20, 26, 12}},
                    {2024, L"Edit", L"160", {44, 20, 46, 12}},
                    {kNoId, L"Static", L"mm", {93, 20, 14, 12}},
                    {10003, L"Button", L"列幅均等", {110, 19, 44, 14}},
                    {kNoId, L"Static", L"列数:", {158, 20, 28, 12}},
                    {2022, L"Edit", L"4", {190, 20, 28, 12}},
                    {4051, L"Button", L"先頭頁", {20, 38, 42, 12}},
                    {4052, L"Button", L"中間頁", {66, 38, 42, 12}},
                    {4053, L"Button", L"末尾頁", {112, 38, 42, 12}},
                    {kNoId, L"Static", L"ｵﾌｾｯﾄ:", {158, 38, 28, 12}},
                    {4045, L"Edit", L"1", {190, 38, 28, 12}},
                    {2030, L"Button", L"外側", {240, 20, 34, 12}},
                    {2031, L"ComboBox", L"実線", {278, 20, 74, 110}},
                    {2032, L"Button", L"外側の線の色 赤 0 緑 0 青 0", {358, 20, 16, 12}},
                    {2033, L"Edit", L"0.1", {380, 20, 40, 12}},
                    {2034, L"Static", L"mm", {423, 20, 14, 12}},
                    {2035, L"Button", L"内側", {240, 38, 34, 12}},
                    {2036, L"ComboBox", L"実線", {278, 38, 74, 110}},
                    {2037, L"Button", L"内側の線の色 赤 0 緑 0 青 0", {358, 38, 16, 12}},
                    {2038, L"Edit", L"0.1", {380, 38, 40, 12}},
                    {2039, L"Static", L"mm", {423, 38, 14, 12}},
                    {kNoId, L"Button", L"ﾚｲｱｳﾄｲﾒｰｼﾞ", {8, 62, 504, 258}},
                    {2041, L"Button", L"文字の色 赤 0 緑 0 青 0", {220, 77, 12, 10}},
                    {2043, L"Button", L"文字の色を選ぶ", {232, 77, 6, 10}},
                    {2042, L"Button", L"背景の色 赤 255 緑 255 青 255", {242, 77, 12, 10}},
                    {2044, L"Button", L"背景の色を選ぶ", {254, 77, 6, 10}},
                    {2045, L"ComboBox", L"", {270, 76, 100, 272}},
                    {4029, L"Button", L"追加", {376, 76, 30, 12}},
                    {4030, L"Button", L"ﾌｨｰﾙﾄﾞ", {412, 76, 40, 12}},
                    {4044, L"Edit", L"", {20, 92, 480, 12}},
                    {4032, L"Button", L"ﾍｯﾀﾞｰ", {20, 108, 60, 12}},
                    {kNoId, L"Static", L"高さ:", {20, 122, 24, 12}},
                    {4037, L"Edit", L"10.0", {48, 122, 40, 12}},
                    {kNoId, L"Static", L"mm", {91, 122, 14, 12}},
                    {kNoId, L"Static", L"行数:", {20, 138, 24, 12}},
                    {4038, L"Edit", L"1", {48, 138, 24, 12}},
                    {10004, L"Button", L"行高均等", {78, 137, 44, 14}},
                    {4034, L"Button", L"ﾘｽﾄ", {20, 162, 60, 12}},
                    {kNoId, L"Static", L"高さ:", {20, 176, 24, 12}},
                    {4040, L"Edit", L"50.0", {48, 176, 40, 12}},
                    {kNoId, L"Static", L"mm", {91, 176, 14, 12}},
                    {kNoId, L"Static", L"行数:", {20, 192, 24, 12}},
                    {4039, L"Edit", L"3", {48, 192, 24, 12}},
                    {10005, L"Button", L"行高均等", {78, 191, 44, 14}},
                    {kNoId, L"Static", L"回数:", {20, 208, 24, 12}},
                    {4041, L"Edit", L"1", {48, 208, 24, 12}},
                    {4036, L"Button", L"ﾌｯﾀｰ", {20, 256, 60, 12}},
                    {kNoId, L"Static", L"高さ:", {20, 270, 24, 12}},
                    {4043, L"Edit", L"10.0", {48, 270, 40, 12}},
                    {kNoId, L"Static", L"mm", {91, 270, 14, 12}},
                    {kNoId, L"Static", L"行数:", {20, 286, 24, 12}},
                    {4042, L"Edit", L"2", {48, 286, 24, 12}},
                    {10006, L"Button", L"行高均等", {78, 285, 44, 14}},
                    {IDOK, L"Button", L"OK", {406, 329, 50, 14}},
                    {IDCANCEL, L"Button", L"キャンセル", {462, 329, 50, 14}}});
    Cancel(dialog);
  });
}

TEST_F(LayoutExEditFields, TabVisitsTheFieldsInReadingOrder) {
  m_editor.names.Add("図面名");
  m_editor.hasFields = true;
  m_editor.page.SetByEdgeOutLine(1);
  m_editor.page.SetByEdgeInLine(0);
  Run([](HWND dialog, const PagesOnScreen& pages) {
    pages.ClickCel(1, 0);
    std::vector<int> order;
    for (const HWND control : TabOrder(dialog)) {
      order.push_back(::GetDlgCtrlID(control));
    }
    EXPECT_EQ(order, std::vector<int>({2024, 10003, 2022, 4051,  4052, 4053,  4045, 2030,
                                       2031, 2032,  2033, 2035,  2041, 2043,  2042, 2044,
                                       2045, 4029,  4030, 4044,  4032, 4037,  4038, 10004,
                                       4034, 4040,  4039, 10005, 4041, 4036,  4043, 4042,
                                       10006, IDOK, IDCANCEL}));
    Cancel(dialog);
  });
}

// ---- Sizes

TEST_F(LayoutExEditFields, RowsAreOneToFiveAndColumnsOneToTwenty) {
  for (const int id : kRows) {
    for (const wchar_t* text : {L"0", L"6", L"-1"}) {
      EXPECT_NE(Refusal(id, text).find(L'5'), std::wstring::npos) << id;
    }
  }
  for (const wchar_t* text : {L"0", L"21"}) {
    EXPECT_NE(Refusal(kColumns, text).find(L"20"), std::wstring::npos);
  }
  Run([](HWND dialog, const PagesOnScreen&) {
    for (const int id : kRows) {
      TypeAndLeave(dialog, id, L"5");
    }
    TypeAndLeave(dialog, kColumns, L"20");
    TypeAndLeave(dialog, kRows[0], L"1");
    Confirm(dialog);
  });
  EXPECT_EQ(m_editor.page.GetNumRow(kHeader), 1);
  EXPECT_EQ(m_editor.page.GetNumRow(kList), 5);
  EXPECT_EQ(m_editor.page.GetNumRow(kFooter), 5);
  EXPECT_EQ(m_editor.page.GetNumCol(), 20);
}

TEST_F(LayoutExEditFields, RepeatsAndOffsetHaveTheirRanges) {
  for (const wchar_t* text : {L"0", L"201"}) {
    EXPECT_NE(Refusal(kRepeat, text).find(L"200"), std::wstring::npos);
  }
  for (const wchar_t* text : {L"0", L"1001"}) {
    EXPECT_NE(Refusal(kOffset, text).find(L"1000"), std::wstring::npos);
  }
  Run([](HWND dialog, const PagesOnScreen&) {
    TypeAndLeave(dialog, kRepeat, L"200");
    TypeAndLeave(dialog, kOffset, L"1000");
    Confirm(dialog);
  });
  EXPECT_EQ(m_editor.page.GetRepeatRow(), 200);
  EXPECT_EQ(m_editor.page.GetStIndex(), 1000);
}

TEST_F(LayoutExEditFields, ColumnsAreThoseOfAllBlocks) {
  for (const auto block : kBlocks) {
    m_editor.Cel(block, 0).SetText("残る");
  }
  Run([&](HWND dialog, const PagesOnScreen&) {
    TypeAndLeave(dialog, kColumns, L"7");
    CLayoutExPageData expected = m_editor.page;
    for (const auto block : kBlocks) {
      expected.DividePage(block, expected.GetNumRow(block), 7, kDotsPerMm);
    }
    expected.SetAllLengthCol(160.0F, 0);
    EXPECT_EQ(Text(dialog, kWidth), L"160");
    // Each picture has its new cells at once.
    const PagesOnScreen pages(dialog, expected);
    for (int block = 0; block < 3; ++block) {
      pages.ClickCel(block, 6);
      Type(Control(dialog, kTextLine), L'z');
    }
    Confirm(dialog);
  });
  for (const auto block : kBlocks) {
    EXPECT_EQ(m_editor.page.GetCelSize(block), m_editor.page.GetNumRow(block) * 7);
    EXPECT_EQ(m_editor.TextOf(block, 0), "残る");
    EXPECT_EQ(m_editor.TextOf(block, 6), "z");
  }
  EXPECT_EQ(m_editor.page.GetAllLengthCol(), 160.0F);
}

TEST_F(LayoutExEditFields, NewRowsShareTheHeightOfTheirBlock) {
  m_editor.page.SetLengthRow(kFooter, 0, 15.0F);  // 15, 5
  Run([](HWND dialog, const PagesOnScreen&) {
    const CRect drawn = DrawnArea(dialog, 4035);
    TypeAndLeave(dialog, kRows[2], L"3");
    EXPECT_EQ(Text(dialog, kHeights[2]), L"20.0");
    EXPECT_EQ(DrawnArea(dialog, 4035), drawn);
    Confirm(dialog);
  });
  EXPECT_EQ(m_editor.page.GetAllLengthRow(kFooter), 20.0F);
  EXPECT_EQ(m_editor.page.GetLengthRow(kFooter, 0), 10.0F);
}

TEST_F(LayoutExEditFields, ABlockWithoutRowsTakesTheHeightOfItsFirst) {
  m_editor.page.DividePage(kHeader, 0, m_editor.page.GetNumCol(), kDotsPerMm);
  ASSERT_EQ(m_editor.page.GetAllLengthRow(kHeader), 0.0F);
  Run([](HWND dialog, const PagesOnScreen&) {
    TypeAndLeave(dialog, kRows[0], L"2");
    EXPECT_EQ(Text(dialog, kHeights[0]), L"20.0");
    Confirm(dialog);
  });
  EXPECT_EQ(m_editor.page.GetAllLengthRow(kHeader), 20.0F);
}

TEST_F(LayoutExEditFields, HeightsScaleTheRowsOfTheirBlock) {
  m_editor.page.SetLengthRow(kFooter, 0, 15.0F);  // 15, 5
  Run([](HWND dialog, const PagesOnScreen&) {
    EXPECT_EQ(Text(dialog, kHeights[0]), L"10.0");  // at least one decimal
    EXPECT_EQ(Text(dialog, kHeights[2]), L"20.0");
    EXPECT_EQ(Text(dialog, kWidth), L"160");
    TypeAndLeave(dialog, kHeights[2], L"２０＊２");
    Confirm(dialog);
  });
  EXPECT_EQ(m_editor.page.GetLengthRow(kFooter, 0), 30.0F);
  EXPECT_EQ(m_editor.page.GetLengthRow(kFooter, 1), 10.0F);
  EXPECT_EQ(m_editor.page.GetAllLengthRow(kHeader), 10.0F);
}

TEST_F(LayoutExEditFields, EqualButtonsAreForTheirBlockAndReadNoField) {
  m_editor.page.SetLengthRow(kList, 0, 30.0F);
  m_editor.page.SetLengthRow(kFooter, 0, 15.0F);
  m_editor.page.SetLengthCol(0, 10.0F);
  const float total = m_editor.page.GetAllLengthRow(kList);
  Run([](HWND dialog, const PagesOnScreen&) {
    ::SetFocus(Control(dialog, IDOK));
    ::SetWindowTextW(Control(dialog, kColumns), L"??");
    Press(dialog, kEqual[1]);
    Press(dialog, 10003);
    EXPECT_EQ(VisibleDialogs().size(), 1U);
    ::SetWindowTextW(Control(dialog, kColumns), L"4");
    Confirm(dialog);
  });
  for (int row = 0; row < 3; ++row) {
    EXPECT_FLOAT_EQ(m_editor.page.GetLengthRow(kList, row), total / 3);
  }
  EXPECT_EQ(m_editor.page.GetLengthRow(kFooter, 0), 15.0F);
  for (int col = 0; col < 4; ++col) {
    EXPECT_EQ(m_editor.page.GetLengthCol(col), 130.0F / 4);
  }
}

TEST_F(LayoutExEditFields, EachEqualButtonIsOfItsBlock) {
  for (std::size_t i = 0; i < kBlocks.size(); ++i) {
    m_editor = ExtendedEditor();
    for (const auto block : kBlocks) {
      m_editor.page.DividePage(block, 2, 4, kDotsPerMm);
      m_editor.page.SetLengthRow(block, 0, 30.0F);
      m_editor.page.SetLengthRow(block, 1, 10.0F);
    }
    Run([&](HWND dialog, const PagesOnScreen&) {
      Press(dialog, kEqual[i]);
      Confirm(dialog);
    });
    for (std::size_t other = 0; other < kBlocks.size(); ++other) {
      EXPECT_EQ(m_editor.page.GetLengthRow(kBlocks[other], 0), other == i ? 20.0F : 30.0F);
    }
  }
}

TEST_F(LayoutExEditFields, WhatIsNoLengthIsRefused) {
  for (const int id : {kWidth, kHeights[0], kHeights[1], kHeights[2]}) {
    EXPECT_NE(Refusal(id, L"12x").find(L"12x"), std::wstring::npos) << id;
    EXPECT_NE(Refusal(id, L"-1"), L"") << id;
  }
}

TEST_F(LayoutExEditFields, OkDropsARefusedNumberAndKeepsTheLastOne) {
  for (const auto& [id, text] : {std::pair(kRows[1], L"9"), std::pair(kRepeat, L"500")}) {
    ModalScript script;
    script.When(EditorShown(), [&, id = id, text = text](HWND dialog) {
      TypeAndLeave(dialog, id, L"4", kWidth);
      ReplaceText(Control(dialog, id), text);
      PressKey(Control(dialog, id), VK_RETURN);
    });
    script.When(MessageBoxShown(), [](HWND box) { Click(box, IDOK); });
    EXPECT_TRUE(m_editor.Run(script));
  }
  EXPECT_EQ(m_editor.page.GetNumRow(kList), 4);
  EXPECT_EQ(m_editor.page.GetRepeatRow(), 4);
}

TEST_F(LayoutExEditFields, AClickOnOkRefusesWhatOnlyOkStoresOnce) {
  ModalScript script;
  script.When(EditorShown(), [](HWND dialog) {
    ::SetFocus(Control(dialog, kRepeat));
    ::SetWindowTextW(Control(dialog, kRepeat), L"201");
    ::PostMessageW(Control(dialog, IDOK), BM_CLICK, 0, 0);
  });
  script.When(MessageBoxShown(), [](HWND box) { Click(box, IDOK); });
  EXPECT_TRUE(m_editor.Run(script));
  EXPECT_EQ(m_editor.page.GetRepeatRow(), 1);
}

TEST_F(LayoutExEditFields, EnterAppliesTheFieldThatIsTypedIn) {
  ModalScript script;
  script.When(EditorShown(), [](HWND dialog) {
    ReplaceText(Control(dialog, kColumns), L"6");
    PressKey(Control(dialog, kColumns), VK_RETURN);
  });
  EXPECT_TRUE(m_editor.Run(script));
  EXPECT_EQ(m_editor.page.GetNumCol(), 6);
}

// ---- What is used and shown

TEST_F(LayoutExEditFields, EachUseEnablesTheFieldsOfItsBlock) {
  Run([](HWND dialog, const PagesOnScreen&) {
    for (std::size_t i = 0; i < kUses.size(); ++i) {
      std::vector<int> own{kHeights[i], kRows[i], kEqual[i]};
      if (i == 1) {
        own.push_back(kRepeat);
      }
      for (const bool used : {false, true}) {
        Press(dialog, kUses[i]);
        for (const int id : own) {
          EXPECT_EQ(IsEnabled(dialog, id), used) << id;
        }
        for (std::size_t other = 0; other < kUses.size(); ++other) {
          EXPECT_EQ(IsEnabled(dialog, kHeights[other]), used || other != i);
        }
        EXPECT_TRUE(IsEnabled(dialog, kOffset));
      }
    }
    Cancel(dialog);
  });
}

TEST_F(LayoutExEditFields, AFieldThatIsRefusedStaysToBeMended) {
  ModalScript script;
  script.When(EditorShown(), [](HWND dialog) {
    ::SetFocus(Control(dialog, kListUse));
    ::SetWindowTextW(Control(dialog, kRows[1]), L"99");
    Click(dialog, kListUse);
  });
  script.When(MessageBoxShown(), [](HWND box) { Click(box, IDOK); });
  script.When(Focused(kImages[1], kRows[1]), [](HWND dialog) {
    EXPECT_TRUE(IsEnabled(dialog, kRows[1]));
    TypeAndLeave(dialog, kRows[1], L"2");
    EXPECT_FALSE(IsEnabled(dialog, kRows[1]));
    Confirm(dialog);
  });
  EXPECT_TRUE(m_editor.Run(script));
  EXPECT_EQ(m_editor.page.GetUse(kList), 0);
  EXPECT_EQ(m_editor.page.GetNumRow(kList), 2);
}

TEST_F(LayoutExEditFields, ThePagesOnWhichTheListIsShown) {
  for (int kind = 0; kind < 3; ++kind) {
    for (int each = 0; each < 3; ++each) {
      m_editor.page.SetListShowByPage(each, each == kind ? 1 : 0);
    }
    Run([&](HWND dialog, const PagesOnScreen&) {
      for (int each = 0; each < 3; ++each) {
        EXPECT_EQ(IsChecked(dialog, kShownOn[static_cast<std::size_t>(each)]), each == kind);
        Press(dialog, kShownOn[static_cast<std::size_t>(each)]);
      }
      Confirm(dialog);
    });
    for (int each = 0; each < 3; ++each) {
      EXPECT_EQ(m_editor.page.GetListShowByPage(each), each == kind ? 0 : 1);
    }
  }
}

// ---- Lines

TEST_F(LayoutExEditFields, TheLinesOfThePage) {
  const PEN_STATUS outer{.color = RGB(255, 0, 0), .width = 0.35F, .style = 3};
  const PEN_STATUS inner{.color = RGB(0, 0, 255), .width = 2.0F, .style = 1};
  m_editor.page.SetByEdgeOutLine(1);
  m_editor.page.SetByEdgeInLine(0);
  m_editor.page.SetOutLineStatus(&outer);
  m_editor.page.SetInLineStatus(&inner);
  Run([](HWND dialog, const PagesOnScreen&) {
    EXPECT_TRUE(IsChecked(dialog, kOuter));
    EXPECT_FALSE(IsChecked(dialog, kInner));
    EXPECT_EQ(Text(dialog, kOuter + line_field::kType), L"一点鎖線");
    EXPECT_EQ(Text(dialog, kInner + line_field::kType), L"破線");
    EXPECT_EQ(Text(dialog, kOuter + line_field::kColour), L"外側の線の色 赤 255 緑 0 青 0");
    EXPECT_EQ(Text(dialog, kInner + line_field::kColour), L"内側の線の色 赤 0 緑 0 青 255");
    EXPECT_EQ(Text(dialog, kOuter + line_field::kWidth), L"0.35");
    EXPECT_EQ(Text(dialog, kInner + line_field::kWidth), L"2.0");
    for (const int line : {kOuter, kInner}) {
      ExpectLineTypes(dialog, line);
      ChooseItem(dialog, line + line_field::kType, line == kOuter ? 4 : 2);
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
  EXPECT_EQ(m_editor.page.GetOutLineStatus().style, 4);
  EXPECT_EQ(m_editor.page.GetOutLineStatus().color, RGB(255, 0, 0));
  EXPECT_EQ(m_editor.page.GetOutLineStatus().width, 0.35F);
  EXPECT_EQ(m_editor.page.GetInLineStatus().style, 2);
  EXPECT_EQ(m_editor.page.GetInLineStatus().width, 0.25F);
}

TEST_F(LayoutExEditFields, AColourOfALineIsAskedFor) {
  constexpr int kBlackButton = 13383;
  const COLORREF before = m_editor.page.GetInLineStatus().color;
  const PEN_STATUS red{.color = RGB(255, 0, 0), .width = 1.0F, .style = 0};
  m_editor.page.SetInLineStatus(&red);
  m_editor.page.SetByEdgeInLine(1);
  ModalScript script;
  script.When(EditorShown(), [](HWND dialog) { Click(dialog, kInner + line_field::kColour); });
  script.When(Painted(DialogWithControl(kBlackButton)), [](HWND dialog) {
    Click(dialog, kBlackButton);
    Click(dialog, IDOK);
  });
  script.When(EditorShown(), Confirm);
  EXPECT_TRUE(m_editor.Run(script));
  EXPECT_NE(m_editor.page.GetInLineStatus().color, RGB(255, 0, 0));
  EXPECT_EQ(m_editor.page.GetOutLineStatus().color, before);
}

// ---- Settings

struct Stored {
  COLORREF text = 0x00123456;
  COLORREF back = 0x00123456;
  int append = 7;
};

Stored ReadStored() {
  Stored stored;
  const CKivRegistry registry = CKivSysEnv(ColourEnvironment::kKey).GetRegistry("LayoutExEdit");
  registry.ReadRegistry("TextColor", &stored.text, sizeof stored.text);
  registry.ReadRegistry("BackColor", &stored.back, sizeof stored.back);
  registry.ReadRegistry("MacroIns", &stored.append, sizeof stored.append);
  return stored;
}

TEST_F(LayoutExEditFields, SettingsAreReadAndKeptHoweverItEnds) {
  ColourEnvironment environment;
  m_editor.env = &environment.Env();
  m_editor.names.Add("図面名");
  for (const bool confirms : {true, false}) {
    CKivRegistry registry = environment.Env().GetRegistry("LayoutExEdit");
    const COLORREF green = RGB(0, 255, 0);
    const COLORREF grey = RGB(9, 9, 9);
    const int append = 1;
    registry.WriteRegistry("TextColor", REG_BINARY, &green, sizeof green);
    registry.WriteRegistry("BackColor", REG_BINARY, &grey, sizeof grey);
    registry.WriteRegistry("MacroIns", REG_BINARY, &append, sizeof append);
    Run([&](HWND dialog, const PagesOnScreen&) {
      EXPECT_EQ(Text(dialog, kTextColour), L"文字の色 赤 0 緑 255 青 0");
      EXPECT_EQ(Text(dialog, kBackColour), L"背景の色 赤 9 緑 9 青 9");
      EXPECT_TRUE(IsChecked(dialog, kAppend));
      Press(dialog, kAppend);
      confirms ? Confirm(dialog) : Cancel(dialog);
    });
    EXPECT_EQ(ReadStored().text, green);
    EXPECT_EQ(ReadStored().back, grey);
    EXPECT_EQ(ReadStored().append, 0);
  }
}

TEST_F(LayoutExEditFields, TheFirstSettingsAreBlackOnWhiteAndReplacing) {
  ColourEnvironment environment;
  m_editor.env = &environment.Env();
  Run([](HWND dialog, const PagesOnScreen&) {
    EXPECT_EQ(Text(dialog, kTextColour), L"文字の色 赤 0 緑 0 青 0");
    EXPECT_EQ(Text(dialog, kBackColour), L"背景の色 赤 255 緑 255 青 255");
    EXPECT_FALSE(IsChecked(dialog, kAppend));
    Cancel(dialog);
  });
}

TEST_F(LayoutExEditFields, AnOkThatOnlyTakesTheTextStoresTheSettingsToo) {
  ColourEnvironment environment;
  m_editor.env = &environment.Env();
  m_editor.names.Add("図面名");
  Run([](HWND dialog, const PagesOnScreen& pages) {
    pages.ClickCel(1, 0);
    Press(dialog, kAppend);
    Type(Control(dialog, kTextLine), L'a');
    Command(dialog, IDOK);
    EXPECT_EQ(ReadStored().append, 1);
    Cancel(dialog);
  });
}

// ---- Files

class LayoutExEditFiles : public LayoutExEditFields {
protected:
  void Choose(ModalScript& script, UINT command, const char* name) const {
    ChooseFile(script, kImages[1], command, m_folder.PathOf(name));
  }

  FolderOfPages m_folder;
};

TEST_F(LayoutExEditFiles, ASavedPageIsOpenedAgain) {
  m_editor.Cel(kFooter, 7).SetText("保存");
  m_editor.page.SetUse(kHeader, 0);
  m_editor.page.SetRepeatRow(9);
  m_editor.page.SetStIndex(8);
  m_editor.page.SetListShowByPage(1, 0);
  m_editor.page.SetByEdgeInLine(1);
  m_editor.page.SetAllLengthRow(kList, 33.0F, 0);
  const CLayoutExPageData saved = m_editor.page;
  {
    ModalScript saving;
    Choose(saving, IDM_SAVE_LAYOUT, "page.mtpld2");
    saving.When(EditorShown(), Cancel);
    EXPECT_FALSE(m_editor.Run(saving));
  }
  ASSERT_TRUE(std::filesystem::exists(m_folder.Path() / "page.mtpld2"));

  m_editor = ExtendedEditor();
  m_editor.page.DividePage(kList, 2, 3, kDotsPerMm);
  m_editor.page.SetByEdgeInLine(0);
  ModalScript opening;
  opening.When(EditorShown(), [&](HWND dialog) {
    Pages(dialog).ClickCel(1, 0);
    Type(Control(dialog, kTextLine), L'a');
  });
  Choose(opening, IDM_OPEN_LAYOUT, "page.mtpld2");
  opening.When(EditorShown(), [&](HWND dialog) {
    EXPECT_EQ(Text(dialog, kColumns), L"4");
    EXPECT_EQ(Text(dialog, kRows[1]), L"3");
    EXPECT_EQ(Text(dialog, kHeights[1]), L"33.0");
    EXPECT_EQ(Text(dialog, kRepeat), L"9");
    EXPECT_EQ(Text(dialog, kOffset), L"8");
    EXPECT_EQ(Text(dialog, kTextLine), L"");
    EXPECT_FALSE(IsChecked(dialog, kHeaderUse));
    EXPECT_FALSE(IsEnabled(dialog, kRows[0]));
    EXPECT_FALSE(IsChecked(dialog, kShownOn[1]));
    EXPECT_TRUE(IsChecked(dialog, kInner));
    EXPECT_TRUE(IsEnabled(dialog, kInner + line_field::kType));
    EXPECT_EQ(EnabledTools(dialog), std::vector<int>());
    PagesOnScreen(dialog, saved).ClickCel(2, 7);
    EXPECT_EQ(Text(dialog, kTextLine), L"保存");
    Confirm(dialog);
  });
  EXPECT_TRUE(m_editor.Run(opening));
  EXPECT_TRUE(IsSamePage(m_editor.page, saved));
}

TEST_F(LayoutExEditFiles, SavingWritesWhatTheCommandsChanged) {
  ModalScript script;
  script.When(EditorShown(), [&](HWND dialog) {
    Pages(dialog).ClickCel(1, 0);
    Type(Control(dialog, kTextLine), L'x');
    Command(dialog, IDM_ALIGN_BOTTOM);
    ::SetWindowTextW(Control(dialog, kRepeat), L"77");
  });
  Choose(script, IDM_SAVE_LAYOUT, "page.mtpld2");
  script.When(EditorShown(), Cancel);
  EXPECT_FALSE(m_editor.Run(script));
  CLayoutExPageData saved;
  ASSERT_TRUE(saved.OpenFileW(m_folder.PathOf("page.mtpld2").c_str()));
  EXPECT_STREQ(saved.GetCelAt(kList, 0)->GetText(), "x");
  EXPECT_EQ(saved.GetCelAt(kList, 0)->GetFont()->GetVPos(), 2);
  EXPECT_NE(saved.GetRepeatRow(), 77);
}

TEST_F(LayoutExEditFiles, NothingIsSavedWhileAFieldIsRefused) {
  ModalScript script;
  script.When(EditorShown(), [](HWND dialog) {
    ::SetWindowTextW(Control(dialog, kOffset), L"x");
    ::PostMessageW(dialog, WM_COMMAND, IDM_SAVE_LAYOUT, 0);
  });
  script.When(MessageBoxShown(), [](HWND box) { Click(box, IDOK); });
  script.When(EditorShown(), Cancel);
  EXPECT_FALSE(m_editor.Run(script));
}

TEST_F(LayoutExEditFiles, AFileThatIsNoneOfThisKindIsRefused) {
  CLayoutPageData other;
  ASSERT_TRUE(other.SaveFileW(m_folder.PathOf("other.mtpld2").c_str()));
  std::ofstream(m_folder.Path() / "damaged.mtpld2") << "damaged";
  for (const char* name : {"other.mtpld2", "damaged.mtpld2"}) {
    m_editor = ExtendedEditor();
    m_editor.Cel(kList, 0).SetText("前のまま");
    ModalScript script;
    Choose(script, IDM_OPEN_LAYOUT, name);
    script.When(MessageBoxShown(), [](HWND box) {
      EXPECT_EQ(Text(box, 0xFFFF), L"ﾌｧｲﾙが正常に読み込み出来ません。");
      Click(box, IDOK);
    });
    script.When(EditorShown(), Confirm);
    EXPECT_TRUE(m_editor.Run(script));
    EXPECT_EQ(m_editor.TextOf(kList, 0), "前のまま");
  }
}

TEST_F(LayoutExEditFiles, TheFileDialogShowsItsKindOfFiles) {
  constexpr int kKindOfFiles = 1136;
  for (const UINT command : {IDM_OPEN_LAYOUT, IDM_SAVE_LAYOUT}) {
    ModalScript script;
    script.When(EditorShown(),
                [command](HWND dialog) { ::PostMessageW(dialog, WM_COMMAND, command, 0); });
    script.When(FileDialogShown(), [](HWND dialog) {
      EXPECT_EQ(Text(dialog, kKindOfFiles), L"ﾐﾙﾄﾗｽ 印刷ﾚｲｱｳﾄﾌｧｲﾙ (*.mtpld2)");
      Cancel(dialog);
    });
    script.When(EditorShown(), Confirm);
    EXPECT_TRUE(m_editor.Run(script));
  }
  EXPECT_TRUE(std::filesystem::is_empty(m_folder.Path()));
}

// ---- The dialog

TEST_F(LayoutExEditFields, ItIsPlacedWhereTheCallerSays) {
  CPoint position(40, 60);
  m_editor.position = &position;
  Run([](HWND dialog, const PagesOnScreen&) {
    EXPECT_EQ(WindowRect(dialog).left, 40);
    EXPECT_EQ(WindowRect(dialog).top, 60);
    Cancel(dialog);
  });
}

TEST_F(LayoutExEditFields, OkWithoutAChangeLeavesThePageAsItWas) {
  m_editor.Cel(kList, 3).SetText("a");
  const CLayoutExPageData before = m_editor.page;
  Run([](HWND dialog, const PagesOnScreen&) { Confirm(dialog); });
  EXPECT_TRUE(IsSamePage(m_editor.page, before));
}

TEST_F(LayoutExEditFields, CancelLeavesThePageAsItWas) {
  m_editor.Cel(kList, 3).SetText("a");
  m_editor.Cel(kList, 3).SetSelected(1);
  const CLayoutExPageData before = m_editor.page;
  Run([](HWND dialog, const PagesOnScreen& pages) {
    pages.DragCels(2, 0, 5);
    Command(dialog, IDM_MERGE_CELLS);
    Command(dialog, IDM_INSERT_ROW);
    Press(dialog, kHeaderUse);
    TypeAndLeave(dialog, kWidth, L"99");
    Cancel(dialog);
  });
  EXPECT_TRUE(IsSamePage(m_editor.page, before));
}

}  // namespace
}  // namespace quorvel::test
