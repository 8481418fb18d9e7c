// The font dialog, worked as a user would.
#include "font/font_work.h"
#include "framework/code_page.h"

#include <cmath>
#include <limits>

namespace quorvel::test {
namespace {

struct Arguments {
  double dotsPerMm = kOne300DpiDot;
  const char* title = nullptr;
  BOOL showStrikeType = TRUE;
  BOOL fixedColour = FALSE;
  UINT enableMask = QUORVEL_FONT_ALL;
};

bool Ask(CKivFont& font, ModalScript& script, const Arguments& arguments = {}) {
  return Work(script, [&] {
           return __SelFontDlg(nullptr, &font, arguments.dotsPerMm, arguments.title,
                               arguments.showStrikeType, arguments.fixedColour,
                               arguments.enableMask);
         }) != FALSE;
}

bool Ask(CKivFont& font, ModalScript::Action action, const Arguments& arguments = {}) {
  ModalScript script;
  script.When(FontDialogShown(), std::move(action));
  return Ask(font, script, arguments);
}

/// Confirmed with this height typed.
CKivFont WithHeight(const std::wstring& text) {
  CKivFont font = OddFont();
  EXPECT_TRUE(Ask(font, [&](HWND dialog) {
    ReplaceText(Control(dialog, kHeight), text);
    PressKey(Control(dialog, kHeight), VK_RETURN);
  })) << text.size();
  return font;
}

// ---- What goes in comes out

class SelFontFace : public ::testing::TestWithParam<const char*> {};

INSTANTIATE_TEST_SUITE_P(Quorvel, SelFontFace,
                         ::testing::Values("ＭＳ ゴシック", "IPA P明朝", "@ＭＳ Ｐ明朝",
                                           "DejaVu Sans", "DejaVu Sans Light", "無い書体",
                                           "@無い縦の書体", "", "IPAGothic", "System",
                                           "長い長い長い長い長い長い長い長"));

TEST_P(SelFontFace, AConfirmWithoutAChangeChangesNothing) {
  CKivFont font = OddFont(GetParam());
  font.SetStrikeOutType(1);
  const CKivFont before = font;
  EXPECT_TRUE(Ask(font, Confirm));
  EXPECT_TRUE(SameRecord(font.GetLogFont(0), before.GetLogFont(0)))
      << font.GetLogFont(0).lfFaceName;
  EXPECT_EQ(font.GetColor(), kOddColour);
  EXPECT_EQ(font.GetV(), before.GetV());
  EXPECT_EQ(font.GetH(), before.GetH());
  EXPECT_EQ(font.GetStrikeOutType(), 1);
}

class SelFontWeight : public ::testing::TestWithParam<LONG> {};

INSTANTIATE_TEST_SUITE_P(Quorvel, SelFontWeight, ::testing::Values(0, 1, 300, 400, 500, 700, 1000));

TEST_P(SelFontWeight, SurvivesAConfirmWithoutAChange) {
  for (const BYTE italic : {0, 1}) {
    CKivFont font = OddFont();
    LOGFONTA record = font.GetLogFont(0);
    record.lfWeight = GetParam();
    record.lfItalic = italic;
    font.SetLogFont(&record);
    EXPECT_TRUE(Ask(font, Confirm));
    EXPECT_TRUE(SameRecord(font.GetLogFont(0), record));
  }
}

TEST(SelFontDlg, ACellHeightStaysOne) {
  CKivFont font = OddFont();
  LOGFONTA record = font.GetLogFont(0);
  record.lfHeight = 60;
  font.SetLogFont(&record);
  EXPECT_TRUE(Ask(font, [](HWND dialog) {
    EXPECT_EQ(Text(dialog, kHeight), L"5.08");
    ReplaceText(Control(dialog, kHeight), L"10.16");
    Confirm(dialog);
  }));
  EXPECT_EQ(font.GetLogFont(0).lfHeight, 120);
}

TEST(SelFontDlg, CancelLeavesTheFontThoughTheDialogShowsItsRecord) {
  CKivFont font = OddFont();
  font.SetV(77.0);
  font.SetH(5.0);
  const LOGFONTA record = font.GetLogFont(0);
  EXPECT_FALSE(Ask(font, [](HWND dialog) {
    EXPECT_EQ(Text(dialog, kHeight), L"9.991");
    EXPECT_EQ(Text(dialog, kWidth), L"3.979");
    ReplaceText(Control(dialog, kHeight), L"5");
    Pick(dialog, kFace, L"DejaVu Sans");
    Click(dialog, kUnderline);
    Cancel(dialog);
  }));
  EXPECT_TRUE(SameRecord(font.GetLogFont(0), record));
  EXPECT_EQ(font.GetV(), 77.0);
  EXPECT_EQ(font.GetH(), 5.0);
  EXPECT_EQ(font.GetColor(), kOddColour);
}

// ---- Resolution

struct Resolution {
  double dotsPerMm;
  const wchar_t* shown;  ///< height of a record of 118 dots
  double height;         ///< that the font has after a confirm without a change
};

class SelFontResolution : public ::testing::TestWithParam<Resolution> {};

constexpr double kNan = std::numeric_limits<double>::quiet_NaN();
constexpr double kInfinity = std::numeric_limits<double>::infinity();

INSTANTIATE_TEST_SUITE_P(
    Quorvel, SelFontResolution,
    ::testing::Values(Resolution{0.0, L"9.991", 118 / kOne300DpiDot},
                      Resolution{0.0000005, L"9.991", 118 / kOne300DpiDot},
                      Resolution{-0.0000005, L"9.991", 118 / kOne300DpiDot},
                      Resolution{kOne300DpiDot, L"9.991", 118 / kOne300DpiDot},
                      Resolution{23.6, L"5", 5.0},
                      // No sizes can be made: the font's own millimetres are shown and stay.
                      Resolution{-23.6, L"77.25", 77.25}, Resolution{kNan, L"77.25", 77.25},
                      Resolution{kInfinity, L"77.25", 77.25},
                      Resolution{-kInfinity, L"77.25", 77.25}));

TEST_P(SelFontResolution, RelatesTheRecordToTheMillimetres) {
  CKivFont font = OddFont();
  font.SetV(77.25);
  const LOGFONTA record = font.GetLogFont(0);
  EXPECT_TRUE(Ask(font,
                  [](HWND dialog) {
                    EXPECT_EQ(Text(dialog, kHeight), GetParam().shown);
                    Confirm(dialog);
                  },
                  {.dotsPerMm = GetParam().dotsPerMm}));
  EXPECT_EQ(font.GetV(), GetParam().height);
  EXPECT_TRUE(SameRecord(font.GetLogFont(0), record));
}

TEST(SelFontDlg, TheMillimetresOverrideTheRecordAtTheSameResolution) {
  CKivFont font = OddFont();
  EXPECT_TRUE(Ask(font,
                  [](HWND dialog) {
                    ReplaceText(Control(dialog, kHeight), L"10");
                    ReplaceText(Control(dialog, kWidth), L"2.5");
                    Confirm(dialog);
                  },
                  {.dotsPerMm = 23.6}));
  EXPECT_EQ(font.GetV(), 10.0);
  EXPECT_EQ(font.GetH(), 2.5);
  EXPECT_EQ(font.GetLogFont(0).lfHeight, -236);
  EXPECT_EQ(font.GetLogFont(0).lfWidth, 59);
}

TEST(SelFontDlg, ATinyResolutionIsUsedUnchangedAndItsHeightIsRefused) {
  CKivFont font = OddFont();
  const double before = font.GetV();
  ModalScript script;
  script.When(FontDialogShown(), [](HWND dialog) {
    EXPECT_EQ(Text(dialog, kHeight), L"59000000");
    Confirm(dialog);
  });
  script.When(MessageBoxShown(), [](HWND box) {
    EXPECT_EQ(Text(box, kBoxText), L"0 から 9999 までの数値を入力してください。");
    Confirm(box);
  });
  script.When(FontDialogShown(), Cancel);
  EXPECT_FALSE(Ask(font, script, {.dotsPerMm = 0.000002}));
  EXPECT_EQ(font.GetV(), before);
}

// ---- The millimetre fields

struct TypedSize {
  const wchar_t* text;
  double value;
};

TEST(SelFontDlg, TakesSizesAsUsersTypeThem) {
  for (const TypedSize& typed :
       {TypedSize{L"3", 3.0}, TypedSize{L"3.5", 3.5}, TypedSize{L".5", 0.5},
        TypedSize{L"３．５", 3.5}, TypedSize{L" １２ ", 12.0}, TypedSize{L"0", 0.0},
        TypedSize{L"0.01", 0.01}, TypedSize{L"9999", 9999.0}, TypedSize{L"9999.0", 9999.0}}) {
    EXPECT_EQ(WithHeight(typed.text).GetV(), typed.value);
  }
}

TEST(SelFontDlg, ShowsNoNoiseDigits) {
  CKivFont font;
  for (const double size : {3.5, 0.1, 7.0}) {
    font.SetV(size);
    Ask(font,
        [size](HWND dialog) {
          EXPECT_EQ(Text(dialog, kHeight), size == 3.5 ? L"3.5" : size == 0.1 ? L"0.1" : L"7");
          EXPECT_EQ(Text(dialog, kWidth), L"0");
          Cancel(dialog);
        },
        {.dotsPerMm = -1.0});
  }
}

TEST(SelFontDlg, AFieldThatWasNotEditedKeepsItsValueToTheLastBit) {
  CKivFont font = OddFont();
  const double height = font.GetV();
  const double width = font.GetH();
  ASSERT_NE(height, 9.991);
  EXPECT_TRUE(Ask(font, [](HWND dialog) {
    ReplaceText(Control(dialog, kHeight), L"5");
    ReplaceText(Control(dialog, kHeight), L"9.991");  // as it was shown
    Confirm(dialog);
  }));
  EXPECT_EQ(font.GetV(), height);
  EXPECT_EQ(font.GetH(), width);
  EXPECT_EQ(font.GetLogFont(0).lfHeight, -118);
}

struct RefusedSize {
  int field;
  const wchar_t* text;
  const wchar_t* message;
};

class SelFontRefuses : public ::testing::TestWithParam<RefusedSize> {};

constexpr const wchar_t* kNoNumber = L"数値を入力してください。";
constexpr const wchar_t* kOutOfRange = L"0 から 9999 までの数値を入力してください。";

INSTANTIATE_TEST_SUITE_P(Quorvel, SelFontRefuses,
                         ::testing::Values(RefusedSize{kHeight, L"abc", kNoNumber},
                                           RefusedSize{kHeight, L"", kNoNumber},
                                           RefusedSize{kHeight, L"3.5x", kNoNumber},
                                           RefusedSize{kHeight, L"-1", kOutOfRange},
                                           RefusedSize{kHeight, L"9999.001", kOutOfRange},
                                           RefusedSize{kHeight, L"99999999", kOutOfRange},
                                           RefusedSize{kWidth, L"abc", kNoNumber},
                                           RefusedSize{kWidth, L"-0.1", kOutOfRange},
                                           RefusedSize{kWidth, L"10000", kOutOfRange}));

TEST_P(SelFontRefuses, WithAMessageAndTheDialogStays) {
  const RefusedSize& refused = GetParam();
  CKivFont font = OddFont();
  ModalScript script;
  script.When(FontDialogShown(), [&](HWND dialog) {
    ReplaceText(Control(dialog, refused.field), refused.text);
    PressKey(Control(dialog, refused.field), VK_RETURN);
  });
  script.When(MessageBoxShown(), [&](HWND box) {
    EXPECT_EQ(Text(box, kBoxText), refused.message);
    EXPECT_EQ(Text(box), kFontTitle);
    Confirm(box);
  });
  script.When(Focused(refused.field, refused.field), [&](HWND dialog) {
    EXPECT_EQ(Text(dialog, refused.field), refused.text);
    EXPECT_EQ(SelectionOf(Control(dialog, refused.field)),
              WholeText(Control(dialog, refused.field)));
    TypeText(Control(dialog, refused.field), L"8");
    PressKey(Control(dialog, refused.field), VK_RETURN);
  });
  EXPECT_TRUE(Ask(font, script));
  EXPECT_EQ(refused.field == kHeight ? font.GetV() : font.GetH(), 8.0);
}

TEST(SelFontDlg, WhileAConversionIsUnderWayEnterAndEscapeBelongToIt) {
  CKivFont font = OddFont();
  ModalScript script;
  script.When(FontDialogShown(), [](HWND dialog) {
    const HWND field = Control(dialog, kHeight);
    ReplaceText(field, L"");
    ::PostMessageW(field, WM_IME_STARTCOMPOSITION, 0, 0);
    PressKey(field, VK_RETURN);
    PressKey(field, VK_ESCAPE);
    ::PostMessageW(field, WM_IME_ENDCOMPOSITION, 0, 0);
    TypeText(field, L"６");
    PressKey(field, VK_RETURN);
  });
  EXPECT_TRUE(Ask(font, script));
  EXPECT_EQ(font.GetV(), 6.0);
}

// ---- The sample

TEST(SelFontDlg, TheSampleFollowsTheHeightAndNotTheWidth) {
  CKivFont font = OddFont();
  Picture first;
  Picture second;
  ModalScript script;
  script.When(FontDialogShown(), [&](HWND dialog) {
    EXPECT_EQ(Entries(Control(dialog, kSize))[1], L"32");  // 9.991 mm
    EXPECT_EQ(Selected(Control(dialog, kSize)), 1);
    first = SampleOf(dialog);
    ReplaceText(Control(dialog, kWidth), L"8");
  });
  script.When(FontDialogShown(), [&](HWND dialog) {
    EXPECT_EQ(SampleOf(dialog), first);
    ReplaceText(Control(dialog, kHeight), L"5");
  });
  script.When(FontDialogShown(), [&](HWND dialog) {
    EXPECT_EQ(Entries(Control(dialog, kSize))[1], L"16");
    EXPECT_EQ(Selected(Control(dialog, kSize)), 1);
    EXPECT_EQ(FocusedControlId(dialog), kHeight);
    second = SampleOf(dialog);
    EXPECT_NE(second, first);
    EXPECT_LT(CountOf(second, kOddColour), CountOf(first, kOddColour));
    EXPECT_GT(CountOf(second, kOddColour), 0U);
    ReplaceText(Control(dialog, kHeight), L"9.991");
  });
  script.When(FontDialogShown(), [&](HWND dialog) {
    EXPECT_EQ(SampleOf(dialog), first);
    Cancel(dialog);
  });
  Ask(font, script);
}

TEST(SelFontDlg, WhatIsNoNumberFeedsZeroWhileTyping) {
  CKivFont font = OddFont();
  ModalScript script;
  script.When(FontDialogShown(),
              [](HWND dialog) { ReplaceText(Control(dialog, kHeight), L"abc"); });
  script.When(FontDialogShown(), [](HWND dialog) {
    EXPECT_EQ(Entries(Control(dialog, kSize))[1], L"0");
    Cancel(dialog);
  });
  Ask(font, script);
}

TEST(SelFontDlg, AnyHeightIsDrawnAtOnce) {
  CKivFont font = OddFont();
  ModalScript script(3'000);
  for (const wchar_t* text : {L"9999", L"99999999999", L"1e300", L"-1e300", L"-500"}) {
    script.When(FontDialogShown(),
                [text](HWND dialog) { ReplaceText(Control(dialog, kHeight), text); });
  }
  script.When(FontDialogShown(), Cancel);
  EXPECT_FALSE(Ask(font, script));
}

TEST(SelFontDlg, ThePlatformsSizeCountsForNothing) {
  CKivFont font = OddFont();
  EXPECT_TRUE(Ask(font, [](HWND dialog) {
    Pick(dialog, kSize, 5);
    Confirm(dialog);
  }));
  EXPECT_EQ(font.GetLogFont(0).lfHeight, -118);
}

TEST(SelFontDlg, TheSampleFollowsTheEffects) {
  CKivFont font = OddFont();
  Picture first;
  ModalScript script;
  script.When(FontDialogShown(), [&](HWND dialog) {
    first = SampleOf(dialog);
    Click(dialog, kStrikeOut);
  });
  script.When(FontDialogShown(), [&](HWND dialog) {
    EXPECT_NE(SampleOf(dialog), first);
    Confirm(dialog);
  });
  EXPECT_TRUE(Ask(font, script));
  EXPECT_EQ(font.GetLogFont(0).lfStrikeOut, 0);
}

// ---- Colour

TEST(SelFontDlg, TheCallersColourIsInTheSampleAndComesBack) {
  CKivFont font = OddFont();
  EXPECT_TRUE(Ask(font, [](HWND dialog) {
    const HWND colours = Control(dialog, kColours);
    EXPECT_EQ(Entries(colours).size(), 17U);
    EXPECT_EQ(Selected(colours), 16);
    EXPECT_EQ(static_cast<COLORREF>(::SendMessageW(colours, CB_GETITEMDATA, 16, 0)), kOddColour);
    EXPECT_GT(CountOf(SampleOf(dialog), kOddColour), 0U);
    EXPECT_GT(CountOf(ReadPixels(Control(dialog, kColour)), kOddColour), 0U);
    Confirm(dialog);
  }));
  EXPECT_EQ(font.GetColor(), kOddColour);
}

TEST(SelFontDlg, TheColourButtonAsksForAColour) {
  CKivFont font = OddFont();
  ModalScript script;
  for (int times = 0; times < 2; ++times) {  // the second time over the first's choice
    script.When(FontDialogShown(), [](HWND dialog) { Click(dialog, kColour); });
    script.When(GridShown(), [](HWND grid) {
      EXPECT_NE(::GetWindow(grid, GW_OWNER), nullptr);
      Click(grid, kGridOrange);
      Click(grid, IDOK);
    });
  }
  script.When(FontDialogShown(), [](HWND dialog) {
    const HWND colours = Control(dialog, kColours);
    EXPECT_EQ(Entries(colours).size(), 17U);
    EXPECT_EQ(Selected(colours), 16);
    EXPECT_EQ(static_cast<COLORREF>(::SendMessageW(colours, CB_GETITEMDATA, 16, 0)), kOrange);
    EXPECT_GT(CountOf(SampleOf(dialog), kOrange), 0U);
    EXPECT_EQ(CountOf(SampleOf(dialog), kOddColour), 0U);
    EXPECT_GT(CountOf(ReadPixels(Control(dialog, kColour)), kOrange), 0U);
    EXPECT_EQ(FocusedControlId(dialog), kHeight);
    Confirm(dialog);
  });
  EXPECT_TRUE(Ask(font, script));
  EXPECT_EQ(font.GetColor(), kOrange);
}

TEST(SelFontDlg, ACancelledColourChangesNothing) {
  CKivFont font = OddFont();
  ModalScript script;
  script.When(FontDialogShown(), [](HWND dialog) { Click(dialog, kColour); });
  script.When(GridShown(), [](HWND grid) {
    Click(grid, kGridOrange);
    Cancel(grid);
  });
  script.When(FontDialogShown(), Confirm);
  EXPECT_TRUE(Ask(font, script));
  EXPECT_EQ(font.GetColor(), kOddColour);
}

TEST(SelFontDlg, AFixedColourCannotBeChanged) {
  CKivFont font = OddFont();
  ModalScript script;
  script.When(FontDialogShown(), [](HWND dialog) {
    EXPECT_TRUE(IsEnabled(dialog, kColour));
    Click(dialog, kColour);
    Click(dialog, kUnderline);  // comes after the click on the colour
  });
  script.When({.what = "the underline off",
               .find =
                   [] {
                     const std::vector<HWND> dialogs = VisibleDialogs();
                     return dialogs.size() == 1 && !IsChecked(dialogs[0], kUnderline) ? dialogs[0]
                                                                                      : nullptr;
                   }},
              Confirm);
  EXPECT_TRUE(Ask(font, script, {.fixedColour = TRUE}));
  EXPECT_EQ(font.GetColor(), kOddColour);
  EXPECT_EQ(font.GetLogFont(0).lfUnderline, 0);
}

// ---- Strike-out

TEST(SelFontDlg, TheStrikeOutTypeFollowsTheCheckBox) {
  CKivFont font = OddFont();
  ModalScript script;
  script.When(FontDialogShown(), [](HWND dialog) {
    EXPECT_EQ(Entries(Control(dialog, kStrikeType)), (std::vector<std::wstring>{L"1本", L"2本"}));
    EXPECT_EQ(Selected(Control(dialog, kStrikeType)), 0);
    EXPECT_TRUE(IsEnabled(dialog, kStrikeType));
    Click(dialog, kStrikeOut);
  });
  script.When(FontDialogShown(), [](HWND dialog) {
    EXPECT_FALSE(IsChecked(dialog, kStrikeOut));
    EXPECT_FALSE(IsEnabled(dialog, kStrikeType));
    Click(dialog, kStrikeOut);
  });
  script.When(FontDialogShown(), [](HWND dialog) {
    EXPECT_TRUE(IsEnabled(dialog, kStrikeType));
    Pick(dialog, kStrikeType, 1);
    Confirm(dialog);
  });
  EXPECT_TRUE(Ask(font, script));
  EXPECT_EQ(font.GetStrikeOutType(), 1);
  EXPECT_EQ(font.GetLogFont(0).lfStrikeOut, 7);
}

TEST(SelFontDlg, TheStrikeOutTypeGoesIn) {
  CKivFont font = OddFont();
  font.SetStrikeOutType(1);
  Ask(font, [](HWND dialog) {
    EXPECT_EQ(Selected(Control(dialog, kStrikeType)), 1);
    Cancel(dialog);
  });
}

TEST(SelFontDlg, WithAFixedColourTheStrikeOutTypeStaysDisabled) {
  CKivFont font;
  ModalScript script;
  script.When(FontDialogShown(), [](HWND dialog) {
    EXPECT_FALSE(IsEnabled(dialog, kStrikeType));
    Click(dialog, kStrikeOut);
  });
  script.When(FontDialogShown(), [](HWND dialog) {
    EXPECT_TRUE(IsChecked(dialog, kStrikeOut));
    EXPECT_FALSE(IsEnabled(dialog, kStrikeType));
    Cancel(dialog);
  });
  Ask(font, script, {.fixedColour = TRUE});
}

TEST(SelFontDlg, TheStrikeOutTypeIsShownOnlyIfWanted) {
  CKivFont font = OddFont();
  for (const BOOL shown : {FALSE, TRUE}) {
    Ask(font,
        [shown](HWND dialog) {
          EXPECT_EQ(IsShown(dialog, kStrikeType), shown != FALSE);
          Cancel(dialog);
        },
        {.showStrikeType = shown});
  }
}

TEST(SelFontDlg, AHiddenStrikeOutTypeIsNotEnabledByTheCheckBox) {
  CKivFont font;
  ModalScript script;
  script.When(FontDialogShown(), [](HWND dialog) { Click(dialog, kStrikeOut); });
  script.When(FontDialogShown(), [](HWND dialog) {
    EXPECT_TRUE(IsChecked(dialog, kStrikeOut));
    EXPECT_FALSE(IsEnabled(dialog, kStrikeType));
    Cancel(dialog);
  });
  Ask(font, script, {.showStrikeType = FALSE});
}

TEST(SelFontDlg, WhereTheStrikeOutIsMaskedItsTypeStillFollowsIt) {
  for (const BYTE strikeOut : {0, 1}) {
    CKivFont font;
    LOGFONTA record = font.GetLogFont(0);
    record.lfStrikeOut = strikeOut;
    font.SetLogFont(&record);
    Ask(font,
        [strikeOut](HWND dialog) {
          EXPECT_FALSE(IsEnabled(dialog, kStrikeOut));
          EXPECT_EQ(IsEnabled(dialog, kStrikeType), strikeOut != 0);
          Cancel(dialog);
        },
        {.enableMask = QUORVEL_FONT_ALL & ~UINT{QUORVEL_FONT_STRIKEOUT}});
  }
}

TEST(SelFontDlg, TheStrikeOutBoxReadsTheFieldsFirst) {
  CKivFont font = OddFont();
  ModalScript script;
  script.When(FontDialogShown(), [](HWND dialog) {
    ReplaceText(Control(dialog, kWidth), L"x");
    Click(dialog, kStrikeOut);
  });
  script.When(MessageBoxShown(), [](HWND box) {
    EXPECT_EQ(Text(box, kBoxText), kNoNumber);
    Confirm(box);
  });
  script.When(FontDialogShown(), [](HWND dialog) {
    EXPECT_FALSE(IsChecked(dialog, kStrikeOut));
    EXPECT_TRUE(IsEnabled(dialog, kStrikeType));  // as before: the fields were refused
    Cancel(dialog);
  });
  Ask(font, script);
}

// ---- What the host allows

constexpr std::array kMasked{kFace, kStyle, kStrikeOut, kUnderline, kColour, 0, kHeight, kWidth};

TEST(SelFontDlg, EachBitOfTheMaskAllowsItsControlAlone) {
  CKivFont font = OddFont();
  for (std::size_t bit = 0; bit <= 10; ++bit) {  // the last: none at all
    const UINT mask = bit < 10 ? 1U << bit : 0U;
    Ask(font,
        [&](HWND dialog) {
          for (std::size_t other = 0; other < kMasked.size(); ++other) {
            if (kMasked[other] != 0) {
              EXPECT_EQ(IsEnabled(dialog, kMasked[other]), other == bit)
                  << "mask " << mask << ", control " << kMasked[other];
            }
          }
          EXPECT_TRUE(IsEnabled(dialog, IDOK));
          Cancel(dialog);
        },
        {.enableMask = mask});
  }
}

TEST(SelFontDlg, WithNothingAllowedItStillConfirms) {
  CKivFont font = OddFont();
  const LOGFONTA record = font.GetLogFont(0);
  EXPECT_TRUE(Ask(font, [](HWND dialog) { PressKey(dialog, VK_RETURN); }, {.enableMask = 0}));
  EXPECT_TRUE(SameRecord(font.GetLogFont(0), record));
}

TEST(SelFontDlg, AColourIsChosenWhereTheHeightIsMasked) {
  CKivFont font = OddFont();
  ModalScript script;
  script.When(FontDialogShown(), [](HWND dialog) { Click(dialog, kColour); });
  script.When(GridShown(), [](HWND grid) {
    Click(grid, kGridOrange);
    Click(grid, IDOK);
  });
  script.When(FontDialogShown(), [](HWND dialog) {
    EXPECT_EQ(FocusedControlId(dialog), kColour);  // a disabled field cannot have it
    Confirm(dialog);
  });
  EXPECT_TRUE(Ask(font, script, {.enableMask = QUORVEL_FONT_COLOUR}));
  EXPECT_EQ(font.GetColor(), kOrange);
}

TEST(SelFontDlg, ATitleReplacesTheTemplates) {
  CKivFont font;
  for (const char* title : {"文字の設定 100%", ""}) {
    ModalScript script;
    script.When(Painted(DialogWithControl(kHeight)), [&](HWND dialog) {
      EXPECT_EQ(Text(dialog), title[0] != '\0' ? L"文字の設定 100%" : L"");
      Cancel(dialog);
    });
    Ask(font, script, {.title = title});
  }
}

// ---- Faces and styles

TEST(SelFontDlg, VerticalFacesStandAfterTheOthers) {
  CKivFont font = OddFont("ＭＳ ゴシック");
  Ask(font, [](HWND dialog) {
    const std::vector<std::wstring> faces = Entries(Control(dialog, kFace));
    const auto isVertical = [](const std::wstring& face) { return face.starts_with(L'@'); };
    EXPECT_TRUE(std::ranges::is_partitioned(faces, std::not_fn(isVertical)));
    EXPECT_TRUE(isVertical(faces.back()));
    EXPECT_FALSE(isVertical(faces.front()));
    EXPECT_EQ(faces[static_cast<std::size_t>(Selected(Control(dialog, kFace)))], L"ＭＳ ゴシック");
    EXPECT_EQ(Text(dialog, kFace), L"ＭＳ ゴシック");
    Cancel(dialog);
  });
}

TEST(SelFontDlg, APickedFaceComesOutWhole) {
  for (const std::wstring& face : {std::wstring(L"@ＭＳ Ｐ明朝"), ProportionalGothicFace(),
                                   std::wstring(L"DejaVu Sans Condensed")}) {
    CKivFont font = OddFont("ＭＳ ゴシック");
    EXPECT_TRUE(Ask(font, [&](HWND dialog) {
      Pick(dialog, kFace, face);
      Confirm(dialog);
    }));
    const LOGFONTA record = font.GetLogFont(0);
    EXPECT_EQ(WideFromCodePage(std::begin(record.lfFaceName)), face);
    EXPECT_EQ(record.lfEscapement, 300);
    EXPECT_EQ(record.lfOutPrecision, OUT_TT_PRECIS);
    EXPECT_EQ(record.lfQuality, PROOF_QUALITY);
    EXPECT_EQ(record.lfHeight, -118);
  }
}

TEST(SelFontDlg, ThePickedFacesSampleHasTheHeight) {
  CKivFont font = OddFont("ＭＳ ゴシック");
  ModalScript script;
  script.When(FontDialogShown(), [](HWND dialog) { Pick(dialog, kFace, L"DejaVu Sans"); });
  script.When(FontDialogShown(), [](HWND dialog) {
    LOGFONTW shown{};
    ::SendMessageW(dialog, WM_USER + 1, 0, reinterpret_cast<LPARAM>(&shown));
    constexpr int kPointsOf9991 = 32;
    const int dots = ::MulDiv(kPointsOf9991, 96, 72);
    EXPECT_NEAR(std::abs(shown.lfHeight), dots, 1);
    Cancel(dialog);
  });
  Ask(font, script);
}

TEST(SelFontDlg, ACharacterSetThatTheNewFaceLacksBecomesOneOfItsOwn) {
  CKivFont font = OddFont("ＭＳ ゴシック");
  EXPECT_TRUE(Ask(font, [](HWND dialog) {
    Pick(dialog, kFace, L"DejaVu Sans");
    Confirm(dialog);
  }));
  EXPECT_NE(font.GetLogFont(0).lfCharSet, SHIFTJIS_CHARSET);
  EXPECT_TRUE(Ask(font, [](HWND dialog) {
    Pick(dialog, kFace, ProportionalMinchoFace());
    Confirm(dialog);
  }));
  const BYTE charSet = font.GetLogFont(0).lfCharSet;
  EXPECT_TRUE(Ask(font, [](HWND dialog) {
    Pick(dialog, kFace, GothicFace());
    Confirm(dialog);
  }));
  EXPECT_EQ(font.GetLogFont(0).lfCharSet, charSet);
}

TEST(SelFontDlg, AFaceIsShownByTheNameThatTheSystemListsIt) {
  CKivFont font = OddFont("IPAゴシック");
  const LOGFONTA before = font.GetLogFont(0);
  EXPECT_TRUE(Ask(font, [](HWND dialog) {
    EXPECT_EQ(Text(dialog, kFace), GothicFace());
    EXPECT_EQ(Text(dialog, kStyle), ItalicStyle());
    Confirm(dialog);
  }));
  EXPECT_TRUE(SameRecord(font.GetLogFont(0), before)) << "the caller's own name stays";
}

TEST(SelFontDlg, ForAMissingFaceTheOneDrawnWithIsShownInItsStyle) {
  CKivFont font = OddFont("無い書体");
  Ask(font, [](HWND dialog) {
    const std::wstring shown = Text(dialog, kFace);
    EXPECT_NE(shown, L"無い書体");
    EXPECT_FALSE(shown.starts_with(L'@'));
    EXPECT_GE(Selected(Control(dialog, kFace)), 0);
    EXPECT_EQ(Text(dialog, kStyle), ItalicStyle());
    Cancel(dialog);
  });
}

TEST(SelFontDlg, AMissingFaceGoesWhenTheUserPicksEvenTheOneShown) {
  CKivFont font = OddFont("無い書体");
  std::wstring shown;
  EXPECT_TRUE(Ask(font, [&](HWND dialog) {
    shown = Text(dialog, kFace);
    Pick(dialog, kFace, shown);
    Confirm(dialog);
  }));
  const LOGFONTA record = font.GetLogFont(0);
  EXPECT_EQ(WideFromCodePage(std::begin(record.lfFaceName)), shown);
}

TEST(SelFontDlg, AMissingFaceStaysWhenOnlyTheStyleIsPicked) {
  CKivFont font = OddFont("無い書体");
  EXPECT_TRUE(Ask(font, [](HWND dialog) {
    Pick(dialog, kStyle, BoldStyle());
    Confirm(dialog);
  }));
  EXPECT_STREQ(font.GetLogFont(0).lfFaceName, "無い書体");
  EXPECT_EQ(font.GetLogFont(0).lfWeight, FW_BOLD);
  EXPECT_EQ(font.GetLogFont(0).lfItalic, 0);
}

TEST(SelFontDlg, AFaceWhoseNameCannotBeReturnedIsRefused) {
  for (const wchar_t* face : {L"한글 글꼴", L"Café", L"長い長い長い長い長い長い長い長い長い"}) {
    CKivFont font = OddFont();
    const LOGFONTA record = font.GetLogFont(0);
    ModalScript script;
    script.When(FontDialogShown(), [face](HWND dialog) {
      ::SendMessageW(Control(dialog, kFace), CB_INSERTSTRING, 0, reinterpret_cast<LPARAM>(face));
      Pick(dialog, kFace, 0);
      Confirm(dialog);
    });
    script.When(MessageBoxShown(), [](HWND box) {
      EXPECT_EQ(Text(box, kBoxText),
                L"このフォントの名前は使用できません。別のフォントを選択してください。");
      Confirm(box);
    });
    script.When(FontDialogShown(), [](HWND dialog) {
      EXPECT_EQ(FocusedControlId(dialog), kFace);
      Cancel(dialog);
    });
    EXPECT_FALSE(Ask(font, script));
    EXPECT_TRUE(SameRecord(font.GetLogFont(0), record));
  }
}

TEST(SelFontDlg, ListsTrueTypeFacesOnly) {
  CKivFont font;
  Ask(font, [](HWND dialog) {
    const std::vector<std::wstring> faces = Entries(Control(dialog, kFace));
    EXPECT_EQ(std::ranges::count(faces, L"System"), 0);
    Cancel(dialog);
  });
}

// ---- The dialog as a window

TEST(SelFontDlg, BeginsAtTheHeightWithOkAsTheDefault) {
  CKivFont font;
  Ask(font, [](HWND dialog) {
    EXPECT_EQ(FocusedControlId(dialog), kHeight);
    EXPECT_EQ(LOWORD(::SendMessageW(dialog, DM_GETDEFID, 0, 0)), IDOK);
    ::SendMessageW(::GetFocus(), WM_CHAR, L'7', 0);
    EXPECT_EQ(Text(dialog, kHeight), L"7");
    Cancel(dialog);
  });
}

TEST(SelFontDlg, TabReachesEveryControlInReadingOrder) {
  CKivFont font = OddFont();
  Ask(font, [](HWND dialog) {
    EXPECT_EQ(TabOrderIds(dialog),
              (std::vector<int>{kFace, kStyle, kStrikeOut, kStrikeType, kUnderline, kColour,
                                kHeight, kWidth, IDOK, IDCANCEL}));
    Cancel(dialog);
  });
}

}  // namespace
}  // namespace quorvel::test
