#include "layout/extended_editor.h"
#include "layout/tip_picture.h"
#include "driver/picture.h"
#include "res/ids.h"
#include "support/colour_environment.h"
#include "support/held_key.h"

#include <array>
#include <string>
#include <vector>

namespace quorvel::test {
namespace {

using namespace extended_editor;
using Cels = std::vector<int>;

constexpr int kListEditorImage = 4031;
constexpr std::uint32_t kBlack = 0x000000;
constexpr std::uint32_t kRed = 0xFF0000;

using LayoutExEditDlg = ExtendedEditorTest;

TEST_F(LayoutExEditDlg, AllBlocksAreShownAtOneScale) {
  Run([](HWND dialog, const PagesOnScreen& pages) {
    EXPECT_EQ(pages.Area(0).left, pages.Area(1).left);
    EXPECT_EQ(pages.RectOf(0, 1).right, pages.RectOf(2, 1).right);
    for (int block = 0; block < 3; ++block) {
      const HWND image = Control(dialog, kImages[static_cast<std::size_t>(block)]);
      ::UpdateWindow(image);
      const Picture picture = ReadPixels(image);
      const CRect cel = pages.RectOf(block, 1);
      EXPECT_EQ(picture.At(cel.right, (cel.top + cel.bottom) / 2), kBlack) << block;
      EXPECT_EQ(picture.At(pages.Area(block).left - 3, pages.Area(block).top + 3), 0xBFBFBFU);
    }
    Cancel(dialog);
  });
}

TEST_F(LayoutExEditDlg, AClickMakesItsBlockTheCurrentOneAndShowsTheText) {
  m_editor.Cel(kList, 5).SetText("品名");
  Run([](HWND dialog, const PagesOnScreen& pages) {
    pages.ClickCel(0, 2);
    pages.ClickCel(1, 5);
    EXPECT_EQ(Text(dialog, kTextLine), L"品名");
    EXPECT_EQ(::GetFocus(), Control(dialog, kTextLine));
    ::UpdateWindow(Control(dialog, kImages[0]));
    const CRect old = pages.RectOf(0, 2);
    EXPECT_EQ(ReadPixels(Control(dialog, kImages[0])).At(old.left, old.top + 5), kBlack);
    ::UpdateWindow(Control(dialog, kImages[1]));
    const CRect cel = pages.RectOf(1, 5);
    const Picture picture = ReadPixels(Control(dialog, kImages[1]));
    EXPECT_EQ(picture.At(cel.left, cel.top + 5), kRed);
    EXPECT_EQ(picture.At(cel.right - 9, cel.bottom - 9), 0xFFE2E2U);
    Command(dialog, IDM_ALIGN_BOTTOM);
    Confirm(dialog);
  });
  EXPECT_EQ(m_editor.Cel(kList, 5).GetFont()->GetVPos(), 2);
  EXPECT_EQ(m_editor.Cel(kHeader, 2).GetFont()->GetVPos(), 0);
  EXPECT_EQ(Selected(kList), Cels());  // OK deselects
}

TEST_F(LayoutExEditDlg, CommandsWithoutACurrentBlockDoNothing) {
  m_editor.Cel(kList, 0).SetSelected(1);
  Run([](HWND dialog, const PagesOnScreen&) {
    for (UINT command = IDM_EDIT_TEXT; command <= IDM_EQUAL_ROWS; ++command) {
      if (command != IDM_OPEN_LAYOUT && command != IDM_SAVE_LAYOUT) {
        Command(dialog, command);
      }
    }
    ::SendMessageW(dialog, WM_CONTEXTMENU, reinterpret_cast<WPARAM>(dialog), -1);
    Confirm(dialog);
  });
  EXPECT_EQ(m_editor.page.GetNumCol(), 4);
}

TEST_F(LayoutExEditDlg, BlocksThatAreNotUsedIgnoreTheMouse) {
  m_editor.page.SetUse(kList, 0);
  Run([](HWND dialog, const PagesOnScreen& pages) {
    pages.ClickCel(1, 5);
    pages.Send(WM_LBUTTONDBLCLK, MK_LBUTTON, 1, pages.CentreOf(1, 5));
    pages.Send(WM_RBUTTONUP, 0, 1, pages.CentreOf(1, 5));
    EXPECT_EQ(VisibleDialogs().size(), 1U);
    Command(dialog, IDM_ALIGN_BOTTOM);
    EXPECT_FALSE(IsEnabled(dialog, kHeights[1]));
    EXPECT_FALSE(IsEnabled(dialog, kRepeat));
    EXPECT_TRUE(IsEnabled(dialog, kOffset));
    Press(dialog, kListUse);
    EXPECT_TRUE(IsEnabled(dialog, kRepeat));
    Press(dialog, kFooterUse);
    for (const int id : {kHeights[2], kRows[2], kEqual[2]}) {
      EXPECT_FALSE(IsEnabled(dialog, id));
    }
    Confirm(dialog);
  });
  EXPECT_EQ(m_editor.Cel(kList, 5).GetFont()->GetVPos(), 0);
  EXPECT_EQ(m_editor.page.GetUse(kList), 1);
  EXPECT_EQ(m_editor.page.GetUse(kFooter), 0);
  EXPECT_EQ(m_editor.page.GetUse(kHeader), 1);
}

TEST_F(LayoutExEditDlg, NearABorderItIsDraggedAndDeeperACelIsSelected) {
  Run([](HWND dialog, const PagesOnScreen& pages) {
    const CRect cel = pages.RectOf(1, 5);
    const CPoint nearBorder(cel.right - 2, (cel.top + cel.bottom) / 2);
    pages.Press(1, nearBorder);
    pages.Release(1, {nearBorder.x + 30, nearBorder.y});
    Confirm(dialog);
  });
  EXPECT_GT(m_editor.page.GetLengthCol(1), 40.0F);
  EXPECT_EQ(m_editor.page.GetLengthCol(1) + m_editor.page.GetLengthCol(2), 80.0F);
  m_editor = ExtendedEditor();
  Run([](HWND dialog, const PagesOnScreen& pages) {
    const CRect cel = pages.RectOf(1, 5);
    const CPoint inside(cel.right - 4, cel.bottom - 3);
    pages.Press(1, inside);
    pages.Release(1, inside);
    Command(dialog, IDM_ALIGN_RIGHT);
    Confirm(dialog);
  });
  EXPECT_EQ(m_editor.Cel(kList, 5).GetFont()->GetHPos(), 2);
}

TEST_F(LayoutExEditDlg, TheRightButtonDuringADragAsksForExactLengths) {
  ModalScript script;
  script.When(Painted(DialogWithControl(kTextLine)), [&](HWND dialog) {
    const PagesOnScreen pages(dialog, m_editor.page);
    const CRect cel = pages.RectOf(1, 0);
    pages.Press(1, {cel.right, cel.top + 10});
    ::PostMessageW(dialog, WM_RBUTTONUP, 0, MAKELPARAM(5, 5));
  });
  script.When(Painted(DialogWithControl(4055)), [](HWND dialog) {
    EXPECT_EQ(::GetCapture(), nullptr);
    EXPECT_EQ(Text(dialog, 4055), L"40.0");
    ReplaceText(Control(dialog, 4055), L"12.5");
    PressKey(Control(dialog, 4055), VK_RETURN);
  });
  script.When(EditorShown(), [&](HWND dialog) {
    CLayoutExPageData moved = m_editor.page;
    moved.SetLengthCol(0, 12.5F);
    moved.SetLengthCol(1, 67.5F);
    const PagesOnScreen pages(dialog, moved);
    for (const int block : {0, 1, 2}) {
      const CRect cel = pages.RectOf(block, 0);
      const Picture picture = ReadPixels(Control(dialog, kImages[static_cast<std::size_t>(block)]));
      EXPECT_EQ(picture.At(cel.right, (cel.top + cel.bottom) / 2), kBlack) << block;
    }
    Confirm(dialog);
  });
  EXPECT_TRUE(m_editor.Run(script));
  EXPECT_EQ(m_editor.page.GetLengthCol(0), 12.5F);
  EXPECT_EQ(m_editor.page.GetLengthCol(1), 67.5F);
}

TEST_F(LayoutExEditDlg, WhatIsTypedIntoTheLineGoesToAllSelectedCels) {
  Run([](HWND dialog, const PagesOnScreen& pages) {
    pages.DragCels(1, 0, 5);
    EXPECT_EQ(Text(dialog, kTextLine), L"");
    Type(Control(dialog, kTextLine), L'x');
    Command(dialog, IDOK);  // takes what was typed
    Command(dialog, IDOK);
  });
  for (const int index : {0, 1, 4, 5}) {
    EXPECT_EQ(m_editor.TextOf(kList, index), "x");
  }
  EXPECT_EQ(m_editor.TextOf(kList, 2), "");
}

TEST_F(LayoutExEditDlg, AModifiedLineKeepsOkFromClosing) {
  for (const bool again : {false, true}) {
    EXPECT_EQ(Run([again](HWND dialog, const PagesOnScreen& pages) {
                pages.ClickCel(0, 1);
                ::SetWindowTextW(Control(dialog, kTextLine), L"題名");
                ::SendMessageW(Control(dialog, kTextLine), EM_SETMODIFY, TRUE, 0);
                Command(dialog, IDOK);
                again ? Command(dialog, IDOK) : Cancel(dialog);
              }) != FALSE,
              again);
  }
  EXPECT_EQ(m_editor.TextOf(kHeader, 1), "題名");
}

TEST_F(LayoutExEditDlg, AModifiedLineIsStoredBeforeAnotherCelIsTaken) {
  Run([](HWND dialog, const PagesOnScreen& pages) {
    pages.ClickCel(0, 1);
    ::SetWindowTextW(Control(dialog, kTextLine), L"題名");
    ::SendMessageW(Control(dialog, kTextLine), EM_SETMODIFY, TRUE, 0);
    pages.ClickCel(1, 0);
    Confirm(dialog);
  });
  EXPECT_EQ(m_editor.TextOf(kHeader, 1), "題名");
  EXPECT_EQ(m_editor.TextOf(kList, 0), "");
}

TEST_F(LayoutExEditDlg, SwitchingBlocksLosesNoTypedText) {
  Run([](HWND dialog, const PagesOnScreen& pages) {
    pages.ClickCel(1, 0);
    Type(Control(dialog, kTextLine), L'a');
    pages.ClickCel(2, 1);
    Command(dialog, IDM_EDIT_TEXT);
    Type(Control(dialog, kCelTextEdit), L'b');
    EXPECT_EQ(Text(dialog, kTextLine), L"b");
    pages.ClickCel(0, 0);
    Confirm(dialog);
  });
  EXPECT_EQ(m_editor.TextOf(kList, 0), "a");
  EXPECT_EQ(m_editor.TextOf(kFooter, 1), "b");
  EXPECT_EQ(m_editor.TextOf(kHeader, 0), "");
}

TEST_F(LayoutExEditDlg, ATextFieldThatWasChangedKeepsOkFromClosing) {
  for (const bool again : {false, true}) {
    EXPECT_EQ(Run([again](HWND dialog, const PagesOnScreen& pages) {
                pages.ClickCel(1, 0);
                Command(dialog, IDM_EDIT_TEXT);
                Type(Control(dialog, kCelTextEdit), L'c');
                Command(dialog, IDOK);
                EXPECT_EQ(::GetDlgItem(dialog, kCelTextEdit), nullptr);
                again ? Command(dialog, IDOK) : Cancel(dialog);
              }) != FALSE,
              again);
  }
  EXPECT_EQ(m_editor.TextOf(kList, 0), "c");
}

TEST_F(LayoutExEditDlg, ShiftKeepsWhatWasSelected) {
  m_editor.Cel(kList, 6).SetText("六");
  Run([](HWND dialog, const PagesOnScreen& pages) {
    pages.ClickCel(1, 1);
    {
      const HeldKey shift(VK_SHIFT);
      pages.ClickCel(1, 6);
      EXPECT_EQ(Text(dialog, kTextLine), L"六");
      pages.DragCels(1, 11, 8);
      EXPECT_EQ(Text(dialog, kTextLine), L"");
      EXPECT_EQ(::GetFocus(), Control(dialog, kTextLine));
    }
    Command(dialog, IDM_ALIGN_BOTTOM);
    Confirm(dialog);
  });
  for (int index = 0; index < 12; ++index) {
    EXPECT_EQ(m_editor.Cel(kList, index).GetFont()->GetVPos() == 2,
              index == 1 || index == 6 || index >= 8)
        << index;
  }
}

TEST_F(LayoutExEditDlg, WithoutShiftAClickSelectsOneCelAndTheSecondNone) {
  m_editor.Cel(kList, 6).SetText("六");
  Run([](HWND dialog, const PagesOnScreen& pages) {
    pages.DragCels(1, 0, 5);
    pages.ClickCel(1, 6);
    Command(dialog, IDM_ALIGN_BOTTOM);
    pages.ClickCel(1, 6);
    EXPECT_EQ(Text(dialog, kTextLine), L"");  // nothing is selected any more
    EXPECT_EQ(EnabledTools(dialog), Cels());
    Confirm(dialog);
  });
  EXPECT_EQ(m_editor.Cel(kList, 0).GetFont()->GetVPos(), 0);
  EXPECT_EQ(m_editor.Cel(kList, 6).GetFont()->GetVPos(), 2);
}

TEST_F(LayoutExEditDlg, ShiftWithAClickOnTheOnlySelectedCelKeepsIt) {
  Run([](HWND dialog, const PagesOnScreen& pages) {
    pages.ClickCel(1, 6);
    const HeldKey shift(VK_SHIFT);
    pages.ClickCel(1, 6);
    EXPECT_NE(EnabledTools(dialog), Cels());
    Cancel(dialog);
  });
}

TEST_F(LayoutExEditDlg, ABlocksSelectionGoesWhenAnotherIsPressed) {
  Run([](HWND dialog, const PagesOnScreen& pages) {
    pages.DragCels(1, 0, 5);
    const CRect cel = pages.RectOf(0, 1);
    pages.Press(0, {cel.right, (cel.top + cel.bottom) / 2});  // a border
    pages.Release(0, {cel.right, (cel.top + cel.bottom) / 2});
    Command(dialog, IDM_ALIGN_BOTTOM);
    pages.ClickCel(1, 11);
    Command(dialog, IDM_ALIGN_RIGHT);
    Confirm(dialog);
  });
  EXPECT_EQ(m_editor.Cel(kList, 0).GetFont()->GetVPos(), 0);
  EXPECT_EQ(m_editor.Cel(kList, 0).GetFont()->GetHPos(), 0);
  EXPECT_EQ(m_editor.Cel(kList, 11).GetFont()->GetHPos(), 2);
}

HWND ReadOut() { return ::FindWindowW(L"CToolTip", nullptr); }

TEST_F(LayoutExEditDlg, TheReadOutHasOneDecimalAndTheDragWholeMillimetres) {
  m_editor.page.SetAllLengthCol(160.8F, 1);  // 40.2 each
  ModalScript script;
  CPoint target;
  script.When(EditorShown(), [&](HWND dialog) {
    const PagesOnScreen pages = Pages(dialog);
    const CRect cel = pages.RectOf(2, 1);
    target = {cel.right + static_cast<int>(7.3 * pages.PixelsPerMm()), cel.top + 3};
    pages.Press(2, {cel.right, target.y});
    CPoint onScreen = target;
    ::ClientToScreen(Control(dialog, kImages[2]), &onScreen);
    ::SetCursorPos(onScreen.x, onScreen.y);
    pages.MoveTo(2, target);
  });
  script.When({"the read-out is shown",
               [] { return ::IsWindowVisible(ReadOut()) != FALSE ? ReadOut() : nullptr; }},
              [](HWND readOut) { EXPECT_TRUE(ShowsLine(readOut, L"47.2mm / 33.2mm")); });
  script.When(DialogWithControl(kImages[1]), [&](HWND dialog) {
    Pages(dialog).Release(2, target);
    EXPECT_EQ(ReadOut(), nullptr);
    Confirm(dialog);
  });
  EXPECT_TRUE(m_editor.Run(script));
  EXPECT_FLOAT_EQ(m_editor.page.GetLengthCol(1), 47.2F);
  EXPECT_FLOAT_EQ(m_editor.page.GetLengthCol(2), 33.2F);
}

TEST_F(LayoutExEditDlg, RowsComeBeforeColumnsAndEachBlockHasItsRows) {
  Run([](HWND dialog, const PagesOnScreen& pages) {
    const CRect cel = pages.RectOf(1, 5);
    pages.Press(1, {cel.right, cel.bottom});
    pages.Release(1, {cel.right, cel.bottom + static_cast<int>(4.0 * pages.PixelsPerMm())});
    Confirm(dialog);
  });
  EXPECT_GT(m_editor.page.GetLengthRow(kList, 1), m_editor.page.GetLengthRow(kList, 0));
  EXPECT_LT(m_editor.page.GetLengthRow(kList, 2), m_editor.page.GetLengthRow(kList, 0));
  EXPECT_EQ(m_editor.page.GetLengthCol(1), 40.0F);
  EXPECT_EQ(m_editor.page.GetLengthRow(kFooter, 0), 5.0F);
}

TEST_F(LayoutExEditDlg, TheColumnsBorderMovesInAllPictures) {
  Run([&](HWND dialog, const PagesOnScreen& pages) {
    const CRect cel = pages.RectOf(0, 0);
    pages.Press(0, {cel.right, cel.top + 3});
    const CPoint target(cel.right - static_cast<int>(10.2 * pages.PixelsPerMm()), cel.top + 3);
    pages.Release(0, target);
    CLayoutExPageData moved = m_editor.page;
    moved.SetLengthCol(0, 30.0F);
    moved.SetLengthCol(1, 50.0F);
    const PagesOnScreen after(dialog, moved);
    for (int block = 0; block < 3; ++block) {
      const HWND image = Control(dialog, kImages[static_cast<std::size_t>(block)]);
      ::UpdateWindow(image);
      const CRect now = after.RectOf(block, 0);
      const int middle = (now.top + now.bottom) / 2;
      EXPECT_EQ(ReadPixels(image).At(now.right, middle), kBlack) << block;
      EXPECT_EQ(now.right, after.RectOf(0, 0).right);
    }
    Confirm(dialog);
  });
  EXPECT_EQ(m_editor.page.GetLengthCol(0), 30.0F);
}

TEST_F(LayoutExEditDlg, HiddenLinesAreDottedAndShownOnesSolid) {
  CLayoutCelData& cel = m_editor.Cel(kList, 5);
  cel.SetShowLineHR(0);
  m_editor.Cel(kList, 6).SetShowLineHL(0);
  Run([](HWND dialog, const PagesOnScreen& pages) {
    const HWND image = Control(dialog, kImages[1]);
    ::UpdateWindow(image);
    const Picture picture = ReadPixels(image);
    const CRect rect = pages.RectOf(1, 5);
    int black = 0;
    for (int y = rect.top + 3; y < rect.bottom - 3; ++y) {
      black += picture.At(rect.right, y) == kBlack ? 1 : 0;
      EXPECT_EQ(picture.At(rect.left, y), kBlack) << y;
    }
    EXPECT_GT(black, 0);
    EXPECT_LT(black, rect.Height() - 8);
    Cancel(dialog);
  });
}

TEST_F(LayoutExEditDlg, TheTextLineTakesACelsTextAsItIs) {
  m_editor.Cel(kList, 0).SetText("100%s ソ&");
  Run([](HWND dialog, const PagesOnScreen& pages) {
    pages.ClickCel(1, 0);
    EXPECT_EQ(Text(dialog, kTextLine), L"100%s ソ&");
    ::SetFocus(Control(dialog, IDOK));  // left, but not changed
    pages.ClickCel(1, 1);
    Confirm(dialog);
  });
  EXPECT_EQ(m_editor.TextOf(kList, 0), "100%s ソ&");
  EXPECT_EQ(m_editor.TextOf(kList, 1), "");
}

TEST_F(LayoutExEditDlg, AfterTheLineWasLeftTheFirstOkCloses) {
  EXPECT_TRUE(Run([](HWND dialog, const PagesOnScreen& pages) {
    pages.ClickCel(1, 0);
    Type(Control(dialog, kTextLine), L'q');
    ::SetFocus(Control(dialog, IDOK));
    Command(dialog, IDOK);
  }));
  EXPECT_EQ(m_editor.TextOf(kList, 0), "q");
}

TEST_F(LayoutExEditDlg, AfterAnotherCelWasTakenTheFirstOkCloses) {
  EXPECT_TRUE(Run([](HWND dialog, const PagesOnScreen& pages) {
    pages.ClickCel(1, 0);
    Type(Control(dialog, kTextLine), L'q');
    pages.ClickCel(1, 1);
    Command(dialog, IDOK);
  }));
  EXPECT_EQ(m_editor.TextOf(kList, 0), "q");
  EXPECT_EQ(m_editor.TextOf(kList, 1), "");
}

TEST_F(LayoutExEditDlg, EnterTwiceInTheLine) {
  ModalScript script;
  script.When(EditorShown(), [&](HWND dialog) {
    Pages(dialog).ClickCel(1, 4);
    TypeText(Control(dialog, kTextLine), L"図");
    PressKey(Control(dialog, kTextLine), VK_RETURN);
  });
  script.When(EditorShown(), [](HWND dialog) {
    EXPECT_EQ(Text(dialog, kTextLine), L"図");
    TypeText(Control(dialog, kTextLine), L"面");
    PressKey(Control(dialog, kTextLine), VK_RETURN);
  });
  script.When(EditorShown(), [](HWND dialog) {
    PressKey(Control(dialog, kTextLine), VK_RETURN);
  });
  EXPECT_TRUE(m_editor.Run(script));
  EXPECT_EQ(m_editor.TextOf(kList, 4), "図面");
}

TEST_F(LayoutExEditDlg, CtrlWithArrowKeysLeadsThroughTheBlocks) {
  m_editor.page.SetUse(kList, 0);
  m_editor.Cel(kHeader, 1).SetText("頭");
  m_editor.Cel(kFooter, 5).SetText("足");
  ModalScript script;
  const auto press = [&](UINT key) {
    script.When(SteadyOnScreen(DialogWithControl(kImages[1])), [key](HWND dialog) {
      ::SetFocus(Control(dialog, IDOK));
      SendKey(key, {VK_CONTROL});
    });
  };
  const auto expect = [&](const wchar_t* text, int block, int index) {
    script.When(SteadyOnScreen(DialogWithControl(kImages[1])), [&, text, block, index](HWND dialog) {
      const HWND image = Control(dialog, kImages[static_cast<std::size_t>(block)]);
      const CRect cel = Pages(dialog).RectOf(block, index);
      EXPECT_EQ(Text(dialog, kTextLine), text) << index;
      EXPECT_EQ(ReadPixels(image).At(cel.left, (cel.top + cel.bottom) / 2), kRed) << index;
    });
  };
  press(VK_UP);  // no block is current
  expect(L"", 0, 0);
  press(VK_RIGHT);
  expect(L"頭", 0, 1);
  press(VK_UP);  // nothing is above
  expect(L"頭", 0, 1);
  press(VK_DOWN);  // over the list, which is not used
  expect(L"", 2, 1);
  press(VK_DOWN);
  expect(L"足", 2, 5);
  press(VK_DOWN);
  expect(L"足", 2, 5);
  press(VK_UP);
  press(VK_UP);
  expect(L"頭", 0, 1);
  script.When(DialogWithControl(kImages[1]), Cancel);
  m_editor.Run(script);
}

TEST_F(LayoutExEditDlg, InTheTextLineTheKeysLeadUpAndDown) {
  ModalScript script;
  script.When(EditorShown(), [&](HWND dialog) {
    Pages(dialog).ClickCel(1, 0);
    TypeText(Control(dialog, kTextLine), L"一");
  });
  script.When(SteadyOnScreen(DialogWithControl(kImages[1])),
              [](HWND) { SendKey(VK_DOWN, {VK_CONTROL}); });
  script.When(SteadyOnScreen(DialogWithControl(kImages[1])), [](HWND dialog) {
    EXPECT_EQ(::GetFocus(), Control(dialog, kTextLine));
    TypeText(Control(dialog, kTextLine), L"two");
  });
  script.When(SteadyOnScreen(DialogWithControl(kImages[1])),
              [](HWND) { SendKey(VK_LEFT, {VK_CONTROL}); });  // to the word's beginning
  script.When(SteadyOnScreen(DialogWithControl(kImages[1])), [](HWND dialog) {
    EXPECT_EQ(SelectionOf(Control(dialog, kTextLine)), Selection());
    ::SetFocus(Control(dialog, IDOK));
    Confirm(dialog);
  });
  EXPECT_TRUE(m_editor.Run(script));
  EXPECT_EQ(m_editor.TextOf(kList, 0), "一");
  EXPECT_EQ(m_editor.TextOf(kList, 4), "two");
}

TEST_F(LayoutExEditDlg, RowsAndColumnsComeAndGo) {
  Run([](HWND dialog, const PagesOnScreen& pages) {
    pages.ClickCel(1, 5);
    Command(dialog, IDM_INSERT_COLUMN);
    EXPECT_EQ(Text(dialog, kColumns), L"5");
    EXPECT_EQ(Text(dialog, kWidth), L"200");
    EXPECT_EQ(Text(dialog, kTextLine), L"");
    Command(dialog, IDM_INSERT_ROW);  // nothing is selected any more
    EXPECT_EQ(Text(dialog, kRows[1]), L"3");
    Confirm(dialog);
  });
  EXPECT_EQ(m_editor.page.GetNumCol(), 5);
  Run([](HWND dialog, const PagesOnScreen& pages) {
    pages.ClickCel(1, 0);
    Command(dialog, IDM_INSERT_ROW);
    EXPECT_EQ(Text(dialog, kRows[1]), L"4");
    Confirm(dialog);
  });
  EXPECT_EQ(m_editor.page.GetNumRow(kList), 4);
  EXPECT_EQ(m_editor.page.GetNumRow(kFooter), 2);
}

TEST_F(LayoutExEditDlg, DeletingAsksFirst) {
  for (const bool agrees : {false, true}) {
    for (const auto& [command, question] :
         {std::pair(IDM_DELETE_COLUMN, L"選択列を削除します。宜しいですか?"),
          std::pair(IDM_DELETE_ROW, L"選択行を削除します。宜しいですか?")}) {
      ModalScript script;
      script.When(Painted(DialogWithControl(kTextLine)),
                  [&, command = command](HWND dialog) {
                    PagesOnScreen(dialog, m_editor.page).ClickCel(1, 5);
                    ::PostMessageW(dialog, WM_COMMAND, static_cast<WPARAM>(command), 0);
                  });
      script.When(MessageBoxShown(), [agrees, question = question](HWND box) {
        EXPECT_EQ(Text(box, 0xFFFF), question);
        Click(box, agrees ? IDOK : IDCANCEL);
      });
      script.When(DialogWithControl(kTextLine), Confirm);
      EXPECT_TRUE(m_editor.Run(script));
    }
    EXPECT_EQ(m_editor.page.GetNumCol(), agrees ? 3 : 4);
    EXPECT_EQ(m_editor.page.GetNumRow(kList), agrees ? 2 : 3);
  }
}

TEST_F(LayoutExEditDlg, CountsAndTotalsOfEachBlock) {
  Run([](HWND dialog, const PagesOnScreen&) {
    TypeAndLeave(dialog, kColumns, L"6");
    EXPECT_EQ(Text(dialog, kWidth), L"160");
    TypeAndLeave(dialog, kRows[2], L"5");
    TypeAndLeave(dialog, kHeights[1], L"60+15");
    TypeAndLeave(dialog, kWidth, L"180");
    TypeAndLeave(dialog, kRepeat, L"12");
    TypeAndLeave(dialog, kOffset, L"3");
    Confirm(dialog);
  });
  for (const auto block : kBlocks) {
    EXPECT_EQ(m_editor.page.GetCelSize(block), m_editor.page.GetNumRow(block) * 6);
  }
  EXPECT_EQ(m_editor.page.GetNumRow(kFooter), 5);
  EXPECT_EQ(m_editor.page.GetAllLengthRow(kList), 75.0F);
  EXPECT_EQ(m_editor.page.GetAllLengthCol(), 180.0F);
  EXPECT_EQ(m_editor.page.GetRepeatRow(), 12);
  EXPECT_EQ(m_editor.page.GetStIndex(), 3);
}

TEST_F(LayoutExEditDlg, ADoubleClickOpensTheListEditorOnThePage) {
  ModalScript script;
  script.When(Painted(DialogWithControl(kTextLine)), [&](HWND dialog) {
    Pages(dialog).DoubleClickLater(2, 1);
  });
  script.When(Painted(DialogWithTitle(L"ﾚｲｱｳﾄﾘｽﾄ編集")), [](HWND dialog) {
    const CRect image = ClientRectOf(Control(dialog, kListEditorImage));
    const LPARAM middle =
        MAKELPARAM((image.left + image.right) / 2 + 20, (image.top + image.bottom) / 2 + 20);
    ::SendMessageW(dialog, WM_LBUTTONDOWN, MK_LBUTTON, middle);
    ::SendMessageW(dialog, WM_LBUTTONUP, 0, middle);
    Type(Control(dialog, kTextLine), L'd');
    Command(dialog, IDM_INSERT_COLUMN);
    Cancel(dialog);  // keeps every change
  });
  script.When(DialogWithTitle(L"ﾚｲｱｳﾄ編集"), [](HWND dialog) {
    EXPECT_EQ(Text(dialog, kColumns), L"5");
    Confirm(dialog);
  });
  EXPECT_TRUE(m_editor.Run(script));
  EXPECT_EQ(m_editor.page.GetNumCol(), 5);
  EXPECT_EQ(m_editor.TextOf(kFooter, 8), "d");
}

TEST_F(LayoutExEditDlg, CancelLeavesThePageAndKeepsTheSettings) {
  ColourEnvironment environment;
  m_editor.env = &environment.Env();
  m_editor.names.Add("図面名");
  Run([](HWND dialog, const PagesOnScreen& pages) {
    pages.ClickCel(1, 0);
    Type(Control(dialog, kTextLine), L'e');
    Press(dialog, 4029);
    TypeAndLeave(dialog, kColumns, L"1");
    Cancel(dialog);
  });
  EXPECT_EQ(m_editor.TextOf(kList, 0), "");
  EXPECT_EQ(m_editor.page.GetNumCol(), 4);
  int appends = 7;
  environment.Env().GetRegistry("LayoutExEdit").ReadRegistry("MacroIns", &appends, sizeof appends);
  EXPECT_EQ(appends, 1);
}

}  // namespace
}  // namespace quorvel::test
