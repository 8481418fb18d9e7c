// The layout editors, worked with the keyboard alone.
#include "layout/extended_editor.h"
#include "layout/layout_editor.h"

#include <filesystem>
#include <functional>
#include <string>
#include <utility>
#include <vector>

namespace quorvel::test {
namespace {

using extended_editor::kHeader;
using extended_editor::kImages;
using extended_editor::kList;
using layout_editor::kImage;
using Cels = std::vector<int>;

constexpr int kFieldButton = 4030;

/// A step that presses keys when the dialog with a control is steady and the focus on its OK button.
void WithKeys(ModalScript& script, int control, std::function<void()> keys) {
  script.When(SteadyOnScreen(DialogWithControl(control)), [keys = std::move(keys)](HWND dialog) {
    Focus(Control(dialog, IDOK));
    keys();
  });
}

void PressCtrl(UINT key) { SendKey(key, {VK_CONTROL}); }
void PressCtrlShift(UINT key) { SendKey(key, {VK_CONTROL, VK_SHIFT}); }

class LayoutEditKeys : public ::testing::Test {
protected:
  /// 3 x 4 cells of 20 x 40 mm.
  LayoutEditor m_editor{3, 4, 60.0, 160.0};

  void Press(ModalScript& script, std::function<void()> keys) {
    WithKeys(script, kImage, std::move(keys));
  }
  /// Confirms after the keys.
  void RunWithKeys(const std::function<void()>& keys) {
    ModalScript script;
    Press(script, keys);
    script.When(SteadyOnScreen(DialogWithControl(kImage)), Confirm);
    EXPECT_TRUE(m_editor.Run(script));
  }
};

TEST_F(LayoutEditKeys, ACelIsSelectedAndItsTextTyped) {
  ModalScript script;
  Press(script, [] {
    PressCtrl(VK_RIGHT);  // the first cell
    PressCtrl(VK_RIGHT);
    PressCtrl(VK_DOWN);
    SendKey(VK_F2);
  });
  script.When(SteadyOnScreen(DialogWithControl(kCelTextEdit)), [](HWND /*dialog*/) {
    for (const int key : {int{L'1'}, int{L'2'}, VK_RETURN}) {
      SendKey(static_cast<UINT>(key));
    }
  });
  script.When(SteadyOnScreen(DialogWithControl(kImage)), [](HWND dialog) {
    EXPECT_EQ(::GetDlgItem(dialog, kCelTextEdit), nullptr);
    SendKey(VK_RETURN);
  });
  EXPECT_TRUE(m_editor.Run(script));
  EXPECT_EQ(m_editor.TextOf(5), "12");
}

TEST_F(LayoutEditKeys, F8BeginsARectangle) {
  RunWithKeys([] {
    PressCtrl(VK_RIGHT);
    PressCtrl(VK_RIGHT);
    SendKey(VK_F8);
    PressCtrl(VK_RIGHT);
    PressCtrl(VK_DOWN);
  });
  EXPECT_EQ(m_editor.Selected(), Cels({1, 2, 5, 6}));
}

TEST_F(LayoutEditKeys, TheRectangleLeadsBackOverItsFirstCel) {
  RunWithKeys([] {
    PressCtrl(VK_RIGHT);
    PressCtrl(VK_RIGHT);
    SendKey(VK_F8);
    PressCtrl(VK_RIGHT);
    PressCtrl(VK_LEFT);
    PressCtrl(VK_LEFT);
    PressCtrl(VK_LEFT);  // at the edge: it stays
  });
  EXPECT_EQ(m_editor.Selected(), Cels({0, 1}));
}

TEST_F(LayoutEditKeys, F8EndsTheRectangle) {
  RunWithKeys([] {
    PressCtrl(VK_RIGHT);
    SendKey(VK_F8);
    PressCtrl(VK_RIGHT);
    SendKey(VK_F8);
    PressCtrl(VK_DOWN);  // from the first selected cell
  });
  EXPECT_EQ(m_editor.Selected(), Cels({4}));
}

TEST_F(LayoutEditKeys, AMouseSelectionEndsTheRectangle) {
  ModalScript script;
  Press(script, [] {
    PressCtrl(VK_RIGHT);
    SendKey(VK_F8);
    PressCtrl(VK_RIGHT);
  });
  script.When(SteadyOnScreen(DialogWithControl(kImage)), [&](HWND dialog) {
    const PageOnScreen page(dialog, m_editor.page);
    page.DragCels(0, 1);  // the same cells, with the mouse
  });
  Press(script, [] { PressCtrl(VK_DOWN); });
  script.When(SteadyOnScreen(DialogWithControl(kImage)), Confirm);
  EXPECT_TRUE(m_editor.Run(script));
  EXPECT_EQ(m_editor.Selected(), Cels({4}));
}

TEST_F(LayoutEditKeys, ARectangleIsMergedByTheMenu) {
  ModalScript script;
  Press(script, [] {
    PressCtrl(VK_RIGHT);
    SendKey(VK_F8);
    PressCtrl(VK_RIGHT);
    PressCtrl(VK_DOWN);
    SendKey(VK_APPS);
  });
  script.When(MenuShown(), [](HWND /*menu*/) { SendKey('N'); });
  script.When(SteadyOnScreen(DialogWithControl(kImage)), Confirm);
  EXPECT_TRUE(m_editor.Run(script));
  EXPECT_EQ(m_editor.Cel(0).GetRowMeargeSize(), 2);
  EXPECT_EQ(m_editor.Cel(0).GetColMeargeSize(), 2);
}

TEST_F(LayoutEditKeys, CtrlShiftAndAnArrowMoveTheBorder) {
  RunWithKeys([] {
    PressCtrl(VK_RIGHT);
    PressCtrlShift(VK_RIGHT);
    PressCtrlShift(VK_RIGHT);
    PressCtrlShift(VK_UP);
  });
  EXPECT_EQ(m_editor.page.GetLengthCol(0), 42.0);
  EXPECT_EQ(m_editor.page.GetLengthCol(1), 38.0);
  EXPECT_EQ(m_editor.page.GetLengthRow(0), 19.0);
  EXPECT_EQ(m_editor.page.GetLengthRow(1), 21.0);
  EXPECT_EQ(m_editor.page.GetAllLengthCol(), 160.0);
  EXPECT_EQ(m_editor.Selected(), Cels({0}));
}

TEST_F(LayoutEditKeys, TheLastColumnHasNoBorderToMove) {
  RunWithKeys([] {
    PressCtrl(VK_RIGHT);
    for (int i = 0; i < 3; ++i) {
      PressCtrl(VK_RIGHT);
    }
    PressCtrlShift(VK_RIGHT);
  });
  EXPECT_EQ(m_editor.page.GetLengthCol(3), 40.0);
  EXPECT_EQ(m_editor.Selected(), Cels({3}));
}

TEST_F(LayoutEditKeys, AtTheEdgesOfThePageTheSelectionStays) {
  RunWithKeys([] {
    PressCtrl(VK_RIGHT);  // the first cell
    PressCtrl(VK_UP);
    PressCtrl(VK_LEFT);
  });
  EXPECT_EQ(m_editor.Selected(), Cels({0}));
  RunWithKeys([] {
    for (int step = 0; step < 4; ++step) {
      PressCtrl(VK_DOWN);
      PressCtrl(VK_RIGHT);
    }
  });
  EXPECT_EQ(m_editor.Selected(), Cels({11}));
}

TEST_F(LayoutEditKeys, WhereNoLengthsAreAskedForF2IsForTheText) {
  for (const UINT modifier : {VK_SHIFT, VK_CONTROL}) {
    ModalScript script;
    Press(script, [modifier] {
      PressCtrl(VK_RIGHT);
      SendKey(VK_F2, {modifier});
    });
    script.When(SteadyOnScreen(DialogWithControl(kCelTextEdit)), [](HWND dialog) {
      EXPECT_EQ(::GetFocus(), Control(dialog, kCelTextEdit));
      Cancel(dialog);
    });
    EXPECT_FALSE(m_editor.Run(script));
  }
}

TEST_F(LayoutEditKeys, InAFieldTheArrowsToTheSideStayItsOwn) {
  ModalScript script;
  Press(script, [] { PressCtrl(VK_RIGHT); });
  script.When(SteadyOnScreen(DialogWithControl(kImage)), [](HWND dialog) {
    Focus(Control(dialog, 2023));  // the total height
    PressCtrlShift(VK_RIGHT);
    PressCtrlShift(VK_DOWN);
  });
  script.When(SteadyOnScreen(DialogWithControl(kImage)), Confirm);
  EXPECT_TRUE(m_editor.Run(script));
  EXPECT_EQ(m_editor.page.GetLengthCol(0), 40.0);
  EXPECT_EQ(m_editor.page.GetLengthRow(0), 21.0);
}

TEST_F(LayoutEditKeys, AFileIsSavedAndOpened) {
  const FolderOfPages folder;
  const std::wstring path = folder.PathOf("keys.mtpld");
  const auto choose = [&](ModalScript& script, UINT key) {
    Press(script, [key] { PressCtrl(key); });
    script.When(FileDialogShown(), [path](HWND dialog) {
      ::SetDlgItemTextW(dialog, kFileNameField, path.c_str());
      PressKey(dialog, VK_RETURN);
    });
  };
  {
    ModalScript script;
    choose(script, 'S');
    script.When(SteadyOnScreen(DialogWithControl(kImage)), Cancel);
    EXPECT_FALSE(m_editor.Run(script));
  }
  EXPECT_TRUE(std::filesystem::exists(path));

  LayoutEditor other(1, 1, 10.0, 10.0);
  ModalScript script;
  choose(script, 'O');
  script.When(SteadyOnScreen(DialogWithControl(kImage)), Confirm);
  EXPECT_TRUE(other.Run(script));
  EXPECT_EQ(other.page.GetNumRow(), 3);
  EXPECT_EQ(other.page.GetNumCol(), 4);
}

TEST_F(LayoutEditKeys, WithLinesThereAreNoFiles) {
  m_editor.lineMode = 1;
  ModalScript script;
  Press(script, [] { PressCtrl('O'); });
  script.When(SteadyOnScreen(AnyDialog()), [](HWND dialog) {
    EXPECT_NE(::GetDlgItem(dialog, kImage), nullptr);
    Cancel(dialog);
  });
  EXPECT_FALSE(m_editor.Run(script));
}

class LayoutExEditKeys : public ::testing::Test {
protected:
  ExtendedEditor m_editor;

  void Press(ModalScript& script, std::function<void()> keys) {
    WithKeys(script, kImages[1], std::move(keys));
  }
};

TEST_F(LayoutExEditKeys, CtrlEnterOpensTheListEditorOnTheCurrentBlock) {
  ModalScript script;
  Press(script, [] {
    PressCtrl(VK_DOWN);  // the header's only row
    PressCtrl(VK_DOWN);  // the list's first
    PressCtrl(VK_RETURN);
  });
  script.When(SteadyOnScreen(DialogWithTitle(L"ﾚｲｱｳﾄﾘｽﾄ編集")), [](HWND /*dialog*/) {
    PressCtrl(VK_RIGHT);
    SendKey(VK_F2);
  });
  script.When(SteadyOnScreen(DialogWithControl(kCelTextEdit)), [](HWND /*dialog*/) {
    SendKey('7');
    SendKey(VK_RETURN);
  });
  script.When(SteadyOnScreen(DialogWithTitle(L"ﾚｲｱｳﾄﾘｽﾄ編集")),
              [](HWND /*dialog*/) { SendKey(VK_ESCAPE); });
  Press(script, [] { SendKey(VK_RETURN); });
  EXPECT_TRUE(m_editor.Run(script));
  EXPECT_EQ(m_editor.TextOf(kList, 1), "7");  // the first cell was selected when it opened
}

TEST_F(LayoutExEditKeys, WithoutACurrentBlockCtrlEnterOpensTheFirstThatIsUsed) {
  m_editor.page.SetUse(kHeader, 0);
  ModalScript script;
  Press(script, [] { PressCtrl(VK_RETURN); });
  script.When(SteadyOnScreen(DialogWithTitle(L"ﾚｲｱｳﾄﾘｽﾄ編集")), [](HWND /*dialog*/) {
    PressCtrl(VK_DOWN);
    PressCtrl(VK_DOWN);
    PressCtrl(VK_DOWN);  // there are three rows in the list alone
    SendKey(VK_F2);
  });
  script.When(SteadyOnScreen(DialogWithControl(kCelTextEdit)), [](HWND /*dialog*/) {
    SendKey('8');
    SendKey(VK_RETURN);
  });
  script.When(SteadyOnScreen(DialogWithTitle(L"ﾚｲｱｳﾄﾘｽﾄ編集")),
              [](HWND /*dialog*/) { SendKey(VK_ESCAPE); });
  Press(script, [] { SendKey(VK_RETURN); });
  EXPECT_TRUE(m_editor.Run(script));
  EXPECT_EQ(m_editor.TextOf(kList, 8), "8");
}

TEST_F(LayoutExEditKeys, WithNoBlockInUseCtrlEnterDoesNothing) {
  for (const auto block : extended_editor::kBlocks) {
    m_editor.page.SetUse(block, 0);
  }
  ModalScript script;
  Press(script, [] { PressCtrl(VK_RETURN); });
  script.When(SteadyOnScreen(AnyDialog()), [](HWND dialog) {
    EXPECT_NE(::GetDlgItem(dialog, kImages[2]), nullptr);
    Cancel(dialog);
  });
  EXPECT_FALSE(m_editor.Run(script));
}

TEST_F(LayoutExEditKeys, ARectangleStaysInItsBlock) {
  ModalScript script;
  Press(script, [] {
    PressCtrl(VK_DOWN);
    PressCtrl(VK_DOWN);
    SendKey(VK_F8);
    for (int i = 0; i < 4; ++i) {
      PressCtrl(VK_DOWN);
    }
    SendKey(VK_F2);
  });
  script.When(SteadyOnScreen(DialogWithControl(kCelTextEdit)), [](HWND /*dialog*/) {
    SendKey('5');
    SendKey(VK_RETURN);
  });
  Press(script, [] { SendKey(VK_RETURN); });
  EXPECT_TRUE(m_editor.Run(script));
  for (const int index : {0, 4, 8}) {
    EXPECT_EQ(m_editor.TextOf(kList, index), "5");
  }
  EXPECT_EQ(m_editor.TextOf(extended_editor::kFooter, 0), "");
}

TEST_F(LayoutExEditKeys, F2WithShiftAndCtrlAsksForLengths) {
  const auto type = [](ModalScript& script, std::string digits) {
    script.When(SteadyOnScreen(DialogWithTitle(L"ｾﾙｻｲｽﾞ編集")),
                [digits = std::move(digits)](HWND /*dialog*/) {
                  for (const char digit : digits) {
                    SendKey(static_cast<UINT>(digit));
                  }
                  SendKey(VK_RETURN);
                });
  };
  ModalScript script;
  Press(script, [] {
    PressCtrl(VK_DOWN);
    PressCtrl(VK_DOWN);  // the list's first cell
    SendKey(VK_F2, {VK_SHIFT});
  });
  type(script, "33");
  Press(script, [] { SendKey(VK_F2, {VK_CONTROL}); });
  type(script, "11");
  Press(script, [] { SendKey(VK_RETURN); });
  EXPECT_TRUE(m_editor.Run(script));
  EXPECT_EQ(m_editor.page.GetLengthCol(0), 33.0F);
  EXPECT_EQ(m_editor.page.GetLengthCol(1), 47.0F);
  EXPECT_EQ(m_editor.page.GetLengthRow(kList, 0), 11.0F);
  EXPECT_EQ(m_editor.page.GetAllLengthRow(kList), 50.0F);
}

TEST_F(LayoutExEditKeys, ADataFieldGoesIntoTheSelectedCel) {
  m_editor.fields.Add("A");
  m_editor.fields.Add("B");
  m_editor.hasFields = true;
  ModalScript script;
  Press(script, [] { PressCtrl(VK_DOWN); });
  script.When(SteadyOnScreen(DialogWithControl(kImages[1])), [](HWND dialog) {
    Focus(Control(dialog, kFieldButton));
    SendKey(VK_SPACE);
  });
  script.When(SteadyOnScreen(DialogWithTitle(L"ﾌｨｰﾙﾄﾞ設定")),
              [](HWND /*dialog*/) { SendKey(VK_RETURN); });
  Press(script, [] { SendKey(VK_RETURN); });
  EXPECT_TRUE(m_editor.Run(script));
  EXPECT_NE(m_editor.TextOf(kHeader, 0), "");
}

}  // namespace
}  // namespace quorvel::test
