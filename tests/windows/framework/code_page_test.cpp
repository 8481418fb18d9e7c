#include "framework/code_page.h"

#include <gtest/gtest.h>

namespace quorvel {
namespace {

TEST(CodePage, ConvertsTwoByteCharactersWithABackslashTrail) {
  EXPECT_EQ(WideFromCodePage("\x95\x5C\x83\x5C\\"), L"表ソ\\");
  EXPECT_EQ(CodePageFromWide(L"表ソ\\"), "\x95\x5C\x83\x5C\\");
  EXPECT_EQ(WideFromCodePage("\xCF\xB3\xBD"), L"ﾏｳｽ");
  EXPECT_EQ(WideFromCodePage(""), L"");
  EXPECT_EQ(CodePageFromWide(L""), "");
  EXPECT_EQ(WideFromCodePage(std::string_view("a\0b", 3)), std::wstring_view(L"a\0b", 3));
}

TEST(CodePage, SurvivesBrokenBytes) {
  EXPECT_EQ(WideFromCodePage("a\x81").substr(0, 1), L"a");
  EXPECT_LE(WideFromCodePage("\x81\x20\xFF\xA0\x80").size(), 5U);
}

TEST(CodePage, TellsWhatItHas) {
  EXPECT_TRUE(IsInCodePage(L""));
  EXPECT_TRUE(IsInCodePage(L"漢字ｶﾅ①～\x7F\t"));
  EXPECT_FALSE(IsInCodePage(L"\u00E9"));
  EXPECT_FALSE(IsInCodePage(L"\u00A9")) << "a look-alike is not the character";
  EXPECT_FALSE(IsInCodePage(L"漢字\U0001F600"));
  EXPECT_FALSE(IsInCodePage(L"\xD83D"));
  EXPECT_FALSE(IsInCodePage(L"\u301C"));
}

TEST(CodePage, WhatItLacksBecomesAQuestionMark) {
  EXPECT_EQ(CodePageFromWide(L"caf\u00E9"), "caf?");
}

}  // namespace
}  // namespace quorvel
