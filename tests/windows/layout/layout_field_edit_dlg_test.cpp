#include "dialogs/layout/layout_field_edit_dlg.h"

#include "driver/product_state.h"
#include "support/work.h"

#include <array>
#include <string>
#include <vector>

namespace quorvel::test {
namespace {

constexpr int kType = 4045;
constexpr int kField1 = 4046;
constexpr int kComparison = 4050;
constexpr int kValue = 4047;
constexpr int kField2 = 4049;
constexpr int kUseDecimals = 4029;
constexpr int kDecimals = 4054;
constexpr int kGrouping = 4030;
constexpr int kBoxText = 0xFFFF;
constexpr int kTypes = 13;

CStringArray Names(std::initializer_list<const char*> texts) {
  CStringArray names;
  for (const char* text : texts) {
    names.Add(text);
  }
  return names;
}

const CStringArray& UsualNames() {
  static const CStringArray names = Names({"品名", "数量", "金額"});
  return names;
}

struct Answer {
  INT_PTR result;
  std::string macro;

  CKivValInfoOneData Info() const {
    CKivValInfoOneData info;
    info.SetMacroString(macro.c_str(), 1);
    return info;
  }
};

Condition Shown() { return Painted(DialogWithTitle(L"ﾌｨｰﾙﾄﾞ設定")); }

Answer Ask(ModalScript& script, const CString& macro = "",
           const CStringArray& names = UsualNames()) {
  CLayoutFieldEditDlg dialog(&names, macro, nullptr);
  const INT_PTR result = Work(script, [&] { return RunWithProductResources(dialog); });
  return {result, dialog.m_strMacro.GetString()};
}

Answer Ask(ModalScript::Action action, const CString& macro = "",
           const CStringArray& names = UsualNames()) {
  ModalScript script;
  script.When(Shown(), std::move(action));
  return Ask(script, macro, names);
}

CString Macro(const FieldChoice& choice) {
  CKivValInfoOneData info;
  StoreFieldChoice(choice, info);
  return info.GetMacroString(FieldTypeText(choice.type));
}

/// Picks an entry as a user does: the dialog hears of it.
void Pick(HWND dialog, int id, int index) {
  const HWND combo = Control(dialog, id);
  ::SendMessageW(combo, CB_SETCURSEL, static_cast<WPARAM>(index), 0);
  ::SendMessageW(dialog, WM_COMMAND, MAKEWPARAM(id, CBN_SELCHANGE),
                 reinterpret_cast<LPARAM>(combo));
}

LRESULT Selected(HWND dialog, int id) {
  return ::SendMessageW(Control(dialog, id), CB_GETCURSEL, 0, 0);
}

bool IsChecked(HWND dialog, int id) {
  return ::SendMessageW(Control(dialog, id), BM_GETCHECK, 0, 0) == BST_CHECKED;
}

std::vector<std::wstring> Entries(HWND dialog, int id) {
  const HWND combo = Control(dialog, id);
  std::vector<std::wstring> entries;
  const LRESULT count = ::SendMessageW(combo, CB_GETCOUNT, 0, 0);
  for (LRESULT i = 0; i < count; ++i) {
    std::wstring text(
        static_cast<std::size_t>(::SendMessageW(combo, CB_GETLBTEXTLEN, static_cast<WPARAM>(i), 0)),
        L'\0');
    ::SendMessageW(combo, CB_GETLBTEXT, static_cast<WPARAM>(i),
                   reinterpret_cast<LPARAM>(text.data()));
    entries.push_back(text);
  }
  return entries;
}

void ExpectMessage(ModalScript& script, const wchar_t* text) {
  script.When(MessageBoxShown(), [text](HWND box) {
    EXPECT_EQ(Text(box, kBoxText), text);
    EXPECT_EQ(Text(box), L"ﾌｨｰﾙﾄﾞ設定");
    PressKey(box, VK_RETURN);
  });
}

TEST(LayoutFieldEditDlg, OffersItsLists) {
  Ask([](HWND dialog) {
    EXPECT_EQ(Entries(dialog, kType),
              (std::vector<std::wstring>{L"値", L"小計", L"累計", L"合計", L"小計カウント",
                                         L"累計カウント", L"合計カウント", L"抽出小計", L"抽出累計",
                                         L"抽出合計", L"抽出小計カウント", L"抽出累計カウント",
                                         L"抽出合計カウント"}));
    const std::vector<std::wstring> names{L"品名", L"数量", L"金額"};
    EXPECT_EQ(Entries(dialog, kField1), names);
    EXPECT_EQ(Entries(dialog, kField2), names);
    EXPECT_EQ(Entries(dialog, kComparison),
              (std::vector<std::wstring>{L"＝", L"≠", L"＞", L"≧", L"＜", L"≦"}));
    EXPECT_EQ(Entries(dialog, kDecimals),
              (std::vector<std::wstring>{L"0", L"1", L"2", L"3", L"4", L"5", L"6", L"7", L"8", L"9",
                                         L"10"}));
    Cancel(dialog);
  });
}

TEST(LayoutFieldEditDlg, BeginsWithAValueOfTheFirstField) {
  for (const char* text : {"", "ただの文字列", "<M>3 面積</M>", "<F type=200"}) {
    const Answer answer = Ask(
        [](HWND dialog) {
          for (const int id : {kType, kField1, kField2, kComparison, kDecimals}) {
            EXPECT_EQ(Selected(dialog, id), 0) << id;
          }
          EXPECT_EQ(Text(dialog, kValue), L"");
          EXPECT_FALSE(IsChecked(dialog, kUseDecimals));
          EXPECT_FALSE(IsChecked(dialog, kGrouping));
          EXPECT_FALSE(IsEnabled(dialog, kDecimals));
          Confirm(dialog);
        },
        text);
    EXPECT_EQ(answer.result, IDOK);
    EXPECT_EQ(answer.macro, Macro({.type = 0, .field1 = "品名"}).GetString());
  }
}

TEST(LayoutFieldEditDlg, EachTypeEnablesItsOwnControls) {
  struct Row {
    bool field1;
    bool condition;
    bool field2;
  };
  constexpr std::array<Row, kTypes> kRows{{{true, false, false},
                                           {true, false, false},
                                           {true, false, false},
                                           {true, false, false},
                                           {false, false, false},
                                           {false, false, false},
                                           {false, false, false},
                                           {true, true, true},
                                           {true, true, true},
                                           {true, true, true},
                                           {true, true, false},
                                           {true, true, false},
                                           {true, true, false}}};
  const auto expectRow = [&](HWND dialog, int type) {
    const Row& row = kRows[static_cast<std::size_t>(type)];
    EXPECT_EQ(IsEnabled(dialog, kField1), row.field1) << type;
    EXPECT_EQ(IsEnabled(dialog, kComparison), row.condition) << type;
    EXPECT_EQ(IsEnabled(dialog, kValue), row.condition) << type;
    EXPECT_EQ(IsEnabled(dialog, kField2), row.field2) << type;
  };
  Ask([&](HWND dialog) {
    for (int type = kTypes - 1; type >= 0; --type) {
      Pick(dialog, kType, type);
      expectRow(dialog, type);
    }
    Cancel(dialog);
  });
  // When it opens with the type, too.
  for (int type = 0; type < kTypes; ++type) {
    Ask(
        [&](HWND dialog) {
          EXPECT_EQ(Selected(dialog, kType), type);
          expectRow(dialog, type);
          Cancel(dialog);
        },
        Macro({.type = type, .field1 = "数量", .value = "1", .field2 = "金額"}));
  }
}

TEST(LayoutFieldEditDlg, ArrowKeysChangeTheEnabling) {
  ModalScript script;
  script.When(Shown(), [](HWND dialog) {
    Focus(Control(dialog, kType));
    for (int i = 0; i < 7; ++i) {
      PressKey(Control(dialog, kType), VK_DOWN);
    }
  });
  script.When(Shown(), [](HWND dialog) {
    EXPECT_EQ(Text(dialog, kType), L"抽出小計");
    EXPECT_TRUE(IsEnabled(dialog, kField2));
    Cancel(dialog);
  });
  Ask(script);
}

/// What is shown, and what OK makes of it, for every type.
TEST(LayoutFieldEditDlg, ReturnsTheMacroThatItBeganWith) {
  for (int type = 0; type < kTypes; ++type) {
    const CString macro = Macro({.type = type,
                                 .field1 = "数量",
                                 .comparison = 3,
                                 .value = "10\"%d",
                                 .field2 = "金額",
                                 .useDecimals = 1,
                                 .decimals = 10,
                                 .grouping = 1});
    const Answer answer = Ask(
        [&](HWND dialog) {
          EXPECT_EQ(Selected(dialog, kField1), 1);
          EXPECT_EQ(Selected(dialog, kComparison), type >= 7 ? 3 : 0);
          EXPECT_EQ(Text(dialog, kValue), type >= 7 ? L"10\"%d" : L"");
          EXPECT_EQ(Selected(dialog, kField2), 7 <= type && type <= 10 ? 2 : 0);
          EXPECT_TRUE(IsChecked(dialog, kUseDecimals));
          EXPECT_TRUE(IsEnabled(dialog, kDecimals));
          EXPECT_EQ(Selected(dialog, kDecimals), 10);
          EXPECT_TRUE(IsChecked(dialog, kGrouping));
          Confirm(dialog);
        },
        macro);
    EXPECT_EQ(answer.result, IDOK);
    EXPECT_EQ(answer.macro, macro.GetString());
  }
}

TEST(LayoutFieldEditDlg, StoresWhatIsChosen) {
  const Answer answer = Ask([](HWND dialog) {
    Pick(dialog, kType, 9);
    Pick(dialog, kField1, 1);
    Pick(dialog, kComparison, 5);
    ReplaceText(Control(dialog, kValue), L"百 100%d");
    Pick(dialog, kField2, 2);
    Click(dialog, kUseDecimals);
    Pick(dialog, kDecimals, 3);
    Click(dialog, kGrouping);
    Click(dialog, IDOK);
  });
  EXPECT_EQ(answer.macro, Macro({.type = 9,
                                 .field1 = "数量",
                                 .comparison = 5,
                                 .value = "百 100%d",
                                 .field2 = "金額",
                                 .useDecimals = 1,
                                 .decimals = 3,
                                 .grouping = 1})
                              .GetString());
}

TEST(LayoutFieldEditDlg, CancelReturnsNoMacro) {
  const Answer answer = Ask([](HWND dialog) { Cancel(dialog); }, Macro({.field1 = "数量"}));
  EXPECT_EQ(answer.result, IDCANCEL);
  EXPECT_EQ(answer.macro, "");
}

TEST(LayoutFieldEditDlg, WithoutFieldsEveryTypeIsRefused) {
  ModalScript script;
  for (int type = 0; type < kTypes; ++type) {
    script.When(Shown(), [type](HWND dialog) {
      EXPECT_TRUE(Entries(dialog, kField1).empty());
      EXPECT_TRUE(Entries(dialog, kField2).empty());
      Pick(dialog, kType, type);
      if (type >= 7) {
        ::SetWindowTextW(Control(dialog, kValue), L"1");
      }
      Click(dialog, IDOK);
    });
    ExpectMessage(script, L"ﾌｨｰﾙﾄﾞ1が選択されていません。");
  }
  script.When(Shown(), [](HWND dialog) {
    EXPECT_EQ(FocusedControlId(dialog), kField1);
    Cancel(dialog);
  });
  EXPECT_EQ(Ask(script, "", CStringArray()).result, IDCANCEL);
}

TEST(LayoutFieldEditDlg, AConditionWantsAValue) {
  ModalScript script;
  for (int type = 7; type < kTypes; ++type) {
    script.When(Shown(), [type](HWND dialog) {
      Pick(dialog, kType, type);
      Click(dialog, IDOK);
    });
    ExpectMessage(script, L"条件が入力されていません。");
    script.When(Shown(), [](HWND dialog) { EXPECT_EQ(FocusedControlId(dialog), kValue); });
  }
  script.When(Shown(), [](HWND dialog) { Cancel(dialog); });
  Ask(script);
}

/// An empty name is selected as the second field.
TEST(LayoutFieldEditDlg, TheSecondFieldIsAskedForWithOneTypeMoreThanItIsEnabledFor) {
  const CStringArray names = Names({"数量", ""});
  for (int type = 7; type < kTypes; ++type) {
    ModalScript script;
    script.When(Shown(), [type](HWND dialog) {
      Pick(dialog, kType, type);
      Pick(dialog, kField2, 1);
      ::SetWindowTextW(Control(dialog, kValue), L"1");
      Click(dialog, IDOK);
    });
    if (type <= 10) {
      ExpectMessage(script, L"ﾌｨｰﾙﾄﾞ2が選択されていません。");
      script.When(Shown(), [type](HWND dialog) {
        if (type < 10) {  // a control that is disabled takes no focus
          EXPECT_EQ(FocusedControlId(dialog), kField2);
        }
        Cancel(dialog);
      });
    }
    EXPECT_EQ(Ask(script, "", names).result, type <= 10 ? IDCANCEL : IDOK) << type;
  }
}

TEST(LayoutFieldEditDlg, DisabledFieldsAreStoredWhereTheTypeAsksForThem) {
  const CKivValInfoOneData count = Ask([](HWND dialog) {
                                     Pick(dialog, kType, 6);
                                     Confirm(dialog);
                                   }).Info();
  EXPECT_EQ(count.GetValType(), 206U);
  EXPECT_EQ(count.GetFieldName(), "品名");
  const CKivValInfoOneData filtered = Ask([](HWND dialog) {
                                        Pick(dialog, kType, 10);
                                        EXPECT_FALSE(IsEnabled(dialog, kField2));
                                        ::SetWindowTextW(Control(dialog, kValue), L"1");
                                        Confirm(dialog);
                                      }).Info();
  EXPECT_EQ(filtered.GetValType(), 210U);
  EXPECT_EQ(filtered.GetRefField(), "品名");
  const CKivValInfoOneData running = Ask([](HWND dialog) {
                                       Pick(dialog, kType, 11);
                                       ::SetWindowTextW(Control(dialog, kValue), L"1");
                                       Confirm(dialog);
                                     }).Info();
  EXPECT_EQ(running.GetRefField(), "");
}

TEST(LayoutFieldEditDlg, TooManyDecimalsSelectNothingAndAreStoredAs255) {
  CKivValInfoOneData info;
  info.SetValType(200);
  info.SetFieldName("数量");
  info.SetBeam(11);
  info.SetUseDesimalPointBeam(1);
  const Answer answer = Ask(
      [](HWND dialog) {
        EXPECT_EQ(Selected(dialog, kDecimals), -1);
        Confirm(dialog);
      },
      info.GetMacroString("値"));
  EXPECT_EQ(answer.Info().GetBeam(), 255);
}

TEST(LayoutFieldEditDlg, ATypeAndAComparisonThatItDoesNotKnowSelectNothing) {
  CKivValInfoOneData info;
  info.SetValType(213);
  info.SetFieldName("数量");
  info.SetFindType(6);
  Ask(
      [](HWND dialog) {
        EXPECT_EQ(Selected(dialog, kType), -1);
        EXPECT_EQ(Selected(dialog, kComparison), -1);
        EXPECT_TRUE(IsEnabled(dialog, kField1));
        EXPECT_FALSE(IsEnabled(dialog, kValue));
        Cancel(dialog);
      },
      info.GetMacroString(""));
}

TEST(LayoutFieldEditDlg, DecimalsOfAMacroWithoutATypeAreLoadedNevertheless) {
  CKivValInfoOneData info;
  info.SetValType(199);
  info.SetFieldName("数量");
  info.SetBeam(4);
  info.SetUseDesimalPointBeam(1);
  info.SetUse3Figures(1);
  Ask(
      [](HWND dialog) {
        EXPECT_EQ(Selected(dialog, kType), 0);
        EXPECT_EQ(Selected(dialog, kField1), 0);
        EXPECT_EQ(Selected(dialog, kDecimals), 4);
        EXPECT_TRUE(IsChecked(dialog, kUseDecimals));
        EXPECT_TRUE(IsEnabled(dialog, kDecimals));
        EXPECT_TRUE(IsChecked(dialog, kGrouping));
        Cancel(dialog);
      },
      info.GetMacroString("値"));
}

TEST(LayoutFieldEditDlg, UncheckedDecimalsAreKept) {
  ModalScript script;
  script.When(Shown(), [](HWND dialog) { Click(dialog, kUseDecimals); });
  script.When(Shown(), [](HWND dialog) {
    EXPECT_FALSE(IsEnabled(dialog, kDecimals));
    EXPECT_EQ(Selected(dialog, kDecimals), 7);
    Confirm(dialog);
  });
  const CKivValInfoOneData info =
      Ask(script, Macro({.field1 = "数量", .useDecimals = 1, .decimals = 7})).Info();
  EXPECT_EQ(info.GetUseDesimalPointBeam(), 0);
  EXPECT_EQ(info.GetBeam(), 7);
}

TEST(LayoutFieldEditDlg, AFieldThatTheHostDoesNotHaveLeavesTheFirst) {
  Ask(
      [](HWND dialog) {
        EXPECT_EQ(Selected(dialog, kType), 9);
        EXPECT_EQ(Selected(dialog, kField1), 0);
        EXPECT_EQ(Selected(dialog, kField2), 0);
        Cancel(dialog);
      },
      Macro({.type = 9, .field1 = "量", .value = "1", .field2 = "数量2"}));
}

TEST(LayoutFieldEditDlg, NamesThatDifferInCaseAloneAreTwo) {
  const CStringArray names = Names({"price", "PRICE", "other"});
  for (const char* name : {"price", "PRICE"}) {
    const CString macro = Macro({.type = 1, .field1 = name});
    EXPECT_EQ(Ask([](HWND dialog) { Confirm(dialog); }, macro, names).macro, macro.GetString());
  }
  // In another case yet, as the list itself finds it.
  EXPECT_EQ(
      Ask([](HWND dialog) { Confirm(dialog); }, Macro({.type = 1, .field1 = "Other"}), names).macro,
      Macro({.type = 1, .field1 = "other"}).GetString());
}

TEST(LayoutFieldEditDlg, NamesComeBackByteForByte) {
  const CStringArray names = Names({"a&b", "100%d", "\x81", "ソ表", " ", "\"q\"", "\x81"});
  for (INT_PTR i = 0; i < names.GetSize() - 1; ++i) {
    const CString macro = Macro(
        {.type = 7, .field1 = names.GetAt(i), .value = names.GetAt(i), .field2 = names.GetAt(i)});
    const Answer answer = Ask([](HWND dialog) { Confirm(dialog); }, macro, names);
    EXPECT_EQ(answer.macro, macro.GetString()) << i;
  }
}

TEST(LayoutFieldEditDlg, TypedLettersFindAFieldAmongTenThousand) {
  CStringArray names;
  for (int i = 0; i < 10'000; ++i) {
    names.Add(("field" + std::to_string(i)).c_str());
  }
  names.Add("面積");
  names.Add("面数");
  ModalScript script;
  script.When(Shown(), [](HWND dialog) {
    EXPECT_EQ(::SendMessageW(Control(dialog, kField1), CB_GETCOUNT, 0, 0), 10'002);
    EXPECT_EQ(::SendMessageW(Control(dialog, kField2), CB_GETCOUNT, 0, 0), 10'002);
    Focus(Control(dialog, kField1));
    // Not field50, or another behind it: a letter that goes on with a name need not lead on.
    TypeText(Control(dialog, kField1), L"Field5");
    Pick(dialog, kType, 7);
    Focus(Control(dialog, kField2));
    TypeText(Control(dialog, kField2), L"面数");
  });
  script.When(Shown(), [](HWND dialog) {
    EXPECT_EQ(Text(dialog, kField1), L"field5");
    EXPECT_EQ(Text(dialog, kField2), L"面数");
    ::SetWindowTextW(Control(dialog, kValue), L"1");
    Confirm(dialog);
  });
  const CKivValInfoOneData info = Ask(script, "", names).Info();
  EXPECT_EQ(info.GetFieldName(), "field5");
  EXPECT_EQ(info.GetRefField(), "面数");
}

TEST(LayoutFieldEditDlg, IsPlacedWhereTheCallerWants) {
  CPoint position(130, 70);
  CLayoutFieldEditDlg dialog(&UsualNames(), "", &position);
  WorkDialog([&] { return RunWithProductResources(dialog); }, [](HWND window) {
    EXPECT_EQ(WindowRect(window).left, 130);
    EXPECT_EQ(WindowRect(window).top, 70);
    Cancel(window);
  });
}

}  // namespace
}  // namespace quorvel::test
