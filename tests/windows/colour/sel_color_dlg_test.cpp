// The tabbed colour dialog with its pages, worked as a user would.
#include "colour/page_controls.h"
#include "dialogs/colour/hue_saturation_field.h"
#include "kivcomm/color_models.h"
#include "support/colour_environment.h"

#include <quorvel/quorvel.h>

// Needs <windows.h> above.
#include <commctrl.h>

#include <array>
#include <string>
#include <vector>

namespace quorvel::test {
namespace {

constexpr int kTabs = 1000;
constexpr int kPalette = 2001;
constexpr int kAdd = 1010;
constexpr int kEdit = 1011;
constexpr int kDelete = 1012;
constexpr int kField = 2009;  // its place, which is hidden
constexpr int kFieldPicture = 2109;
constexpr int kBrightness = 2010;
constexpr int kFirstValue = 110;
constexpr int kFirstSlider = 120;
constexpr UINT kCloseWithOk = WM_USER + 1;
constexpr COLORREF kBrown = RGB(153, 102, 51);
constexpr int kItemWidth = 24;
constexpr int kItemHeight = 16;

constexpr int kModel = 100;
constexpr int kHsb = 2;

enum Page { kListPage, kEditPage, kSelectPage };

struct Answer {
  bool confirmed;
  COLORREF color;
};

Condition TabsShown() { return Painted(DialogWithControl(kTabs)); }

Answer Ask(ModalScript& script, COLORREF color, CKivSysEnv* env = nullptr) {
  const bool confirmed =
      Work(script, [&] { return __SelColorDlgEx(env, &color, nullptr); }) != FALSE;
  return {confirmed, color};
}

Answer Ask(COLORREF color, ModalScript::Action action, CKivSysEnv* env = nullptr) {
  ModalScript script;
  script.When(TabsShown(), std::move(action));
  return Ask(script, color, env);
}

/// 45 different colours, so that the last 4 can be deleted.
std::vector<COLORREF> SamplePalette(int count = 45) {
  std::vector<COLORREF> palette;
  palette.reserve(static_cast<std::size_t>(count));
  for (int i = 0; i < count; ++i) {
    palette.push_back(RGB(5 * i, 255 - 5 * i, i));
  }
  return palette;
}

int ShownTab(HWND dialog) {
  return static_cast<int>(::SendMessageW(Control(dialog, kTabs), TCM_GETCURSEL, 0, 0));
}

/// As a click on the tab does.
void SelectTab(HWND dialog, int tab) {
  ::SendMessageW(Control(dialog, kTabs), TCM_SETCURFOCUS, static_cast<WPARAM>(tab), 0);
}

CPoint CentreOfEntry(int index) {
  return {index % 6 * kItemWidth + kItemWidth / 2, index / 6 * kItemHeight + kItemHeight / 2};
}

void ClickEntry(HWND page, int index) { ClickAt(Control(page, kPalette), CentreOfEntry(index)); }

COLORREF EntryColor(HWND page, int index) {
  const CPoint centre = CentreOfEntry(index);
  return ColorAt(Control(page, kPalette), centre.x, centre.y);
}

TEST(SelColorDlg, HasThreeTabs) {
  Ask(kBrown, [](HWND dialog) {
    EXPECT_EQ(Text(dialog), L"色設定");
    const HWND tabs = Control(dialog, kTabs);
    std::wstring texts;
    ASSERT_EQ(TabCtrl_GetItemCount(tabs), 3);
    for (WPARAM i = 0; i < 3; ++i) {
      std::array<wchar_t, 32> text{};
      TCITEMW item{};
      item.mask = TCIF_TEXT;
      item.pszText = text.data();
      item.cchTextMax = static_cast<int>(text.size());
      ::SendMessageW(tabs, TCM_GETITEMW, i, reinterpret_cast<LPARAM>(&item));
      texts += std::wstring(item.pszText) + L"/";
    }
    EXPECT_EQ(texts, L"ｶﾗｰﾘｽﾄ/ｶﾗｰ編集/ｶﾗｰ選択/");
    Cancel(dialog);
  });
}

TEST(SelColorDlg, AColourOfThePaletteOpensTheListWithTheEntrySelected) {
  ColourEnvironment environment;
  environment.Store(SamplePalette());
  const Answer answer = Ask(
      SamplePalette()[8],
      [](HWND dialog) {
        EXPECT_EQ(ShownTab(dialog), kListPage);
        const HWND page = ShownPage(dialog);
        EXPECT_EQ(SwatchOf(page), SamplePalette()[8]);
        EXPECT_EQ(EntryColor(page, 8), SamplePalette()[8]);
        EXPECT_EQ(EntryColor(page, 3), SamplePalette()[3]);
        EXPECT_TRUE(IsEnabled(page, kEdit));
        EXPECT_FALSE(IsEnabled(page, kDelete));
        EXPECT_EQ(::GetFocus(), Control(page, kPalette));
        Confirm(dialog);
      },
      &environment.Env());
  EXPECT_TRUE(answer.confirmed);
  EXPECT_EQ(answer.color, SamplePalette()[8]);
}

TEST(SelColorDlg, AnotherColourOpensTheEditor) {
  ColourEnvironment environment;
  environment.Store(SamplePalette());
  Ask(
      kBrown,
      [](HWND dialog) {
        EXPECT_EQ(ShownTab(dialog), kEditPage);
        EXPECT_EQ(SwatchOf(ShownPage(dialog)), kBrown);
        EXPECT_EQ(Text(ShownPage(dialog), kFirstValue), L"153");
        EXPECT_EQ(::GetFocus(), Control(ShownPage(dialog), 100));
        Cancel(dialog);
      },
      &environment.Env());
}

TEST(SelColorDlg, WithoutAnEnvironmentThePaletteIsEmpty) {
  Ask(RGB(255, 255, 255), [](HWND dialog) {
    EXPECT_EQ(ShownTab(dialog), kEditPage);
    SelectTab(dialog, kListPage);
    const HWND page = ShownPage(dialog);
    EXPECT_FALSE(IsEnabled(page, kEdit));
    EXPECT_FALSE(IsEnabled(page, kDelete));
    EXPECT_TRUE(IsEnabled(page, kAdd));
    Click(Control(page, kAdd));
    Confirm(dialog);
  });
}

TEST(SelColorDlg, EachPageFillsTheTabsDisplayArea) {
  Ask(kBrown, [](HWND dialog) {
    const HWND tabs = Control(dialog, kTabs);
    RECT area = ClientRectOf(tabs);
    ::SendMessageW(tabs, TCM_ADJUSTRECT, FALSE, reinterpret_cast<LPARAM>(&area));
    for (const int tab : {kListPage, kEditPage, kSelectPage}) {
      SelectTab(dialog, tab);
      EXPECT_EQ(ShownTab(dialog), tab);
      EXPECT_EQ(CRect(ClientRectOf(ShownPage(dialog))), CRect(area));
    }
    Cancel(dialog);
  });
}

TEST(SelColorDlg, TheColourGoesFromPageToPage) {
  ColourEnvironment environment;
  environment.Store(SamplePalette());
  const Answer answer = Ask(
      kBrown,
      [](HWND dialog) {
        NotifySlider(ShownPage(dialog), kFirstSlider, KIVSLIDER_MOVED, 0);
        SelectTab(dialog, kSelectPage);
        EXPECT_EQ(SwatchOf(ShownPage(dialog)), RGB(0, 102, 51));
        DragToEnd(Control(ShownPage(dialog), kBrightness), true, true);
        EXPECT_EQ(SwatchOf(ShownPage(dialog)), RGB(0, 255, 128));
        SelectTab(dialog, kListPage);
        EXPECT_EQ(SwatchOf(ShownPage(dialog)), RGB(0, 255, 128));
        EXPECT_FALSE(IsEnabled(ShownPage(dialog), kEdit)) << "nothing selected";
        SelectTab(dialog, kEditPage);
        EXPECT_EQ(Text(ShownPage(dialog), kFirstValue + 1), L"255");
        Confirm(dialog);
      },
      &environment.Env());
  EXPECT_EQ(answer.color, RGB(0, 255, 128));
}

TEST(SelColorDlg, AColourThatComesBackToTheEditorIsShownInItsModel) {
  Ask(kBrown, [](HWND dialog) {
    const HWND editor = ShownPage(dialog);
    ::SendMessageW(Control(editor, kModel), CB_SETCURSEL, kHsb, 0);
    ::SendMessageW(editor, WM_COMMAND, MAKEWPARAM(kModel, CBN_SELCHANGE),
                   reinterpret_cast<LPARAM>(Control(editor, kModel)));
    EXPECT_EQ(Text(editor, kFirstValue + 2), L"153");
    SelectTab(dialog, kSelectPage);
    DragToEnd(Control(ShownPage(dialog), kBrightness), true, true);
    SelectTab(dialog, kEditPage);
    EXPECT_EQ(::SendMessageW(Control(editor, kModel), CB_GETCURSEL, 0, 0), kHsb);
    EXPECT_EQ(Text(editor, kFirstValue), L"30");
    EXPECT_EQ(Text(editor, kFirstValue + 1), L"170");
    EXPECT_EQ(Text(editor, kFirstValue + 2), L"255");
    Cancel(dialog);
  });
}

TEST(SelColorDlg, AClickInTheListTakesTheColour) {
  ColourEnvironment environment;
  environment.Store(SamplePalette());
  ModalScript script;
  script.When(TabsShown(), [](HWND dialog) { ClickEntry(ShownPage(dialog), 10); });
  script.When(TabsShown(), [](HWND dialog) {
    EXPECT_EQ(SwatchOf(ShownPage(dialog)), SamplePalette()[10]);
    Confirm(dialog);
  });
  const Answer answer = Ask(script, SamplePalette()[0], &environment.Env());
  EXPECT_TRUE(answer.confirmed);
  EXPECT_EQ(answer.color, SamplePalette()[10]);
}

TEST(SelColorDlg, ADoubleClickInTheListClosesWithOk) {
  ColourEnvironment environment;
  environment.Store(SamplePalette());
  const Answer answer = Ask(
      SamplePalette()[0],
      [](HWND dialog) {
        DoubleClickAt(Control(ShownPage(dialog), kPalette), CentreOfEntry(20));
      },
      &environment.Env());
  EXPECT_TRUE(answer.confirmed);
  EXPECT_EQ(answer.color, SamplePalette()[20]);
}

TEST(SelColorDlg, ThePagesMessageClosesWithOk) {
  const Answer answer = Ask(kBrown, [](HWND dialog) {
    NotifySlider(ShownPage(dialog), kFirstSlider, KIVSLIDER_MOVED, 1);
    EXPECT_EQ(::SendMessageW(dialog, kCloseWithOk, 0, 0), 0);
  });
  EXPECT_TRUE(answer.confirmed);
  EXPECT_EQ(answer.color, RGB(1, 102, 51));
}

TEST(SelColorDlg, MovingTheFocusNeverClosesIt) {
  ColourEnvironment environment;
  environment.Store(SamplePalette());
  ModalScript script;
  for (const int tab : {kListPage, kEditPage, kSelectPage}) {
    script.When(TabsShown(), [=](HWND dialog) { SelectTab(dialog, tab); });
    for (int i = 0; i < 14; ++i) {
      script.When(TabsShown(), [](HWND dialog) { PressTab(dialog); });
    }
  }
  script.When(TabsShown(), Cancel);
  EXPECT_FALSE(Ask(script, SamplePalette()[0], &environment.Env()).confirmed);
}

TEST(SelColorDlg, DeletingIsOfferedFromEntry41On) {
  ColourEnvironment environment;
  environment.Store(SamplePalette());
  ModalScript script;
  for (const int index : {40, 41, 44, 0}) {
    script.When(TabsShown(), [=](HWND dialog) {
      // The keys scroll to entries that are out of sight.
      const HWND palette = Control(ShownPage(dialog), kPalette);
      ::SetFocus(palette);
      ::SendMessageW(palette, WM_KEYDOWN, VK_HOME, 0);
      for (int i = 0; i < index; ++i) {
        ::SendMessageW(palette, WM_KEYDOWN, VK_RIGHT, 0);
      }
      EXPECT_EQ(SwatchOf(ShownPage(dialog)), SamplePalette()[static_cast<std::size_t>(index)]);
      EXPECT_EQ(IsEnabled(ShownPage(dialog), kDelete), index >= 41) << index;
      EXPECT_TRUE(IsEnabled(ShownPage(dialog), kEdit));
    });
  }
  script.When(TabsShown(), Cancel);
  Ask(script, SamplePalette()[0], &environment.Env());
}

TEST(SelColorDlg, With41EntriesNothingCanBeDeleted) {
  ColourEnvironment environment;
  environment.Store(SamplePalette(41));
  Ask(
      SamplePalette()[0],
      [](HWND dialog) {
        const HWND page = ShownPage(dialog);
        const HWND palette = Control(page, kPalette);
        ::SendMessageW(palette, WM_KEYDOWN, VK_HOME, 0);
        for (int i = 0; i < 41; ++i) {
          EXPECT_FALSE(IsEnabled(page, kDelete)) << i;
          ::SendMessageW(palette, WM_KEYDOWN, VK_RIGHT, 0);
        }
        // Not even by its message.
        ::SendMessageW(page, WM_COMMAND, MAKEWPARAM(kDelete, BN_CLICKED), 0);
        Confirm(dialog);
      },
      &environment.Env());
  EXPECT_EQ(environment.Stored(), SamplePalette(41));
}

/// Selects the last entry and presses the button.
void DeleteLast(ModalScript& script, int answer) {
  script.When(TabsShown(), [](HWND dialog) {
    const HWND page = ShownPage(dialog);
    ::SendMessageW(Control(page, kPalette), WM_KEYDOWN, VK_END, 0);
    Click(Control(page, kDelete));
  });
  script.When(MessageBoxShown(), [=](HWND message) {
    EXPECT_EQ(Text(message, 0xFFFF), L"選択された色を削除します。");
    Click(message, answer);
  });
}

TEST(SelColorDlg, DeletesAfterAsking) {
  ColourEnvironment environment;
  environment.Store(SamplePalette());
  ModalScript script;
  DeleteLast(script, IDYES);
  script.When(TabsShown(), [](HWND dialog) {
    const HWND page = ShownPage(dialog);
    EXPECT_FALSE(IsEnabled(page, kDelete));
    EXPECT_FALSE(IsEnabled(page, kEdit)) << "none is selected";
    EXPECT_EQ(::GetFocus(), Control(page, kPalette)) << "the keys still work";
    Confirm(dialog);
  });
  const Answer answer = Ask(script, SamplePalette()[0], &environment.Env());
  EXPECT_EQ(answer.color, SamplePalette()[44]) << "the colour in hand stays";
  EXPECT_EQ(environment.Stored(), SamplePalette(44));
}

TEST(SelColorDlg, NoDeletesNothing) {
  ColourEnvironment environment;
  environment.Store(SamplePalette());
  ModalScript script;
  DeleteLast(script, IDNO);
  script.When(TabsShown(), [](HWND dialog) {
    EXPECT_TRUE(IsEnabled(ShownPage(dialog), kDelete));
    Confirm(dialog);
  });
  Ask(script, SamplePalette()[0], &environment.Env());
  EXPECT_EQ(environment.Stored(), SamplePalette());
}

TEST(SelColorDlg, CancelDiscardsWhatWasChangedInThePalette) {
  ColourEnvironment environment;
  environment.Store(SamplePalette());
  ModalScript script;
  DeleteLast(script, IDYES);
  script.When(TabsShown(), [](HWND dialog) { Click(Control(ShownPage(dialog), kAdd)); });
  script.When(TabsShown(), [](HWND dialog) { Click(dialog, IDCANCEL); });
  const Answer answer = Ask(script, SamplePalette()[0], &environment.Env());
  EXPECT_FALSE(answer.confirmed);
  EXPECT_EQ(answer.color, SamplePalette()[0]);
  EXPECT_EQ(environment.Stored(), SamplePalette());
}

TEST(SelColorDlg, AddsTheColourInHandAndSelectsIt) {
  ColourEnvironment environment;
  environment.Store(SamplePalette());
  ModalScript script;
  script.When(TabsShown(), [](HWND dialog) {
    SelectTab(dialog, kListPage);
    Click(Control(ShownPage(dialog), kAdd));
  });
  script.When(TabsShown(), [](HWND dialog) {
    EXPECT_TRUE(IsEnabled(ShownPage(dialog), kDelete));
    EXPECT_TRUE(IsEnabled(ShownPage(dialog), kEdit));
    // A double click stores, too.
    ::SendMessageW(dialog, kCloseWithOk, 0, 0);
  });
  const Answer answer = Ask(script, kBrown, &environment.Env());
  EXPECT_EQ(answer.color, kBrown);
  std::vector<COLORREF> expected = SamplePalette();
  expected.push_back(kBrown);
  EXPECT_EQ(environment.Stored(), expected);
}

TEST(SelColorDlg, EditsTheSelectedEntryBelowThePage) {
  ColourEnvironment environment;
  environment.Store(SamplePalette());
  ModalScript script;
  CPoint expectedCorner;
  script.When(TabsShown(), [&](HWND dialog) {
    const RECT page = WindowRect(ShownPage(dialog));
    expectedCorner = {page.left, page.bottom};
    ClickEntry(ShownPage(dialog), 7);
    Click(Control(ShownPage(dialog), kEdit));
  });
  script.When(Painted(DialogWithTitle(L"色編集")), [&](HWND editor) {
    const RECT rect = WindowRect(editor);
    EXPECT_EQ(CPoint(rect.left, rect.top), expectedCorner);
    EXPECT_EQ(SwatchOf(ShownPage(editor)), SamplePalette()[7]);
    NotifySlider(ShownPage(editor), kFirstSlider, KIVSLIDER_MOVED, 99);
    Confirm(editor);
  });
  const COLORREF changed = RGB(99, GetGValue(SamplePalette()[7]), GetBValue(SamplePalette()[7]));
  script.When(TabsShown(), [=](HWND dialog) {
    EXPECT_EQ(SwatchOf(ShownPage(dialog)), changed);
    EXPECT_EQ(EntryColor(ShownPage(dialog), 7), changed);
    Confirm(dialog);
  });
  EXPECT_EQ(Ask(script, SamplePalette()[0], &environment.Env()).color, changed);
  std::vector<COLORREF> expected = SamplePalette();
  expected[7] = changed;
  EXPECT_EQ(environment.Stored(), expected);
}

TEST(SelColorDlg, ACancelledEditChangesNothing) {
  ColourEnvironment environment;
  environment.Store(SamplePalette());
  ModalScript script;
  script.When(TabsShown(), [](HWND dialog) { Click(Control(ShownPage(dialog), kEdit)); });
  script.When(Painted(DialogWithTitle(L"色編集")), [](HWND editor) {
    NotifySlider(ShownPage(editor), kFirstSlider, KIVSLIDER_MOVED, 99);
    Click(editor, IDCANCEL);
  });
  script.When(TabsShown(), Confirm);
  EXPECT_EQ(Ask(script, SamplePalette()[3], &environment.Env()).color, SamplePalette()[3]);
  EXPECT_EQ(environment.Stored(), SamplePalette());
}

TEST(SelColorDlg, EnterPressesTheButtonThatHasTheFocus) {
  ColourEnvironment environment;
  environment.Store(SamplePalette());
  ModalScript script;
  script.When(TabsShown(), [](HWND dialog) {
    ::SetFocus(Control(ShownPage(dialog), kEdit));
    PressKey(::GetFocus(), VK_RETURN);
  });
  script.When(Painted(DialogWithTitle(L"色編集")), Cancel);
  script.When(TabsShown(), [](HWND dialog) {
    ::SetFocus(Control(ShownPage(dialog), kPalette));
    PressKey(::GetFocus(), VK_RETURN);
  });
  EXPECT_TRUE(Ask(script, SamplePalette()[3], &environment.Env()).confirmed);
}

TEST(SelColorDlg, MnemonicsReachThePagesButtons) {
  ColourEnvironment environment;
  environment.Store(SamplePalette());
  ModalScript script;
  script.When(TabsShown(), [](HWND) { ::PostMessageW(::GetFocus(), WM_SYSCHAR, L'e', 1 << 29); });
  script.When(Painted(DialogWithTitle(L"色編集")), Cancel);
  script.When(TabsShown(), Cancel);
  Ask(script, SamplePalette()[3], &environment.Env());
}

// The selected-colour page

/// Opens the page and works it.
Answer AskOnSelectPage(COLORREF color, const std::function<void(HWND dialog, HWND page)>& work) {
  ModalScript script;
  script.When(TabsShown(), [](HWND dialog) { SelectTab(dialog, kSelectPage); });
  script.When(TabsShown(), [=](HWND dialog) { work(dialog, ShownPage(dialog)); });
  return Ask(script, color);
}

/// The field's rectangle in the page: hue and saturation end just beyond the last pixels.
CRect FieldRect(HWND page) { return CRect(ClientRectOf(Control(page, kField))); }

/// What the field shows, from its corner on: its picture, a pixel larger than the field.
Picture FieldPicture(HWND page) {
  const CRect place = FieldRect(page);
  const CRect picture(ClientRectOf(Control(page, kFieldPicture)));
  const Picture whole = ReadPixels(Control(page, kFieldPicture));
  Picture cut{place.Width() + 1, place.Height() + 1, {}};
  for (int y = 0; y < cut.height; ++y) {
    for (int x = 0; x < cut.width; ++x) {
      cut.bgrx.push_back(whole.At(x + place.left - picture.left, y + place.top - picture.top));
    }
  }
  return cut;
}

void Mouse(HWND page, UINT message, int x, int y) {
  ::SendMessageW(page, message, MK_LBUTTON, MAKELPARAM(x, y));
  ::UpdateWindow(Control(page, kFieldPicture));
}

COLORREF ColorOfHsb(const HsbValues& values) {
  int red = 0;
  int green = 0;
  int blue = 0;
  __KivComm_HSBtoRGB(values.hue, values.saturation, values.brightness, &red, &green, &blue);
  return RGB(red, green, blue);
}

TEST(SelColorDlgSelectPage, ShowsTheFieldOfTheColoursBrightness) {
  AskOnSelectPage(RGB(0, 0, 200), [](HWND dialog, HWND page) {
    const Picture field = FieldPicture(page);
    const CRect rect = FieldRect(page);
    const CPoint marker = MarkerOfHsb({CPoint(0, 0), rect.Size()}, {240, 255, 200});
    int differences = 0;
    for (int y = 0; y < field.height; ++y) {
      for (int x = 0; x < field.width; ++x) {
        const COLORREF expected =
            ColorOfHsb({x * 360 / field.width, y * 255 / field.height, 200});
        const std::uint32_t pixel = field.At(x, y);
        const bool inMarker = std::abs(x - marker.x) <= 4 && std::abs(y - marker.y) <= 4;
        differences += !inMarker && pixel != static_cast<std::uint32_t>(
                                                 (GetRValue(expected) << 16) |
                                                 (GetGValue(expected) << 8) | GetBValue(expected))
                           ? 1
                           : 0;
      }
    }
    EXPECT_EQ(differences, 0);
    Cancel(dialog);
  });
}

TEST(SelColorDlgSelectPage, TheMarkerIsACircleCutOffByTheField) {
  AskOnSelectPage(RGB(255, 255, 255), [](HWND dialog, HWND page) {
    const CRect rect = FieldRect(page);
    const auto isDrawn = [&](int x, int y) {
      return FieldPicture(page).At(x, y) == 0U;
    };
    // White: hue 0, saturation 0.
    EXPECT_TRUE(isDrawn(2, 0));
    EXPECT_TRUE(isDrawn(0, 2));
    Mouse(page, WM_LBUTTONDOWN, rect.left + 5, rect.top + 5);
    const CPoint released(rect.left + 50, rect.top + 40);
    Mouse(page, WM_LBUTTONUP, released.x, released.y);
    const CPoint marker =
        MarkerOfHsb({CPoint(0, 0), rect.Size()}, ValuesAtPoint(rect, released, {0, 0, 255}));
    EXPECT_FALSE(isDrawn(0, 2)) << "the old one is gone";
    EXPECT_TRUE(isDrawn(marker.x - 3, marker.y));
    EXPECT_TRUE(isDrawn(marker.x + 2, marker.y));
    EXPECT_TRUE(isDrawn(marker.x, marker.y - 3));
    EXPECT_TRUE(isDrawn(marker.x, marker.y + 2));
    EXPECT_FALSE(isDrawn(marker.x, marker.y)) << "hollow";
    // In the opposite corner, and not in the picture's line and column beyond the field.
    Mouse(page, WM_LBUTTONDOWN, rect.left + 5, rect.top + 5);
    Mouse(page, WM_LBUTTONUP, rect.right + 5, rect.bottom + 5);
    EXPECT_TRUE(isDrawn(rect.Width() - 3, rect.Height() - 1));
    for (int x = 0; x <= rect.Width(); ++x) {
      EXPECT_FALSE(isDrawn(x, rect.Height())) << x;
    }
    for (int y = 0; y <= rect.Height(); ++y) {
      EXPECT_FALSE(isDrawn(rect.Width(), y)) << y;
    }
    Cancel(dialog);
  });
}

TEST(SelColorDlgSelectPage, DraggingPicksHueAndSaturation) {
  const Answer answer = AskOnSelectPage(kBrown, [](HWND dialog, HWND page) {
    const CRect rect = FieldRect(page);
    const HsbValues before{0, 0, 153};
    Mouse(page, WM_MOUSEMOVE, rect.left + 9, rect.top + 9);
    EXPECT_EQ(SwatchOf(page), kBrown);
    Mouse(page, WM_LBUTTONDOWN, rect.left + 9, rect.top + 9);
    EXPECT_EQ(SwatchOf(page), kBrown) << "pressing alone picks nothing";
    EXPECT_EQ(::GetCapture(), page);
    for (const CPoint point : {CPoint(60, 30), CPoint(0, 0), CPoint(100, 90)}) {
      const CPoint at(rect.left + point.x, rect.top + point.y);
      Mouse(page, WM_MOUSEMOVE, at.x, at.y);
      EXPECT_EQ(SwatchOf(page), ColorOfHsb(ValuesAtPoint(rect, at, before)));
    }
    Mouse(page, WM_LBUTTONUP, rect.left + 101, rect.top + 91);
    EXPECT_EQ(::GetCapture(), nullptr);
    Mouse(page, WM_MOUSEMOVE, rect.left, rect.top);
    EXPECT_EQ(SwatchOf(page),
              ColorOfHsb(ValuesAtPoint(rect, {rect.left + 101, rect.top + 91}, before)));
    Confirm(dialog);
  });
  EXPECT_TRUE(answer.confirmed);
  EXPECT_NE(answer.color, kBrown);
}

TEST(SelColorDlgSelectPage, DraggingOutsideStaysAtTheEdges) {
  AskOnSelectPage(kBrown, [](HWND dialog, HWND page) {
    const CRect rect = FieldRect(page);
    Mouse(page, WM_LBUTTONDOWN, rect.left + 9, rect.top + 9);
    Mouse(page, WM_MOUSEMOVE, -3000, -3000);
    EXPECT_EQ(SwatchOf(page), ColorOfHsb({0, 0, 153}));
    Mouse(page, WM_MOUSEMOVE, 3000, 3000);
    EXPECT_EQ(SwatchOf(page), ColorOfHsb({360, 255, 153}));
    Mouse(page, WM_MOUSEMOVE, rect.left + rect.Width() / 2, 3000);
    EXPECT_EQ(SwatchOf(page), ColorOfHsb({180, 255, 153}));
    Mouse(page, WM_LBUTTONUP, 3000, -3000);
    EXPECT_EQ(SwatchOf(page), ColorOfHsb({360, 0, 153}));
    Cancel(dialog);
  });
}

TEST(SelColorDlgSelectPage, ADragBeginsInsideTheFieldOnly) {
  AskOnSelectPage(kBrown, [](HWND dialog, HWND page) {
    const CRect rect = FieldRect(page);
    Mouse(page, WM_LBUTTONDOWN, rect.left - 1, rect.top + 9);
    EXPECT_EQ(::GetCapture(), nullptr);
    Mouse(page, WM_MOUSEMOVE, rect.left + 20, rect.top + 20);
    Mouse(page, WM_LBUTTONUP, rect.left + 20, rect.top + 20);
    EXPECT_EQ(SwatchOf(page), kBrown);
    Cancel(dialog);
  });
}

TEST(SelColorDlgSelectPage, BrightnessRedrawsTheWholeFieldAndKeepsHueAndSaturation) {
  AskOnSelectPage(RGB(0, 0, 200), [](HWND dialog, HWND page) {
    const HWND field = Control(page, kFieldPicture);
    for (const UINT code : {KIVSLIDER_MOVING, KIVSLIDER_MOVED}) {
      NotifySlider(page, kBrightness, code, 0);
      EXPECT_EQ(SwatchOf(page), RGB(0, 0, 0));
      ::UpdateWindow(field);
      EXPECT_EQ(ColorAt(field, 10, 10), RGB(0, 0, 0));
      EXPECT_EQ(ColorAt(field, 150, 80), RGB(0, 0, 0));
      NotifySlider(page, kBrightness, code, 255);
      EXPECT_EQ(SwatchOf(page), RGB(0, 0, 255));
      ::UpdateWindow(field);
      EXPECT_NE(ColorAt(field, 10, 10), RGB(0, 0, 0));
    }
    Cancel(dialog);
  });
}

TEST(SelColorDlgSelectPage, TheFieldWorksByKeys) {
  AskOnSelectPage(RGB(0, 0, 200), [](HWND dialog, HWND page) {
    const HWND field = Control(page, kFieldPicture);
    ::SetFocus(field);
    const auto press = [field](WPARAM key) { ::SendMessageW(field, WM_KEYDOWN, key, 0); };
    press(VK_RIGHT);
    EXPECT_EQ(SwatchOf(page), ColorOfHsb({241, 255, 200}));
    press(VK_UP);
    EXPECT_EQ(SwatchOf(page), ColorOfHsb({241, 254, 200}));
    press(VK_LEFT);
    press(VK_DOWN);
    EXPECT_EQ(SwatchOf(page), ColorOfHsb({240, 255, 200}));
    press(VK_HOME);
    EXPECT_EQ(SwatchOf(page), ColorOfHsb({0, 255, 200}));
    press(VK_LEFT);
    EXPECT_EQ(SwatchOf(page), ColorOfHsb({0, 255, 200}));
    press(VK_PRIOR);
    EXPECT_EQ(SwatchOf(page), ColorOfHsb({0, 0, 200}));
    press(VK_END);
    press(VK_NEXT);
    EXPECT_EQ(SwatchOf(page), ColorOfHsb({360, 255, 200}));
    Cancel(dialog);
  });
}

}  // namespace
}  // namespace quorvel::test
