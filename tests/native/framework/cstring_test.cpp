#include "framework/cstring.h"

#include <gtest/gtest.h>

namespace {

TEST(CString, NullReadsAsEmpty) {
  const char* none = nullptr;
  CString text(none);
  EXPECT_TRUE(text.IsEmpty());
  EXPECT_EQ(text.GetLength(), 0);
  EXPECT_STREQ(text, "");
  EXPECT_TRUE(text == none);
  text = "x";
  text = none;
  EXPECT_TRUE(text.IsEmpty());
  text += none;
  EXPECT_EQ(text.GetLength(), 0);
}

TEST(CString, KeepsEveryByteOfTwoByteCharactersWithABackslashTrail) {
  const char* const kHyouSo = "\x95\x5C\x83\x5C";  // 表ソ
  const CString text(kHyouSo);
  EXPECT_EQ(text.GetLength(), 4);
  EXPECT_STREQ(text, kHyouSo);
  EXPECT_STREQ(text + "%s", "\x95\x5C\x83\x5C%s");
}

TEST(CString, KeepsEmbeddedZeroBytes) {
  const CString text("a\0b", 3);
  EXPECT_EQ(text.GetLength(), 3);
  EXPECT_FALSE(text == "a");
  EXPECT_EQ(text.View(), std::string_view("a\0b", 3));
}

TEST(CString, AppendsAndCompares) {
  CString text("A3");
  text += CString("(420x297)");
  EXPECT_TRUE(text == "A3(420x297)");
  EXPECT_TRUE(text + CString("!") == CString("A3(420x297)!"));
  EXPECT_FALSE(text == CString("A3"));
  text.Empty();
  EXPECT_TRUE(text.IsEmpty());
}

TEST(CString, FormatsTextsOfAnyLengthAndItself) {
  CString text;
  text.Format("(%dx%d)", 420, -297);
  EXPECT_STREQ(text, "(420x-297)");
  const std::string longText(20'000, 'n');
  text.Format("%s%%", longText.c_str());
  EXPECT_EQ(text.GetLength(), 20'001);
  text = "100%s";
  text.Format("%s|%s", text.GetString(), text.GetString());
  EXPECT_STREQ(text, "100%s|100%s");
  text.Format("%s", "");
  EXPECT_TRUE(text.IsEmpty());
}

}  // namespace
