#include "kivcomm/rounding.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <bit>
#include <clocale>
#include <cmath>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <limits>
#include <random>
#include <string>

namespace {

constexpr double kLargest = std::numeric_limits<double>::max();
constexpr double kSmallest = std::numeric_limits<double>::denorm_min();
constexpr double kInfinity = std::numeric_limits<double>::infinity();
constexpr int kMostDigits = std::numeric_limits<int>::max();
constexpr int kFewestDigits = std::numeric_limits<int>::min();

double Cut(double value, int digits) {
  return __KivComm_CutValue2(value, digits, quorvel::kCutHalfAwayFromZero);
}

/// Equality down to the bit, so that the sign of zero counts.
void ExpectSame(double actual, double expected, const std::string& what) {
  EXPECT_EQ(std::bit_cast<std::uint64_t>(actual), std::bit_cast<std::uint64_t>(expected))
      << what << ": got " << actual << ", expected " << expected;
}

void ExpectCut(double value, int digits, double expected) {
  const std::string what = std::to_string(value) + " to " + std::to_string(digits);
  ExpectSame(Cut(value, digits), expected, what);
  ExpectSame(Cut(-value, digits), expected == 0 ? 0.0 : -expected, "minus " + what);
}

// The reference works on written-out decimals: "1234.5678" is laid out with its point, a half unit
// of the wanted place is added digit by digit, and the rest is cut off.

/// The shortest text with an exponent that the C library reads back as `magnitude`.
std::string ShortestText(double magnitude) {
  char buffer[64];
  for (int precision = 0; precision <= 16; ++precision) {
    std::snprintf(buffer, sizeof buffer, "%.*e", precision, magnitude);
    if (std::strtod(buffer, nullptr) == magnitude) {
      break;
    }
  }
  return buffer;
}

/// All decimal places of a magnitude: `digits[i]` counts 10 to the power of (kTop - i).
struct PlaceTable {
  static constexpr int kTop = 400;
  static constexpr int kBottom = -800;
  std::string digits = std::string(kTop - kBottom + 1, '0');

  char& At(int power) { return digits[static_cast<std::size_t>(kTop - power)]; }
};

PlaceTable WrittenOut(const std::string& text) {
  const std::size_t mark = text.find('e');
  int power = std::atoi(text.c_str() + mark + 1);
  PlaceTable table;
  for (std::size_t i = 0; i < mark; ++i) {
    if (text[i] != '.') {
      table.At(power--) = text[i];
    }
  }
  return table;
}

double ReferenceCut(double value, int digits) {
  PlaceTable table = WrittenOut(ShortestText(std::fabs(value)));
  int carry = 5;
  for (int power = -digits - 1; power < PlaceTable::kTop && carry > 0; ++power) {
    const int sum = table.At(power) - '0' + carry;
    table.At(power) = static_cast<char>('0' + sum % 10);
    carry = sum / 10;
  }
  for (int power = -digits - 1; power >= PlaceTable::kBottom; --power) {
    table.At(power) = '0';
  }
  const double magnitude =
      std::strtod((table.digits + "e" + std::to_string(PlaceTable::kBottom)).c_str(), nullptr);
  if (magnitude == 0) {
    return 0.0;
  }
  return std::isinf(magnitude) ? value : std::copysign(magnitude, value);
}

/// Below a power of two the doubles lie twice as dense as above it, so the decimal nearest to it
/// need not be the shortest that reads back: there ShortestText is no reference.
bool IsPowerOfTwo(double value) {
  int exponent = 0;
  return std::fabs(std::frexp(value, &exponent)) == 0.5;
}

/// Doubles of every size, and the decimals with few digits that people type.
class RandomValues {
public:
  double AnyFinite() {
    double value = 0;
    do {
      value = std::bit_cast<double>(m_generator());
    } while (!std::isfinite(value) || value == 0 || IsPowerOfTwo(value));
    return value;
  }

  double Everyday() {
    const auto digits = static_cast<std::int64_t>(m_generator() % 2'000'000'000'000ULL);
    const int places = Number(0, 8);
    char text[64];
    std::snprintf(text, sizeof text, "%llde-%d", static_cast<long long>(digits - 1'000'000'000'000),
                  places);
    return std::strtod(text, nullptr);
  }

  int Number(int lowest, int highest) {
    return std::uniform_int_distribution<int>(lowest, highest)(m_generator);
  }

private:
  std::mt19937_64 m_generator{20240229};
};

/// A number of decimals that cuts inside the digits of `value` or near them.
int InterestingDigits(double value, RandomValues& random) {
  const int firstPlace = static_cast<int>(std::floor(std::log10(std::fabs(value))));
  return -firstPlace + random.Number(-3, 19);
}

TEST(Rounding, RoundsTheDecimalThatAUserSees) {
  ExpectCut(1.2345, 3, 1.235);
  ExpectCut(2.675, 2, 2.68);
  ExpectCut(1.005, 2, 1.01);
  ExpectCut(0.285, 2, 0.29);
  ExpectCut(1.2344999, 3, 1.234);
  ExpectCut(100, 3, 100);
  ExpectCut(0.1, 1, 0.1);
  ExpectCut(123.456, 0, 123);
}

TEST(Rounding, TakesAHalfAwayFromZero) {
  ExpectCut(0.5, 0, 1);
  ExpectCut(1.5, 0, 2);
  ExpectCut(2.5, 0, 3);
  ExpectCut(0.0005, 3, 0.001);
  ExpectSame(Cut(-0.5, 0), -1.0, "-0.5");
}

TEST(Rounding, TheNearestNeighboursOfAHalfGoTheirOwnWay) {
  ExpectCut(std::nextafter(0.5, 0.0), 0, 0);
  ExpectCut(std::nextafter(0.5, 1.0), 0, 1);
  ExpectCut(std::nextafter(2.675, 0.0), 2, 2.67);
  ExpectCut(std::nextafter(2.675, 3.0), 2, 2.68);
}

TEST(Rounding, TakesAHalfAwayFromZeroAtEveryPlace) {
  for (int digits = -308; digits <= 322; ++digits) {
    // 25 units of the next smaller place, read and expected through the C library.
    const double half = std::strtod(("25e" + std::to_string(-digits - 1)).c_str(), nullptr);
    const double expected = std::strtod(("3e" + std::to_string(-digits)).c_str(), nullptr);
    if (std::isfinite(half) && std::isfinite(expected)) {
      ExpectCut(half, digits, expected);
    }
  }
}

TEST(Rounding, CarriesThroughNines) {
  ExpectCut(9.9996, 3, 10);
  ExpectCut(0.99, 1, 1);
  ExpectCut(999.5, 0, 1000);
  ExpectCut(0.95, 1, 1);
  ExpectCut(1.9995, 3, 2);
  ExpectCut(1.0995, 3, 1.1);
}

TEST(Rounding, NegativeDigitsRoundTensAndHundreds) {
  ExpectCut(1234, -2, 1200);
  ExpectCut(1250, -2, 1300);
  ExpectCut(5, -1, 10);
  ExpectCut(4.9, -1, 0);
  ExpectCut(49.9, -2, 0);
  ExpectCut(50, -2, 100);
  ExpectCut(50, -3, 0);
}

TEST(Rounding, DigitsBeyondTheValueLeaveItAlone) {
  for (const double value : {1.0 / 3, 1e22, 123456789.125, kLargest, kSmallest}) {
    ExpectCut(value, 1100, value);
    ExpectCut(value, kMostDigits, value);
    ExpectCut(value, kFewestDigits, 0);
  }
}

TEST(Rounding, LargeWholeNumbersStayAsTheyAre) {
  ExpectCut(1e22, 3, 1e22);
  ExpectCut(1e23, 0, 1e23);
  ExpectCut(9007199254740993.0, 3, 9007199254740993.0);
  ExpectCut(4503599627370495.5, 0, 4503599627370496.0);
  ExpectCut(kLargest, 3, kLargest);
  ExpectCut(kLargest, -300, 1.79769313e308);
}

TEST(Rounding, SubnormalsAreRoundedToo) {
  ExpectCut(kSmallest, 324, kSmallest);
  ExpectCut(kSmallest, 323, 1e-323);
  ExpectCut(kSmallest, 322, 0);
  ExpectCut(1.5e-323, 323, 2e-323);
  ExpectCut(2.2250738585072014e-308, 310, 2.23e-308);
  ExpectCut(1.2345e-310, 312, 1.23e-310);
}

TEST(Rounding, ADecimalBeyondTheLargestDoubleLeavesTheValueAlone) {
  ExpectCut(kLargest, -308, kLargest);
  ExpectCut(kLargest, -293, kLargest);  // 1.797693134862316e308
  ExpectCut(1.5e308, -308, 1.5e308);
  ExpectCut(1.4e308, -308, 1e308);
  ExpectCut(kLargest, -309, 0);
}

TEST(Rounding, AZeroIsAlwaysPositive) {
  ExpectSame(Cut(-0.0, 3), 0.0, "negative zero");
  ExpectSame(Cut(-0.0004, 3), 0.0, "-0.0004");
  ExpectSame(Cut(-0.49, 0), 0.0, "-0.49");
  ExpectSame(Cut(-1e-300, 3), 0.0, "-1e-300");
}

TEST(Rounding, InfinitiesAndNanPassThrough) {
  for (const int digits : {kFewestDigits, -3, 0, 3, kMostDigits}) {
    ExpectCut(kInfinity, digits, kInfinity);
    EXPECT_TRUE(std::isnan(Cut(std::numeric_limits<double>::quiet_NaN(), digits)));
  }
}

TEST(Rounding, OtherModesLeaveTheValueAlone) {
  for (const int mode : {kFewestDigits, -1, 0, 2, 3, kMostDigits}) {
    ExpectSame(__KivComm_CutValue2(1.2345, 3, mode), 1.2345, "CutValue2");
    ExpectSame(__KivComm_CutValue(1.2345, 3, mode), 1.2345, "CutValue");
    ExpectSame(__KivComm_CutValue2(-0.0, 3, mode), -0.0, "negative zero");
  }
}

TEST(Rounding, BothNamesFollowTheSameRule) {
  RandomValues random;
  for (int i = 0; i < 10'000; ++i) {
    const double value = random.Everyday();
    const int digits = InterestingDigits(value, random);
    ExpectSame(__KivComm_CutValue(value, digits, quorvel::kCutHalfAwayFromZero), Cut(value, digits),
               std::to_string(value));
  }
}

TEST(Rounding, AgreesWithWrittenOutDecimals) {
  RandomValues random;
  for (int i = 0; i < 50'000; ++i) {
    const double value = i % 2 == 0 ? random.AnyFinite() : random.Everyday();
    if (value == 0 || IsPowerOfTwo(value)) {
      continue;
    }
    const int digits = InterestingDigits(value, random);
    ExpectSame(Cut(value, digits), ReferenceCut(value, digits),
               ShortestText(value) + " to " + std::to_string(digits));
    if (HasFailure()) {
      break;
    }
  }
}

TEST(Rounding, RoundingTwiceIsRoundingOnce) {
  RandomValues random;
  for (int i = 0; i < 50'000; ++i) {
    const double value = i % 2 == 0 ? random.AnyFinite() : random.Everyday();
    const int digits = value == 0 ? 3 : InterestingDigits(value, random);
    const double once = Cut(value, digits);
    ExpectSame(Cut(once, digits), once, ShortestText(value) + " to " + std::to_string(digits));
    if (HasFailure()) {
      break;
    }
  }
}

TEST(Rounding, KeepsTheOrderOfValues) {
  RandomValues random;
  for (int i = 0; i < 50'000; ++i) {
    const double value = i % 2 == 0 ? random.AnyFinite() : random.Everyday();
    const int digits = value == 0 ? 3 : InterestingDigits(value, random);
    const double above = std::nextafter(value, kInfinity);
    const double wellAbove = value + std::fabs(value) / random.Number(2, 1000);
    EXPECT_LE(Cut(value, digits), Cut(above, digits)) << ShortestText(value) << " to " << digits;
    EXPECT_LE(Cut(value, digits), Cut(wellAbove, digits)) << ShortestText(value);
    if (HasFailure()) {
      break;
    }
  }
}

TEST(Rounding, MovesAValueByNoMoreThanHalfAUnit) {
  RandomValues random;
  for (int i = 0; i < 20'000; ++i) {
    const double value = random.Everyday();
    const double unit = 1e-3;
    EXPECT_LE(std::fabs(Cut(value, 3) - value), unit / 2 + 4e-16 * std::fabs(value)) << value;
  }
}

TEST(Rounding, DoesNotDependOnTheLocale) {
  const std::string before = std::setlocale(LC_ALL, nullptr);
  if (std::setlocale(LC_ALL, "de_DE.UTF-8") == nullptr) {
    GTEST_SKIP() << "no locale with a decimal comma on this machine";
  }
  const double cut = Cut(1234.5675, 3);
  std::setlocale(LC_ALL, before.c_str());
  ExpectSame(cut, 1234.568, "with a decimal comma");
}

}  // namespace
