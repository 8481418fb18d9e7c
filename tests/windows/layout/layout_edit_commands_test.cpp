// Tool bars, menu and commands of the layout editor.
#include "layout/layout_editor.h"
#include "res/ids.h"
#include "support/colour_environment.h"

#include <array>
#include <functional>
#include <string>
#include <vector>

namespace quorvel::test {
namespace {

using layout_editor::kImage;
using Cels = std::vector<int>;

constexpr int kTextColour = 2041;
constexpr int kBackColour = 2042;
constexpr int kTextArrow = 2043;
constexpr int kBackArrow = 2044;
constexpr int kInsertion = 2045;
constexpr int kAppend = 4029;
constexpr int kColourTabs = 1000;
constexpr int kRedField = 110;
constexpr int kFontSample = 1136;  // the list of faces
constexpr int kFontVertical = 2007;

const std::vector<int> kAlways{31000, 31001, 31002, 31003, 31004, 31005, 31006, 31007};

std::vector<int> AlwaysAnd(int command) {
  std::vector<int> commands = kAlways;
  commands.push_back(command);
  return commands;
}

class LayoutEditCommands : public ::testing::Test {
protected:
  /// 3 x 4 cells of 20 x 40 mm.
  LayoutEditor m_editor{3, 4, 60.0, 160.0};

  BOOL Run(const std::function<void(HWND, const PageOnScreen&)>& action) {
    return m_editor.Run([&](HWND dialog) { action(dialog, {dialog, m_editor.page}); });
  }
};

// ---- Tool bars

TEST_F(LayoutEditCommands, TheToolBarsHaveTheirButtons) {
  Run([](HWND dialog, const PageOnScreen&) {
    const std::vector<HWND> bars = ToolBars(dialog);
    ASSERT_EQ(bars.size(), 2U);
    const std::vector<ToolButton> cellTools{{31000, 0}, {31001, 1}, {}, {31002, 2},
                                            {31003, 3}, {31004, 4}, {}, {31005, 5},
                                            {31006, 6}, {31007, 7}, {}, {31009, 9},
                                            {31010, 10}};
    EXPECT_EQ(ToolButtons(bars[0]), cellTools);
    EXPECT_EQ(ToolButtons(bars[1]), std::vector<ToolButton>({{31011, 0}, {31012, 1}}));
    ExpectToolTips(dialog);
    for (const HWND bar : bars) {
      EXPECT_EQ(::GetWindowLongPtrW(bar, GWL_STYLE) & 0x50000944, 0x50000944);
    }
    const RECT image = ClientRectOf(Control(dialog, kImage));
    const RECT cells = ClientRectOf(bars[0]);
    const RECT file = ClientRectOf(bars[1]);
    EXPECT_EQ(cells.left, image.left);
    EXPECT_EQ(cells.top, image.top - 24);
    EXPECT_EQ(file.left, image.right - 48);
    EXPECT_EQ(file.top, image.top - 24);
    Cancel(dialog);
  });
}

TEST_F(LayoutEditCommands, WhatIsPossibleDependsOnTheSelection) {
  Run([](HWND dialog, const PageOnScreen& page) {
    EXPECT_EQ(EnabledTools(dialog), std::vector<int>());
    page.ClickCel(5);
    EXPECT_EQ(EnabledTools(dialog), kAlways);
    page.DragCels(1, 6);
    EXPECT_EQ(EnabledTools(dialog), AlwaysAnd(31009));
    Command(dialog, IDM_MERGE_CELLS);
    EXPECT_EQ(EnabledTools(dialog), AlwaysAnd(31010));
    Command(dialog, IDM_SPLIT_CELLS);
    EXPECT_EQ(EnabledTools(dialog), std::vector<int>());
    Cancel(dialog);
  });
}

TEST_F(LayoutEditCommands, ASelectionFromBeforeCounts) {
  m_editor.Select({1, 2});
  Run([](HWND dialog, const PageOnScreen&) {
    EXPECT_EQ(EnabledTools(dialog), AlwaysAnd(31009));
    Cancel(dialog);
  });
}

TEST_F(LayoutEditCommands, FilesAreForPagesWithMarginOnly) {
  for (const int lineMode : {0, 1}) {
    m_editor.lineMode = lineMode;
    Run([&](HWND dialog, const PageOnScreen& page) {
      page.ClickCel(0);
      const HWND bar = ToolBars(dialog).at(1);
      for (const WPARAM command : {31011, 31012}) {
        EXPECT_EQ(::SendMessageW(bar, TB_ISBUTTONENABLED, command, 0) != 0, lineMode == 0);
      }
      Cancel(dialog);
    });
  }
}

TEST_F(LayoutEditCommands, AToolBarButtonSendsItsCommand) {
  Run([](HWND dialog, const PageOnScreen& page) {
    page.ClickCel(0);
    const HWND bar = ToolBars(dialog).at(0);
    RECT button{};
    ::SendMessageW(bar, TB_GETITEMRECT, 5, reinterpret_cast<LPARAM>(&button));  // 下寄せ
    const LPARAM point = MAKELPARAM(button.left + 5, button.top + 5);
    ::SendMessageW(bar, WM_LBUTTONDOWN, MK_LBUTTON, point);
    ::SendMessageW(bar, WM_LBUTTONUP, 0, point);
    Confirm(dialog);
  });
  EXPECT_EQ(m_editor.Cel(0).GetFont()->GetVPos(), 2);
}

// ---- Commands

TEST_F(LayoutEditCommands, EachPlaceHasItsCommand) {
  for (int place = 0; place < 3; ++place) {
    m_editor.Cel(0).GetFont()->SetVPos(static_cast<BYTE>((place + 1) % 3));
    m_editor.Cel(0).GetFont()->SetHPos(static_cast<BYTE>((place + 2) % 3));
    Run([&](HWND dialog, const PageOnScreen& page) {
      page.DragCels(0, 5);
      Command(dialog, static_cast<UINT>(IDM_ALIGN_TOP + place));
      Command(dialog, static_cast<UINT>(IDM_ALIGN_LEFT + place));
      Confirm(dialog);
    });
    for (const int index : {0, 1, 4, 5}) {
      EXPECT_EQ(m_editor.Cel(index).GetFont()->GetVPos(), place);
      EXPECT_EQ(m_editor.Cel(index).GetFont()->GetHPos(), place);
    }
    EXPECT_EQ(m_editor.Cel(2).GetFont()->GetVPos(), 0);
  }
}

TEST_F(LayoutEditCommands, MergingAndSplitting) {
  Run([](HWND dialog, const PageOnScreen& page) {
    page.DragCels(5, 10);
    Command(dialog, IDM_MERGE_CELLS);
    Confirm(dialog);
  });
  EXPECT_EQ(m_editor.Cel(5).GetRowMeargeSize(), 2);
  EXPECT_EQ(m_editor.Cel(5).GetColMeargeSize(), 2);
  EXPECT_EQ(m_editor.Cel(10).GetRowMeargeSize(), 0);
  EXPECT_EQ(m_editor.Selected(), Cels({5}));
  Run([](HWND dialog, const PageOnScreen&) {
    Command(dialog, IDM_SPLIT_CELLS);
    Confirm(dialog);
  });
  for (const int index : {5, 6, 9, 10}) {
    EXPECT_EQ(m_editor.Cel(index).GetRowMeargeSize(), 1);
    EXPECT_EQ(m_editor.Cel(index).GetColMeargeSize(), 1);
  }
  EXPECT_EQ(m_editor.Selected(), Cels());
}

TEST_F(LayoutEditCommands, WhatIsNoRectangleIsNotMerged) {
  m_editor.Select({0, 1, 4});
  Run([](HWND dialog, const PageOnScreen&) {
    Command(dialog, IDM_MERGE_CELLS);
    Confirm(dialog);
  });
  EXPECT_EQ(m_editor.Cel(0).GetColMeargeSize(), 1);
  EXPECT_EQ(m_editor.Selected(), Cels({0, 1, 4}));
}

TEST_F(LayoutEditCommands, CommandsWithoutASelectionDoNothing) {
  Run([](HWND dialog, const PageOnScreen&) {
    for (UINT command = IDM_EDIT_TEXT; command <= IDM_SPLIT_CELLS; ++command) {
      Command(dialog, command);
    }
    EXPECT_EQ(VisibleDialogs().size(), 1U);
    Confirm(dialog);
  });
  EXPECT_EQ(m_editor.Cel(0).GetFont()->GetVPos(), 0);
}

TEST_F(LayoutEditCommands, TheFontOfTheFirstSelectedCelGoesToAll) {
  m_editor.Cel(1).GetFont()->SetVPos(1);
  ModalScript script;
  script.When(Painted(DialogWithControl(kImage)), [&](HWND dialog) {
    PageOnScreen(dialog, m_editor.page).DragCels(1, 6);
    ::PostMessageW(dialog, WM_COMMAND, IDM_EDIT_FONT, 0);
  });
  script.When(Painted(DialogWithControl(kFontSample)), [](HWND dialog) {
    EXPECT_EQ(Text(dialog), L"ｾﾙのﾌｫﾝﾄ編集");
    EXPECT_EQ(::SendMessageW(Control(dialog, kFontVertical), CB_GETCURSEL, 0, 0), 1);
    ::SendMessageW(Control(dialog, kFontVertical), CB_SETCURSEL, 2, 0);
    ::SendMessageW(dialog, WM_COMMAND, MAKEWPARAM(kFontVertical, CBN_SELCHANGE),
                   reinterpret_cast<LPARAM>(Control(dialog, kFontVertical)));
    Click(dialog, IDOK);
  });
  script.When(DialogWithControl(kImage), Confirm);
  EXPECT_TRUE(m_editor.Run(script));
  for (const int index : {1, 2, 5, 6}) {
    EXPECT_EQ(m_editor.Cel(index).GetFont()->GetVPos(), 2) << index;
  }
  EXPECT_EQ(m_editor.Cel(3).GetFont()->GetVPos(), 0);
}

TEST_F(LayoutEditCommands, TheFontCommandEndsTheTextField) {
  ModalScript script;
  script.When(Painted(DialogWithControl(kImage)), [&](HWND dialog) {
    PageOnScreen(dialog, m_editor.page).ClickCel(0);
    Command(dialog, IDM_EDIT_TEXT);
    ::SendMessageW(Control(dialog, kCelTextEdit), WM_CHAR, L'a', 0);
    ::PostMessageW(dialog, WM_COMMAND, IDM_EDIT_FONT, 0);
  });
  script.When(Painted(DialogWithControl(kFontSample)), Cancel);
  script.When(DialogWithControl(kImage), [](HWND dialog) {
    EXPECT_EQ(::GetDlgItem(dialog, kCelTextEdit), nullptr);
    Confirm(dialog);
  });
  EXPECT_TRUE(m_editor.Run(script));
  EXPECT_EQ(m_editor.TextOf(0), "a");
}

// ---- The menu of a cell

std::vector<ShownItem> ExpectedItems(bool merge, bool split) {
  return {{31000, L"ﾃｷｽﾄ編集(&T)", true},
          {31001, L"ﾌｫﾝﾄ編集(&F)", true},
          {31009, L"合成(&N)", merge},
          {31010, L"合成解除(&D)", split}};
}

void RightClick(HWND dialog, const PageOnScreen& page, int index) {
  const CPoint point = page.InDialog(page.CentreOf(index));
  ::PostMessageW(dialog, WM_RBUTTONUP, 0, MAKELPARAM(point.x, point.y));
}

TEST_F(LayoutEditCommands, TheMenuOfASelectedCel) {
  ModalScript script;
  script.When(Painted(DialogWithControl(kImage)), [&](HWND dialog) {
    const PageOnScreen page(dialog, m_editor.page);
    page.DragCels(1, 6);
    RightClick(dialog, page, 5);
  });
  script.When(MenuShown(), [](HWND menu) {
    EXPECT_EQ(MenuItems(menu), ExpectedItems(true, false));
    PressKey(menu, L'N');
  });
  script.When(DialogWithControl(kImage), [&](HWND dialog) {
    EXPECT_EQ(EnabledTools(dialog), AlwaysAnd(31010));
    RightClick(dialog, PageOnScreen(dialog, m_editor.page), 1);
  });
  script.When(MenuShown(), [](HWND menu) {
    EXPECT_EQ(MenuItems(menu), ExpectedItems(false, true));
    PressKey(menu, VK_ESCAPE);
  });
  script.When(DialogWithControl(kImage), Confirm);
  EXPECT_TRUE(m_editor.Run(script));
  EXPECT_EQ(m_editor.Cel(1).GetColMeargeSize(), 2);
}

TEST_F(LayoutEditCommands, OtherCelsHaveNoMenu) {
  Run([](HWND dialog, const PageOnScreen& page) {
    page.ClickCel(0);
    page.Send(WM_RBUTTONUP, 0, page.CentreOf(1));  // would not return while a menu is open
    page.Send(WM_RBUTTONUP, 0, {-20, -20});
    page.Send(WM_RBUTTONUP, 0, {3, 30});
    EXPECT_EQ(VisibleMenu(), nullptr);
    Cancel(dialog);
  });
}

TEST_F(LayoutEditCommands, TheMenuKeyOpensItToo) {
  ModalScript script;
  script.When(Painted(DialogWithControl(kImage)), [&](HWND dialog) {
    PageOnScreen(dialog, m_editor.page).ClickCel(5);
    ::PostMessageW(dialog, WM_CONTEXTMENU, reinterpret_cast<WPARAM>(dialog), -1);
  });
  script.When(MenuShown(), [](HWND menu) {
    EXPECT_EQ(MenuItems(menu).size(), 4U);
    PressKey(menu, L'T');
  });
  script.When(DialogWithControl(kCelTextEdit), [](HWND dialog) {
    TypeText(Control(dialog, kCelTextEdit), L"b");
    Click(dialog, IDOK);
  });
  EXPECT_TRUE(m_editor.Run(script));
  EXPECT_EQ(m_editor.TextOf(5), "b");
}

// ---- Colours

TEST_F(LayoutEditCommands, TheColourButtonsColourTheSelectedCels) {
  ColourEnvironment environment;
  const COLORREF red = RGB(255, 0, 0);
  const COLORREF yellow = RGB(255, 255, 0);
  CKivRegistry registry = environment.Env().GetRegistry("LayoutEdit");
  registry.WriteRegistry("TextColor", REG_BINARY, &red, sizeof red);
  registry.WriteRegistry("BackColor", REG_BINARY, &yellow, sizeof yellow);
  m_editor.env = &environment.Env();
  Run([](HWND dialog, const PageOnScreen& page) {
    EXPECT_EQ(Text(dialog, kTextColour), L"文字の色 赤 255 緑 0 青 0");
    EXPECT_EQ(Text(dialog, kBackColour), L"背景の色 赤 255 緑 255 青 0");
    page.DragCels(0, 1);
    ::SendMessageW(Control(dialog, kTextColour), BM_CLICK, 0, 0);
    page.DragCels(1, 2);
    ::SendMessageW(Control(dialog, kBackColour), BM_CLICK, 0, 0);
    Confirm(dialog);
  });
  EXPECT_EQ(m_editor.Cel(0).GetFont()->GetColor(), red);
  EXPECT_EQ(m_editor.Cel(1).GetFont()->GetColor(), red);
  EXPECT_EQ(m_editor.Cel(2).GetFont()->GetColor(), RGB(0, 0, 0));
  EXPECT_EQ(m_editor.Cel(0).GetFont()->GetBackColor(), RGB(255, 255, 255));
  EXPECT_EQ(m_editor.Cel(1).GetFont()->GetBackColor(), yellow);
  EXPECT_EQ(m_editor.Cel(2).GetFont()->GetBackColor(), yellow);
}

TEST_F(LayoutEditCommands, WithoutStoredColoursTheyAreBlackAndWhite) {
  Run([](HWND dialog, const PageOnScreen&) {
    EXPECT_EQ(Text(dialog, kTextColour), L"文字の色 赤 0 緑 0 青 0");
    EXPECT_EQ(Text(dialog, kBackColour), L"背景の色 赤 255 緑 255 青 255");
    Cancel(dialog);
  });
}

struct StoredColors {
  COLORREF text = 0x00123456;
  COLORREF back = 0x00123456;
};

StoredColors ReadColors() {
  StoredColors colors;
  const CKivRegistry registry = CKivSysEnv(ColourEnvironment::kKey).GetRegistry("LayoutEdit");
  registry.ReadRegistry("TextColor", &colors.text, sizeof colors.text);
  registry.ReadRegistry("BackColor", &colors.back, sizeof colors.back);
  return colors;
}

/// Makes the red part 200 in the dialog that an arrow opens, and ends the editor.
void ChangeRedAndEnd(LayoutEditor& editor, int arrow, const ModalScript::Action& end) {
  ModalScript script;
  script.When(Painted(DialogWithControl(kImage)), [&editor, arrow](HWND dialog) {
    PageOnScreen(dialog, editor.page).ClickCel(5);
    Click(dialog, arrow);
  });
  script.When(Painted(DialogWithControl(kColourTabs)), [arrow](HWND dialog) {
    const HWND owner = ::GetWindow(dialog, GW_OWNER);
    const RECT button = WindowRect(Control(owner, arrow));
    EXPECT_EQ(WindowRect(dialog).left, button.right);
    EXPECT_EQ(WindowRect(dialog).top, button.bottom);
    ::SendMessageW(Control(dialog, kColourTabs), TCM_SETCURFOCUS, 1, 0);
    ReplaceText(Control(ShownPage(dialog), kRedField), L"200");
    Click(dialog, IDOK);
  });
  script.When(DialogWithControl(kImage), end);
  editor.Run(script);
}

TEST_F(LayoutEditCommands, TheArrowsAskForAColour) {
  ColourEnvironment environment;
  m_editor.env = &environment.Env();
  ChangeRedAndEnd(m_editor, kTextArrow, [](HWND dialog) {
    EXPECT_EQ(Text(dialog, kTextColour), L"文字の色 赤 200 緑 0 青 0");
    Confirm(dialog);
  });
  EXPECT_EQ(m_editor.Cel(5).GetFont()->GetColor(), RGB(200, 0, 0));
  EXPECT_EQ(m_editor.Cel(4).GetFont()->GetColor(), RGB(0, 0, 0));
  EXPECT_EQ(ReadColors().text, RGB(200, 0, 0));
  EXPECT_EQ(ReadColors().back, RGB(255, 255, 255));
  m_editor.Cel(5).SetSelected(0);
  ChangeRedAndEnd(m_editor, kBackArrow, [](HWND dialog) {
    EXPECT_EQ(Text(dialog, kBackColour), L"背景の色 赤 200 緑 255 青 255");
    Confirm(dialog);
  });
  EXPECT_EQ(m_editor.Cel(5).GetFont()->GetBackColor(), RGB(200, 255, 255));
  EXPECT_EQ(ReadColors().back, RGB(200, 255, 255));
}

TEST_F(LayoutEditCommands, CancelKeepsTheColourChoicesAlone) {
  ColourEnvironment environment;
  m_editor.env = &environment.Env();
  ChangeRedAndEnd(m_editor, kTextArrow, Cancel);
  EXPECT_EQ(m_editor.Cel(5).GetFont()->GetColor(), RGB(0, 0, 0));
  EXPECT_EQ(m_editor.Selected(), Cels());
  EXPECT_EQ(ReadColors().text, RGB(200, 0, 0));
}

TEST_F(LayoutEditCommands, TheArrowsShowTheirPicture) {
  Run([](HWND dialog, const PageOnScreen&) {
    for (const int arrow : {kTextArrow, kBackArrow}) {
      auto* const bitmap = reinterpret_cast<HBITMAP>(
          ::SendMessageW(Control(dialog, arrow), BM_GETIMAGE, IMAGE_BITMAP, 0));
      BITMAP size{};
      ASSERT_NE(::GetObjectW(bitmap, sizeof size, &size), 0);
      EXPECT_EQ(size.bmWidth, 7);
      EXPECT_EQ(size.bmHeight, 14);
    }
    Cancel(dialog);
  });
}

// ---- Insertions

void Choose(HWND dialog, int item) { ChooseItem(dialog, kInsertion, item); }
LRESULT Chosen(HWND dialog) { return ChosenItem(dialog, kInsertion); }

class LayoutEditInsertions : public LayoutEditCommands {
protected:
  LayoutEditInsertions() {
    for (const char* name : {"図面名", "100%d ソ", "縮尺"}) {
      m_editor.names.Add(name);
    }
    for (const DWORD number : {10, 20, 30}) {
      m_editor.numbers.Add(number);
    }
    m_editor.Cel(1).SetText("名: ");
  }
};

TEST_F(LayoutEditInsertions, TheListBeginsWithAnEmptyItem) {
  Run([](HWND dialog, const PageOnScreen&) {
    const HWND list = Control(dialog, kInsertion);
    EXPECT_EQ(::SendMessageW(list, CB_GETCOUNT, 0, 0), 4);
    EXPECT_EQ(Chosen(dialog), 0);
    EXPECT_EQ(Text(list), L"");
    ::SendMessageW(list, CB_SETCURSEL, 2, 0);
    EXPECT_EQ(Text(list), L"100%d ソ");
    EXPECT_EQ(::SendMessageW(Control(dialog, kAppend), BM_GETCHECK, 0, 0), BST_CHECKED);
    Cancel(dialog);
  });
}

TEST_F(LayoutEditInsertions, ATagGoesBehindTheTextOfEachSelectedCel) {
  Run([](HWND dialog, const PageOnScreen& page) {
    page.DragCels(1, 2);
    Choose(dialog, 2);
    EXPECT_EQ(Chosen(dialog), 0);
    Confirm(dialog);
  });
  EXPECT_EQ(m_editor.TextOf(1), "名: <M>2 100%d ソ</M>");
  EXPECT_EQ(m_editor.TextOf(2), "<M>2 100%d ソ</M>");
  EXPECT_EQ(m_editor.TextOf(3), "");
}

TEST_F(LayoutEditInsertions, OrReplacesIt) {
  Run([](HWND dialog, const PageOnScreen& page) {
    ::SendMessageW(Control(dialog, kAppend), BM_CLICK, 0, 0);
    page.ClickCel(1);
    Choose(dialog, 1);
    Confirm(dialog);
  });
  EXPECT_EQ(m_editor.TextOf(1), "<M>1 図面名</M>");
}

TEST_F(LayoutEditInsertions, AFieldThatIsRefusedDoesNotKeepTheBoxFromCounting) {
  ModalScript script;
  script.When(Painted(DialogWithControl(kImage)), [&](HWND dialog) {
    PageOnScreen(dialog, m_editor.page).ClickCel(1);
    ::SetFocus(Control(dialog, kAppend));
    ::SetWindowTextW(Control(dialog, 2011), L"99");
    Click(dialog, kAppend);
  });
  script.When(MessageBoxShown(), [](HWND box) { Click(box, IDOK); });
  script.When(DialogWithControl(kImage), [](HWND dialog) {
    Choose(dialog, 1);
    ::SetWindowTextW(Control(dialog, 2011), L"3");
    Confirm(dialog);
  });
  EXPECT_TRUE(m_editor.Run(script));
  EXPECT_EQ(m_editor.TextOf(1), "<M>1 図面名</M>");
}

TEST_F(LayoutEditInsertions, NumbersOfTheSameCountCount) {
  m_editor.hasNumbers = true;
  Run([](HWND dialog, const PageOnScreen& page) {
    page.ClickCel(2);
    Choose(dialog, 3);
    Confirm(dialog);
  });
  EXPECT_EQ(m_editor.TextOf(2), "<M>31 縮尺</M>");
  m_editor.numbers.Add(40);
  Run([](HWND dialog, const PageOnScreen&) {  // the cell is still selected
    Choose(dialog, 3);
    Confirm(dialog);
  });
  EXPECT_EQ(m_editor.TextOf(2), "<M>31 縮尺</M><M>3 縮尺</M>");
}

TEST_F(LayoutEditInsertions, TheEmptyItemChangesNothing) {
  Run([](HWND dialog, const PageOnScreen& page) {
    page.ClickCel(1);
    Choose(dialog, 0);
    Confirm(dialog);
  });
  EXPECT_EQ(m_editor.TextOf(1), "名: ");
}

TEST_F(LayoutEditInsertions, WithoutASelectionTheListKeepsItsChoice) {
  Run([](HWND dialog, const PageOnScreen& page) {
    EXPECT_FALSE(IsEnabled(dialog, kInsertion));
    Choose(dialog, 2);
    EXPECT_EQ(Chosen(dialog), 2);
    page.ClickCel(1);
    EXPECT_TRUE(IsEnabled(dialog, kInsertion));
    page.ClickCel(1);
    EXPECT_FALSE(IsEnabled(dialog, kInsertion));
    Confirm(dialog);
  });
  EXPECT_EQ(m_editor.TextOf(1), "名: ");
}

TEST_F(LayoutEditInsertions, TheArrowKeysLeadThroughTheOpenList) {
  for (const bool takes : {false, true}) {
    ModalScript script;
    script.When(Painted(DialogWithControl(kImage)), [&](HWND dialog) {
      PageOnScreen(dialog, m_editor.page).ClickCel(3);
      const HWND list = Control(dialog, kInsertion);
      ::SetFocus(list);
      ::SendMessageW(list, CB_SHOWDROPDOWN, TRUE, 0);
      PressKey(list, VK_DOWN);
      PressKey(list, VK_DOWN);
      PressKey(list, VK_DOWN);
      PressKey(list, takes ? VK_RETURN : VK_ESCAPE);
    });
    script.When({"the list is closed",
                 [] {
                   const HWND dialog = DialogWithControl(kImage).find();
                   return dialog != nullptr && ::SendMessageW(Control(dialog, kInsertion),
                                                              CB_GETDROPPEDSTATE, 0, 0) == 0
                              ? dialog
                              : nullptr;
                 }},
                Confirm);
    EXPECT_TRUE(m_editor.Run(script));
    EXPECT_EQ(m_editor.TextOf(3), takes ? "<M>3 縮尺</M>" : "");
    m_editor.Cel(3).SetSelected(0);
  }
}

TEST_F(LayoutEditInsertions, WithoutNamesThereIsNoList) {
  m_editor.names.SetSize(0);
  Run([](HWND dialog, const PageOnScreen& page) {
    EXPECT_FALSE(IsShown(dialog, kInsertion));
    EXPECT_FALSE(IsShown(dialog, kAppend));
    page.ClickCel(0);
    Cancel(dialog);
  });
}

}  // namespace
}  // namespace quorvel::test
