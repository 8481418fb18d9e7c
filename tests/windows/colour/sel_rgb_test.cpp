// The colour picker, worked as a user would. What the numbers must be is told by the formulas of the
// picker's rules, which have tests of their own; here, that the dialog follows them.
#include "dialogs/colour/picker_rules.h"
#include "driver/picture.h"
#include "support/work.h"

#include <quorvel/quorvel.h>

#include <array>
#include <string>

namespace quorvel::test {
namespace {

constexpr int kField = 13557;
constexpr int kBar = 13555;
constexpr int kSwatch = 13556;
constexpr int kBarScroll = 13540;
constexpr int kHue = 13374;
constexpr int kHueSpin = 13545;
constexpr int kSaturation = 13371;
constexpr int kSaturationSpin = 13544;
constexpr int kBrightness = 13370;
constexpr int kBrightnessSpin = 13543;
constexpr int kRed = 13375;
constexpr int kRedBar = 13542;
constexpr int kGreen = 13373;
constexpr int kGreenBar = 13541;
constexpr int kBlue = 13372;
constexpr int kBlueBar = 13539;

constexpr COLORREF kBrown = RGB(153, 102, 51);
constexpr COLORREF kGrey = RGB(128, 128, 128);

struct Answer {
  bool confirmed;
  COLORREF color;
};

Answer Ask(ModalScript& script, COLORREF color) {
  const bool confirmed = Work(script, [&] { return __SelRGBDlg(&color); }) != FALSE;
  return {confirmed, color};
}

Condition PickerShown() { return Painted(DialogWithTitle(L"色の設定")); }

Answer Ask(COLORREF color, ModalScript::Action action) {
  ModalScript script;
  script.When(PickerShown(), std::move(action));
  return Ask(script, color);
}

int NumberIn(HWND dialog, int id) { return std::stoi(Text(dialog, id)); }

int PositionOf(HWND dialog, int id) { return ::GetScrollPos(Control(dialog, id), SB_CTL); }

PickerValues ShownValues(HWND dialog) {
  return {NumberIn(dialog, kHue), NumberIn(dialog, kSaturation), NumberIn(dialog, kBrightness)};
}

RgbColour ShownColour(HWND dialog) {
  return {NumberIn(dialog, kRed), NumberIn(dialog, kGreen), NumberIn(dialog, kBlue)};
}

std::uint32_t PixelOf(const RgbColour& colour) {
  return static_cast<std::uint32_t>((colour.red << 16) | (colour.green << 8) | colour.blue);
}

CSize FieldSize(HWND dialog) {
  CRect client;
  ::GetClientRect(Control(dialog, kField), &client);
  return client.Size();
}

CPoint FieldCorner(HWND dialog) {
  POINT corner{0, 0};
  ::MapWindowPoints(Control(dialog, kField), dialog, &corner, 1);
  return corner;
}

/// A message of the mouse at a point of the field.
void Mouse(HWND dialog, UINT message, const CPoint& inField) {
  const CPoint corner = FieldCorner(dialog);
  ::SendMessageW(dialog, message, MK_LBUTTON,
                 MAKELPARAM(corner.x + inField.x, corner.y + inField.y));
}

void Scroll(HWND dialog, UINT message, int barId, UINT code, int position = 0) {
  ::SendMessageW(dialog, message, MAKEWPARAM(code, position),
                 reinterpret_cast<LPARAM>(Control(dialog, barId)));
}

/// What the picker promises at rest: everything shows one colour.
void ExpectAgreement(HWND dialog) {
  const RgbColour colour = ShownColour(dialog);
  EXPECT_EQ(PositionOf(dialog, kRedBar), colour.red);
  EXPECT_EQ(PositionOf(dialog, kGreenBar), colour.green);
  EXPECT_EQ(PositionOf(dialog, kBlueBar), colour.blue);
  const PickerValues values = ShownValues(dialog);
  EXPECT_EQ(PositionOf(dialog, kHueSpin), values.hue);
  EXPECT_EQ(PositionOf(dialog, kSaturationSpin), std::min(values.saturation, 255));
  EXPECT_EQ(PositionOf(dialog, kBrightnessSpin), std::min(values.brightness, 255));
  EXPECT_EQ(PositionOf(dialog, kBarScroll), std::max(255 - values.brightness, 0));
  EXPECT_EQ(ReadPixels(Control(dialog, kSwatch)).At(10, 10), PixelOf(colour));
  const Picture bar = ReadPixels(Control(dialog, kBar));
  const auto bands = BarBands(PureColour(values.hue, values.saturation));
  for (int band = 0; band < kBarBands; ++band) {
    const int height = BandHeight(bar.height);
    ASSERT_GT(height, 0);
    for (const int y : {band * height, (band + 1) * height - 1}) {
      ASSERT_EQ(bar.At(0, y), PixelOf(bands[static_cast<std::size_t>(band)])) << band;
      ASSERT_EQ(bar.At(bar.width - 1, y), PixelOf(bands[static_cast<std::size_t>(band)]));
    }
  }
}

bool IsInMarker(const CPoint& point, const CPoint& marker) {
  constexpr int kReach = 11;
  return std::abs(point.x - marker.x) <= kReach && std::abs(point.y - marker.y) <= kReach;
}

/// The field shows the picture of its formula, and the marker's strokes on it at `marker`.
void ExpectField(HWND dialog, const CPoint& marker) {
  const CSize size = FieldSize(dialog);
  const Picture field = ReadPixels(Control(dialog, kField));
  constexpr int kHalfBright = 126;  // half of the range, with what is added to it at a point
  int differences = 0;
  for (int y = 0; y < size.cy; ++y) {
    for (int x = 0; x < size.cx; ++x) {
      if (!IsInMarker({x, y}, marker) &&
          field.At(x, y) != PixelOf(ColourAtPoint({x, y}, size, kHalfBright).colour)) {
        ++differences;
      }
    }
  }
  EXPECT_EQ(differences, 0);
  for (const Segment& stroke : MarkerStrokes(marker, size)) {
    const int x = (stroke.from.x + stroke.to.x) / 2;
    const int y = (stroke.from.y + stroke.to.y) / 2;
    EXPECT_EQ(field.At(x, y), 0U) << "no stroke at " << x << ", " << y;
  }
}

TEST(SelRgb, OpensWithTheColoursValues) {
  for (const COLORREF color : {kBrown, kGrey, RGB(0, 0, 0), RGB(255, 0, 0), RGB(1, 254, 77)}) {
    const Answer answer = Ask(color, [=](HWND dialog) {
      const RgbColour colour{GetRValue(color), GetGValue(color), GetBValue(color)};
      EXPECT_EQ(ShownColour(dialog), colour);
      EXPECT_EQ(ShownValues(dialog), ValuesOfColour(colour));
      ExpectAgreement(dialog);
      ExpectField(dialog, MarkerOfValues(ValuesOfColour(colour), FieldSize(dialog)));
      Confirm(dialog);
    });
    EXPECT_TRUE(answer.confirmed);
    EXPECT_EQ(answer.color, color);
  }
}

TEST(SelRgb, OpensWithGrey) {
  Ask(kGrey, [](HWND dialog) {
    EXPECT_EQ(ShownValues(dialog), (PickerValues{170, 0, 128}));
    EXPECT_EQ(PositionOf(dialog, kBarScroll), 127);
    Cancel(dialog);
  });
}

TEST(SelRgb, OpensWithWhite) {
  const Answer answer = Ask(RGB(255, 255, 255), [](HWND dialog) {
    EXPECT_EQ(ShownValues(dialog), (PickerValues{170, 0, 256}));
    EXPECT_EQ(PositionOf(dialog, kBrightnessSpin), 255);
    EXPECT_EQ(PositionOf(dialog, kBarScroll), 0);
    Confirm(dialog);
  });
  EXPECT_EQ(answer.color, RGB(255, 255, 255));
}

TEST(SelRgb, ValuesOf256StayWhileOtherFieldsAreTyped) {
  ModalScript script;
  script.When(PickerShown(), [](HWND dialog) {
    EXPECT_EQ(ShownValues(dialog), (PickerValues{0, 256, 128}));
    ReplaceText(Control(dialog, kBrightness), L"100");
  });
  script.When(PickerShown(), [](HWND dialog) {
    EXPECT_EQ(ShownValues(dialog), (PickerValues{0, 256, 100}));
    Cancel(dialog);
  });
  Ask(script, RGB(255, 0, 0));
}

TEST(SelRgb, AllBarsLeadFrom0To255) {
  Ask(kBrown, [](HWND dialog) {
    for (const int bar : {kRedBar, kGreenBar, kBlueBar, kBarScroll, kHueSpin, kSaturationSpin,
                          kBrightnessSpin}) {
      int lowest = -1;
      int highest = -1;
      ::GetScrollRange(Control(dialog, bar), SB_CTL, &lowest, &highest);
      EXPECT_EQ(lowest, 0);
      EXPECT_EQ(highest, 255);
    }
    Cancel(dialog);
  });
}

TEST(SelRgb, TheFieldStandsWhereTheMouseIsTested) {
  Ask(kBrown, [](HWND dialog) {
    EXPECT_EQ(FieldCorner(dialog), CPoint(16, 14)) << "at the standard font";
    EXPECT_EQ(FieldSize(dialog), CSize(205, 170));
    Cancel(dialog);
  });
}

TEST(SelRgb, DraggingPicksHueAndSaturation) {
  const Answer answer = Ask(kBrown, [](HWND dialog) {
    const CSize size = FieldSize(dialog);
    const int brightness = NumberIn(dialog, kBrightness);
    Mouse(dialog, WM_MOUSEMOVE, {100, 50});
    EXPECT_EQ(ShownColour(dialog), (RgbColour{153, 102, 51})) << "no button is down";
    Mouse(dialog, WM_LBUTTONDOWN, {10, 10});
    EXPECT_EQ(::GetCapture(), dialog);
    EXPECT_EQ(ShownColour(dialog), (RgbColour{153, 102, 51})) << "pressing alone picks nothing";
    for (const CPoint point : {CPoint(10, 11), CPoint(0, 0), CPoint(204, 0), CPoint(204, 169),
                               CPoint(0, 169), CPoint(120, 60)}) {
      Mouse(dialog, WM_MOUSEMOVE, point);
      const FieldColour expected = ColourAtPoint(point, size, brightness);
      EXPECT_EQ(ShownColour(dialog), expected.colour);
      EXPECT_EQ(ShownValues(dialog),
                (PickerValues{expected.hue, expected.saturation, brightness}));
      ExpectField(dialog, point);
    }
    Mouse(dialog, WM_LBUTTONUP, {121, 61});
    EXPECT_EQ(::GetCapture(), nullptr);
    EXPECT_EQ(ShownColour(dialog), ColourAtPoint({121, 61}, size, brightness).colour);
    Mouse(dialog, WM_MOUSEMOVE, {1, 1});
    EXPECT_EQ(ShownColour(dialog), ColourAtPoint({121, 61}, size, brightness).colour);
    ExpectAgreement(dialog);
    Confirm(dialog);
  });
  const FieldColour expected = ColourAtPoint({121, 61}, {205, 170}, 102);
  EXPECT_EQ(answer.color, RGB(expected.colour.red, expected.colour.green, expected.colour.blue));
}

TEST(SelRgb, APointOutsideTheFieldChangesNothing) {
  Ask(kBrown, [](HWND dialog) {
    for (const CPoint point : {CPoint(-1, 5), CPoint(205, 5), CPoint(5, -1), CPoint(5, 170),
                               CPoint(-200, -200), CPoint(400, 60)}) {
      Mouse(dialog, WM_LBUTTONDOWN, point);
      Mouse(dialog, WM_MOUSEMOVE, point);
      Mouse(dialog, WM_LBUTTONUP, point);
      EXPECT_EQ(ShownColour(dialog), (RgbColour{153, 102, 51}));
    }
    Cancel(dialog);
  });
}

TEST(SelRgb, ADragThatIsTakenAwayEnds) {
  Ask(kBrown, [](HWND dialog) {
    Mouse(dialog, WM_LBUTTONDOWN, {10, 10});
    ::ReleaseCapture();
    Mouse(dialog, WM_MOUSEMOVE, {100, 50});
    Mouse(dialog, WM_LBUTTONUP, {100, 50});
    EXPECT_EQ(ShownColour(dialog), (RgbColour{153, 102, 51}));
    Cancel(dialog);
  });
}

TEST(SelRgb, AClickOnTheFieldItselfIsHeardByTheDialog) {
  ModalScript script;
  script.When(PickerShown(), [](HWND dialog) {
    // Where the mouse is, the system asks the windows from the top down who wants it.
    POINT point = FieldCorner(dialog);
    point.x += 20;
    point.y += 20;
    ::ClientToScreen(dialog, &point);
    EXPECT_EQ(::WindowFromPoint(point), dialog);
    Cancel(dialog);
  });
  Ask(script, kBrown);
}

TEST(SelRgb, SpinnersRiseByLineUpAndFallByEveryOtherCode) {
  for (const int spinner : {kHueSpin, kSaturationSpin, kBrightnessSpin}) {
    Ask(kBrown, [=](HWND dialog) {
      int expected = PositionOf(dialog, spinner);
      Scroll(dialog, WM_VSCROLL, spinner, SB_LINEUP);
      EXPECT_EQ(PositionOf(dialog, spinner), ++expected);
      for (const UINT code : {SB_LINEDOWN, SB_PAGEUP, SB_PAGEDOWN, SB_THUMBPOSITION, SB_THUMBTRACK,
                              SB_TOP, SB_BOTTOM}) {
        Scroll(dialog, WM_VSCROLL, spinner, code, 200);
        EXPECT_EQ(PositionOf(dialog, spinner), --expected);
      }
      Scroll(dialog, WM_VSCROLL, spinner, SB_ENDSCROLL);
      EXPECT_EQ(PositionOf(dialog, spinner), expected);
      ExpectAgreement(dialog);
      Cancel(dialog);
    });
  }
}

TEST(SelRgb, TheHueSpinnerKeepsTheMarkersRow) {
  Ask(kBrown, [](HWND dialog) {
    const CSize size = FieldSize(dialog);
    const CPoint before = MarkerOfValues(ShownValues(dialog), size);
    const int hue = NumberIn(dialog, kHue) + 1;
    const int brightness = NumberIn(dialog, kBrightness);
    Scroll(dialog, WM_VSCROLL, kHueSpin, SB_LINEUP);
    const CPoint marker(MarkerX(hue, size), before.y);
    const FieldColour expected = ColourAtPoint(marker, size, brightness);
    EXPECT_EQ(ShownValues(dialog), (PickerValues{hue, expected.saturation, brightness}));
    EXPECT_EQ(ShownColour(dialog), expected.colour);
    ExpectField(dialog, marker);
    Cancel(dialog);
  });
}

TEST(SelRgb, TheSaturationSpinnerTakes255WhereTheStartTakes256) {
  Ask(kBrown, [](HWND dialog) {
    const CSize size = FieldSize(dialog);
    const CPoint before = MarkerOfValues(ShownValues(dialog), size);
    const int saturation = NumberIn(dialog, kSaturation) - 1;
    const int brightness = NumberIn(dialog, kBrightness);
    Scroll(dialog, WM_VSCROLL, kSaturationSpin, SB_LINEDOWN);
    const CPoint marker(before.x, MarkerYOfSpinner(saturation, size));
    const FieldColour expected = ColourAtPoint(marker, size, brightness);
    EXPECT_EQ(ShownValues(dialog), (PickerValues{expected.hue, saturation, brightness}));
    EXPECT_EQ(ShownColour(dialog), expected.colour);
    ExpectField(dialog, marker);
    Cancel(dialog);
  });
}

TEST(SelRgb, BrightnessKeepsHueAndSaturationAlsoThroughBlack) {
  Ask(kBrown, [](HWND dialog) {
    const PickerValues before = ShownValues(dialog);
    const CPoint marker = MarkerOfValues(before, FieldSize(dialog));
    Scroll(dialog, WM_VSCROLL, kBarScroll, SB_THUMBTRACK, 255);
    EXPECT_EQ(ShownValues(dialog), (PickerValues{before.hue, before.saturation, 0}));
    EXPECT_EQ(ShownColour(dialog), ColourOfValues({before.hue, before.saturation, 0}));
    Scroll(dialog, WM_VSCROLL, kBarScroll, SB_THUMBTRACK, 100);
    EXPECT_EQ(ShownValues(dialog), (PickerValues{before.hue, before.saturation, 155}));
    EXPECT_EQ(ShownColour(dialog), ColourOfValues({before.hue, before.saturation, 155}));
    ExpectAgreement(dialog);
    ExpectField(dialog, marker);
    Cancel(dialog);
  });
}

TEST(SelRgb, TheBrightnessBarIsUpsideDown) {
  Ask(kGrey, [](HWND dialog) {
    struct Step {
      UINT code;
      int position;
      int expected;
    };
    for (const auto& [code, position, expected] :
         {Step{SB_LINEUP, 0, 126}, Step{SB_LINEDOWN, 0, 127}, Step{SB_PAGEDOWN, 0, 137},
          Step{SB_PAGEUP, 0, 127}, Step{SB_THUMBPOSITION, 250, 250}, Step{SB_PAGEDOWN, 0, 255},
          Step{SB_LINEDOWN, 0, 255}, Step{SB_THUMBTRACK, 4, 4}, Step{SB_PAGEUP, 0, 0},
          Step{SB_LINEUP, 0, 0}, Step{SB_THUMBTRACK, 300, 255}, Step{SB_THUMBTRACK, -5, 0}}) {
      Scroll(dialog, WM_VSCROLL, kBarScroll, code, position);
      EXPECT_EQ(PositionOf(dialog, kBarScroll), expected);
      EXPECT_EQ(NumberIn(dialog, kBrightness), 255 - expected);
      EXPECT_EQ(PositionOf(dialog, kBrightnessSpin), 255 - expected);
      ExpectAgreement(dialog);
    }
    Cancel(dialog);
  });
}

TEST(SelRgb, ColourBarsLeadToAllOtherValues) {
  Ask(kBrown, [](HWND dialog) {
    struct Step {
      int bar = 0;
      UINT code = 0;
      int position = 0;
      RgbColour expected;
    };
    for (const auto& [bar, code, position, expected] :
         {Step{kRedBar, SB_LINERIGHT, 0, {154, 102, 51}},
          Step{kRedBar, SB_LINELEFT, 0, {153, 102, 51}},
          Step{kGreenBar, SB_PAGERIGHT, 0, {153, 112, 51}},
          Step{kGreenBar, SB_PAGELEFT, 0, {153, 102, 51}},
          Step{kBlueBar, SB_THUMBTRACK, 200, {153, 102, 200}},
          Step{kBlueBar, SB_THUMBPOSITION, 51, {153, 102, 51}},
          Step{kBlueBar, SB_RIGHT, 0, {153, 102, 255}},
          Step{kBlueBar, SB_LINERIGHT, 0, {153, 102, 255}},
          Step{kRedBar, SB_LEFT, 0, {0, 102, 255}},
          Step{kRedBar, SB_PAGELEFT, 0, {0, 102, 255}},
          Step{kGreenBar, SB_ENDSCROLL, 9, {0, 102, 255}},
          Step{kGreenBar, SB_THUMBTRACK, 256, {0, 102, 255}},
          Step{kGreenBar, SB_THUMBTRACK, -1, {0, 102, 255}}}) {
      Scroll(dialog, WM_HSCROLL, bar, code, position);
      EXPECT_EQ(ShownColour(dialog), expected);
      EXPECT_EQ(ShownValues(dialog), ValuesOfColour(expected));
      ExpectAgreement(dialog);
      ExpectField(dialog, MarkerOfValues(ValuesOfColour(expected), FieldSize(dialog)));
    }
    Cancel(dialog);
  });
}

class SelRgbEdit : public ::testing::TestWithParam<int> {};

INSTANTIATE_TEST_SUITE_P(Fields, SelRgbEdit,
                         ::testing::Values(kHue, kSaturation, kBrightness, kRed, kGreen, kBlue));

TEST_P(SelRgbEdit, Typing300TurnsInto255AtOnce) {
  const int id = GetParam();
  ModalScript script;
  script.When(PickerShown(), [=](HWND dialog) { ReplaceText(Control(dialog, id), L"300"); });
  script.When(PickerShown(), [=](HWND dialog) {
    EXPECT_EQ(Text(dialog, id), L"255");
    const auto end = DWORD{3};
    EXPECT_EQ(SelectionOf(Control(dialog, id)), (Selection{end, end})) << "typing goes on behind it";
    ExpectAgreement(dialog);
    Cancel(dialog);
  });
  Ask(script, kBrown);
}

TEST_P(SelRgbEdit, EmptyingItChangesNothingAndLeavingItBringsTheValueBack) {
  const int id = GetParam();
  ModalScript script;
  std::wstring before;
  RgbColour colour;
  script.When(PickerShown(), [&](HWND dialog) {
    before = Text(dialog, id);
    colour = ShownColour(dialog);
    ReplaceText(Control(dialog, id), L"");
  });
  script.When(PickerShown(), [&](HWND dialog) {
    EXPECT_EQ(VisibleDialogs().size(), 1U) << "no message";
    EXPECT_EQ(Text(dialog, id), L"");
    EXPECT_EQ(PositionOf(dialog, kRedBar), colour.red);
    Focus(Control(dialog, IDOK));
    EXPECT_EQ(Text(dialog, id), before);
    ExpectAgreement(dialog);
    Confirm(dialog);
  });
  EXPECT_EQ(Ask(script, kBrown).color, kBrown);
}

TEST_P(SelRgbEdit, AnEmptyFieldDoesNotKeepOkFromClosing) {
  const int id = GetParam();
  ModalScript script;
  script.When(PickerShown(), [=](HWND dialog) { ReplaceText(Control(dialog, id), L""); });
  script.When(PickerShown(), [=](HWND dialog) { PressKey(Control(dialog, id), VK_RETURN); });
  const Answer answer = Ask(script, kBrown);
  EXPECT_TRUE(answer.confirmed);
  EXPECT_EQ(answer.color, kBrown);
}

TEST_P(SelRgbEdit, TypingDoesWhatTheSpinnerOrTheBarDoes) {
  const int id = GetParam();
  const auto result = [](ModalScript::Action change) {
    ModalScript script;
    RgbColour colour;
    PickerValues values;
    script.When(PickerShown(), std::move(change));
    script.When(PickerShown(), [&](HWND dialog) {
      colour = ShownColour(dialog);
      values = ShownValues(dialog);
      ExpectAgreement(dialog);
      Cancel(dialog);
    });
    Ask(script, kBrown);
    return std::pair(colour, values);
  };
  const auto typed = result([=](HWND dialog) {
    ::SetWindowTextW(Control(dialog, id), std::to_wstring(NumberIn(dialog, id) - 1).c_str());
  });
  const auto stepped = result([=](HWND dialog) {
    struct Partner {
      int edit;
      int bar;
      UINT message;
    };
    for (const auto& [edit, bar, message] :
         {Partner{kHue, kHueSpin, WM_VSCROLL}, Partner{kSaturation, kSaturationSpin, WM_VSCROLL},
          Partner{kBrightness, kBrightnessSpin, WM_VSCROLL}, Partner{kRed, kRedBar, WM_HSCROLL},
          Partner{kGreen, kGreenBar, WM_HSCROLL}, Partner{kBlue, kBlueBar, WM_HSCROLL}}) {
      if (edit == id) {
        Scroll(dialog, message, bar, message == WM_VSCROLL ? SB_LINEDOWN : SB_LINELEFT);
      }
    }
  });
  EXPECT_EQ(typed.first, stepped.first);
  EXPECT_EQ(typed.second, stepped.second);
}

TEST_P(SelRgbEdit, ArrowsStepTheValue) {
  const int id = GetParam();
  ModalScript script;
  int before = 0;
  script.When(PickerShown(), [&](HWND dialog) {
    before = NumberIn(dialog, id);
    Focus(Control(dialog, id));
    PressKey(Control(dialog, id), VK_UP);
    PressKey(Control(dialog, id), VK_UP);
    PressKey(Control(dialog, id), VK_DOWN);
  });
  script.When(PickerShown(), [&](HWND dialog) {
    EXPECT_EQ(NumberIn(dialog, id), before + 1);
    ExpectAgreement(dialog);
    Cancel(dialog);
  });
  Ask(script, kBrown);
}

TEST_P(SelRgbEdit, TextsThatAreNoValuesDoNoHarm) {
  const int id = GetParam();
  Ask(kBrown, [=](HWND dialog) {
    for (const wchar_t* text : {L"abc", L"", L" ", L"-", L"99999999999999999999", L"-7", L"0x10"}) {
      ::SetWindowTextW(Control(dialog, id), text);
      EXPECT_EQ(VisibleDialogs().size(), 1U);
    }
    ::SetWindowTextW(Control(dialog, id), L"99999999999999999999");
    EXPECT_EQ(Text(dialog, id), L"255");
    ::SetWindowTextW(Control(dialog, id), L"-7");
    EXPECT_EQ(Text(dialog, id), L"0");
    ExpectAgreement(dialog);
    Cancel(dialog);
  });
}

TEST_P(SelRgbEdit, ANumberIsWrittenAsItIsShown) {
  const int id = GetParam();
  Ask(kBrown, [=](HWND dialog) {
    const HWND edit = Control(dialog, id);
    for (const wchar_t* text : {L"007", L"７", L"7.", L"+7"}) {
      ::SetWindowTextW(edit, text);
      EXPECT_EQ(Text(dialog, id), L"7");
    }
    // What is typed behind a leading 0 comes behind it.
    ::SetWindowTextW(edit, L"00");
    ::SendMessageW(edit, EM_REPLACESEL, FALSE, reinterpret_cast<LPARAM>(L"9"));
    EXPECT_EQ(Text(dialog, id), L"9");
    ExpectAgreement(dialog);
    Cancel(dialog);
  });
}

TEST(SelRgb, Hue255Is359Degrees) {
  ModalScript script;
  script.When(PickerShown(), [](HWND dialog) {
    ::SetWindowTextW(Control(dialog, kHue), L"255");
    const CSize size = FieldSize(dialog);
    EXPECT_EQ(DegreesOfHue(255), 359);
    EXPECT_EQ(NumberIn(dialog, kHue), 255);
    ExpectField(dialog, {MarkerX(255, size), MarkerY(ValuesOfColour({153, 102, 51}).saturation,
                                                     size)});
    Cancel(dialog);
  });
  Ask(script, kBrown);
}

TEST(SelRgb, TheResultIsThatOfTheColourBars) {
  const Answer answer = Ask(kBrown, [](HWND dialog) {
    ::SetScrollPos(Control(dialog, kRedBar), SB_CTL, 12, TRUE);
    Confirm(dialog);
  });
  EXPECT_EQ(answer.color, RGB(12, 102, 51));
}

TEST(SelRgb, CancelLeavesTheColour) {
  const Answer answer = Ask(kBrown, [](HWND dialog) {
    Scroll(dialog, WM_HSCROLL, kRedBar, SB_RIGHT);
    Click(dialog, IDCANCEL);
  });
  EXPECT_FALSE(answer.confirmed);
  EXPECT_EQ(answer.color, kBrown);
}

TEST(SelRgb, HasNoDragIcon) {
  Ask(kBrown, [](HWND dialog) {
    EXPECT_EQ(::SendMessageW(dialog, WM_QUERYDRAGICON, 0, 0), 0);
    Cancel(dialog);
  });
}

}  // namespace
}  // namespace quorvel::test
