#include "kivdata/field_macro.h"

#include <gtest/gtest.h>

#include <string>
#include <string_view>
#include <vector>

namespace quorvel {
namespace {

FieldMacro Example() {
  return {.typeText = "total",
          .valType = 209,
          .fieldName = "count",
          .findType = 3,
          .findValue = "10",
          .refField = "price",
          .beam = 2,
          .useDecimalPointBeam = 1,
          .use3Figures = 0};
}

constexpr std::string_view kExampleText =
    R"(<F type=209 "total" field="count" find>="10" ref="price" decimals=2 fixed=1 grouped=0>)";

/// The example's text with its only `part` replaced.
std::string With(std::string_view part, std::string_view replacement) {
  std::string text(kExampleText);
  const std::size_t at = text.find(part);
  EXPECT_NE(at, std::string::npos) << part;
  EXPECT_EQ(text.find(part, at + 1), std::string::npos) << part << " is there twice";
  return text.replace(at, part.size(), replacement);
}

TEST(FieldMacroText, NamesEverySetting) {
  EXPECT_EQ(FieldMacroText(Example()), kExampleText);
  EXPECT_EQ(FieldMacroText({}),
            R"(<F type=0 "" field="" find="" ref="" decimals=0 fixed=0 grouped=0>)");
}

TEST(FieldMacroText, DoublesQuotesAndLeavesEveryOtherByte) {
  FieldMacro macro;
  macro.typeText = "a\"\"b";
  macro.fieldName = "\"";
  macro.findValue = "%s\\n\r\n<>";
  macro.refField = "\x83\x5C\x83";  // ソ and half a character
  EXPECT_EQ(FieldMacroText(macro),
            "<F type=0 \"a\"\"\"\"b\" field=\"\"\"\" find=\"%s\\n\r\n<>\" ref=\"\x83\x5C\x83\" "
            "decimals=0 fixed=0 grouped=0>");
}

TEST(ParseFieldMacro, ReadsWhatWasWritten) {
  EXPECT_EQ(ParseFieldMacro(kExampleText), Example());
  EXPECT_EQ(ParseFieldMacro(FieldMacroText({})), FieldMacro());
}

TEST(ParseFieldMacro, FindsTheTypeTextTooWhateverItIs) {
  for (const char* typeText :
       {"", "\"", "\"\"\"", "\" field=\"", "\x95\x5C", "\x95", "%s%n", ">"}) {
    FieldMacro macro = Example();
    macro.typeText = typeText;
    EXPECT_EQ(ParseFieldMacro(FieldMacroText(macro)), macro) << typeText;
  }
}

TEST(ParseFieldMacro, ReadsEachComparisonInItsOneSpelling) {
  const std::vector<std::string_view> comparisons{"=", "<>", ">", ">=", "<", "<="};
  for (std::size_t i = 0; i < comparisons.size(); ++i) {
    FieldMacro macro = Example();
    macro.findType = static_cast<unsigned char>(i);
    const std::string text = With(">=\"", std::string(comparisons[i]) + '"');
    EXPECT_EQ(FieldMacroText(macro), text);
    EXPECT_EQ(ParseFieldMacro(text), macro) << text;
    EXPECT_FALSE(ParseFieldMacro(With(">=\"", "#" + std::to_string(i) + '"'))) << i;
  }
  for (const int number : {6, 42, 255}) {
    FieldMacro macro = Example();
    macro.findType = static_cast<unsigned char>(number);
    const std::string text = With(">=\"", "#" + std::to_string(number) + '"');
    EXPECT_EQ(FieldMacroText(macro), text);
    EXPECT_EQ(ParseFieldMacro(text), macro) << text;
  }
  for (const char* comparison : {"", "==", "=>", "><", "<<", ">==", "= ", " =", "3", "#", "#-1",
                                 "#+6", "#06", "# 6", "#6 ", "#256", "#6.0", "##6", "#0x6"}) {
    EXPECT_FALSE(ParseFieldMacro(With(">=\"", std::string(comparison) + '"'))) << comparison;
  }
}

struct NumberPart {
  std::string_view before;
  std::string_view number;  ///< in the example
  std::string_view after;
  std::string_view lowest;
  std::string_view highest;
  std::vector<std::string_view> beyond;
};

const std::vector<NumberPart> kNumberParts{
    {"type=", "209", " \"total", "0", "4294967295", {"-1", "4294967296", "99999999999999999999"}},
    {"decimals=", "2", " fixed", "0", "255", {"-1", "256", "4294967296"}},
    {"fixed=",
     "1",
     " grouped",
     "-2147483648",
     "2147483647",
     {"-2147483649", "2147483648", "4294967296"}},
    {"grouped=",
     "0",
     ">",
     "-2147483648",
     "2147483647",
     {"-2147483649", "2147483648", "4294967296"}}};

std::string WithNumber(const NumberPart& part, std::string_view number) {
  const std::string before(part.before);
  const std::string after(part.after);
  return With(before + std::string(part.number) + after, before + std::string(number) + after);
}

TEST(ParseFieldMacro, ReadsNumbersUpToTheirLimits) {
  for (const NumberPart& part : kNumberParts) {
    for (const std::string_view number : {part.lowest, part.highest, std::string_view("7")}) {
      const std::string text = WithNumber(part, number);
      const auto macro = ParseFieldMacro(text);
      ASSERT_TRUE(macro) << text;
      EXPECT_EQ(FieldMacroText(*macro), text);
    }
    for (const std::string_view number : part.beyond) {
      EXPECT_FALSE(ParseFieldMacro(WithNumber(part, number))) << part.before << number;
    }
  }
}

TEST(ParseFieldMacro, RefusesNumbersInAnotherSpelling) {
  for (const NumberPart& part : kNumberParts) {
    for (const char* number : {"", "-", "+1", "-0", "00", "01", "007", "-01", " 1", "1 ", "1.0",
                               "1,0", "1e1", "0x1", "1L", "one", "\x82\x50"}) {
      EXPECT_FALSE(ParseFieldMacro(WithNumber(part, number))) << part.before << number;
    }
  }
}

TEST(ParseFieldMacro, RefusesMissingRepeatedAndMisplacedParts) {
  const std::vector<std::string_view> parts{" type=209",     " \"total\"",     " field=\"count\"",
                                            " find>=\"10\"", " ref=\"price\"", " decimals=2",
                                            " fixed=1",      " grouped=0"};
  for (std::size_t i = 0; i < parts.size(); ++i) {
    const std::string part(parts[i]);
    EXPECT_FALSE(ParseFieldMacro(With(part, ""))) << part;
    EXPECT_FALSE(ParseFieldMacro(With(part, part + part))) << part;
    if (i + 1 < parts.size()) {
      const std::string next(parts[i + 1]);
      EXPECT_FALSE(ParseFieldMacro(With(part + next, next + part))) << part;
    }
  }
}

TEST(ParseFieldMacro, RefusesAnotherSpellingOfTheSyntax) {
  const std::string upper = With("field", "FIELD");
  for (const std::string& text :
       {upper, With("<F", "<f"), With("<F", "<M"), With("<F ", "<F  "), With(" ref", "  ref"),
        With(" ref", "\tref"), With(" ref", ""), With("ref=", "ref ="),
        With("grouped=0>", "grouped=0 >"), With("\"price\"", "price"), With("\"price\"", "'price'"),
        With("\"price\"", "\"price"), With("\"price\"", "price\""),
        With("\"price\"", "\"pri\"ce\""), With("\"price\"", "\"price\"\""),
        With("grouped=0>", "grouped=0/>")}) {
    EXPECT_FALSE(ParseFieldMacro(text)) << text;
  }
}

TEST(ParseFieldMacro, TakesTheTextAsAWhole) {
  const std::string text(kExampleText);
  for (const std::string& other : {" " + text, text + " ", text + "\n", "x" + text, text + "x",
                                   text + ">", "<" + text, text + text, text + std::string(1, '\0'),
                                   "<M>3 NAME</M>" + text, text + "<M>3 NAME</M>", "\x83" + text}) {
    EXPECT_FALSE(ParseFieldMacro(other)) << other;
  }
  for (std::size_t length = 0; length < text.size(); ++length) {
    EXPECT_FALSE(ParseFieldMacro(text.substr(0, length))) << length;
  }
  for (std::size_t start = 1; start < text.size(); ++start) {
    EXPECT_FALSE(ParseFieldMacro(text.substr(start))) << start;
  }
}

TEST(ParseFieldMacro, AFlippedBitIsRefusedOrAnotherMacroOfExactlyThatText) {
  FieldMacro macro = Example();
  macro.typeText = "\x92\x8A\x8F\x6F\x8D\x87\x8C\x76";  // 抽出合計
  macro.fieldName = "\"\x83\x5C\"";
  macro.findType = 255;
  macro.beam = 255;
  macro.use3Figures = -2147483647;
  int accepted = 0;
  for (const FieldMacro& original : {Example(), FieldMacro(), macro}) {
    const std::string text = FieldMacroText(original);
    for (std::size_t bit = 0; bit < text.size() * 8; ++bit) {
      std::string flipped = text;
      flipped[bit / 8] = static_cast<char>(flipped[bit / 8] ^ (1 << (bit % 8)));
      if (const auto read = ParseFieldMacro(flipped)) {
        ++accepted;
        EXPECT_NE(*read, original) << flipped;
        EXPECT_EQ(FieldMacroText(*read), flipped);
      }
    }
  }
  EXPECT_GT(accepted, 100);  // flips within texts and numbers
}

TEST(ParseFieldMacro, ReadsLongTextsInProportionateTime) {
  // Quadratic work over 8 million quotes would not end.
  FieldMacro macro = Example();
  macro.fieldName.assign(8'000'000, '"');
  const std::string text = FieldMacroText(macro);
  EXPECT_EQ(ParseFieldMacro(text), macro);
  EXPECT_FALSE(ParseFieldMacro(text.substr(0, text.size() / 2)));
}

}  // namespace
}  // namespace quorvel
