#include "framework/number_text.h"

#include <cmath>
#include <limits>
#include <string>

#include <gtest/gtest.h>

namespace quorvel {
namespace {

constexpr double kInfinity = std::numeric_limits<double>::infinity();

TEST(ParseInteger, ReadsWholeNumbersOfEitherSign) {
  EXPECT_EQ(ParseInteger("300"), 300);
  EXPECT_EQ(ParseInteger("-1"), -1);
  EXPECT_EQ(ParseInteger("+7"), 7);
  EXPECT_EQ(ParseInteger("007"), 7);
  EXPECT_EQ(ParseInteger(" \t42 "), 42);
  EXPECT_EQ(ParseInteger("2147483647"), 2147483647);
  EXPECT_EQ(ParseInteger("-2147483648"), std::numeric_limits<int>::min());
}

TEST(ParseInteger, RefusesEmptyTextTrailingCharactersAndOverflow) {
  for (const char* text :
       {"", " ", "abc", "12abc", "1.5", "1,000", "1 2", "2147483648", "-2147483649",
        "99999999999999999999", "-", "+", "+-1", "-+1", "--1", "0x10", "1e3", "\x81", "\x83\x5C",
        "1\x83\x5C", "1\x82"}) {
    EXPECT_FALSE(ParseInteger(text)) << '"' << text << '"';
  }
  EXPECT_FALSE(ParseInteger(std::string_view("1\0", 2)));
}

TEST(ParseInteger, ReadsFullWidthDigitsAndSigns) {
  EXPECT_EQ(ParseInteger("\x82\x4F\x82\x50\x82\x58"), 19);        // ０１９
  EXPECT_EQ(ParseInteger("\x81\x7C\x82\x51"), -2);                // －２
  EXPECT_EQ(ParseInteger("\x81\x7B\x82\x51"), 2);                 // ＋２
  EXPECT_EQ(ParseInteger("\x81\x5B\x82\x51"), -2);                // ー２, as kana input types it
  EXPECT_EQ(ParseInteger("\x81\x40\x82\x51\x81\x40"), 2);         // full-width blanks around
  EXPECT_FALSE(ParseInteger("\x82\x51\x82\x60"));                 // ２Ａ
  EXPECT_FALSE(ParseInteger("\x82\x59"));                         // just past ９
  EXPECT_FALSE(ParseInteger("\x82\x4E"));                         // just before ０
}

TEST(ParseNumber, ReadsDecimals) {
  EXPECT_EQ(ParseNumber("3"), 3.0);
  EXPECT_EQ(ParseNumber("3.5"), 3.5);
  EXPECT_EQ(ParseNumber(".5"), 0.5);
  EXPECT_EQ(ParseNumber("3."), 3.0);
  EXPECT_EQ(ParseNumber("-.5"), -0.5);
  EXPECT_EQ(ParseNumber("+1e3"), 1000.0);
  EXPECT_EQ(ParseNumber("\x82\x52\x81\x44\x82\x54"), 3.5);      // ３．５
  EXPECT_EQ(ParseNumber("\x82\x50\x82\x85\x82\x52"), 1000.0);   // １ｅ３
  EXPECT_EQ(ParseNumber("\x82\x50\x82\x64\x82\x52"), 1000.0);   // １Ｅ３
  EXPECT_EQ(ParseNumber("1e-400"), 0.0);
}

TEST(ParseNumber, RefusesWhatIsNoNumberOrTooLarge) {
  for (const char* text : {"", " ", ".", "-", "abc", "3.5mm", "1e", "nan", "inf", "-inf", "infinity",
                           "0x10", "1e400", "-1e400", "1..2", "--1"}) {
    EXPECT_FALSE(ParseNumber(text)) << text;
  }
}

TEST(ReadLeadingNumber, ReadsAsAtofDoes) {
  EXPECT_EQ(ReadLeadingNumber("500.5"), 500.5);
  EXPECT_EQ(ReadLeadingNumber("  -12.25mm"), -12.25);
  EXPECT_EQ(ReadLeadingNumber("+3"), 3.0);
  EXPECT_EQ(ReadLeadingNumber("1e3x"), 1000.0);
  EXPECT_EQ(ReadLeadingNumber("1e"), 1.0);
  EXPECT_EQ(ReadLeadingNumber("1,000"), 1.0);
  EXPECT_EQ(ReadLeadingNumber("0x10"), 0.0);
  for (const char* text : {"", "abc", "-", "+", "+-1", ".", "-.", "nan", "inf", "e5", "\x83\x5C"}) {
    EXPECT_EQ(ReadLeadingNumber(text), 0.0) << text;
  }
  EXPECT_EQ(ReadLeadingNumber("\x82\x50\x82\x4F.5\x83\x5C"), 10.5);  // １０.5ソ
}

TEST(ReadLeadingNumber, GoesToInfinityOrZeroBeyondTheRange) {
  EXPECT_EQ(ReadLeadingNumber("1e400"), kInfinity);
  EXPECT_EQ(ReadLeadingNumber("-1e400"), -kInfinity);
  EXPECT_EQ(ReadLeadingNumber("1e+400"), kInfinity);
  EXPECT_EQ(ReadLeadingNumber(std::string(400, '9')), kInfinity);
  EXPECT_EQ(ReadLeadingNumber(std::string(400, '9') + ".5"), kInfinity);
  EXPECT_EQ(ReadLeadingNumber(std::string(400, '9') + "e-50"), kInfinity);
  EXPECT_EQ(ReadLeadingNumber("1e99999999999999999999"), kInfinity);
  EXPECT_EQ(ReadLeadingNumber("12e9223372036854775807"), kInfinity);
  EXPECT_EQ(ReadLeadingNumber("1e-400"), 0.0);
  EXPECT_EQ(ReadLeadingNumber("1e-99999999999999999999"), 0.0);
  EXPECT_EQ(ReadLeadingNumber(".01e-9223372036854775808"), 0.0);
  EXPECT_EQ(ReadLeadingNumber("0." + std::string(400, '0') + "1"), 0.0);
  EXPECT_EQ(ReadLeadingNumber("0." + std::string(400, '0') + "1e+5"), 0.0);
  EXPECT_TRUE(std::signbit(ReadLeadingNumber("-1e-400")));
}

TEST(ShortestText, HasNoNoiseDigitsAndReadsBack) {
  EXPECT_STREQ(ShortestText(3.5), "3.5");
  EXPECT_STREQ(ShortestText(0.1), "0.1");
  EXPECT_STREQ(ShortestText(-9999.0), "-9999");
  for (const double value : {1.0 / 3.0, 1e300, 5e-324, 123456.789}) {
    EXPECT_EQ(ParseNumber(ShortestText(value).View()), value);
  }
}

TEST(FixedText, WritesExactlySoManyDecimals) {
  EXPECT_STREQ(FixedText(100.0, 3), "100.000");
  EXPECT_STREQ(FixedText(-1.235, 3), "-1.235");
  EXPECT_STREQ(FixedText(12.0, 0), "12");
  EXPECT_EQ(FixedText(-std::numeric_limits<double>::max(), 3).GetLength(), 1 + 309 + 4);
  EXPECT_STREQ(FixedText(2.5, -1), "2");
}

TEST(TruncatedToInt, StaysInTheRangeOfInt) {
  EXPECT_EQ(TruncatedToInt(1000.9), 1000);
  EXPECT_EQ(TruncatedToInt(-1000.9), -1000);
  EXPECT_EQ(TruncatedToInt(5e9), std::numeric_limits<int>::max());
  EXPECT_EQ(TruncatedToInt(-kInfinity), std::numeric_limits<int>::min());
  EXPECT_EQ(TruncatedToInt(std::nan("")), 0);
}

}  // namespace
}  // namespace quorvel
