#include "kivfcl/expression.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstdint>
#include <cstring>
#include <limits>
#include <random>
#include <string>
#include <vector>

namespace quorvel {
namespace {

using enum CalculationFault;

struct Case {
  const char* text;
  double value;
};

TEST(CalculateTest, NumbersAloneAreReadExactly) {
  for (const auto& [text, value] :
       std::vector<Case>{{"0", 0},
                         {"297", 297},
                         {"-12.5", -12.5},
                         {"+3", 3},
                         {".5", 0.5},
                         {"5.", 5},
                         {" 7 ", 7},
                         {"1e3", 1000},
                         {"2.5E-1", 0.25},
                         {"0.30000000000000004", 0.30000000000000004},
                         {"1e-999", 0},
                         {"1.7976931348623157e308", 1.7976931348623157e308}}) {
    const Calculation read = Calculate(text);
    EXPECT_EQ(read.fault, kNone) << text;
    EXPECT_EQ(read.value, value) << text;
  }
}

TEST(CalculateTest, CalculationsFollowTheUsualPrecedence) {
  for (const auto& [text, value] : std::vector<Case>{{"1000/3", 333.333333333333},
                                                     {"210-2*15.5", 179},
                                                     {"(297-20)/4", 69.25},
                                                     {"1+2*3", 7},
                                                     {"(1+2)*3", 9},
                                                     {"10-4-3", 3},
                                                     {"100/10/5", 2},
                                                     {"100/10*5", 50},
                                                     {"2*(3+(4-1)*2)", 18},
                                                     {"((((5))))", 5},
                                                     {" ( 1 + 2 ) * 3 ", 9},
                                                     {"1\t+\r\n2", 3},
                                                     {"-5+3", -2},
                                                     {"-(5-3)", -2},
                                                     {"5--3", 8},
                                                     {"5-+-3", 8},
                                                     {"--5", 5},
                                                     {"- 5", -5},
                                                     {"2*-3", -6},
                                                     {"6/-3", -2},
                                                     {"1e2*3", 300},
                                                     {"0/5", 0},
                                                     {"2-2", 0}}) {
    const Calculation read = Calculate(text);
    EXPECT_EQ(read.fault, kNone) << text;
    EXPECT_EQ(read.value, value) << text;
  }
}

TEST(CalculateTest, ResultsAreFreeOfBinaryNoise) {
  EXPECT_EQ(Calculate("0.1*3").value, 0.3);
  EXPECT_EQ(Calculate("0.1+0.2").value, 0.3);
  EXPECT_EQ(Calculate("1.1*1.1").value, 1.21);
  EXPECT_EQ(Calculate("1.7976931348623157e308*1").value, std::numeric_limits<double>::max())
      << "rounded up it would be infinite";
}

TEST(CalculateTest, ThereIsNoNegativeZero) {
  for (const char* text : {"-0", "0*-1", "-(2-2)", "-1e-999"}) {
    EXPECT_FALSE(std::signbit(Calculate(text).value)) << text;
  }
}

// The bytes are code page 932, whatever the compiler makes of literals.
TEST(CalculateTest, FullWidthFormsCountAsHalfWidth) {
  // (297-20)/4 in full width: brackets, digits, minus sign, slash
  EXPECT_EQ(Calculate("\x81\x69\x82\x51\x82\x58\x82\x56\x81\x7C\x82\x51\x82\x4F\x81\x6A\x81\x5E"
                      "\x82\x53")
                .value,
            69.25);
  EXPECT_EQ(Calculate("2\x81\x7E" "3").value, 6) << "multiplication sign";
  EXPECT_EQ(Calculate("6\x81\x80" "3").value, 2) << "division sign";
  EXPECT_EQ(Calculate("2\x81\x96" "3").value, 6) << "asterisk";
  EXPECT_EQ(Calculate("2\x81\x7B" "3").value, 5) << "plus sign";
  EXPECT_EQ(Calculate("5\x81\x5B" "3").value, 2) << "long-vowel mark";
  EXPECT_EQ(Calculate("1\x81\x44" "5\x81\x40+\x81\x40" "1").value, 2.5) << "point and blanks";
}

TEST(CalculateTest, WhatIsNoCalculationIsRefused) {
  for (const char* text :
       {"",      " ",     "abc",   "12a",    "a12",     "1 2",     "1+",       "*3",     "/3",
        "1*/2",  "1**2",  "(",     ")",      "()",      "(1",      "1)",       "(1+2",   "1+2)",
        "2(3)",  "(2)(3)", "1,000", "1.2.3", ".",       "-",       "+",        "1e",     "1e+",
        "0x10",  "inf",   "nan",   "-inf",   "1+inf",   "1/nan",   "1=1",      "2^3",    "50%",
        "1\\2",  "\x82",  "1\x82", "\x83\x41", "1+\x83\x41", "1\x81\x43" "5", "%s%n"}) {
    EXPECT_EQ(Calculate(text).fault, kNoCalculation) << text;
    EXPECT_EQ(Calculate(text).value, 0.0) << text;
  }
  EXPECT_EQ(Calculate(std::string_view("1\0+1", 4)).fault, kNoCalculation);
}

TEST(CalculateTest, DivisionByZeroIsTold) {
  for (const char* text : {"10/0", "0/0", "1/(2-2)", "1/-0", "5/0.0*3", "1/1e-999", "1/0+"}) {
    EXPECT_EQ(Calculate(text).fault, kDivisionByZero) << text;
    EXPECT_EQ(Calculate(text).value, 0.0) << text;
  }
}

TEST(CalculateTest, OverflowIsTold) {
  for (const char* text : {"1e999", "-1e999", "1e308*10", "1e308+1e308", "-1e308-1e308", "1/1e-310",
                           "1e308*10-1e308*10", "1e308*10/1e308", "(1e200*1e200)"}) {
    EXPECT_EQ(Calculate(text).fault, kTooLarge) << text;
    EXPECT_EQ(Calculate(text).value, 0.0) << text;
  }
}

std::string Nested(int depth) {
  return std::string(static_cast<std::size_t>(depth), '(') + "7" +
         std::string(static_cast<std::size_t>(depth), ')');
}

TEST(CalculateTest, NestingHasAnEnd) {
  EXPECT_EQ(Calculate(Nested(kDeepestNesting)).value, 7);
  EXPECT_EQ(Calculate(Nested(kDeepestNesting) + "+" + Nested(kDeepestNesting)).value, 14);
  EXPECT_EQ(Calculate(Nested(kDeepestNesting + 1)).fault, kNoCalculation);
  EXPECT_EQ(Calculate(std::string(10'000'000, '(')).fault, kNoCalculation);
  EXPECT_EQ(Calculate(std::string(10'000'001, '-') + "7").value, -7) << "signs are no nesting";
  std::string sum = "1";
  for (int i = 0; i < 100'000; ++i) {
    sum += "+1";
  }
  EXPECT_EQ(Calculate(sum).value, 100'001);
}

TEST(CalculateTest, AgreesWithTheCompilersArithmetic) {
  std::mt19937 random(20240501);
  std::uniform_int_distribution<int> number(1, 999);
  std::uniform_int_distribution<int> choice(0, 3);
  for (int i = 0; i < 2'000; ++i) {
    const double first = number(random) / 8.0;
    const double second = number(random) / 8.0;
    const double third = number(random) / 8.0;
    const auto text = [](double value) { return std::string(DecimalText(value, 0).GetString()); };
    const std::string operands[] = {text(first), text(second), text(third)};
    double expected = 0;
    std::string typed;
    switch (choice(random)) {
      case 0:
        typed = operands[0] + "-" + operands[1] + "*" + operands[2];
        expected = first - second * third;
        break;
      case 1:
        typed = "(" + operands[0] + "-" + operands[1] + ")*" + operands[2];
        expected = (first - second) * third;
        break;
      case 2:
        typed = operands[0] + "/" + operands[1] + "+" + operands[2];
        expected = first / second + third;
        break;
      default:
        typed = operands[0] + "/(" + operands[1] + "+" + operands[2] + ")";
        expected = first / (second + third);
        break;
    }
    EXPECT_NEAR(Calculate(typed).value, expected, std::abs(expected) * 1e-14) << typed;
  }
}

TEST(CalculateIntTest, TakesWholeResultsThatAnIntHolds) {
  EXPECT_EQ(CalculateInt("10/2").value, 5);
  EXPECT_EQ(CalculateInt("(0.1+0.2)*10").value, 3) << "binary noise is no decimal";
  EXPECT_EQ(CalculateInt("2147483647").value, 2147483647.0);
  EXPECT_EQ(CalculateInt("-2147483648").value, -2147483648.0);
  EXPECT_EQ(CalculateInt("2147483648").fault, kTooLarge);
  EXPECT_EQ(CalculateInt("-2147483649").fault, kTooLarge);
  EXPECT_EQ(CalculateInt("1e300").fault, kTooLarge);
  EXPECT_EQ(CalculateInt("10/3").fault, kNoWholeNumber);
  EXPECT_EQ(CalculateInt("0.5").fault, kNoWholeNumber);
  EXPECT_EQ(CalculateInt("0.5").value, 0.0);
  EXPECT_EQ(CalculateInt("x").fault, kNoCalculation);
  EXPECT_EQ(CalculateInt("1/0").fault, kDivisionByZero);
}

TEST(CalculateFloatTest, TakesWhatAFloatHolds) {
  EXPECT_EQ(CalculateFloat("1000/3").value, 333.333333333333);
  EXPECT_EQ(CalculateFloat("3.4028234663852886e38").fault, kNone);
  EXPECT_EQ(CalculateFloat("3.41e38").fault, kTooLarge);
  EXPECT_EQ(CalculateFloat("-3.41e38").fault, kTooLarge);
  EXPECT_EQ(CalculateFloat("1/0").fault, kDivisionByZero);
}

TEST(DecimalTextTest, HasAllDecimalsAndAtLeastSoMany) {
  EXPECT_STREQ(DecimalText(297.0, 0), "297");
  EXPECT_STREQ(DecimalText(297.0, 1), "297.0");
  EXPECT_STREQ(DecimalText(0.25, 1), "0.25");
  EXPECT_STREQ(DecimalText(0.25, 4), "0.2500");
  EXPECT_STREQ(DecimalText(-12.5, 0), "-12.5");
  EXPECT_STREQ(DecimalText(333.333333333333, 0), "333.333333333333");
  EXPECT_STREQ(DecimalText(1e15, 0), "1000000000000000");
  EXPECT_STREQ(DecimalText(1e-7, 0), "0.0000001");
  EXPECT_STREQ(DecimalText(-0.0, 0), "0");
  EXPECT_STREQ(DecimalText(-0.0F, 1), "0.0");
  EXPECT_STREQ(DecimalText(5.0, -1), "5");
}

TEST(DecimalTextTest, AFloatShowsItsOwnDecimals) {
  EXPECT_STREQ(DecimalText(0.1F, 1), "0.1");
  EXPECT_STREQ(DecimalText(static_cast<double>(0.1F), 1), "0.1");
  EXPECT_STREQ(DecimalText(0.1, 1), "0.1");
  EXPECT_STREQ(DecimalText(16777217.0, 0), "16777217");
  EXPECT_STREQ(DecimalText(static_cast<double>(12.3F), 0), "12.3");
}

TEST(DecimalTextTest, ReadsBackAsTheSameNumber) {
  std::mt19937_64 random(7);
  for (int i = 0; i < 20'000; ++i) {
    const auto bits = random();
    double value = 0;
    std::memcpy(&value, &bits, sizeof value);
    if (!std::isfinite(value)) {
      continue;
    }
    const double back = Calculate(DecimalText(value, i % 3).View()).value;
    EXPECT_EQ(back, value);
    const auto narrowBits = static_cast<std::uint32_t>(bits);
    float narrow = 0;
    std::memcpy(&narrow, &narrowBits, sizeof narrow);
    if (std::isfinite(narrow)) {
      EXPECT_EQ(static_cast<float>(Calculate(DecimalText(narrow, i % 3).View()).value), narrow);
      EXPECT_EQ(DecimalText(static_cast<double>(narrow), 0), DecimalText(narrow, 0));
    }
  }
}

TEST(DecimalTextTest, TheExtremesHaveAText) {
  for (const double value :
       {std::numeric_limits<double>::max(), -std::numeric_limits<double>::max(),
        std::numeric_limits<double>::denorm_min(), -std::numeric_limits<double>::denorm_min(),
        2.2250738585072011e-308}) {
    EXPECT_EQ(Calculate(DecimalText(value, 0).View()).value, value);
  }
}

TEST(ShortenedTest, CutsBetweenCharacters) {
  EXPECT_STREQ(Shortened("12345", 5), "12345");
  EXPECT_STREQ(Shortened("123456", 5), "12345...");
  EXPECT_STREQ(Shortened("", 5), "");
  EXPECT_STREQ(Shortened("\x83\x41\x83\x42\x83\x43", 4), "\x83\x41\x83\x42...");
  EXPECT_STREQ(Shortened("\x83\x41\x83\x42\x83\x43", 5), "\x83\x41\x83\x42...");
  EXPECT_STREQ(Shortened("1\x83\x5C\x83\x42\x83\x43", 4), "1\x83\x5C...");
  EXPECT_STREQ(Shortened("\xB1\xB2\xB3", 2), "\xB1\xB2...") << "half-width kana are single bytes";
  EXPECT_STREQ(Shortened("abc", 0), "...");
  EXPECT_STREQ(Shortened("ab\x83", 2), "ab...");
}

}  // namespace
}  // namespace quorvel
