// The colour grid, worked as a user would.
#include "dialogs/colour/colour_grid.h"
#include "driver/picture.h"
#include "support/colour_environment.h"
#include "support/work.h"

#include <quorvel/quorvel.h>

#include <string>
#include <vector>

namespace quorvel::test {
namespace {

constexpr const wchar_t* kTitle = L"色設定";
constexpr const wchar_t* kPickerTitle = L"色の設定";
constexpr int kSelected = 13441;
constexpr int kOther = 13323;
constexpr int kRedEdit = 13375;
constexpr COLORREF kWhite = RGB(255, 255, 255);
constexpr COLORREF kNoGridColor = RGB(255, 128, 64);

struct Answer {
  bool confirmed;
  COLORREF color;
};

/// Runs the dialog once with a script that the test has filled.
Answer Ask(ModalScript& script, COLORREF color, CKivSysEnv* env = nullptr) {
  const bool confirmed =
      Work(script, [&] { return __SelColorDlg(env, &color, nullptr); }) != FALSE;
  return {confirmed, color};
}

Answer Ask(COLORREF color, ModalScript::Action action, CKivSysEnv* env = nullptr) {
  ModalScript script;
  script.When(Painted(DialogWithTitle(kTitle)), std::move(action));
  return Ask(script, color, env);
}

/// What a colour button is filled with, as 0x00BBGGRR.
COLORREF FillOf(HWND dialog, int id) {
  const Picture picture = ReadPixels(Control(dialog, id));
  const std::uint32_t pixel = picture.At(picture.width / 2, picture.height / 2);
  return RGB((pixel >> 16) & 0xFF, (pixel >> 8) & 0xFF, pixel & 0xFF);
}

/// Sends what a button tells its dialog.
void Notify(HWND dialog, int id, UINT code) {
  ::SendMessageW(dialog, WM_COMMAND, MAKEWPARAM(id, code),
                 reinterpret_cast<LPARAM>(Control(dialog, id)));
}

class SelColorButton : public ::testing::TestWithParam<int> {};

INSTANTIATE_TEST_SUITE_P(Grid, SelColorButton, ::testing::Range(0, kGridButtonCount));

TEST_P(SelColorButton, AClickAndOkGiveItsColour) {
  ColourEnvironment environment;
  std::vector<COLORREF> palette;
  palette.reserve(kMadeColorButtonCount);
  for (int i = 0; i < kMadeColorButtonCount; ++i) {
    palette.push_back(RGB(10 + i, 20 + i, 30 + i));
  }
  environment.Store(palette);
  const int index = GetParam();
  const COLORREF expected = IsMadeColor(index)
                                ? palette[static_cast<std::size_t>(index - kBasicColorCount)]
                                : kBasicColors[static_cast<std::size_t>(index)].color;
  const int id = GridControlId(index);
  ModalScript script;
  script.When(Painted(DialogWithTitle(kTitle)), [=](HWND dialog) {
    EXPECT_EQ(FillOf(dialog, id), expected);
    Click(dialog, id);
  });
  script.When(Painted(DialogWithTitle(kTitle)), [=](HWND dialog) {
    EXPECT_EQ(FillOf(dialog, kSelected), expected);
    EXPECT_EQ(FocusedControlId(dialog), id);
    Confirm(dialog);
  });
  const Answer answer = Ask(script, kNoGridColor, &environment.Env());
  EXPECT_TRUE(answer.confirmed);
  EXPECT_EQ(answer.color, expected);
}

TEST(SelColor, ADoubleClickClosesWithThatColourWhateverWasSelected) {
  const Answer answer = Ask(kNoGridColor, [](HWND dialog) {
    DoubleClickAt(Control(dialog, 13398), {5, 5});
  });
  EXPECT_TRUE(answer.confirmed);
  EXPECT_EQ(answer.color, RGB(0, 0, 255));
}

TEST(SelColor, TheDoubleClickNotificationAloneDoesTheSame) {
  const Answer answer =
      Ask(kNoGridColor, [](HWND dialog) { Notify(dialog, 13416, BN_DOUBLECLICKED); });
  EXPECT_TRUE(answer.confirmed);
  EXPECT_EQ(answer.color, RGB(64, 128, 128));
}

/// The control that has the focus when the dialog opens.
int FirstFocus(COLORREF color, CKivSysEnv* env = nullptr) {
  int focused = 0;
  Ask(
      color,
      [&](HWND dialog) {
        focused = FocusedControlId(dialog);
        EXPECT_EQ(FillOf(dialog, kSelected), color);
        Cancel(dialog);
      },
      env);
  return focused;
}

TEST(SelColor, OpensOnTheFirstButtonOfTheColour) {
  EXPECT_EQ(FirstFocus(RGB(64, 0, 64)), 13409) << "never 13418, which repeats it";
  EXPECT_EQ(FirstFocus(RGB(255, 126, 64)), 13386);
  EXPECT_EQ(FirstFocus(RGB(255, 128, 128)), 13377);
  EXPECT_EQ(FirstFocus(kWhite), 13419) << "the basic white before the made ones";
}

TEST(SelColor, OpensOnTheSelectedColourWhereTheGridLacksIt) {
  EXPECT_EQ(FirstFocus(kNoGridColor), kSelected);
}

TEST(SelColor, OpensOnAMadeColourThatIsNoBasicOne) {
  ColourEnvironment environment;
  std::vector<COLORREF> palette(16, kWhite);
  palette[8] = kNoGridColor;
  palette[9] = RGB(0, 0, 255);
  environment.Store(palette);
  EXPECT_EQ(FirstFocus(kNoGridColor, &environment.Env()), 13429);
  EXPECT_EQ(FirstFocus(RGB(0, 0, 255), &environment.Env()), 13398) << "a basic colour goes before";
}

TEST(SelColor, TheFocusSelects) {
  ModalScript script;
  const Condition shown = Painted(DialogWithTitle(kTitle));
  script.When(shown, [](HWND dialog) {
    EXPECT_EQ(FocusedControlId(dialog), 13440);
    PressTab(dialog);
  });
  script.When(shown, [](HWND dialog) {
    EXPECT_EQ(FocusedControlId(dialog), 13378);
    EXPECT_EQ(FillOf(dialog, kSelected), RGB(255, 255, 0));
    PressKey(::GetFocus(), VK_RIGHT);
  });
  script.When(shown, [](HWND dialog) {
    EXPECT_EQ(FillOf(dialog, kSelected), RGB(128, 255, 0));
    PressKey(::GetFocus(), VK_DOWN);
  });
  script.When(shown, [](HWND dialog) {
    EXPECT_EQ(FocusedControlId(dialog), 13387) << "the button below";
    PressKey(::GetFocus(), VK_RETURN);
  });
  const Answer answer = Ask(script, RGB(255, 0, 0));
  EXPECT_TRUE(answer.confirmed);
  EXPECT_EQ(answer.color, RGB(0, 255, 0));
}

TEST(SelColor, ArrowsStayInTheirGrid) {
  ModalScript script;
  const Condition shown = Painted(DialogWithTitle(kTitle));
  script.When(shown, [](HWND dialog) { PressKey(Control(dialog, 13412), VK_DOWN); });
  script.When(shown, [](HWND dialog) {
    EXPECT_EQ(FocusedControlId(dialog), 13412) << "the last row";
    PressKey(::GetFocus(), VK_LEFT);
  });
  script.When(shown, [](HWND dialog) {
    EXPECT_EQ(FocusedControlId(dialog), 13411) << "the end of the row above";
    Cancel(dialog);
  });
  Ask(script, RGB(0, 0, 0));
}

/// A button is drawn as the system asks for it, with a given state.
void Draw(HWND dialog, int id, UINT state) {
  const HWND button = Control(dialog, id);
  const HDC deviceContext = ::GetDC(button);
  DRAWITEMSTRUCT item{};
  item.CtlType = ODT_BUTTON;
  item.CtlID = static_cast<UINT>(id);
  item.itemAction = ODA_DRAWENTIRE;
  item.itemState = state;
  item.hwndItem = button;
  item.hDC = deviceContext;
  ::GetClientRect(button, &item.rcItem);
  ::SendMessageW(dialog, WM_DRAWITEM, static_cast<WPARAM>(id), reinterpret_cast<LPARAM>(&item));
  ::ReleaseDC(button, deviceContext);
}

TEST(SelColor, DrawingAButtonWithTheFocusOrPressedSelectsIt) {
  for (const UINT state : {UINT{ODS_FOCUS}, UINT{ODS_SELECTED}}) {
    const Answer answer = Ask(kNoGridColor, [=](HWND dialog) {
      Draw(dialog, 13400, state);
      EXPECT_EQ(FillOf(dialog, kSelected), RGB(0, 0, 160));
      Confirm(dialog);
    });
    EXPECT_EQ(answer.color, RGB(0, 0, 160));
  }
}

TEST(SelColor, DrawingAButtonWithoutAMarkSelectsNothing) {
  const Answer answer = Ask(kNoGridColor, [](HWND dialog) {
    Draw(dialog, 13400, 0);
    Draw(dialog, 13401, ODS_DISABLED);
    Confirm(dialog);
  });
  EXPECT_EQ(answer.color, kNoGridColor);
}

TEST(SelColor, PaintingTheFocusedButtonAgainSelectsNothing) {
  ModalScript script;
  const Condition shown = Painted(DialogWithTitle(kTitle));
  script.When(shown, [](HWND dialog) {
    Notify(dialog, 13387, BN_CLICKED);  // the focus stays where it was
    EXPECT_EQ(FocusedControlId(dialog), 13440);
    ::RedrawWindow(dialog, nullptr, nullptr,
                   RDW_INVALIDATE | RDW_ERASE | RDW_ALLCHILDREN | RDW_UPDATENOW);
    EXPECT_EQ(FillOf(dialog, kSelected), RGB(0, 255, 0));
    Confirm(dialog);
  });
  EXPECT_EQ(Ask(script, RGB(255, 0, 0)).color, RGB(0, 255, 0));
}

TEST(SelColor, LeavingAndComingBackSelectsNothing) {
  ModalScript script;
  const Condition shown = Painted(DialogWithTitle(kTitle));
  script.When(shown, [](HWND dialog) {
    Notify(dialog, 13387, BN_CLICKED);
    // Another window comes and goes, as a message does.
    const HWND other = ::CreateWindowExW(0, L"STATIC", L"", WS_POPUP | WS_VISIBLE, 0, 0, 50, 50,
                                         dialog, nullptr, nullptr, nullptr);
    ::SetActiveWindow(other);
    ::DestroyWindow(other);
    ::SetActiveWindow(dialog);
  });
  script.When(shown, [](HWND dialog) {
    EXPECT_EQ(FillOf(dialog, kSelected), RGB(0, 255, 0));
    Confirm(dialog);
  });
  EXPECT_EQ(Ask(script, RGB(255, 0, 0)).color, RGB(0, 255, 0));
}

/// The picker opens over the grid: its red is typed, and it is confirmed or cancelled.
void WorkPicker(ModalScript& script, bool confirm, const std::wstring& red = L"200") {
  script.When(Painted(DialogWithTitle(kPickerTitle)),
              [=](HWND picker) { ReplaceText(Control(picker, kRedEdit), red); });
  script.When(Painted(DialogWithTitle(kPickerTitle)), [=](HWND picker) {
    EXPECT_EQ(Text(picker, kRedEdit), red);
    Click(picker, confirm ? IDOK : IDCANCEL);
  });
}

TEST(SelColor, ThePickersColourStandsAloneBesideABasicColour) {
  ColourEnvironment environment;
  std::vector<COLORREF> palette(16, RGB(1, 2, 3));
  environment.Store(palette);
  ModalScript script;
  script.When(Painted(DialogWithTitle(kTitle)), [](HWND dialog) { Click(dialog, kOther); });
  WorkPicker(script, true);
  script.When(Painted(DialogWithTitle(kTitle)), [](HWND dialog) {
    EXPECT_EQ(FocusedControlId(dialog), kSelected);
    EXPECT_EQ(FillOf(dialog, kSelected), RGB(200, 255, 0));
    for (int index = 0; index < kBasicColorCount; ++index) {
      EXPECT_EQ(FillOf(dialog, GridControlId(index)),
                kBasicColors[static_cast<std::size_t>(index)].color);
    }
    Confirm(dialog);
  });
  EXPECT_EQ(Ask(script, RGB(0, 255, 0), &environment.Env()).color, RGB(200, 255, 0));
  EXPECT_EQ(environment.Stored(), palette) << "saved, and unchanged";
}

TEST(SelColor, APickedColourIsSavedAlsoWhereNoSlotChanged) {
  ColourEnvironment environment;
  ModalScript script;
  script.When(Painted(DialogWithTitle(kTitle)), [](HWND dialog) { Click(dialog, kOther); });
  WorkPicker(script, true);
  script.When(Painted(DialogWithTitle(kTitle)), Cancel);
  EXPECT_FALSE(ColourEnvironment::IsStored());
  const Answer answer = Ask(script, RGB(0, 255, 0), &environment.Env());
  EXPECT_FALSE(answer.confirmed);
  EXPECT_EQ(answer.color, RGB(0, 255, 0));
  EXPECT_TRUE(ColourEnvironment::IsStored());
}

TEST(SelColor, APickedColourReplacesTheSelectedMadeColour) {
  ColourEnvironment environment;
  ModalScript script;
  const Condition shown = Painted(DialogWithTitle(kTitle));
  script.When(shown, [](HWND dialog) { Click(dialog, 13431); });
  script.When(shown, [](HWND dialog) { Click(dialog, kOther); });
  WorkPicker(script, true);
  script.When(shown, [](HWND dialog) {
    EXPECT_EQ(FocusedControlId(dialog), 13431);
    EXPECT_EQ(FillOf(dialog, 13431), RGB(200, 255, 255));
    EXPECT_EQ(FillOf(dialog, kSelected), RGB(200, 255, 255));
    Click(dialog, IDCANCEL);
  });
  EXPECT_FALSE(Ask(script, kNoGridColor, &environment.Env()).confirmed);
  // Cancelling the grid does not take back what the user has made.
  ASSERT_EQ(environment.Stored().size(), 41U);
  EXPECT_EQ(environment.Stored()[10], RGB(200, 255, 255));
  EXPECT_EQ(environment.Stored()[9], kWhite);
}

TEST(SelColor, ACancelledPickerChangesNothing) {
  ColourEnvironment environment;
  ModalScript script;
  const Condition shown = Painted(DialogWithTitle(kTitle));
  script.When(shown, [](HWND dialog) { Click(dialog, 13405); });
  script.When(shown, [](HWND dialog) { Click(dialog, kOther); });
  WorkPicker(script, false);
  script.When(shown, [](HWND dialog) {
    EXPECT_EQ(FocusedControlId(dialog), 13405);
    EXPECT_EQ(FillOf(dialog, kSelected), RGB(0, 64, 0));
    Confirm(dialog);
  });
  EXPECT_EQ(Ask(script, kNoGridColor, &environment.Env()).color, RGB(0, 64, 0));
  EXPECT_FALSE(ColourEnvironment::IsStored());
}

TEST(SelColor, ACancelledPickerGivesTheFocusBackToTheSelectedColour) {
  ModalScript script;
  const Condition shown = Painted(DialogWithTitle(kTitle));
  script.When(shown, [](HWND dialog) { Click(dialog, kOther); });
  WorkPicker(script, false);
  script.When(shown, [](HWND dialog) {
    EXPECT_EQ(FocusedControlId(dialog), kSelected);
    Confirm(dialog);
  });
  EXPECT_EQ(Ask(script, kNoGridColor).color, kNoGridColor);
}

TEST(SelColor, ThePickerAloneSelectsNothing) {
  // The focus stays on a button that is not the selected one while the picker comes and goes.
  ModalScript script;
  const Condition shown = Painted(DialogWithTitle(kTitle));
  script.When(shown, [](HWND dialog) {
    Notify(dialog, 13431, BN_CLICKED);
    Notify(dialog, kOther, BN_CLICKED);
  });
  WorkPicker(script, true);
  script.When(shown, [](HWND dialog) {
    EXPECT_EQ(FocusedControlId(dialog), 13431);
    EXPECT_EQ(FillOf(dialog, 13431), RGB(200, 255, 255)) << "the slot was still selected";
    Confirm(dialog);
  });
  EXPECT_EQ(Ask(script, RGB(255, 0, 0)).color, RGB(200, 255, 255));
}

TEST(SelColor, ClickingTheSelectedColourDetachesItFromTheGrid) {
  ModalScript script;
  const Condition shown = Painted(DialogWithTitle(kTitle));
  script.When(shown, [](HWND dialog) { Click(dialog, 13431); });
  script.When(shown, [](HWND dialog) { Click(dialog, kSelected); });
  script.When(shown, [](HWND dialog) { Click(dialog, kOther); });
  WorkPicker(script, true);
  script.When(shown, [](HWND dialog) {
    EXPECT_EQ(FillOf(dialog, 13431), kWhite);
    EXPECT_EQ(FillOf(dialog, kSelected), RGB(200, 255, 255));
    Confirm(dialog);
  });
  EXPECT_EQ(Ask(script, kNoGridColor).color, RGB(200, 255, 255));
}

TEST(SelColor, F2OpensThePickerForTheSelectedMadeColour) {
  ModalScript script;
  const Condition shown = Painted(DialogWithTitle(kTitle));
  script.When(shown, [](HWND dialog) { Focus(Control(dialog, 13420)); });
  script.When(shown, [](HWND) { PressKey(::GetFocus(), VK_F2); });
  WorkPicker(script, true);
  script.When(shown, [](HWND dialog) {
    EXPECT_EQ(FillOf(dialog, 13420), RGB(200, 255, 255));
    Confirm(dialog);
  });
  EXPECT_EQ(Ask(script, kNoGridColor).color, RGB(200, 255, 255));
}

TEST(SelColor, WithoutAnEnvironmentMadeColoursAreWhiteAndNotStored) {
  Ask(kNoGridColor, [](HWND dialog) {
    for (const int id : kMadeColorIds) {
      EXPECT_EQ(FillOf(dialog, id), kWhite);
    }
    Cancel(dialog);
  });
}

TEST(SelColor, ColourButtonsSpeakTheirColour) {
  Ask(kNoGridColor, [](HWND dialog) {
    EXPECT_EQ(Text(dialog, 13386), L"基本色 赤 255 緑 126 青 64");
    EXPECT_EQ(Text(dialog, kSelected), L"選択色 赤 255 緑 128 青 64");
    Cancel(dialog);
  });
}

TEST(SelColor, SelectingRecoloursByTheButtonsOwnStyle) {
  Ask(kNoGridColor, [](HWND dialog) {
    const LONG_PTR before = ::GetWindowLongPtrW(Control(dialog, kSelected), GWL_STYLE);
    EXPECT_EQ(before & (BS_TYPEMASK | BS_FLAT), BS_OWNERDRAW | BS_FLAT);
    Notify(dialog, 13377, BN_CLICKED);
    EXPECT_EQ(::GetWindowLongPtrW(Control(dialog, kSelected), GWL_STYLE), before);
    Cancel(dialog);
  });
}

}  // namespace
}  // namespace quorvel::test
