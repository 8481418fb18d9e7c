#include "cli/json.h"

#include <gtest/gtest.h>

#include <bit>
#include <clocale>
#include <cmath>
#include <cstdint>
#include <cstdlib>
#include <limits>
#include <random>
#include <regex>
#include <string>
#include <vector>

namespace quorvel::cli {
namespace {

constexpr char32_t kLastCodePoint = 0x10FFFF;
const std::string kReplacement = "\xEF\xBF\xBD";

bool IsSurrogate(char32_t code) {
  return code >= 0xD800 && code <= 0xDFFF;
}

/// UTF-8 by its definition, surrogates included so that they can be given as bad input.
std::string Utf8(char32_t code) {
  const auto trail = [code](int shift) {
    return static_cast<char>(0x80 | ((code >> shift) & 0x3F));
  };
  if (code < 0x80) {
    return {static_cast<char>(code)};
  }
  if (code < 0x800) {
    return {static_cast<char>(0xC0 | (code >> 6)), trail(0)};
  }
  if (code < 0x10000) {
    return {static_cast<char>(0xE0 | (code >> 12)), trail(6), trail(0)};
  }
  return {static_cast<char>(0xF0 | (code >> 18)), trail(12), trail(6), trail(0)};
}

/// Reads a JSON string back; fails the test on anything that is not one.
std::string ReadBack(const std::string& json) {
  if (json.size() < 2 || json.front() != '"' || json.back() != '"') {
    ADD_FAILURE() << "no quotes: " << json;
    return "";
  }
  const std::string body = json.substr(1, json.size() - 2);
  const std::string shortEscapes = "\"\"\\\\//b\bf\fn\nr\rt\t";
  std::string text;
  for (std::size_t i = 0; i < body.size(); ++i) {
    EXPECT_GE(static_cast<unsigned char>(body[i]), 0x20) << "a bare control character: " << json;
    EXPECT_NE(body[i], '"') << "a bare quote: " << json;
    if (body[i] != '\\') {
      text += body[i];
      continue;
    }
    ++i;
    if (body[i] == 'u') {
      text += Utf8(static_cast<char32_t>(std::stoul(body.substr(i + 1, 4), nullptr, 16)));
      i += 4;
      continue;
    }
    std::size_t escape = 0;
    while (escape < shortEscapes.size() && shortEscapes[escape] != body[i]) {
      escape += 2;
    }
    if (escape >= shortEscapes.size()) {
      ADD_FAILURE() << "an unknown escape: " << json;
      return "";
    }
    text += shortEscapes[escape + 1];
  }
  return text;
}

TEST(JsonQuoted, PutsQuotesAroundAText) {
  EXPECT_EQ(JsonQuoted(""), "\"\"");
  EXPECT_EQ(JsonQuoted("abc"), "\"abc\"");
  EXPECT_EQ(JsonQuoted("表ソ能"), "\"表ソ能\"");
}

TEST(JsonQuoted, EscapesQuotesAndBackslashes) {
  EXPECT_EQ(JsonQuoted("a\"b\\c/d"), R"("a\"b\\c/d")");
  EXPECT_EQ(JsonQuoted("能\"\\"), R"("能\"\\")");
}

TEST(JsonQuoted, EscapesControlCharacters) {
  EXPECT_EQ(JsonQuoted("\b\f\n\r\t"), R"("\b\f\n\r\t")");
  EXPECT_EQ(JsonQuoted(std::string("\0\x01\x1F\x7F", 4)), R"("\u0000\u0001\u001f\u007f")");
}

TEST(JsonQuoted, EscapesTheSeparatorsThatEndALineElsewhere) {
  EXPECT_EQ(JsonQuoted(Utf8(0x2028) + Utf8(0x2029)), R"("\u2028\u2029")");
  EXPECT_EQ(JsonQuoted(Utf8(0x2027) + Utf8(0x202A)), "\"" + Utf8(0x2027) + Utf8(0x202A) + "\"");
}

TEST(JsonQuoted, EveryCharacterReadsBack) {
  for (char32_t code = 0; code <= kLastCodePoint; ++code) {
    if (IsSurrogate(code)) {
      continue;
    }
    const std::string character = Utf8(code);
    const std::string json = JsonQuoted(character);
    ASSERT_EQ(ReadBack(json), character) << "U+" << std::hex << static_cast<unsigned>(code);
    const bool mustBeEscaped = code < 0x20 || code == '"' || code == '\\' || code == 0x7F ||
                               code == 0x2028 || code == 0x2029;
    ASSERT_EQ(json != "\"" + character + "\"", mustBeEscaped) << static_cast<unsigned>(code);
  }
}

TEST(JsonQuoted, ReplacesEachIllFormedPart) {
  struct {
    std::string input;
    std::string expected;
  } const cases[] = {
      {"\x80", kReplacement},
      {"\xBF\x80", kReplacement + kReplacement},
      {"\xC0\xAF", kReplacement + kReplacement},
      {"\xC1\xBF", kReplacement + kReplacement},
      {"\xC2", kReplacement},
      {"\xC2z", kReplacement + "z"},
      {"\xE0\x80\x80", kReplacement + kReplacement + kReplacement},
      {"\xE0\xA0", kReplacement},
      {"\xE3\x81z", kReplacement + "z"},
      {"\xE3\x81\xE3\x81\x82", kReplacement + "あ"},
      {"\xED\xA0\x80", kReplacement + kReplacement + kReplacement},
      {"\xF0\x80\x80\x80", kReplacement + kReplacement + kReplacement + kReplacement},
      {"\xF0\x90\x80", kReplacement},
      {"\xF0\x90\x80z", kReplacement + "z"},
      {"\xF4\x8F\xBFz", kReplacement + "z"},
      {"\xF4\x90\x80\x80", kReplacement + kReplacement + kReplacement + kReplacement},
      {"\xF5\x80", kReplacement + kReplacement},
      {"\xFF\xFE", kReplacement + kReplacement},
      {"a\x80z", "a" + kReplacement + "z"},
      {"\xE2\x80\"", kReplacement + "\\\""},
  };
  for (const auto& item : cases) {
    EXPECT_EQ(JsonQuoted(item.input), "\"" + item.expected + "\"")
        << testing::PrintToString(item.input);
  }
}

TEST(JsonQuoted, NoSurrogateAndNothingBeyondUnicodePasses) {
  for (char32_t code = 0xD800; code <= 0xDFFF; ++code) {
    ASSERT_EQ(JsonQuoted(Utf8(code)), "\"" + kReplacement + kReplacement + kReplacement + "\"");
  }
  EXPECT_EQ(ReadBack(JsonQuoted(Utf8(kLastCodePoint))), Utf8(kLastCodePoint));
  EXPECT_EQ(ReadBack(JsonQuoted(Utf8(kLastCodePoint + 1))).find(Utf8(kLastCodePoint + 1)),
            std::string::npos);
}

TEST(JsonQuoted, WhatComesOutOfRandomBytesIsWellFormedAndStaysTheSame) {
  std::mt19937 random(7);
  for (int round = 0; round < 20'000; ++round) {
    std::string bytes(random() % 12, '\0');
    for (char& byte : bytes) {
      byte = static_cast<char>(random());
    }
    const std::string once = ReadBack(JsonQuoted(bytes));
    ASSERT_EQ(ReadBack(JsonQuoted(once)), once);
  }
}

TEST(JsonNumber, IsTheShortestText) {
  EXPECT_EQ(JsonNumber(0), "0");
  EXPECT_EQ(JsonNumber(-0.0), "-0");
  EXPECT_EQ(JsonNumber(1000), "1000");
  EXPECT_EQ(JsonNumber(-1.5), "-1.5");
  EXPECT_EQ(JsonNumber(0.1), "0.1");
  EXPECT_EQ(JsonNumber(0.1 + 0.2), "0.30000000000000004");
  EXPECT_EQ(JsonNumber(1e22), "1e+22");
  EXPECT_EQ(JsonNumber(5e-324), "5e-324");
}

TEST(Shortest, IsTheNumberThatAFloatsTextTells) {
  EXPECT_EQ(Shortest(12.3F), 12.3);
  EXPECT_EQ(Shortest(-0.1F), -0.1);
  EXPECT_EQ(Shortest(180.0F), 180.0);
  EXPECT_EQ(Shortest(1.17549435e-38F), 1.1754944e-38);
  EXPECT_TRUE(std::isinf(Shortest(std::numeric_limits<float>::infinity())));
}

TEST(JsonNumber, InfinitiesAndNanAreNull) {
  EXPECT_EQ(JsonNumber(std::numeric_limits<double>::infinity()), "null");
  EXPECT_EQ(JsonNumber(-std::numeric_limits<double>::infinity()), "null");
  EXPECT_EQ(JsonNumber(std::numeric_limits<double>::quiet_NaN()), "null");
}

TEST(JsonNumber, IsAlwaysAJsonNumberThatReadsBack) {
  const std::regex grammar("-?(0|[1-9][0-9]*)(\\.[0-9]+)?([eE][+-]?[0-9]+)?");
  std::mt19937_64 random(11);
  for (int round = 0; round < 20'000; ++round) {
    double value = std::bit_cast<double>(random());
    if (round % 4 == 0) {
      value = static_cast<double>(static_cast<std::int64_t>(random())) / 1024;
    }
    if (!std::isfinite(value)) {
      continue;
    }
    const std::string text = JsonNumber(value);
    ASSERT_TRUE(std::regex_match(text, grammar)) << text;
    ASSERT_EQ(std::strtod(text.c_str(), nullptr), value) << text;
  }
}

TEST(JsonNumber, DoesNotDependOnTheLocale) {
  const std::string before = std::setlocale(LC_ALL, nullptr);
  if (std::setlocale(LC_ALL, "de_DE.UTF-8") == nullptr) {
    GTEST_SKIP() << "no locale with a decimal comma on this machine";
  }
  const std::string text = JsonNumber(1.5);
  std::setlocale(LC_ALL, before.c_str());
  EXPECT_EQ(text, "1.5");
}

TEST(JsonObject, AnEmptyObject) {
  EXPECT_EQ(JsonObject().ToText(), "{}");
}

TEST(JsonObject, KeepsMembersInOrder) {
  JsonObject object;
  object.AddText("result", "confirmed")
      .AddNumber("scale", 0.5)
      .AddInteger("least", std::numeric_limits<long long>::min())
      .AddInteger("dpi", -300)
      .AddFlag("yes", true)
      .AddFlag("no", false);
  EXPECT_EQ(object.ToText(),
            R"({"result":"confirmed","scale":0.5,"least":-9223372036854775808,"dpi":-300,)"
            R"("yes":true,"no":false})");
}

TEST(JsonObject, QuotesNamesAndTexts) {
  EXPECT_EQ(JsonObject().AddText("a\"b", "c\nd").ToText(), R"({"a\"b":"c\nd"})");
}

TEST(JsonObject, ListsNumbers) {
  const std::vector<double> numbers = {100, -0.5, std::numeric_limits<double>::quiet_NaN()};
  EXPECT_EQ(JsonObject().AddNumbers("point", numbers).ToText(), R"({"point":[100,-0.5,null]})");
  EXPECT_EQ(JsonObject().AddNumbers("point", {}).ToText(), R"({"point":[]})");
}

TEST(JsonObject, ListsObjects) {
  std::vector<JsonObject> items(3);
  items[0].AddText("name", "壁").AddFlag("ticked", true);
  items[1].AddText("name", "").AddFlag("ticked", false);
  EXPECT_EQ(JsonObject().AddObjects("items", items).ToText(),
            R"({"items":[{"name":"壁","ticked":true},{"name":"","ticked":false},{}]})");
  EXPECT_EQ(JsonObject().AddObjects("items", {}).ToText(), R"({"items":[]})");
}

}  // namespace
}  // namespace quorvel::cli
