#include "kivcomm/rounding.h"

#include <array>
#include <charconv>
#include <cmath>
#include <cstddef>
#include <string>
#include <string_view>
#include <system_error>

namespace {

/// The magnitude 0.d1d2d3... times 10 to the power of `exponent`.
struct Decimal {
  std::string digits;
  int exponent = 0;
};

/// The shortest decimal that reads back as the finite, positive `magnitude`.
Decimal ShortestDecimal(double magnitude) {
  std::array<char, 32> buffer{};  // "d.ddddddddddddddddde-ddd" has at most 24 characters
  const std::to_chars_result written = std::to_chars(buffer.data(), buffer.data() + buffer.size(),
                                                     magnitude, std::chars_format::scientific);
  const std::string_view text(buffer.data(), static_cast<std::size_t>(written.ptr - buffer.data()));
  const std::size_t mark = text.find('e');

  Decimal decimal;
  decimal.digits = text.front();
  if (mark > 2) {
    decimal.digits += text.substr(2, mark - 2);
  }
  const std::size_t power = text[mark + 1] == '+' ? mark + 2 : mark + 1;
  std::from_chars(text.data() + power, text.data() + text.size(), decimal.exponent);
  ++decimal.exponent;  // the written form has one digit before the point, Decimal has none
  return decimal;
}

/// Adds one unit in the last digit; without any digit, one unit just above the first place.
void AddUnit(Decimal& decimal) {
  std::size_t place = decimal.digits.size();
  while (place > 0 && decimal.digits[place - 1] == '9') {
    decimal.digits[--place] = '0';
  }
  if (place > 0) {
    ++decimal.digits[place - 1];
  } else {
    decimal.digits.insert(decimal.digits.begin(), '1');
    ++decimal.exponent;
  }
}

double CutHalfAwayFromZero(double value, int digits) {
  if (!std::isfinite(value)) {
    return value;
  }
  if (value == 0) {
    return 0.0;
  }
  Decimal decimal = ShortestDecimal(std::fabs(value));
  const long long keep = static_cast<long long>(decimal.exponent) + digits;
  if (keep >= static_cast<long long>(decimal.digits.size())) {
    return value;
  }
  if (keep < 0) {
    return 0.0;
  }
  const auto firstCut = static_cast<std::size_t>(keep);
  const bool away = decimal.digits[firstCut] >= '5';
  decimal.digits.resize(firstCut);
  if (away) {
    AddUnit(decimal);
  }
  if (decimal.digits.empty()) {
    return 0.0;
  }

  const std::string text = "0." + decimal.digits + "e" + std::to_string(decimal.exponent);
  double magnitude = 0;
  const std::from_chars_result read =
      std::from_chars(text.data(), text.data() + text.size(), magnitude);
  // Only a decimal above the largest double cannot be read.
  return read.ec == std::errc() ? std::copysign(magnitude, value) : value;
}

}  // namespace

double __KivComm_CutValue2(double value, int digits, int mode) {
  return mode == quorvel::kCutHalfAwayFromZero ? CutHalfAwayFromZero(value, digits) : value;
}

double __KivComm_CutValue(double value, int digits, int mode) {
  return __KivComm_CutValue2(value, digits, mode);
}
