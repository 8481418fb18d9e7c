#include "kivdata/val_info_one_data.h"

#include "kivdata/field_macro.h"

#include <gtest/gtest.h>

#include <array>
#include <climits>
#include <locale>
#include <ostream>
#include <random>
#include <string>
#include <vector>

namespace {

/// Every setting of a macro, to be compared as one.
struct Settings {
  unsigned int valType = 0;
  std::string fieldName;
  unsigned char findType = 0;
  std::string findValue;
  std::string refField;
  int useDesimalPointBeam = 0;
  unsigned char beam = 0;
  int use3Figures = 0;

  bool operator==(const Settings&) const = default;
};

std::ostream& operator<<(std::ostream& out, const Settings& settings) {
  return out << settings.valType << " [" << settings.fieldName << "] " << +settings.findType << " ["
             << settings.findValue << "] [" << settings.refField << "] "
             << settings.useDesimalPointBeam << ' ' << +settings.beam << ' '
             << settings.use3Figures;
}

Settings Read(const CKivValInfoOneData& info) {
  return {info.GetValType(),
          info.GetFieldName().GetString(),
          info.GetFindType(),
          info.GetFindValue().GetString(),
          info.GetRefField().GetString(),
          info.GetUseDesimalPointBeam(),
          info.GetBeam(),
          info.GetUse3Figures()};
}

CKivValInfoOneData InfoWith(const Settings& settings) {
  CKivValInfoOneData info;
  info.SetValType(settings.valType);
  info.SetFieldName(settings.fieldName.c_str());
  info.SetFindType(settings.findType);
  info.SetFindValue(settings.findValue.c_str());
  info.SetRefField(settings.refField.c_str());
  info.SetUseDesimalPointBeam(settings.useDesimalPointBeam);
  info.SetBeam(settings.beam);
  info.SetUse3Figures(settings.use3Figures);
  return info;
}

/// No setting is what another one or a new object has.
const Settings kExample{209, "count", 3, "10", "price", 1, 2, 5};

/// Settings that the macro text has to overwrite one and all.
const Settings kOthers{77, "other field", 99, "other value", "other reference", -3, 98, -4};

void ExpectComesBack(const Settings& settings, const char* typeText) {
  const CString text = InfoWith(settings).GetMacroString(typeText);
  CKivValInfoOneData info = InfoWith(kOthers);
  EXPECT_NE(info.SetMacroString(text, 1), 0) << text;
  EXPECT_EQ(Read(info), settings) << text;
  EXPECT_EQ(info.GetMacroString(typeText), text);
}

void ExpectRefused(const char* text) {
  CKivValInfoOneData info = InfoWith(kExample);
  Settings expected = kExample;
  expected.valType = 0;
  EXPECT_EQ(info.SetMacroString(text, 1), 0) << text;
  EXPECT_EQ(Read(info), expected) << text;
}

TEST(KivValInfoOneData, StartsWithNoMacro) {
  EXPECT_EQ(Read(CKivValInfoOneData()), Settings());
}

TEST(KivValInfoOneData, KeepsEachSettingApart) {
  EXPECT_EQ(Read(InfoWith(kExample)), kExample);
  const CKivValInfoOneData original = InfoWith(kExample);
  CKivValInfoOneData copy = original;
  copy.SetValType(1);
  copy.SetFieldName("changed");
  EXPECT_EQ(Read(original), kExample);
  EXPECT_STREQ(copy.GetFieldName(), "changed");
  EXPECT_EQ(copy.GetValType(), 1U);
}

TEST(KivValInfoOneData, ReadsNullAsTheEmptyText) {
  CKivValInfoOneData info = InfoWith(kExample);
  info.SetFieldName(nullptr);
  info.SetFindValue(nullptr);
  info.SetRefField(nullptr);
  EXPECT_TRUE(info.GetFieldName().IsEmpty());
  EXPECT_TRUE(info.GetFindValue().IsEmpty());
  EXPECT_TRUE(info.GetRefField().IsEmpty());
  EXPECT_EQ(info.GetMacroString(nullptr), info.GetMacroString(""));
}

TEST(KivValInfoOneData, WritesTheMacroThatAPersonReads) {
  EXPECT_STREQ(
      InfoWith(kExample).GetMacroString("\x92\x8A\x8F\x6F\x8D\x87\x8C\x76"),  // 抽出合計
      "<F type=209 \"\x92\x8A\x8F\x6F\x8D\x87\x8C\x76\" field=\"count\" find>=\"10\" ref=\"price\" "
      "decimals=2 fixed=1 grouped=5>");
}

TEST(KivValInfoOneData, EachOfTheThirteenTypesComesBack) {
  const std::array typeTexts{
      "\x92\x6C",                                                          // 値
      "\x8F\xAC\x8C\x76",                                                  // 小計
      "\x97\xDD\x8C\x76",                                                  // 累計
      "\x8D\x87\x8C\x76",                                                  // 合計
      "\x8F\xAC\x8C\x76\x83\x4A\x83\x45\x83\x93\x83\x67",                  // 小計カウント
      "\x97\xDD\x8C\x76\x83\x4A\x83\x45\x83\x93\x83\x67",                  // 累計カウント
      "\x8D\x87\x8C\x76\x83\x4A\x83\x45\x83\x93\x83\x67",                  // 合計カウント
      "\x92\x8A\x8F\x6F\x8F\xAC\x8C\x76",                                  // 抽出小計
      "\x92\x8A\x8F\x6F\x97\xDD\x8C\x76",                                  // 抽出累計
      "\x92\x8A\x8F\x6F\x8D\x87\x8C\x76",                                  // 抽出合計
      "\x92\x8A\x8F\x6F\x8F\xAC\x8C\x76\x83\x4A\x83\x45\x83\x93\x83\x67",  // 抽出小計カウント
      "\x92\x8A\x8F\x6F\x97\xDD\x8C\x76\x83\x4A\x83\x45\x83\x93\x83\x67",  // 抽出累計カウント
      "\x92\x8A\x8F\x6F\x8D\x87\x8C\x76\x83\x4A\x83\x45\x83\x93\x83\x67",  // 抽出合計カウント
  };
  ASSERT_EQ(typeTexts.size(), 13U);
  for (unsigned int i = 0; i < typeTexts.size(); ++i) {
    Settings settings = kExample;
    settings.valType = 200 + i;
    ExpectComesBack(settings, typeTexts.at(i));
    ExpectComesBack({200 + i, "f", 0, "", "", 0, 0, 0}, typeTexts.at(i));
  }
}

TEST(KivValInfoOneData, TypeCodesThatNoDialogSetsComeBack) {
  for (const unsigned int valType : {0U, 1U, 199U, 213U, 1000U, 0x80000000U, UINT_MAX}) {
    Settings settings = kExample;
    settings.valType = valType;
    ExpectComesBack(settings, "type");
  }
}

TEST(KivValInfoOneData, EveryByteAndSwitchComesBack) {
  for (int byte = 0; byte <= UCHAR_MAX; ++byte) {
    Settings settings = kExample;
    settings.findType = static_cast<unsigned char>(byte);
    settings.beam = static_cast<unsigned char>(UCHAR_MAX - byte);
    ExpectComesBack(settings, "type");
  }
  for (const int value : {0, 1, 2, -1, 255, 256, INT_MAX, INT_MIN}) {
    Settings settings = kExample;
    settings.useDesimalPointBeam = value;
    ExpectComesBack(settings, "type");
    settings.use3Figures = value;
    settings.useDesimalPointBeam = 1;
    ExpectComesBack(settings, "type");
  }
}

TEST(KivValInfoOneData, AnyTextComesBackInAnyPlace) {
  std::string everyByte;
  for (int byte = 1; byte <= UCHAR_MAX; ++byte) {
    everyByte += static_cast<char>(byte);
  }
  std::vector<std::string> texts{"",
                                 " ",
                                 "\"",
                                 "\"\"",
                                 "\"\"\"",
                                 "\\",
                                 "\\\"",
                                 "\"\\",
                                 "%",
                                 "%s%d%n%%",
                                 "<",
                                 ">",
                                 "<>",
                                 "/>",
                                 "<M>3 NAME</M>",
                                 ",",
                                 ";",
                                 ":",
                                 "=",
                                 "#",
                                 "\n",
                                 "\r\n",
                                 "\t",
                                 "'",
                                 "\" ref=\"",
                                 " field=\"",
                                 "\x83\x5C",      // ソ, whose second half is a backslash
                                 "\x95\x5C",      // 表, likewise
                                 "\x83\x5C\"",    // ソ and a quote
                                 "\x83",          // half a character
                                 "\x81\x81\x81",  // a character and a half
                                 "\x83\"",        // half a character before a quote
                                 "\xA0\xFD\xFE\xFF",
                                 "\xB1\xB2",
                                 InfoWith(kExample).GetMacroString("total").GetString(),
                                 everyByte,
                                 std::string(100'000, '"')};
  for (const std::string& text : texts) {
    Settings settings = kExample;
    settings.fieldName = text;
    ExpectComesBack(settings, "type");
    settings = kExample;
    settings.findValue = text;
    ExpectComesBack(settings, "type");
    settings = kExample;
    settings.refField = text;
    ExpectComesBack(settings, "type");
    ExpectComesBack(kExample, text.c_str());
    settings.fieldName = text;
    settings.findValue = text;
    ExpectComesBack(settings, text.c_str());
  }
  ExpectComesBack(kExample, nullptr);
}

TEST(KivValInfoOneData, RandomSettingsComeBack) {
  std::mt19937 random(20240229);  // NOLINT(cert-msc51-cpp): the same settings in every run
  const auto below = [&random](unsigned int limit) { return random() % limit; };
  const std::string syntax = "\"\"\"<># =%\\\x83\x5C\x81";
  const auto text = [&] {
    std::string bytes;
    for (unsigned int i = below(12); i > 0; --i) {
      bytes += below(2) == 0 ? syntax[below(static_cast<unsigned int>(syntax.size()))]
                             : static_cast<char>(1 + below(255));
    }
    return bytes;
  };
  for (int i = 0; i < 20'000; ++i) {
    Settings settings;
    settings.valType = below(2) == 0 ? 190 + below(30) : static_cast<unsigned int>(random());
    settings.fieldName = text();
    settings.findType = static_cast<unsigned char>(below(2) == 0 ? below(8) : below(256));
    settings.findValue = text();
    settings.refField = text();
    settings.useDesimalPointBeam = static_cast<int>(below(2) == 0 ? below(2) : random());
    settings.beam = static_cast<unsigned char>(below(256));
    settings.use3Figures = static_cast<int>(below(2) == 0 ? below(2) : random());
    ExpectComesBack(settings, text().c_str());
    ASSERT_FALSE(HasFailure());
  }
}

TEST(KivValInfoOneData, OtherTextsClearTheTypeAndNothingElse) {
  const std::string macro = InfoWith(kExample).GetMacroString("total").GetString();
  for (const std::string& text :
       {std::string(), std::string("ordinary"), std::string("209"), std::string("<M>3 NAME</M>"),
        std::string("\x8D\x87\x8C\x76"), std::string("<F>"), "x" + macro, macro + "x",
        macro + macro, macro + "<M>3 NAME</M>", macro.substr(0, macro.size() - 1),
        macro.substr(1)}) {
    ExpectRefused(text.c_str());
  }
  ExpectRefused(nullptr);
}

TEST(KivValInfoOneData, NothingIsTakenFromAMacroThatFailsLate) {
  for (const char* text :
       {"<F type=200 \"a\" field=\"b\" find<\"c\" ref=\"d\" decimals=9 fixed=8 grouped=7",
        "<F type=200 \"a\" field=\"b\" find<\"c\" ref=\"d\" decimals=9 fixed=8 grouped=07>",
        "<F type=200 \"a\" field=\"b\" find<\"c\" ref=\"d\" decimals=256 fixed=8 grouped=7>",
        "<F type=4294967296 \"a\" field=\"b\" find<\"c\" ref=\"d\" decimals=9 fixed=8 "
        "grouped=7>"}) {
    ExpectRefused(text);
  }
}

TEST(KivValInfoOneData, PrefixesAndFlippedBitsAreRefusedOrComeBack) {
  Settings settings = kExample;
  settings.fieldName = "\x83\x5C\"";
  const std::string macro = InfoWith(settings).GetMacroString("\x95\x5C").GetString();
  for (std::size_t length = 0; length < macro.size(); ++length) {
    ExpectRefused(macro.substr(0, length).c_str());
  }
  int accepted = 0;
  for (std::size_t bit = 0; bit < macro.size() * 8; ++bit) {
    std::string text = macro;
    text[bit / 8] = static_cast<char>(text[bit / 8] ^ (1 << (bit % 8)));
    CKivValInfoOneData info;
    if (info.SetMacroString(text.c_str(), 1) == 0) {
      ExpectRefused(text.c_str());
      continue;
    }
    ++accepted;
    const auto read = quorvel::ParseFieldMacro(text);
    ASSERT_TRUE(read) << text;
    EXPECT_STREQ(info.GetMacroString(read->typeText.c_str()), text.c_str());
  }
  EXPECT_GT(accepted, 50);  // flips within texts and numbers
}

TEST(KivValInfoOneData, WithParseZeroATextIsOnlyLookedAt) {
  const CString macro = InfoWith(kOthers).GetMacroString("other");
  CKivValInfoOneData info = InfoWith(kExample);
  EXPECT_NE(info.SetMacroString(macro, 0), 0);
  EXPECT_EQ(Read(info), kExample);
  EXPECT_EQ(info.SetMacroString("ordinary", 0), 0);
  EXPECT_EQ(Read(info), kExample);
  EXPECT_NE(info.SetMacroString(macro, -1), 0);  // any other number parses
  EXPECT_EQ(Read(info), kOthers);
}

/// Numbers as some languages write them: 4.294.967.295.
class GroupedNumbers : public std::numpunct<char> {
protected:
  char do_thousands_sep() const override { return '.'; }
  std::string do_grouping() const override { return "\3"; }
};

TEST(KivValInfoOneData, IgnoresTheLocale) {
  Settings settings = kExample;
  settings.valType = UINT_MAX;
  settings.use3Figures = INT_MIN;
  const CString before = InfoWith(settings).GetMacroString("total");
  const std::locale restored = std::locale::global(std::locale(std::locale(), new GroupedNumbers));
  const CString text = InfoWith(settings).GetMacroString("total");
  CKivValInfoOneData info;
  const int taken = info.SetMacroString(text, 1);
  std::locale::global(restored);
  EXPECT_EQ(text, before);
  EXPECT_NE(taken, 0);
  EXPECT_EQ(Read(info), settings);
}

}  // namespace
