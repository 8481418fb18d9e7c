// What the extended font dialog has beyond the other.
#include "font/font_work.h"

namespace quorvel::test {
namespace {

constexpr COLORREF kOddBack = RGB(0x21, 0x43, 0x65);

struct Arguments {
  const char* title = nullptr;
  BOOL fixedColour = FALSE;
  UINT enableMask = QUORVEL_FONT_ALL;
};

CKivFontEx OddFontEx(const char* face = "IPA P明朝") {
  auto font = OddFont<CKivFontEx>(face);
  font.SetBackColor(&kOddBack);
  font.SetVPos(1);
  font.SetHPos(2);
  font.SetStrikeOutType(1);
  return font;
}

bool Ask(CKivFontEx& font, ModalScript& script, const Arguments& arguments = {}) {
  return Work(script, [&] {
           return __SelFontExDlg(nullptr, &font, kOne300DpiDot, arguments.title,
                                 arguments.fixedColour, arguments.enableMask);
         }) != FALSE;
}

bool Ask(CKivFontEx& font, ModalScript::Action action, const Arguments& arguments = {}) {
  ModalScript script;
  script.When(FontDialogShown(), std::move(action));
  return Ask(font, script, arguments);
}

TEST(SelFontExDlg, AConfirmWithoutAChangeChangesNothing) {
  for (const char* face : {"ＭＳ ゴシック", "@ＭＳ Ｐ明朝", "無い書体"}) {
    CKivFontEx font = OddFontEx(face);
    const CKivFontEx before = font;
    EXPECT_TRUE(Ask(font, Confirm));
    EXPECT_TRUE(SameRecord(font.GetLogFont(0), before.GetLogFont(0)));
    EXPECT_EQ(font.GetV(), before.GetV());
    EXPECT_EQ(font.GetH(), before.GetH());
    EXPECT_EQ(font.GetColor(), kOddColour);
    EXPECT_EQ(font.GetBackColor(), kOddBack);
    EXPECT_EQ(font.GetVPos(), 1);
    EXPECT_EQ(font.GetHPos(), 2);
    EXPECT_EQ(font.GetStrikeOutType(), 1);
  }
}

TEST(SelFontExDlg, CancelLeavesTheFont) {
  CKivFontEx font = OddFontEx();
  font.SetV(77.0);
  const LOGFONTA record = font.GetLogFont(0);
  EXPECT_FALSE(Ask(font, [](HWND dialog) {
    ReplaceText(Control(dialog, kHeight), L"5");
    Pick(dialog, kVertical, 2);
    Pick(dialog, kHorizontal, 0);
    Cancel(dialog);
  }));
  EXPECT_TRUE(SameRecord(font.GetLogFont(0), record));
  EXPECT_EQ(font.GetV(), 77.0);
  EXPECT_EQ(font.GetVPos(), 1);
  EXPECT_EQ(font.GetHPos(), 2);
}

TEST(SelFontExDlg, ThePlacesAreThreeEachWayInTheirOrder) {
  for (const int place : {0, 1, 2}) {
    CKivFontEx font = OddFontEx();
    font.SetVPos(static_cast<BYTE>(place));
    font.SetHPos(static_cast<BYTE>(place));
    const int other = (place + 1) % 3;
    EXPECT_TRUE(Ask(font, [&](HWND dialog) {
      EXPECT_EQ(Entries(Control(dialog, kVertical)),
                (std::vector<std::wstring>{L"上寄せ", L"中央", L"下寄せ"}));
      EXPECT_EQ(Entries(Control(dialog, kHorizontal)),
                (std::vector<std::wstring>{L"左寄せ", L"中央", L"右寄せ"}));
      EXPECT_EQ(Selected(Control(dialog, kVertical)), place);
      EXPECT_EQ(Selected(Control(dialog, kHorizontal)), place);
      Pick(dialog, kVertical, other);
      Confirm(dialog);
    }));
    EXPECT_EQ(font.GetVPos(), other);
    EXPECT_EQ(font.GetHPos(), place);
  }
}

TEST(SelFontExDlg, TheBackgroundButtonAsksForItsColourAlone) {
  CKivFontEx font = OddFontEx();
  Picture sample;
  ModalScript script;
  script.When(FontDialogShown(), [&](HWND dialog) {
    EXPECT_GT(CountOf(ReadPixels(Control(dialog, kBackColour)), kOddBack), 0U);
    sample = SampleOf(dialog);
    Click(dialog, kBackColour);
  });
  script.When(GridShown(), [](HWND grid) {
    Click(grid, kGridOrange);
    Click(grid, IDOK);
  });
  script.When(FontDialogShown(), [&](HWND dialog) {
    EXPECT_GT(CountOf(ReadPixels(Control(dialog, kBackColour)), kOrange), 0U);
    EXPECT_GT(CountOf(ReadPixels(Control(dialog, kColour)), kOddColour), 0U);
    EXPECT_EQ(SampleOf(dialog), sample);
    Confirm(dialog);
  });
  EXPECT_TRUE(Ask(font, script));
  EXPECT_EQ(font.GetBackColor(), kOrange);
  EXPECT_EQ(font.GetColor(), kOddColour);
}

TEST(SelFontExDlg, ACancelledBackgroundChangesNothing) {
  CKivFontEx font = OddFontEx();
  ModalScript script;
  script.When(FontDialogShown(), [](HWND dialog) { Click(dialog, kBackColour); });
  script.When(GridShown(), [](HWND grid) {
    Click(grid, kGridOrange);
    Cancel(grid);
  });
  script.When(FontDialogShown(), Confirm);
  EXPECT_TRUE(Ask(font, script));
  EXPECT_EQ(font.GetBackColor(), kOddBack);
}

TEST(SelFontExDlg, TheTextColourIsAskedForAsInTheOtherDialog) {
  CKivFontEx font = OddFontEx();
  ModalScript script;
  script.When(FontDialogShown(), [](HWND dialog) { Click(dialog, kColour); });
  script.When(GridShown(), [](HWND grid) {
    Click(grid, kGridOrange);
    Click(grid, IDOK);
  });
  script.When(FontDialogShown(), [](HWND dialog) {
    EXPECT_GT(CountOf(SampleOf(dialog), kOrange), 0U);
    Confirm(dialog);
  });
  EXPECT_TRUE(Ask(font, script));
  EXPECT_EQ(font.GetColor(), kOrange);
  EXPECT_EQ(font.GetBackColor(), kOddBack);
}

TEST(SelFontExDlg, FixedColoursCannotBeChanged) {
  CKivFontEx font = OddFontEx();
  ModalScript script;
  script.When(FontDialogShown(), [](HWND dialog) {
    Click(dialog, kColour);
    Click(dialog, kBackColour);
    Click(dialog, kUnderline);  // comes after the clicks on the colours
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
  EXPECT_EQ(font.GetBackColor(), kOddBack);
}

constexpr std::array kMasked{kFace,       kStyle,  kStrikeOut, kUnderline, kColour,
                             kBackColour, kHeight, kWidth,     kVertical,  kHorizontal};

TEST(SelFontExDlg, EachBitOfTheMaskAllowsItsControlAlone) {
  CKivFontEx font = OddFontEx();
  for (std::size_t bit = 0; bit <= kMasked.size(); ++bit) {  // the last: none at all
    const UINT mask = bit < kMasked.size() ? 1U << bit : 0U;
    Ask(font,
        [&](HWND dialog) {
          for (std::size_t other = 0; other < kMasked.size(); ++other) {
            EXPECT_EQ(IsEnabled(dialog, kMasked[other]), other == bit)
                << "mask " << mask << ", control " << kMasked[other];
          }
          Cancel(dialog);
        },
        {.enableMask = mask});
  }
}

TEST(SelFontExDlg, TheStrikeOutTypeIsNeverShown) {
  CKivFontEx font = OddFontEx();
  ModalScript script;
  script.When(FontDialogShown(), [](HWND dialog) {
    EXPECT_FALSE(IsShown(dialog, kStrikeType));
    Click(dialog, kStrikeOut);
  });
  script.When(FontDialogShown(), [](HWND dialog) {
    EXPECT_FALSE(IsShown(dialog, kStrikeType));
    Confirm(dialog);
  });
  EXPECT_TRUE(Ask(font, script));
  EXPECT_EQ(font.GetStrikeOutType(), 1);
  EXPECT_EQ(font.GetLogFont(0).lfStrikeOut, 0);
}

TEST(SelFontExDlg, TheSampleFollowsTheHeight) {
  CKivFontEx font = OddFontEx();
  Picture sample;
  ModalScript script;
  script.When(FontDialogShown(), [&](HWND dialog) {
    sample = SampleOf(dialog);
    ReplaceText(Control(dialog, kHeight), L"４");
  });
  script.When(FontDialogShown(), [&](HWND dialog) {
    EXPECT_EQ(Entries(Control(dialog, kSize))[1], L"13");
    EXPECT_LT(CountOf(SampleOf(dialog), kOddColour), CountOf(sample, kOddColour));
    Confirm(dialog);
  });
  EXPECT_TRUE(Ask(font, script));
  EXPECT_EQ(font.GetV(), 4.0);
}

TEST(SelFontExDlg, ATitleReplacesTheTemplates) {
  CKivFontEx font;
  ModalScript script;
  script.When(Painted(DialogWithTitle(L"セルの文字")), Cancel);
  EXPECT_FALSE(Ask(font, script, {.title = "セルの文字"}));
}

TEST(SelFontExDlg, TabReachesEveryControlInReadingOrder) {
  CKivFontEx font = OddFontEx();
  Ask(font, [](HWND dialog) {
    EXPECT_EQ(TabOrderIds(dialog),
              (std::vector<int>{kFace, kStyle, kStrikeOut, kUnderline, kColour, kBackColour,
                                kHeight, kWidth, kVertical, kHorizontal, IDOK, IDCANCEL}));
    Cancel(dialog);
  });
}

}  // namespace
}  // namespace quorvel::test
