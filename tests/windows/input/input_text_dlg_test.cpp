#include "support/work.h"

#include <quorvel/quorvel.h>

#include <array>
#include <string>

namespace quorvel::test {
namespace {

constexpr int kComment = 10000;
constexpr int kValue = 10001;

struct Answer {
  bool confirmed;
  std::string text;
};

Answer Ask(const std::string& initial, ModalScript& script, const char* title = "題名",
           const char* comment = "説明") {
  CString text(initial.c_str());
  const bool confirmed =
      Work(script, [&] { return __InputTextDlg(title, comment, &text, nullptr); }) != FALSE;
  return {confirmed, text.GetString()};
}

Answer Ask(const std::string& initial, ModalScript::Action action) {
  ModalScript script;
  script.When(Painted(DialogWithControl(kValue)), std::move(action));
  return Ask(initial, script);
}

TEST(InputTextDlg, ReturnsTheTypedText) {
  const Answer answer = Ask("初期値", [](HWND dialog) {
    EXPECT_EQ(Text(dialog, kValue), L"初期値");
    ReplaceText(Control(dialog, kValue), L"表ソ能\\\"100%s%n");
    Confirm(dialog);
  });
  EXPECT_TRUE(answer.confirmed);
  EXPECT_EQ(answer.text, "表ソ能\\\"100%s%n");
}

TEST(InputTextDlg, TheFieldHasTheFocusAndNotTheOkButton) {
  Ask("初期値", [](HWND dialog) {
    EXPECT_EQ(FocusedControlId(dialog), kValue);
    EXPECT_EQ(SelectionOf(Control(dialog, kValue)), WholeText(Control(dialog, kValue)));
    Cancel(dialog);
  });
}

TEST(InputTextDlg, TypingReplacesTheText) {
  const Answer answer = Ask("初期値", [](HWND dialog) {
    TypeText(Control(dialog, kValue), L"新");
    PressKey(Control(dialog, kValue), VK_RETURN);
  });
  EXPECT_EQ(answer.text, "新");
}

TEST(InputTextDlg, AnEmptyOrNullTitleLeavesTheCaptionEmpty) {
  for (const char* title : {static_cast<const char*>(nullptr), ""}) {
    ModalScript script;
    script.When(Painted(DialogWithControl(kValue)), [](HWND dialog) {
      EXPECT_EQ(Text(dialog), L"");
      Cancel(dialog);
    });
    Ask("", script, title);
  }
}

TEST(InputTextDlg, AnEmptyFieldGivesAnEmptyText) {
  const Answer answer = Ask("初期値", [](HWND dialog) {
    ReplaceText(Control(dialog, kValue), L"");
    Confirm(dialog);
  });
  EXPECT_TRUE(answer.confirmed);
  EXPECT_EQ(answer.text, "");
}

TEST(InputTextDlg, CancelLeavesTheText) {
  const Answer answer = Ask("初期値", [](HWND dialog) {
    ReplaceText(Control(dialog, kValue), L"別の値");
    Click(dialog, IDCANCEL);
  });
  EXPECT_FALSE(answer.confirmed);
  EXPECT_EQ(answer.text, "初期値");
}

TEST(InputTextDlg, ALongTextGoesThroughWhole) {
  std::string longText;
  for (int i = 0; i < 10'000; ++i) {
    longText += i % 2 == 0 ? "表" : "%s";
  }
  EXPECT_EQ(Ask(longText, Confirm).text, longText);

  std::wstring typed(20'000, L'能');
  const Answer answer = Ask("", [&](HWND dialog) {
    TypeText(Control(dialog, kValue), std::wstring_view(typed).substr(0, 5'000));
    ::PostMessageW(dialog, WM_COMMAND, IDOK, 0);
  });
  EXPECT_EQ(answer.text.size(), 10'000U);
  const Answer set = Ask("", [&](HWND dialog) {
    ::SetDlgItemTextW(dialog, kValue, typed.c_str());
    Confirm(dialog);
  });
  EXPECT_EQ(set.text.size(), 40'000U);
}

TEST(InputTextDlg, ThereIsNoLimitToTheLength) {
  Ask("", [](HWND dialog) {
    EXPECT_GE(::SendDlgItemMessageW(dialog, kValue, EM_GETLIMITTEXT, 0, 0), 0x7FFFFFFE);
    Cancel(dialog);
  });
}

TEST(InputTextDlg, TitleAndCommentAreShownAsTheyAre) {
  ModalScript script;
  const std::wstring comment = L"A&B 100%s とても長い説明が続いて枠をはみ出しても配置は崩れません";
  script.When(Painted(DialogWithTitle(L"題&名 %d")), [&](HWND dialog) {
    EXPECT_EQ(Text(dialog, kComment), comment);
    const LONG_PTR style = ::GetWindowLongPtrW(Control(dialog, kComment), GWL_STYLE);
    EXPECT_NE(style & SS_NOPREFIX, 0) << "an ampersand would be taken for a mnemonic";
    EXPECT_EQ(style & SS_ENDELLIPSIS, SS_ENDELLIPSIS);
    Cancel(dialog);
  });
  Ask("", script, "題&名 %d",
      "A&B 100%s とても長い説明が続いて枠をはみ出しても配置は崩れません");
}

TEST(InputTextDlg, EveryCharacterOfTheCodePageComesBackWhenTyped) {
  // Those that stand for themselves: some characters have two codes, of which one is read only.
  std::string codes;
  std::wstring characters;
  for (int lead = 0x20; lead < 0x100; ++lead) {
    const bool isLead = (lead >= 0x81 && lead <= 0x9F) || (lead >= 0xE0 && lead <= 0xFC);
    for (int trail = isLead ? 0x40 : 0; trail <= (isLead ? 0xFC : 0); ++trail) {
      std::string bytes(1, static_cast<char>(lead));
      if (isLead) {
        bytes += static_cast<char>(trail);
      }
      std::array<wchar_t, 4> wide{};
      const int units = ::MultiByteToWideChar(932, MB_ERR_INVALID_CHARS, bytes.data(),
                                              static_cast<int>(bytes.size()), wide.data(), 4);
      std::array<char, 4> back{};
      if (units == 1 &&
          ::WideCharToMultiByte(932, 0, wide.data(), 1, back.data(), 4, nullptr, nullptr) > 0 &&
          bytes == back.data()) {
        codes += bytes;
        characters += wide[0];
      }
    }
  }
  ASSERT_GT(characters.size(), 7'000U);
  const Answer answer = Ask("", [&](HWND dialog) {
    ::SetDlgItemTextW(dialog, kValue, characters.c_str());
    Confirm(dialog);
  });
  EXPECT_EQ(answer.text, codes);
}

TEST(InputTextDlg, AnUntouchedTextComesBackByteForByte) {
  // Second codes, lead bytes without a trail, bytes that are no characters, control characters.
  for (const char* text :
       {"\xFA\x54\xED\x40\x87\x90", "a\x81", "\x81\x20 \xFF\xA0\x80\xFD", "\x01\t\x7F"}) {
    ModalScript script;
    script.When(Painted(DialogWithControl(kValue)), Confirm);
    const Answer answer = Ask(text, script, text, text);
    EXPECT_TRUE(answer.confirmed);
    EXPECT_EQ(answer.text, text);
  }
}

TEST(InputTextDlg, CharactersOutsideTheCodePageAreNotTyped) {
  const Answer answer = Ask("", [](HWND dialog) {
    TypeText(Control(dialog, kValue), L"a\u00E9\u00A9漢\U0001F600\u0E01b\u301C");
    PressKey(Control(dialog, kValue), VK_RETURN);
  });
  EXPECT_EQ(answer.text, "a漢b");
}

TEST(InputTextDlg, APastedTextOutsideTheCodePageIsRefusedWhole) {
  const auto paste = [](HWND dialog, std::wstring_view text) {
    ASSERT_TRUE(::OpenClipboard(dialog));
    ::EmptyClipboard();
    const HGLOBAL data = ::GlobalAlloc(GMEM_MOVEABLE, (text.size() + 1) * sizeof(wchar_t));
    auto* units = static_cast<wchar_t*>(::GlobalLock(data));
    std::copy(text.begin(), text.end(), units);
    units[text.size()] = L'\0';
    ::GlobalUnlock(data);
    ::SetClipboardData(CF_UNICODETEXT, data);
    ::CloseClipboard();
    ::SendDlgItemMessageW(dialog, kValue, WM_PASTE, 0, 0);
  };
  const Answer answer = Ask("元", [&](HWND dialog) {
    ::SendDlgItemMessageW(dialog, kValue, EM_SETSEL, 1, 1);
    paste(dialog, L"caf\u00E9");
    EXPECT_EQ(Text(dialog, kValue), L"元");
    paste(dialog, L"漢字");
    Confirm(dialog);
  });
  EXPECT_EQ(answer.text, "元漢字");
}

TEST(InputTextDlg, ATextOutsideTheCodePageIsReportedAndKept) {
  ModalScript script;
  script.When(Painted(DialogWithControl(kValue)), [](HWND dialog) {
    ::SetDlgItemTextW(dialog, kValue, L"caf\u00E9");
    Confirm(dialog);
  });
  script.When(MessageBoxShown(), [](HWND box) {
    EXPECT_EQ(Text(box, 0xFFFF), L"使用できない文字が含まれています。");
    Confirm(box);
  });
  script.When(Painted(DialogWithControl(kValue)), [](HWND dialog) {
    EXPECT_EQ(Text(dialog, kValue), L"caf\u00E9");
    EXPECT_EQ(FocusedControlId(dialog), kValue);
    Cancel(dialog);
  });
  EXPECT_FALSE(Ask("元", script).confirmed);
}

TEST(InputTextDlg, EnterAndEscapeBelongToAConversionUnderWay) {
  const Answer answer = Ask("", [](HWND dialog) {
    const HWND edit = Control(dialog, kValue);
    ::SendMessageW(edit, WM_IME_STARTCOMPOSITION, 0, 0);
    PressKey(edit, VK_RETURN);
    PressKey(edit, VK_ESCAPE);
    ::PostMessageW(edit, WM_IME_ENDCOMPOSITION, 0, 0);
    TypeText(edit, L"確定");
    PressKey(edit, VK_RETURN);
  });
  EXPECT_TRUE(answer.confirmed);
  EXPECT_EQ(answer.text, "確定");
}

}  // namespace
}  // namespace quorvel::test
