#include "dialogs/layout/layout_list_edit_dlg.h"

#include "driver/picture.h"
#include "driver/product_state.h"
#include "framework/code_page.h"
#include "layout/extended_editor.h"
#include "layout/tip_picture.h"
#include "support/colour_environment.h"
#include "support/held_key.h"
#include "support/templates.h"

#include <array>
#include <cmath>
#include <functional>
#include <string>
#include <vector>

namespace quorvel::test {
namespace {

constexpr auto kBlock = CLayoutExPageData::LISTTYPE_LIST;
constexpr double kDotsPerMm = 11.811;
constexpr int kImage = 4031;
constexpr int kRealText = 4032;
constexpr int kTextLine = 4044;
constexpr int kInsertion = 2045;
constexpr int kAppend = 4029;
constexpr int kField = 4030;
constexpr std::uint32_t kGrey = 0xBFBFBF;
constexpr std::uint32_t kWhite = 0xFFFFFF;

Picture Image(HWND dialog) {
  ::UpdateWindow(Control(dialog, kImage));
  return ReadPixels(Control(dialog, kImage));
}

/// A page whose list block has 2 x 3 cells of 20 x 50 mm.
class LayoutListEditDlg : public ::testing::Test {
protected:
  LayoutListEditDlg() {
    m_page.DividePage(kBlock, 2, 3, kDotsPerMm);
    m_page.SetAllLengthCol(150.0F, 1);
    m_page.SetAllLengthRow(kBlock, 40.0F, 1);
  }

  INT_PTR Run(ModalScript& script) {
    CLayoutListEditDlg dialog(m_env, nullptr, &m_page, m_fields.GetSize() > 0 ? &m_fields : nullptr,
                              m_names.GetSize() > 0 ? &m_names : nullptr, &m_numbers, kDotsPerMm,
                              kBlock, m_position, nullptr);
    return Work(script, [&] { return driver::RunWithProductResources(dialog); });
  }
  INT_PTR Run(ModalScript::Action action) {
    ModalScript script;
    script.When(Painted(DialogWithControl(kTextLine)), std::move(action));
    return Run(script);
  }
  CLayoutCelData& Cel(int index) { return *m_page.GetCelAt(kBlock, index); }
  std::string TextOf(int index) { return Cel(index).GetText().GetString(); }

  /// The page fills the picture's width: the centre of a cell, in the dialog's pixels.
  CPoint CentreOf(HWND dialog, int index) const {
    const CRect image = ClientRectOf(Control(dialog, kImage));
    CRect area(1, 1, image.Width() - 1, image.Height() - 1);
    const int rows = m_page.GetNumRow(kBlock);
    const int cols = m_page.GetNumCol();
    const double perMm = area.Width() / static_cast<double>(m_page.GetAllLengthCol());
    const double height = m_page.GetAllLengthRow(kBlock) * perMm;
    const double top = area.top + (area.Height() - height) / 2;
    const int row = index / cols;
    return {image.left + area.left + (2 * (index % cols) + 1) * area.Width() / (2 * cols),
            image.top + static_cast<int>(top + (2 * row + 1) * height / (2 * rows))};
  }
  void Click(HWND dialog, int index) const { Drag(dialog, index, index); }
  void Drag(HWND dialog, int from, int to) const {
    const CPoint first = CentreOf(dialog, from);
    const CPoint last = CentreOf(dialog, to);
    ::SendMessageW(dialog, WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(first.x, first.y));
    ::SendMessageW(dialog, WM_LBUTTONUP, 0, MAKELPARAM(last.x, last.y));
  }

  CLayoutExPageData m_page;
  CKivSysEnv* m_env = nullptr;
  CPoint* m_position = nullptr;
  CStringArray m_fields;
  CStringArray m_names;
  CDWordArray m_numbers;
};

TEST_F(LayoutListEditDlg, TheTemplate) {
  m_names.Add("図面名");
  m_fields.Add("数量");
  Run([](HWND dialog) {
    ::DestroyWindow(::FindWindowExW(dialog, nullptr, L"ToolbarWindow32", nullptr));
    ExpectTemplate(dialog, L"ﾚｲｱｳﾄﾘｽﾄ編集", {669, 294}, L"MS Shell Dlg",
                   {{4031, L"Static", L"ﾚｲｱｳﾄのｲﾒｰｼﾞ", {20, 54, 626, 200}},  // above its group
                    {kNoId, L"Button", L"ﾚｲｱｳﾄｲﾒｰｼﾞ", {8, 8, 650, 256}},
                    {2041, L"Button", L"文字の色 赤 0 緑 0 青 0", {220, 23, 12, 10}},
                    {2043, L"Button", L"文字の色を選ぶ", {232, 23, 6, 10}},
                    {2042, L"Button", L"背景の色 赤 255 緑 255 青 255", {242, 23, 12, 10}},
                    {2044, L"Button", L"背景の色を選ぶ", {254, 23, 6, 10}},
                    {2045, L"ComboBox", L"", {266, 21, 100, 272}},
                    {4029, L"Button", L"追加", {372, 21, 30, 12}},
                    {4030, L"Button", L"ﾌｨｰﾙﾄﾞ", {410, 21, 40, 12}},
                    {4032, L"Button", L"ﾃｷｽﾄ等倍表示", {586, 20, 60, 12}},
                    {4044, L"Edit", L"", {20, 36, 626, 12}},
                    {IDOK, L"Button", L"終了", {610, 270, 50, 14}}});
    Cancel(dialog);
  });
}

TEST_F(LayoutListEditDlg, EveryChangeIsMadeOnThePageAtOnce) {
  const INT_PTR result = Run([&](HWND dialog) {
    Click(dialog, 4);
    Command(dialog, IDM_ALIGN_BOTTOM);
    EXPECT_EQ(Cel(4).GetFont()->GetVPos(), 2);
    Cancel(dialog);
  });
  EXPECT_EQ(result, IDCANCEL);
  EXPECT_EQ(Cel(4).GetFont()->GetVPos(), 2);
}

TEST_F(LayoutListEditDlg, EndingDeselects) {
  EXPECT_EQ(Run([&](HWND dialog) {
              Drag(dialog, 0, 4);
              Confirm(dialog);
            }),
            IDOK);
  EXPECT_EQ(m_page.IsSelected(kBlock), 0);
}

TEST_F(LayoutListEditDlg, TheFirstEnterTakesTheTextAndTheSecondEnds) {
  ModalScript script;
  script.When(Painted(DialogWithControl(kTextLine)), [&](HWND dialog) {
    Click(dialog, 0);
    TypeText(Control(dialog, kTextLine), L"ab");
    PressKey(Control(dialog, kTextLine), VK_RETURN);
  });
  script.When(Painted(DialogWithControl(kTextLine)), [&](HWND dialog) {
    EXPECT_EQ(TextOf(0), "ab");
    PressKey(Control(dialog, kTextLine), VK_RETURN);
  });
  EXPECT_EQ(Run(script), IDOK);
}

TEST_F(LayoutListEditDlg, ADoubleClickEditsInTheCel) {
  for (const bool again : {false, true}) {
    const INT_PTR result = Run([&](HWND dialog) {
      Click(dialog, 1);
      const CPoint point = CentreOf(dialog, 1);
      ::SendMessageW(dialog, WM_LBUTTONDBLCLK, MK_LBUTTON, MAKELPARAM(point.x, point.y));
      ASSERT_NE(::GetDlgItem(dialog, kCelTextEdit), nullptr);
      Type(Control(dialog, kCelTextEdit), L'c');
      EXPECT_EQ(Text(dialog, kTextLine), L"c");
      Command(dialog, IDOK);
      EXPECT_EQ(TextOf(1), "c");
      again ? Command(dialog, IDOK) : Cancel(dialog);
    });
    EXPECT_EQ(result, again ? IDOK : IDCANCEL);
    Cel(1).SetSelected(0);
  }
}

TEST_F(LayoutListEditDlg, TheCelThatIsEditedIsNotPainted) {
  Cel(1).SetText("■■■");
  Run([&](HWND dialog) {
    Click(dialog, 1);
    const CRect image = ClientRectOf(Control(dialog, kImage));
    const CPoint centre = CentreOf(dialog, 1);
    const int border = image.Width() / 3;  // on the left of the cell, where its field does not lie
    const auto pixel = [&](int x) { return Image(dialog).At(x, centre.y - image.top); };
    EXPECT_EQ(pixel(centre.x - image.left), 0xFFE2E2U);
    EXPECT_EQ(pixel(border), 0xFF0000U);
    Command(dialog, IDM_EDIT_TEXT);
    EXPECT_EQ(pixel(border), 0x000000U);
    Cancel(dialog);
    Cancel(dialog);
  });
}

TEST_F(LayoutListEditDlg, RowsAndColumnsGoWithoutAQuestion) {
  Run([&](HWND dialog) {
    Click(dialog, 4);
    Command(dialog, IDM_DELETE_COLUMN);
    EXPECT_EQ(m_page.GetNumCol(), 2);
    Click(dialog, 2);
    Command(dialog, IDM_DELETE_ROW);
    EXPECT_EQ(m_page.GetNumRow(kBlock), 1);
    Click(dialog, 0);
    Command(dialog, IDM_INSERT_ROW);
    EXPECT_EQ(m_page.GetNumRow(kBlock), 2);
    Cancel(dialog);
  });
}

TEST_F(LayoutListEditDlg, SwitchedOffAllLettersAreAlike) {
  Cel(0).SetText("■");
  Cel(1).SetText("■");
  Cel(0).GetFont()->SetV(12.0);
  Cel(1).GetFont()->SetV(3.0);
  const auto inkIn = [&](HWND dialog, int index) {
    const Picture picture = Image(dialog);
    const CRect image = ClientRectOf(Control(dialog, kImage));
    const CPoint centre = CentreOf(dialog, index);
    int ink = 0;
    for (int y = centre.y - image.top - 40; y < centre.y - image.top + 40; ++y) {
      for (int x = centre.x - image.left - 90; x < centre.x - image.left; ++x) {
        const std::uint32_t pixel = picture.At(x, y);
        ink += pixel != kWhite && pixel != kGrey ? 1 : 0;
      }
    }
    return ink;
  };
  Run([&](HWND dialog) {
    for (const int index : {0, 1}) {
      Cel(index).GetFont()->SetHPos(1);
      Cel(index).GetFont()->SetVPos(1);
    }
    ::InvalidateRect(Control(dialog, kImage), nullptr, FALSE);
    EXPECT_GT(inkIn(dialog, 0), 2 * inkIn(dialog, 1));
    Press(dialog, kRealText);
    EXPECT_EQ(inkIn(dialog, 0), inkIn(dialog, 1));
    Cancel(dialog);
  });
}

TEST_F(LayoutListEditDlg, ABlockWithoutRowsIsGreyAndWhite) {
  m_page.DividePage(kBlock, 0, 3, kDotsPerMm);
  Run([&](HWND dialog) {
    const Picture picture = Image(dialog);
    for (int y = 0; y < picture.height; y += 3) {
      for (int x = 0; x < picture.width; x += 7) {
        const std::uint32_t pixel = picture.At(x, y);
        ASSERT_TRUE(pixel == kGrey || pixel == kWhite) << x << ", " << y;
      }
    }
    Cancel(dialog);
  });
}

TEST_F(LayoutListEditDlg, MacrosAreNumberedByPlaceOrByTheirNumbers) {
  for (const char* name : {"a", "b", "c"}) {
    m_names.Add(name);
  }
  for (const DWORD number : {10, 20}) {
    m_numbers.Add(number);
  }
  const auto choose = [&] {
    Run([&](HWND dialog) {
      Click(dialog, 0);
      ::SetFocus(Control(dialog, kInsertion));
      ChooseItem(dialog, kInsertion, 2);
      EXPECT_EQ(Text(dialog, kTextLine), WideFromCodePage(TextOf(0)));
      EXPECT_EQ(ChosenItem(dialog, kInsertion), 0);
      EXPECT_EQ(::GetFocus(), Control(dialog, kTextLine));
      Cancel(dialog);
    });
    Cel(0).SetSelected(0);
    return TextOf(0);
  };
  EXPECT_EQ(choose(), "<M>2 b</M>");
  m_numbers.Add(30);
  EXPECT_EQ(choose(), "<M>21 b</M>");
}

TEST_F(LayoutListEditDlg, WithoutListsTheirControlsAreHidden) {
  Run([](HWND dialog) {
    for (const int id : {kInsertion, kAppend, kField}) {
      EXPECT_FALSE(IsShown(dialog, id)) << id;
    }
    Cancel(dialog);
  });
}

TEST_F(LayoutListEditDlg, SettingsAreKeptHoweverItEnds) {
  ColourEnvironment environment;
  m_env = &environment.Env();
  m_names.Add("a");
  for (const bool confirms : {true, false}) {
    Run([&](HWND dialog) {
      Press(dialog, kRealText);
      Press(dialog, kAppend);
      if (confirms) {
        Confirm(dialog);
      } else {
        Cancel(dialog);
      }
    });
    int realText = 7;
    int appends = 7;
    const CKivRegistry registry = environment.Env().GetRegistry("LayoutExEdit");
    registry.ReadRegistry("TextReal", &realText, sizeof realText);
    registry.ReadRegistry("MacroIns", &appends, sizeof appends);
    EXPECT_EQ(realText, confirms ? 0 : 1);
    EXPECT_EQ(appends, confirms ? 1 : 0);
  }
}

// ---- Tools and menu

TEST_F(LayoutListEditDlg, TheToolBarHasItsButtonsAndItsPlace) {
  Run([&](HWND dialog) {
    const std::vector<HWND> bars = ToolBars(dialog);
    ASSERT_EQ(bars.size(), 1U);
    const std::vector<ToolButton> tools{{31000, 0}, {31001, 1}, {}, {31002, 2}, {31003, 3},
                                        {31004, 4}, {}, {31005, 5}, {31006, 6}, {31007, 7},
                                        {}, {31008, 8}, {31009, 9}, {31010, 10}};
    EXPECT_EQ(ToolButtons(bars[0]), tools);
    ExpectToolTips(dialog);
    const RECT line = ClientRectOf(Control(dialog, kTextLine));
    EXPECT_EQ(ClientRectOf(bars[0]).left, line.left);
    EXPECT_EQ(ClientRectOf(bars[0]).top, line.top - 26);
    EXPECT_EQ(EnabledTools(dialog), std::vector<int>());
    Click(dialog, 1);
    EXPECT_EQ(EnabledTools(dialog), std::vector<int>({31000, 31001, 31002, 31003, 31004, 31005,
                                                      31006, 31007, 31008}));
    Drag(dialog, 1, 2);
    EXPECT_EQ(EnabledTools(dialog).back(), 31009);
    Command(dialog, IDM_MERGE_CELLS);
    EXPECT_EQ(EnabledTools(dialog).back(), 31010);
    Cancel(dialog);
  });
}

class LayoutListEditMenu : public LayoutListEditDlg {
protected:
  std::vector<ShownItem> MenuOf(int from, int to) {
    return MenuAfter([&](HWND dialog) {
      Drag(dialog, from, to);
      return CentreOf(dialog, from);
    });
  }
  std::vector<ShownItem> MenuOfTheOnlyCel() {
    return MenuAfter([](HWND dialog) {
      const CRect image = ClientRectOf(Control(dialog, kImage));
      const CPoint centre((image.left + image.right) / 2, (image.top + image.bottom) / 2);
      const LPARAM point = MAKELPARAM(centre.x, centre.y);
      ::SendMessageW(dialog, WM_LBUTTONDOWN, MK_LBUTTON, point);
      ::SendMessageW(dialog, WM_LBUTTONUP, 0, point);
      return centre;
    });
  }

private:
  /// `select` tells where the menu is to open.
  template <class Select>
  std::vector<ShownItem> MenuAfter(Select select) {
    std::vector<ShownItem> items;
    ModalScript script;
    script.When(Painted(DialogWithControl(kTextLine)), [&](HWND dialog) {
      const CPoint point = select(dialog);
      ::PostMessageW(dialog, WM_RBUTTONUP, 0, MAKELPARAM(point.x, point.y));
    });
    script.When(MenuShown(), [&](HWND menu) {
      items = MenuItems(menu);
      PressKey(menu, VK_ESCAPE);
    });
    script.When(DialogWithControl(kTextLine), Cancel);
    Run(script);
    return items;
  }
};

TEST_F(LayoutListEditMenu, HasTheItemsInTheirOrder) {
  const ShownItem line;
  EXPECT_EQ(MenuOf(1, 2), std::vector<ShownItem>({{31000, L"ﾃｷｽﾄ編集(&T)", true},
                                                  {31001, L"ﾌｫﾝﾄ編集(&F)", true},
                                                  line,
                                                  {31013, L"列挿入(&C)", true},
                                                  {31014, L"列削除(&O)", true},
                                                  {31015, L"選択列均等(&E)", true},
                                                  line,
                                                  {31016, L"行挿入(&R)", true},
                                                  {31017, L"行削除(&O)", true},
                                                  {31018, L"選択行均等(&Q)", false},
                                                  line,
                                                  {31008, L"罫線編集(&L)", true},
                                                  {31009, L"合成(&N)", true},
                                                  {31010, L"合成解除(&D)", false}}));
}

TEST_F(LayoutListEditMenu, OffersRuledLinesWhereAColumnCanBeInserted) {
  MergeAll(m_page, kBlock, 1, 255);
  m_page.SetAllLengthCol(150.0F, 1);
  m_page.SetAllLengthRow(kBlock, 40.0F, 1);
  const std::vector<ShownItem> items = MenuOfTheOnlyCel();
  EXPECT_TRUE(IsOffered(items, 31000));
  EXPECT_FALSE(IsOffered(items, 31013));
  EXPECT_FALSE(IsOffered(items, 31008));
}

TEST_F(LayoutListEditMenu, OpensOnSelectedCelsOnly) {
  Run([&](HWND dialog) {
    Click(dialog, 1);
    const CPoint point = CentreOf(dialog, 2);
    // Would not return while a menu is open.
    ::SendMessageW(dialog, WM_RBUTTONUP, 0, MAKELPARAM(point.x, point.y));
    EXPECT_EQ(VisibleMenu(), nullptr);
    Cancel(dialog);
  });
}

// ---- The mouse

TEST_F(LayoutListEditDlg, ItIsPlacedWhereTheCallerSays) {
  CPoint position(40, 60);
  m_position = &position;
  Run([](HWND dialog) {
    EXPECT_EQ(WindowRect(dialog).left, 40);
    EXPECT_EQ(WindowRect(dialog).top, 60);
    Cancel(dialog);
  });
}

TEST_F(LayoutListEditDlg, ShiftAddsNothingHere) {
  Run([&](HWND dialog) {
    Click(dialog, 1);
    const HeldKey shift(VK_SHIFT);
    Click(dialog, 3);
    EXPECT_EQ(Cel(1).GetSelected(), 0);
    EXPECT_EQ(Cel(3).GetSelected(), 1);
    Cancel(dialog);
  });
}

TEST_F(LayoutListEditDlg, ABorderIsHeldNearItAndACelDeeperInside) {
  Run([&](HWND dialog) {
    const CPoint centre = CentreOf(dialog, 0);
    const CRect image = ClientRectOf(Control(dialog, kImage));
    const int border = image.left + 1 + (image.Width() - 2) / 3;
    const auto drag = [&](int from, int to) {
      ::SendMessageW(dialog, WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(from, centre.y));
      ::SendMessageW(dialog, WM_LBUTTONUP, 0, MAKELPARAM(to, centre.y));
    };
    drag(border - 6, border - 40);
    EXPECT_EQ(m_page.GetLengthCol(0), 50.0F);
    EXPECT_EQ(Cel(0).GetSelected(), 1);
    drag(border - 2, border - 42);
    EXPECT_LT(m_page.GetLengthCol(0), 50.0F);
    EXPECT_EQ(m_page.GetLengthCol(0), std::round(m_page.GetLengthCol(0)));
    Cancel(dialog);
  });
}

TEST_F(LayoutListEditDlg, TheReadOutHasWholeMillimetres) {
  ModalScript script;
  LPARAM target = 0;
  std::wstring expected;
  const auto readOut = [] { return ::FindWindowW(L"CToolTip", nullptr); };
  script.When(Painted(DialogWithControl(kTextLine)), [&](HWND dialog) {
    const CPoint centre = CentreOf(dialog, 0);
    const CRect image = ClientRectOf(Control(dialog, kImage));
    const int pixels = image.Width() - 2;  // of 150 mm
    const int border = image.left + 1 + pixels / 3;
    ::SendMessageW(dialog, WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(border, centre.y));
    CPoint point(border + 40, centre.y);
    target = MAKELPARAM(point.x, point.y);
    ::ClientToScreen(dialog, &point);
    ::SetCursorPos(point.x, point.y);
    ::SendMessageW(dialog, WM_MOUSEMOVE, MK_LBUTTON, target);
    const long change = std::lround(40.0 * 150.0 / pixels);
    expected = std::to_wstring(50 + change) + L"mm / " + std::to_wstring(50 - change) + L"mm";
  });
  script.When({"the read-out is shown",
               [&] { return ::IsWindowVisible(readOut()) != FALSE ? readOut() : nullptr; }},
              [&](HWND shown) { EXPECT_TRUE(ShowsLine(shown, expected)); });
  script.When(DialogWithControl(kTextLine), [&](HWND dialog) {
    ::SendMessageW(dialog, WM_LBUTTONUP, 0, target);
    EXPECT_EQ(readOut(), nullptr);
    Cancel(dialog);
  });
  Run(script);
}

TEST_F(LayoutListEditDlg, TheRightButtonDuringADragAsksForExactLengths) {
  m_page.SetLengthRow(kBlock, 1, 30.0F);
  ModalScript script;
  script.When(Painted(DialogWithControl(kTextLine)), [&](HWND dialog) {
    const CRect image = ClientRectOf(Control(dialog, kImage));
    const int height = image.Height() - 2;  // of 50 mm
    const LPARAM border = MAKELPARAM(CentreOf(dialog, 0).x, image.top + 1 + height * 2 / 5);
    ::SendMessageW(dialog, WM_LBUTTONDOWN, MK_LBUTTON, border);
    ::PostMessageW(dialog, WM_RBUTTONUP, 0, border);
  });
  script.When(Painted(DialogWithControl(4055)), [](HWND dialog) {
    EXPECT_EQ(Text(dialog), L"ｾﾙｻｲｽﾞ編集");
    EXPECT_EQ(Text(dialog, 4055), L"20.0");
    ReplaceText(Control(dialog, 4055), L"12.5");
    PressKey(Control(dialog, 4055), VK_RETURN);
  });
  script.When(DialogWithControl(kTextLine), [&](HWND dialog) {
    EXPECT_EQ(m_page.GetLengthRow(kBlock, 0), 12.5F);
    EXPECT_EQ(m_page.GetLengthRow(kBlock, 1), 37.5F);
    Cancel(dialog);
  });
  Run(script);
}

TEST_F(LayoutListEditDlg, KeysEndTheTextInItsCel) {
  for (const WPARAM key : {VK_RETURN, VK_ESCAPE, VK_LEFT, VK_RIGHT}) {
    Cel(0).SetText("");
    Run([&](HWND dialog) {
      Click(dialog, 0);
      Command(dialog, IDM_EDIT_TEXT);
      Type(Control(dialog, kCelTextEdit), L'k');
      for (const WPARAM other : {VK_SHIFT, VK_CONTROL, VK_UP}) {
        ::SendMessageW(dialog, WM_KEYDOWN, other, 0);
        EXPECT_NE(::GetDlgItem(dialog, kCelTextEdit), nullptr);
      }
      ::SendMessageW(dialog, WM_KEYDOWN, key, 0);
      EXPECT_EQ(::GetDlgItem(dialog, kCelTextEdit), nullptr);
      EXPECT_EQ(TextOf(0), "k");
      Cancel(dialog);
    });
    Cel(0).SetSelected(0);
  }
}

// ---- Commands

TEST_F(LayoutListEditDlg, EqualLengthsAndNewColumnsAreThePagesOwn) {
  m_page.SetLengthCol(0, 20.0F);
  Run([&](HWND dialog) {
    m_page.GetCelAt(kBlock, 1)->SetSelected(1);
    m_page.GetCelAt(kBlock, 0)->SetSelected(1);
    Command(dialog, IDM_EQUAL_COLUMNS);
    EXPECT_EQ(m_page.GetLengthCol(0), 35.0F);
    EXPECT_EQ(m_page.GetLengthCol(1), 35.0F);
    Command(dialog, IDM_INSERT_COLUMN);
    EXPECT_EQ(m_page.GetNumCol(), 4);
    EXPECT_EQ(m_page.IsSelected(kBlock), 0);
    Command(dialog, IDM_DELETE_COLUMN);  // without a selection
    EXPECT_EQ(m_page.GetNumCol(), 4);
    Cancel(dialog);
  });
  EXPECT_EQ(m_page.GetCelSize(CLayoutExPageData::LISTTYPE_HEADER),
            m_page.GetNumRow(CLayoutExPageData::LISTTYPE_HEADER) * 4);
}

TEST_F(LayoutListEditDlg, TheFieldOfTheFirstSelectedCelGoesToAll) {
  m_fields.Add("数量");
  m_fields.Add("単価");
  ModalScript script;
  script.When(Painted(DialogWithControl(kTextLine)), [&](HWND dialog) {
    Drag(dialog, 1, 5);
    driver::Click(dialog, kField);
  });
  script.When(Painted(DialogWithControl(4046)), [](HWND dialog) {
    ChooseItem(dialog, 4046, 1);
    driver::Click(dialog, IDOK);
  });
  script.When(DialogWithControl(kTextLine), [&](HWND dialog) {
    EXPECT_EQ(Text(dialog, kTextLine), WideFromCodePage(TextOf(1)));
    Cancel(dialog);
  });
  Run(script);
  EXPECT_NE(TextOf(1).find("単価"), std::string::npos);
  for (const int index : {2, 4, 5}) {
    EXPECT_EQ(TextOf(index), TextOf(1));
  }
  EXPECT_EQ(TextOf(0), "");
}

TEST_F(LayoutListEditDlg, RuledLinesOfTheBlock) {
  ModalScript script;
  script.When(Painted(DialogWithControl(kTextLine)), [&](HWND dialog) {
    Cel(0).SetText("線");
    Click(dialog, 0);
    ::PostMessageW(dialog, WM_COMMAND, IDM_EDIT_LINES, 0);
  });
  script.When(Painted(DialogWithControl(4019)), [](HWND dialog) {
    Press(dialog, 4015);
    driver::Click(dialog, IDOK);
  });
  script.When(DialogWithControl(kTextLine), [&](HWND dialog) {
    EXPECT_EQ(Text(dialog, kTextLine), L"線");
    Cancel(dialog);
  });
  Run(script);
  EXPECT_EQ(Cel(0).GetShowLineVT(), 0);
  EXPECT_EQ(Cel(5).GetShowLineVT(), 1);
}

TEST_F(LayoutListEditDlg, TheArrowsColoursOpenAtTheirLeftCorner) {
  constexpr int kColourTabs = 1000;
  for (const int arrow : {2043, 2044}) {
    ModalScript script;
    script.When(Painted(DialogWithControl(kTextLine)), [&](HWND dialog) {
      Click(dialog, 4);
      driver::Click(dialog, arrow);
    });
    script.When(Painted(DialogWithControl(kColourTabs)), [&](HWND dialog) {
      const RECT button = WindowRect(Control(::GetWindow(dialog, GW_OWNER), arrow));
      EXPECT_EQ(WindowRect(dialog).left, button.left);
      EXPECT_EQ(WindowRect(dialog).top, button.bottom);
      ::SendMessageW(Control(dialog, kColourTabs), TCM_SETCURFOCUS, 1, 0);
      ReplaceText(Control(ShownPage(dialog), 110), L"200");
      driver::Click(dialog, IDOK);
    });
    script.When(DialogWithControl(kTextLine), Cancel);
    Run(script);
    Cel(4).SetSelected(0);
  }
  EXPECT_EQ(Cel(4).GetFont()->GetColor(), RGB(200, 0, 0));
  EXPECT_EQ(Cel(4).GetFont()->GetBackColor(), RGB(200, 255, 255));
  EXPECT_EQ(Cel(3).GetFont()->GetColor(), RGB(0, 0, 0));
}

}  // namespace
}  // namespace quorvel::test
