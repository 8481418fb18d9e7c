// The colour edit dialog and its page, worked as a user would.
#include "support/colour_environment.h"
#include "colour/page_controls.h"

#include <quorvel/quorvel.h>

#include <array>
#include <string>
#include <vector>

namespace quorvel::test {
namespace {

constexpr int kModel = 100;
constexpr int kFirstValue = 110;
constexpr int kFirstSlider = 120;
constexpr int kRows = 4;
constexpr COLORREF kBrown = RGB(153, 102, 51);

enum Model { kRgb, kCmyk, kHsb };

struct Answer {
  bool confirmed;
  COLORREF color;
};

Condition EditorShown() { return Painted(DialogWithTitle(L"色編集")); }

Answer Ask(ModalScript& script, COLORREF color, CKivSysEnv* env = nullptr) {
  const bool confirmed =
      Work(script, [&] { return __EditColorDlg(env, &color, nullptr); }) != FALSE;
  return {confirmed, color};
}

Answer Ask(COLORREF color, ModalScript::Action action, CKivSysEnv* env = nullptr) {
  ModalScript script;
  script.When(EditorShown(), std::move(action));
  return Ask(script, color, env);
}

using Numbers = std::vector<std::wstring>;

Numbers ShownNumbers(HWND page) {
  Numbers numbers;
  for (int row = 0; row < kRows; ++row) {
    if (IsShown(page, kFirstValue + row)) {
      numbers.push_back(Text(page, kFirstValue + row));
    }
  }
  return numbers;
}

std::wstring LabelsOf(HWND page) {
  std::wstring labels;
  for (HWND child = ::GetWindow(page, GW_CHILD); child != nullptr;
       child = ::GetWindow(child, GW_HWNDNEXT)) {
    if (ClassName(child) == L"Static" && ::IsWindowVisible(child) != FALSE) {
      labels += Text(child);
    }
  }
  return labels;
}

void SelectModel(HWND page, int model) {
  ::SendMessageW(Control(page, kModel), CB_SETCURSEL, static_cast<WPARAM>(model), 0);
  ::SendMessageW(page, WM_COMMAND, MAKEWPARAM(kModel, CBN_SELCHANGE),
                 reinterpret_cast<LPARAM>(Control(page, kModel)));
}

int ModelOf(HWND page) {
  return static_cast<int>(::SendMessageW(Control(page, kModel), CB_GETCURSEL, 0, 0));
}

TEST(EditColorDlg, OpensInRgbWhateverTheColour) {
  for (const COLORREF color : {kBrown, RGB(0, 0, 0), RGB(255, 255, 255), RGB(0, 0, 255)}) {
    const Answer answer = Ask(color, [=](HWND dialog) {
      const HWND page = ShownPage(dialog);
      EXPECT_EQ(ModelOf(page), kRgb);
      EXPECT_EQ(ShownNumbers(page),
                (Numbers{std::to_wstring(GetRValue(color)), std::to_wstring(GetGValue(color)),
                         std::to_wstring(GetBValue(color))}));
      EXPECT_EQ(LabelsOf(page), L"RGB");
      EXPECT_EQ(SwatchOf(page), color);
      Confirm(dialog);
    });
    EXPECT_TRUE(answer.confirmed);
    EXPECT_EQ(answer.color, color);
  }
}

TEST(EditColorDlg, OffersThreeModels) {
  Ask(kBrown, [](HWND dialog) {
    const HWND model = Control(ShownPage(dialog), kModel);
    ASSERT_EQ(::SendMessageW(model, CB_GETCOUNT, 0, 0), 3);
    std::array<wchar_t, 8> text{};
    std::wstring all;
    for (WPARAM i = 0; i < 3; ++i) {
      ::SendMessageW(model, CB_GETLBTEXT, i, reinterpret_cast<LPARAM>(text.data()));
      all += std::wstring(text.data()) + L" ";
    }
    EXPECT_EQ(all, L"RGB CMYK HSB ");
    Cancel(dialog);
  });
}

TEST(EditColorDlg, EachModelHasItsRowsLabelsAndValues) {
  Ask(kBrown, [](HWND dialog) {
    const HWND page = ShownPage(dialog);
    SelectModel(page, kCmyk);
    EXPECT_EQ(ShownNumbers(page), (Numbers{L"0", L"85", L"170", L"102"}));
    EXPECT_EQ(LabelsOf(page), L"CMYK");
    EXPECT_TRUE(IsShown(page, kFirstSlider + 3));
    SelectModel(page, kHsb);
    EXPECT_EQ(ShownNumbers(page), (Numbers{L"30", L"170", L"153"}));
    EXPECT_EQ(LabelsOf(page), L"HSB");
    EXPECT_FALSE(IsShown(page, kFirstSlider + 3));
    SelectModel(page, kRgb);
    EXPECT_EQ(ShownNumbers(page), (Numbers{L"153", L"102", L"51"}));
    EXPECT_FALSE(IsShown(page, kFirstValue + 3));
    Cancel(dialog);
  });
}

TEST(EditColorDlg, ControlsStandWhereTheyShould) {
  Ask(kBrown, [](HWND dialog) {
    const HWND page = ShownPage(dialog);
    const RECT place = ClientRectOf(Control(page, 1011));
    const RECT model = ClientRectOf(Control(page, kModel));
    EXPECT_EQ(CPoint(model.left, model.top), CPoint(place.left, place.top));
    EXPECT_EQ(model.right - model.left, 60);
    for (int row = 0; row < kRows; ++row) {
      const int top = place.top + 22 + 18 * row;
      EXPECT_EQ(CRect(ClientRectOf(Control(page, kFirstSlider + row))),
                CRect(place.left + 12, top, place.left + 132, top + 16));
      EXPECT_EQ(CRect(ClientRectOf(Control(page, kFirstValue + row))),
                CRect(place.left + 134, top, place.left + 174, top + 16));
      const LONG_PTR style = ::GetWindowLongPtrW(Control(page, kFirstValue + row), GWL_STYLE);
      // WS_BORDER is not looked at: some platforms' fields take it away and draw the border.
      EXPECT_EQ(style & (WS_TABSTOP | ES_NUMBER), WS_TABSTOP | ES_NUMBER);
    }
    // Nothing of the lowest row is cut off by the page.
    RECT client{};
    ::GetClientRect(page, &client);
    EXPECT_GE(client.bottom, ClientRectOf(Control(page, kFirstValue + 3)).bottom);
    EXPECT_LE(ClientRectOf(page).bottom, ClientRectOf(Control(dialog, IDOK)).top);
    Cancel(dialog);
  });
}

TEST(EditColorDlg, TheSlidersNotificationsSetTheComponent) {
  const Answer answer = Ask(kBrown, [](HWND dialog) {
    const HWND page = ShownPage(dialog);
    NotifySlider(page, kFirstSlider, KIVSLIDER_MOVING, 7);
    EXPECT_EQ(ShownNumbers(page), (Numbers{L"7", L"102", L"51"}));
    EXPECT_EQ(SwatchOf(page), RGB(7, 102, 51));
    NotifySlider(page, kFirstSlider + 2, KIVSLIDER_MOVED, 255);
    EXPECT_EQ(ShownNumbers(page), (Numbers{L"7", L"102", L"255"}));
    Confirm(dialog);
  });
  EXPECT_TRUE(answer.confirmed);
  EXPECT_EQ(answer.color, RGB(7, 102, 255));
}

TEST(EditColorDlg, DraggingTheSlidersLeadsToBothEndsOfTheirRanges) {
  Ask(kBrown, [](HWND dialog) {
    const HWND page = ShownPage(dialog);
    DragToEnd(Control(page, kFirstSlider), false, true);
    EXPECT_EQ(ShownNumbers(page), (Numbers{L"255", L"102", L"51"}));
    DragToEnd(Control(page, kFirstSlider), false, false);
    EXPECT_EQ(ShownNumbers(page), (Numbers{L"0", L"102", L"51"}));
    SelectModel(page, kHsb);
    DragToEnd(Control(page, kFirstSlider), false, true);
    EXPECT_EQ(ShownNumbers(page)[0], L"360");
    SelectModel(page, kCmyk);
    DragToEnd(Control(page, kFirstSlider + 3), false, true);
    EXPECT_EQ(ShownNumbers(page)[3], L"255");
    EXPECT_EQ(SwatchOf(page), RGB(0, 0, 0));
    Cancel(dialog);
  });
}

TEST(EditColorDlg, TheHueOfAGreySurvivesInHsb) {
  Ask(RGB(0, 0, 255), [](HWND dialog) {
    const HWND page = ShownPage(dialog);
    SelectModel(page, kHsb);
    EXPECT_EQ(ShownNumbers(page), (Numbers{L"240", L"255", L"255"}));
    NotifySlider(page, kFirstSlider + 2, KIVSLIDER_MOVED, 0);
    EXPECT_EQ(ShownNumbers(page), (Numbers{L"240", L"255", L"0"}));
    EXPECT_EQ(SwatchOf(page), RGB(0, 0, 0));
    NotifySlider(page, kFirstSlider + 2, KIVSLIDER_MOVED, 255);
    EXPECT_EQ(SwatchOf(page), RGB(0, 0, 255));
    Cancel(dialog);
  });
}

TEST(EditColorDlg, ChangingTheModelTakesTheColourApartAgain) {
  Ask(RGB(0, 0, 255), [](HWND dialog) {
    const HWND page = ShownPage(dialog);
    SelectModel(page, kCmyk);
    NotifySlider(page, kFirstSlider + 3, KIVSLIDER_MOVED, 255);
    EXPECT_EQ(ShownNumbers(page), (Numbers{L"255", L"255", L"0", L"255"}));
    SelectModel(page, kRgb);
    SelectModel(page, kCmyk);
    EXPECT_EQ(ShownNumbers(page), (Numbers{L"0", L"0", L"0", L"255"})) << "black has no other parts";
    Cancel(dialog);
  });
}

/// Types into a row's field and leaves it.
void TypeInRow(ModalScript& script, int model, int row, const std::wstring& text) {
  script.When(EditorShown(), [=](HWND dialog) {
    const HWND page = ShownPage(dialog);
    SelectModel(page, model);
    ::SetFocus(Control(page, kFirstValue + row));
    ReplaceText(Control(page, kFirstValue + row), text);
  });
  script.When(EditorShown(), [=](HWND dialog) {
    ::SetFocus(Control(ShownPage(dialog), kFirstSlider + row));
  });
}

TEST(EditColorDlg, ATypedValueCountsWhenItsFieldIsLeft) {
  ModalScript script;
  TypeInRow(script, kRgb, 1, L"9");
  script.When(EditorShown(), [](HWND dialog) {
    const HWND page = ShownPage(dialog);
    EXPECT_EQ(ShownNumbers(page), (Numbers{L"153", L"9", L"51"}));
    EXPECT_EQ(SwatchOf(page), RGB(153, 9, 51));
    Confirm(dialog);
  });
  EXPECT_EQ(Ask(script, kBrown).color, RGB(153, 9, 51));
}

TEST(EditColorDlg, AnEmptyFieldChangesNothing) {
  ModalScript script;
  TypeInRow(script, kRgb, 1, L"");
  script.When(EditorShown(), [](HWND dialog) {
    EXPECT_EQ(SwatchOf(ShownPage(dialog)), kBrown);
    EXPECT_EQ(ShownNumbers(ShownPage(dialog)), (Numbers{L"153", L"102", L"51"}));
    Confirm(dialog);
  });
  EXPECT_EQ(Ask(script, kBrown).color, kBrown);
}

TEST(EditColorDlg, AFieldThatIsLeftShowsItsNumberAndNothingElse) {
  ModalScript script;
  TypeInRow(script, kRgb, 1, L"0102");
  script.When(EditorShown(), [](HWND dialog) {
    EXPECT_EQ(ShownNumbers(ShownPage(dialog)), (Numbers{L"153", L"102", L"51"}));
  });
  TypeInRow(script, kRgb, 0, L"007");
  script.When(EditorShown(), [](HWND dialog) {
    EXPECT_EQ(ShownNumbers(ShownPage(dialog)), (Numbers{L"7", L"102", L"51"}));
    Cancel(dialog);
  });
  Ask(script, kBrown);
}

TEST(EditColorDlg, AValueBeyondTheRangeBecomesItsEnd) {
  ModalScript script;
  TypeInRow(script, kRgb, 0, L"300");
  script.When(EditorShown(), [](HWND dialog) {
    EXPECT_EQ(ShownNumbers(ShownPage(dialog)), (Numbers{L"255", L"102", L"51"}));
  });
  TypeInRow(script, kHsb, 0, L"999");
  script.When(EditorShown(), [](HWND dialog) {
    EXPECT_EQ(ShownNumbers(ShownPage(dialog))[0], L"360");
    Cancel(dialog);
  });
  Ask(script, kBrown);
}

TEST(EditColorDlg, EnterTakesWhatIsTyped) {
  ModalScript script;
  script.When(EditorShown(), [](HWND dialog) {
    const HWND edit = Control(ShownPage(dialog), kFirstValue + 2);
    ::SetFocus(edit);
    ReplaceText(edit, L"200");
  });
  script.When(EditorShown(), [](HWND) { PressKey(::GetFocus(), VK_RETURN); });
  const Answer answer = Ask(script, kBrown);
  EXPECT_TRUE(answer.confirmed);
  EXPECT_EQ(answer.color, RGB(153, 102, 200));
}

TEST(EditColorDlg, CancelAfterEditsLeavesTheColour) {
  const Answer answer = Ask(kBrown, [](HWND dialog) {
    NotifySlider(ShownPage(dialog), kFirstSlider, KIVSLIDER_MOVED, 7);
    Click(dialog, IDCANCEL);
  });
  EXPECT_FALSE(answer.confirmed);
  EXPECT_EQ(answer.color, kBrown);
}

TEST(EditColorDlg, TheFieldsHaveTheEnvironmentsFont) {
  ColourEnvironment environment;
  Ask(
      kBrown,
      [](HWND dialog) {
        const HWND page = ShownPage(dialog);
        for (const int id : {kModel, kFirstValue, kFirstValue + 3}) {
          LOGFONTW font{};
          ::GetObjectW(reinterpret_cast<HFONT>(::SendMessageW(Control(page, id), WM_GETFONT, 0, 0)),
                       sizeof font, &font);
          EXPECT_STREQ(font.lfFaceName, L"MS UI Gothic");
          EXPECT_EQ(font.lfHeight, -12);
        }
        Cancel(dialog);
      },
      &environment.Env());
}

TEST(EditColorDlg, TabLeadsThroughThePageToTheButtons) {
  Ask(kBrown, [](HWND dialog) {
    EXPECT_EQ(FocusedControlId(dialog), IDOK);
    const HWND page = ShownPage(dialog);
    std::vector<int> order;
    HWND control = Control(page, kModel);
    for (int i = 0; i < 9; ++i) {
      order.push_back(::GetDlgCtrlID(control));
      control = ::GetNextDlgTabItem(dialog, control, FALSE);
    }
    EXPECT_EQ(order, (std::vector<int>{kModel, 120, 110, 121, 111, 122, 112, IDOK, IDCANCEL}));
    Cancel(dialog);
  });
}

}  // namespace
}  // namespace quorvel::test
