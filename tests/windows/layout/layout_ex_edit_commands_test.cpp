// Tool bars, menu and commands of the editor of an extended page.
#include "layout/extended_editor.h"
#include "res/ids.h"
#include "support/colour_environment.h"

#include <string>
#include <vector>

namespace quorvel::test {
namespace {

using namespace extended_editor;
using Cels = std::vector<int>;

constexpr int kTextArrow = 2043;
constexpr int kBackArrow = 2044;
constexpr int kInsertion = 2045;
constexpr int kAppend = 4029;
constexpr int kField = 4030;
constexpr int kColourTabs = 1000;
constexpr int kRedPart = 110;
constexpr int kFieldName = 4046;
constexpr int kFieldText = 4047;
constexpr int kTopLine = 4019;
constexpr int kNoLines = 4015;

const std::vector<int> kWithSelection{31000, 31001, 31002, 31003, 31004,
                                      31005, 31006, 31007, 31008};

std::vector<int> WithSelectionAnd(int command) {
  std::vector<int> commands = kWithSelection;
  commands.push_back(command);
  return commands;
}

using LayoutExEditCommands = ExtendedEditorTest;

// ---- Tool bars

TEST_F(LayoutExEditCommands, TheToolBarsHaveTheirButtonsAndPlaces) {
  Run([](HWND dialog, const PagesOnScreen&) {
    const std::vector<HWND> bars = ToolBars(dialog);
    ASSERT_EQ(bars.size(), 2U);
    const std::vector<ToolButton> cellTools{{31000, 0}, {31001, 1}, {}, {31002, 2}, {31003, 3},
                                            {31004, 4}, {}, {31005, 5}, {31006, 6}, {31007, 7},
                                            {}, {31008, 8}, {31009, 9}, {31010, 10}};
    EXPECT_EQ(ToolButtons(bars[0]), cellTools);
    EXPECT_EQ(ToolButtons(bars[1]), std::vector<ToolButton>({{31011, 0}, {31012, 1}}));
    ExpectToolTips(dialog);
    for (const HWND bar : bars) {
      EXPECT_EQ(::GetWindowLongPtrW(bar, GWL_STYLE) & 0x50000944, 0x50000944);
    }
    const RECT line = ClientRectOf(Control(dialog, kTextLine));
    const RECT cells = ClientRectOf(bars[0]);
    EXPECT_EQ(cells.left, line.left);
    EXPECT_EQ(cells.top, line.top - 26);
    RECT frame = WindowRect(dialog);
    ::MapWindowPoints(nullptr, dialog, reinterpret_cast<POINT*>(&frame), 2);
    const RECT files = ClientRectOf(bars[1]);
    EXPECT_EQ(files.left, frame.left + 16);
    EXPECT_EQ(files.top, frame.bottom - 40);
    Cancel(dialog);
  });
}

TEST_F(LayoutExEditCommands, ToolsAreForTheSelectionOfTheCurrentBlock) {
  m_editor.Cel(kHeader, 0).SetSelected(1);  // of a block that is not current yet
  Run([](HWND dialog, const PagesOnScreen& pages) {
    EXPECT_EQ(EnabledTools(dialog), Cels());
    pages.ClickCel(1, 5);
    EXPECT_EQ(EnabledTools(dialog), kWithSelection);
    pages.DragCels(1, 1, 6);
    EXPECT_EQ(EnabledTools(dialog), WithSelectionAnd(31009));
    Command(dialog, IDM_MERGE_CELLS);
    EXPECT_EQ(EnabledTools(dialog), WithSelectionAnd(31010));
    pages.Press(2, pages.CentreOf(2, 0));  // another block is current at once
    EXPECT_EQ(EnabledTools(dialog), Cels());
    pages.Release(2, pages.CentreOf(2, 0));
    EXPECT_EQ(EnabledTools(dialog), kWithSelection);
    Cancel(dialog);
  });
}

TEST_F(LayoutExEditCommands, FilesAreAlwaysPossible) {
  Run([](HWND dialog, const PagesOnScreen& pages) {
    const HWND bar = ToolBars(dialog).at(1);
    for (const bool selected : {false, true}) {
      for (const WPARAM command : {31011, 31012}) {
        EXPECT_NE(::SendMessageW(bar, TB_ISBUTTONENABLED, command, 0), 0) << selected;
      }
      pages.ClickCel(0, 0);
    }
    Cancel(dialog);
  });
}

// ---- The menu

struct Possible {
  bool insertColumn = true;
  bool deleteColumn = true;
  bool equalColumns = false;
  bool insertRow = true;
  bool deleteRow = true;
  bool equalRows = false;
  bool merge = false;
  bool split = false;
};

std::vector<ShownItem> ExpectedItems(const Possible& possible) {
  const ShownItem line;
  return {{31000, L"ﾃｷｽﾄ編集(&T)", true},
          {31001, L"ﾌｫﾝﾄ編集(&F)", true},
          line,
          {31013, L"列挿入(&C)", possible.insertColumn},
          {31014, L"列削除(&O)", possible.deleteColumn},
          {31015, L"選択列均等(&E)", possible.equalColumns},
          line,
          {31016, L"行挿入(&R)", possible.insertRow},
          {31017, L"行削除(&O)", possible.deleteRow},
          {31018, L"選択行均等(&Q)", possible.equalRows},
          line,
          {31008, L"罫線編集(&L)", true},
          {31009, L"合成(&N)", possible.merge},
          {31010, L"合成解除(&D)", possible.split}};
}

class LayoutExEditMenu : public LayoutExEditCommands {
protected:
  /// The menu over a cell of the list block, once the picture has been worked.
  std::vector<ShownItem> MenuAt(int index,
                                const std::function<void(HWND, const PagesOnScreen&)>& select) {
    std::vector<ShownItem> items;
    ModalScript script;
    script.When(EditorShown(), [&](HWND dialog) {
      const PagesOnScreen pages = Pages(dialog);
      select(dialog, pages);
      pages.RightClickLater(1, index);
    });
    script.When(MenuShown(), [&](HWND menu) {
      items = MenuItems(menu);
      PressKey(menu, VK_ESCAPE);
    });
    script.When(EditorShown(), Cancel);
    m_editor.Run(script);
    return items;
  }
  std::vector<ShownItem> MenuOfRun(int from, int to) {
    return MenuAt(from, [&](HWND, const PagesOnScreen& pages) { pages.DragCels(1, from, to); });
  }
};

TEST_F(LayoutExEditMenu, OfOneCel) {
  EXPECT_EQ(MenuOfRun(5, 5), ExpectedItems({}));
}

TEST_F(LayoutExEditMenu, OfTwoColumns) {
  EXPECT_EQ(MenuOfRun(5, 6), ExpectedItems({.equalColumns = true, .merge = true}));
}

TEST_F(LayoutExEditMenu, OfTwoRows) {
  EXPECT_EQ(MenuOfRun(1, 5), ExpectedItems({.equalRows = true, .merge = true}));
}

TEST_F(LayoutExEditMenu, OfAMergedCel) {
  const auto merge = [](HWND dialog, const PagesOnScreen& pages) {
    pages.DragCels(1, 5, 6);
    Command(dialog, IDM_MERGE_CELLS);
  };
  EXPECT_EQ(MenuAt(5, merge), ExpectedItems({.equalColumns = true, .split = true}));
}

TEST_F(LayoutExEditMenu, OfTheOnlyCel) {
  m_editor.page.DividePage(kList, 1, 1, kDotsPerMm);
  EXPECT_EQ(MenuOfRun(0, 0), ExpectedItems({.deleteColumn = false, .deleteRow = false}));
}

TEST_F(LayoutExEditMenu, OfABlockWithAsManyAsItCanHave) {
  const auto clickFirst = [](HWND, const PagesOnScreen& pages) { pages.ClickCel(1, 0); };
  MergeAll(m_editor.page, kList, 1, 255);
  const std::vector<ShownItem> columns = MenuAt(0, clickFirst);
  EXPECT_FALSE(IsOffered(columns, 31013));
  EXPECT_TRUE(IsOffered(columns, 31016));
  EXPECT_TRUE(IsOffered(columns, 31008));
  MergeAll(m_editor.page, kList, 255, 1);
  const std::vector<ShownItem> rows = MenuAt(0, clickFirst);
  EXPECT_TRUE(IsOffered(rows, 31013));
  EXPECT_FALSE(IsOffered(rows, 31016));
}

TEST_F(LayoutExEditMenu, OnlyOnASelectedCelOfTheCurrentBlock) {
  m_editor.Cel(kFooter, 1).SetSelected(1);
  Run([](HWND dialog, const PagesOnScreen& pages) {
    // None of these would return while a menu is open.
    pages.Send(WM_RBUTTONUP, 0, 2, pages.CentreOf(2, 1));
    pages.ClickCel(1, 5);
    pages.Send(WM_RBUTTONUP, 0, 1, pages.CentreOf(1, 6));
    pages.Send(WM_RBUTTONUP, 0, 2, pages.CentreOf(2, 1));
    pages.Send(WM_RBUTTONUP, 0, 1, {-3, 5});
    Press(dialog, kListUse);
    pages.Send(WM_RBUTTONUP, 0, 1, pages.CentreOf(1, 5));
    EXPECT_EQ(VisibleMenu(), nullptr);
    Cancel(dialog);
  });
}

// ---- Rows and columns

TEST_F(LayoutExEditCommands, EqualLengthsOfWhatIsSelected) {
  m_editor.page.SetLengthCol(1, 10.0F);
  m_editor.page.SetLengthRow(kList, 1, 40.0F);
  const float row = m_editor.page.GetLengthRow(kList, 0);
  Run([](HWND dialog, const PagesOnScreen& pages) {
    pages.DragCels(1, 0, 5);
    Command(dialog, IDM_EQUAL_COLUMNS);
    Command(dialog, IDM_EQUAL_ROWS);
    EXPECT_EQ(EnabledTools(dialog), WithSelectionAnd(31009));  // still selected
    Confirm(dialog);
  });
  EXPECT_EQ(m_editor.page.GetLengthCol(0), 25.0F);
  EXPECT_EQ(m_editor.page.GetLengthCol(1), 25.0F);
  EXPECT_EQ(m_editor.page.GetLengthCol(2), 40.0F);
  EXPECT_FLOAT_EQ(m_editor.page.GetLengthRow(kList, 0), (row + 40.0F) / 2);
  EXPECT_FLOAT_EQ(m_editor.page.GetLengthRow(kList, 1), (row + 40.0F) / 2);
  EXPECT_EQ(m_editor.page.GetLengthRow(kFooter, 0), 5.0F);
}

TEST_F(LayoutExEditCommands, ARowComesBeforeTheFirstSelectedOneAndKeepsTheTexts) {
  for (int index = 0; index < 12; ++index) {
    m_editor.Cel(kList, index).SetText(std::to_string(index).c_str());
  }
  Run([](HWND dialog, const PagesOnScreen& pages) {
    pages.DragCels(1, 5, 10);
    Command(dialog, IDM_INSERT_ROW);
    EXPECT_EQ(EnabledTools(dialog), Cels());
    EXPECT_EQ(Text(dialog, kTextLine), L"");
    Confirm(dialog);
  });
  EXPECT_EQ(m_editor.page.GetNumRow(kList), 4);
  EXPECT_EQ(m_editor.TextOf(kList, 3), "3");
  EXPECT_EQ(m_editor.TextOf(kList, 5), "");
  EXPECT_EQ(m_editor.TextOf(kList, 9), "5");
  EXPECT_EQ(Selected(kList), Cels());
}

TEST_F(LayoutExEditCommands, AColumnGoesFromAllBlocks) {
  for (const auto block : kBlocks) {
    m_editor.Cel(block, 1).SetText("x");
    m_editor.Cel(block, 2).SetText("y");
  }
  ModalScript script;
  script.When(EditorShown(), [&](HWND dialog) {
    Pages(dialog).ClickCel(0, 1);
    ::PostMessageW(dialog, WM_COMMAND, IDM_DELETE_COLUMN, 0);
  });
  script.When(MessageBoxShown(), [](HWND box) { Click(box, IDOK); });
  script.When(EditorShown(), [](HWND dialog) {
    EXPECT_EQ(Text(dialog, kColumns), L"3");
    EXPECT_EQ(Text(dialog, kWidth), L"120");
    Confirm(dialog);
  });
  EXPECT_TRUE(m_editor.Run(script));
  for (const auto block : kBlocks) {
    EXPECT_EQ(m_editor.TextOf(block, 1), "y");
    EXPECT_EQ(m_editor.page.GetCelSize(block), m_editor.page.GetNumRow(block) * 3);
  }
}

TEST_F(LayoutExEditCommands, AQuestionThatIsRefusedKeepsTheSelection) {
  ModalScript script;
  script.When(EditorShown(), [&](HWND dialog) {
    Pages(dialog).ClickCel(1, 1);
    ::PostMessageW(dialog, WM_COMMAND, IDM_DELETE_ROW, 0);
  });
  script.When(MessageBoxShown(), Cancel);
  script.When(EditorShown(), [](HWND dialog) {
    EXPECT_EQ(EnabledTools(dialog), kWithSelection);
    Confirm(dialog);
  });
  EXPECT_TRUE(m_editor.Run(script));
  EXPECT_EQ(m_editor.page.GetNumRow(kList), 3);
}

// ---- Ruled lines

TEST_F(LayoutExEditCommands, RuledLinesOfTheSelection) {
  for (const bool confirms : {false, true}) {
    ModalScript script;
    script.When(EditorShown(), [&](HWND dialog) {
      Pages(dialog).DragCels(1, 0, 5);
      ::PostMessageW(dialog, WM_COMMAND, IDM_EDIT_LINES, 0);
    });
    script.When(Painted(DialogWithControl(kTopLine)), [&](HWND dialog) {
      EXPECT_EQ(Text(dialog), L"罫線編集");
      Press(dialog, kNoLines);
      Click(dialog, confirms ? IDOK : IDCANCEL);
    });
    script.When(EditorShown(), Confirm);
    EXPECT_TRUE(m_editor.Run(script));
    const int shown = confirms ? 0 : 1;
    EXPECT_EQ(m_editor.Cel(kList, 0).GetShowLineVT(), shown);
    EXPECT_EQ(m_editor.Cel(kList, 0).GetShowLineHR(), shown);
    EXPECT_EQ(m_editor.Cel(kList, 5).GetShowLineVB(), shown);
    EXPECT_EQ(m_editor.Cel(kList, 7).GetShowLineHR(), 1);
  }
}

// ---- Data fields

class LayoutExEditFieldButton : public LayoutExEditCommands {
protected:
  LayoutExEditFieldButton() {
    m_editor.hasFields = true;
    m_editor.fields.Add("数量");
    m_editor.fields.Add("単価");
  }
};

TEST_F(LayoutExEditFieldButton, ItsMacroGoesToAllSelectedCels) {
  m_editor.Cel(kList, 5).SetText("前");
  ModalScript script;
  script.When(EditorShown(), [&](HWND dialog) {
    Pages(dialog).DragCels(1, 5, 10);
    Click(dialog, kField);
  });
  script.When(Painted(DialogWithControl(kFieldName)), [](HWND dialog) {
    EXPECT_EQ(Text(dialog), L"ﾌｨｰﾙﾄﾞ設定");
    ChooseItem(dialog, kFieldName, 1);
    Click(dialog, IDOK);
  });
  std::wstring shown;
  script.When(EditorShown(), [&](HWND dialog) {
    shown = Text(dialog, kTextLine);
    Confirm(dialog);
  });
  EXPECT_TRUE(m_editor.Run(script));
  const std::string macro = m_editor.TextOf(kList, 5);
  EXPECT_NE(macro, "前");
  EXPECT_NE(macro.find("単価"), std::string::npos);
  EXPECT_NE(shown.find(L"単価"), std::wstring::npos);
  for (const int index : {6, 9, 10}) {
    EXPECT_EQ(m_editor.TextOf(kList, index), macro);
  }
  EXPECT_EQ(m_editor.TextOf(kList, 7), "");
}

TEST_F(LayoutExEditFieldButton, ItIsGivenTheTextOfTheFirstSelectedCel) {
  std::string macro;
  for (const bool changes : {true, false}) {
    ModalScript script;
    script.When(EditorShown(), [&](HWND dialog) {
      Pages(dialog).DragCels(1, 5, 6);
      Click(dialog, kField);
    });
    script.When(Painted(DialogWithControl(kFieldName)), [&](HWND dialog) {
      if (changes) {
        ChooseItem(dialog, kFieldName, 1);
        Click(dialog, IDOK);
      } else {
        EXPECT_EQ(Text(dialog, kFieldName), L"単価");
        ChooseItem(dialog, kFieldName, 0);
        Click(dialog, IDCANCEL);
      }
    });
    script.When(EditorShown(), Confirm);
    EXPECT_TRUE(m_editor.Run(script));
    macro = changes ? m_editor.TextOf(kList, 5) : macro;
    EXPECT_EQ(m_editor.TextOf(kList, 5), macro);
  }
}

TEST_F(LayoutExEditFieldButton, WithoutASelectionOrNamesItDoesNothing) {
  const auto press = [&](bool selects) {
    Run([&](HWND dialog, const PagesOnScreen& pages) {
      EXPECT_TRUE(IsShown(dialog, kField));
      if (selects) {
        pages.ClickCel(1, 0);
      }
      Press(dialog, kField);  // would not return while a dialog is open
      Cancel(dialog);
    });
  };
  press(false);
  m_editor.fields.SetSize(0);
  press(true);
}

TEST_F(LayoutExEditFieldButton, WithoutAListItIsHidden) {
  m_editor.hasFields = false;
  Run([](HWND dialog, const PagesOnScreen&) {
    EXPECT_FALSE(IsShown(dialog, kField));
    Cancel(dialog);
  });
}

// ---- Insertions

class LayoutExEditInsertions : public LayoutExEditCommands {
protected:
  LayoutExEditInsertions() {
    for (const char* name : {"図面名", "100%d ソ", "縮尺"}) {
      m_editor.names.Add(name);
    }
    for (const DWORD number : {10, 20, 30}) {
      m_editor.numbers.Add(number);
    }
    m_editor.Cel(kList, 1).SetText("名: ");
  }
};

TEST_F(LayoutExEditInsertions, ATagReplacesTheTextUnlessItIsToBeAdded) {
  Run([](HWND dialog, const PagesOnScreen& pages) {
    EXPECT_FALSE(IsChecked(dialog, kAppend));
    EXPECT_FALSE(IsEnabled(dialog, kInsertion));
    pages.DragCels(1, 1, 2);
    EXPECT_TRUE(IsEnabled(dialog, kInsertion));
    ::SetFocus(Control(dialog, kInsertion));
    ChooseItem(dialog, kInsertion, 2);
    EXPECT_EQ(Text(dialog, kTextLine), L"<M>2 100%d ソ</M>");
    EXPECT_EQ(::GetFocus(), Control(dialog, kTextLine));
    EXPECT_EQ(ChosenItem(dialog, kInsertion), 0);
    Press(dialog, kAppend);
    ChooseItem(dialog, kInsertion, 1);
    Confirm(dialog);
  });
  EXPECT_EQ(m_editor.TextOf(kList, 1), "<M>2 100%d ソ</M><M>1 図面名</M>");
  EXPECT_EQ(m_editor.TextOf(kList, 2), "<M>2 100%d ソ</M><M>1 図面名</M>");
  EXPECT_EQ(m_editor.TextOf(kList, 3), "");
}

TEST_F(LayoutExEditInsertions, NumbersOfTheSameCountCount) {
  m_editor.hasNumbers = true;
  Run([](HWND dialog, const PagesOnScreen& pages) {
    pages.ClickCel(2, 3);
    ChooseItem(dialog, kInsertion, 3);
    Confirm(dialog);
  });
  EXPECT_EQ(m_editor.TextOf(kFooter, 3), "<M>31 縮尺</M>");
}

TEST_F(LayoutExEditInsertions, WithoutNamesThereIsNoList) {
  m_editor.names.SetSize(0);
  Run([](HWND dialog, const PagesOnScreen&) {
    EXPECT_FALSE(IsShown(dialog, kInsertion));
    EXPECT_FALSE(IsShown(dialog, kAppend));
    Cancel(dialog);
  });
}

// ---- Colours

TEST_F(LayoutExEditCommands, TheArrowsColoursOpenAtTheirRightCorner) {
  ColourEnvironment environment;
  m_editor.env = &environment.Env();
  for (const int arrow : {kTextArrow, kBackArrow}) {
    ModalScript script;
    script.When(EditorShown(), [&](HWND dialog) {
      Pages(dialog).ClickCel(1, 5);
      Click(dialog, arrow);
    });
    script.When(Painted(DialogWithControl(kColourTabs)), [&](HWND dialog) {
      const RECT button = WindowRect(Control(::GetWindow(dialog, GW_OWNER), arrow));
      EXPECT_EQ(WindowRect(dialog).left, button.right);
      EXPECT_EQ(WindowRect(dialog).top, button.bottom);
      ::SendMessageW(Control(dialog, kColourTabs), TCM_SETCURFOCUS, 1, 0);
      ReplaceText(Control(ShownPage(dialog), kRedPart), L"200");
      Click(dialog, IDOK);
    });
    script.When(EditorShown(), Confirm);
    EXPECT_TRUE(m_editor.Run(script));
  }
  EXPECT_EQ(m_editor.Cel(kList, 5).GetFont()->GetColor(), RGB(200, 0, 0));
  EXPECT_EQ(m_editor.Cel(kList, 5).GetFont()->GetBackColor(), RGB(200, 255, 255));
  COLORREF stored = 0;
  const CKivRegistry registry = environment.Env().GetRegistry("LayoutExEdit");
  registry.ReadRegistry("TextColor", &stored, sizeof stored);
  EXPECT_EQ(stored, RGB(200, 0, 0));
  registry.ReadRegistry("BackColor", &stored, sizeof stored);
  EXPECT_EQ(stored, RGB(200, 255, 255));
}

}  // namespace
}  // namespace quorvel::test
