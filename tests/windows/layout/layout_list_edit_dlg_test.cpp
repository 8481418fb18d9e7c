#include "dialogs/layout/layout_list_edit_dlg.h"

#include "driver/picture.h"
#include "driver/product_state.h"
#include "framework/code_page.h"
#include "support/colour_environment.h"
#include "support/templates.h"

#include <array>
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
constexpr int kTextEdit = 200;
constexpr int kInsertion = 2045;
constexpr int kAppend = 4029;
constexpr int kField = 4030;
constexpr std::uint32_t kGrey = 0xBFBFBF;
constexpr std::uint32_t kWhite = 0xFFFFFF;

void Command(HWND dialog, UINT command) { ::SendMessageW(dialog, WM_COMMAND, command, 0); }
void Press(HWND dialog, int id) { ::SendMessageW(Control(dialog, id), BM_CLICK, 0, 0); }
void Type(HWND edit, wchar_t character) {
  ::SendMessageW(edit, WM_CHAR, static_cast<WPARAM>(character), 0);
}
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
                              kBlock, nullptr, nullptr);
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
    return {image.left + area.left + (2 * (index % cols) + 1) * area.Width() / (2 * cols),
            image.top + static_cast<int>(top + (2 * (index / cols) + 1) * height / (2 * rows))};
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
                   {{4031, L"Static", L"", {20, 54, 626, 200}},  // above its group
                    {kNoId, L"Button", L"ﾚｲｱｳﾄｲﾒｰｼﾞ", {8, 8, 650, 256}},
                    {2041, L"Button", L"赤 0 緑 0 青 0", {220, 23, 12, 10}},
                    {2043, L"Button", L"", {232, 23, 6, 10}},
                    {2042, L"Button", L"赤 255 緑 255 青 255", {242, 23, 12, 10}},
                    {2044, L"Button", L"", {254, 23, 6, 10}},
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
  Run([&](HWND dialog) {
    Click(dialog, 1);
    const CPoint point = CentreOf(dialog, 1);
    ::SendMessageW(dialog, WM_LBUTTONDBLCLK, MK_LBUTTON, MAKELPARAM(point.x, point.y));
    ASSERT_NE(::GetDlgItem(dialog, kTextEdit), nullptr);
    Type(Control(dialog, kTextEdit), L'c');
    EXPECT_EQ(Text(dialog, kTextLine), L"c");
    Command(dialog, IDOK);
    EXPECT_EQ(TextOf(1), "c");
    Command(dialog, IDOK);
  });
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
      ::SendMessageW(Control(dialog, kInsertion), CB_SETCURSEL, 2, 0);
      ::SendMessageW(dialog, WM_COMMAND, MAKEWPARAM(kInsertion, CBN_SELCHANGE), 0);
      EXPECT_EQ(Text(dialog, kTextLine), WideFromCodePage(TextOf(0)));
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

}  // namespace
}  // namespace quorvel::test
