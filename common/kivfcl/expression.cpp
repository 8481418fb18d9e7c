#include "kivfcl/expression.h"

#include "framework/number_text.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <limits>
#include <string>
#include <system_error>

namespace quorvel {

namespace {

bool IsBlank(char character) {
  return character == ' ' || (character >= '\t' && character <= '\r');
}

double RoundedToDecimalDigits(double value) {
  std::array<char, 32> text{};
  const char* const end = std::to_chars(text.data(), text.data() + text.size(), value,
                                        std::chars_format::scientific,
                                        std::numeric_limits<double>::digits10 - 1)
                              .ptr;
  double rounded = value;
  const bool fits = std::from_chars(text.data(), end, rounded).ec == std::errc();
  return fits ? rounded : value;  // next to the largest number, rounding up is too much
}

/// One function for each level of precedence. What fails once fails whole: all functions return as
/// soon as there is a fault.
class Reader {
public:
  explicit Reader(std::string_view text) : m_rest(text) {}

  Calculation Read() {
    const double value = Sum();
    if (!AtEnd()) {
      Fail(CalculationFault::kNoCalculation);
    }
    if (!Ok() || value == 0.0) {
      return {.value = 0.0, .fault = m_fault};  // never -0
    }
    return {.value = m_bCalculated ? RoundedToDecimalDigits(value) : value};
  }

private:
  // NOLINTBEGIN(misc-no-recursion): no deeper than kDeepestNesting
  double Sum() {
    double sum = Product();
    while (Ok()) {
      if (Take('+')) {
        sum = Result(sum + Product());
      } else if (Take('-')) {
        sum = Result(sum - Product());
      } else {
        break;
      }
    }
    return sum;
  }

  double Product() {
    double product = Signed();
    while (Ok()) {
      if (Take('*')) {
        product = Result(product * Signed());
      } else if (Take('/')) {
        product = Quotient(product, Signed());
      } else {
        break;
      }
    }
    return product;
  }

  double Quotient(double dividend, double divisor) {
    if (Ok() && divisor == 0.0) {
      Fail(CalculationFault::kDivisionByZero);
    }
    return Result(dividend / (Ok() ? divisor : 1.0));
  }

  double Signed() {
    bool negative = false;
    for (;;) {
      if (Take('-')) {
        negative = !negative;
      } else if (!Take('+')) {
        break;
      }
    }
    const double value = Primary();
    return negative ? -value : value;
  }

  double Primary() {
    if (!Take('(')) {
      return Number();
    }
    if (++m_nDepth > kDeepestNesting) {
      Fail(CalculationFault::kNoCalculation);
      return 0.0;
    }
    const double value = Sum();
    --m_nDepth;
    if (Ok() && !Take(')')) {
      Fail(CalculationFault::kNoCalculation);
    }
    return value;
  }
  // NOLINTEND(misc-no-recursion)

  double Number() {
    const LeadingNumber number = ReadDecimal(m_rest);
    if (number.length == 0) {
      Fail(CalculationFault::kNoCalculation);
    } else if (number.tooLarge) {
      Fail(CalculationFault::kTooLarge);
    }
    m_rest.remove_prefix(number.length);
    return number.value;
  }

  /// Of an operation; finite unless there is a fault.
  double Result(double value) {
    m_bCalculated = true;
    if (Ok() && !std::isfinite(value)) {
      Fail(CalculationFault::kTooLarge);
    }
    return value;
  }

  void SkipBlanks() {
    while (!m_rest.empty() && IsBlank(m_rest.front())) {
      m_rest.remove_prefix(1);
    }
  }
  bool Take(char character) {
    SkipBlanks();
    const bool found = m_rest.starts_with(character);
    m_rest.remove_prefix(found ? 1 : 0);
    return found;
  }
  bool AtEnd() {
    SkipBlanks();
    return m_rest.empty();
  }

  bool Ok() const { return m_fault == CalculationFault::kNone; }
  /// The first fault stays.
  void Fail(CalculationFault fault) {
    if (Ok()) {
      m_fault = fault;
    }
  }

  std::string_view m_rest;
  int m_nDepth = 0;
  bool m_bCalculated = false;
  CalculationFault m_fault = CalculationFault::kNone;
};

/// A result outside the limits is a fault.
Calculation Limited(const Calculation& calculation, double lowest, double highest) {
  return lowest <= calculation.value && calculation.value <= highest
             ? calculation
             : Calculation{.fault = CalculationFault::kTooLarge};
}

template <class Number>
CString ShortestDecimalText(Number value, int fewestDecimals) {
  constexpr int kLongestText = 512;  // the smallest double has 324 decimals
  std::array<char, kLongestText> buffer{};
  const Number shown = value == Number{0} ? Number{0} : value;  // never -0
  const char* const end = std::to_chars(buffer.data(), buffer.data() + buffer.size(), shown,
                                        std::chars_format::fixed)
                              .ptr;
  std::string text(buffer.data(), static_cast<std::size_t>(end - buffer.data()));
  const std::size_t point = text.find('.');
  const std::size_t decimals = point == std::string::npos ? 0 : text.size() - point - 1;
  if (const auto wanted = static_cast<std::size_t>(std::max(fewestDecimals, 0));
      decimals < wanted) {
    text += decimals == 0 ? "." : "";
    text.append(wanted - decimals, '0');
  }
  return CString(std::string_view(text));
}

bool IsFloat(double value) {
  return std::abs(value) <= std::numeric_limits<float>::max() &&
         static_cast<double>(static_cast<float>(value)) == value;
}

/// Of code page 932: the first byte of two.
bool IsLeadByte(char byte) {
  constexpr unsigned char kFirst = 0x81;
  constexpr unsigned char kBeforeKana = 0x9F;
  constexpr unsigned char kAfterKana = 0xE0;
  constexpr unsigned char kLast = 0xFC;
  const auto code = static_cast<unsigned char>(byte);
  return (kFirst <= code && code <= kBeforeKana) || (kAfterKana <= code && code <= kLast);
}

}  // namespace

Calculation Calculate(std::string_view text) {
  const std::string half = HalfWidthForm(text);
  return Reader(half).Read();
}

Calculation CalculateInt(std::string_view text) {
  const Calculation number = Limited(Calculate(text), std::numeric_limits<int>::min(),
                                     std::numeric_limits<int>::max());
  return number.value == std::trunc(number.value)
             ? number
             : Calculation{.fault = CalculationFault::kNoWholeNumber};
}

Calculation CalculateFloat(std::string_view text) {
  constexpr double kLargest = std::numeric_limits<float>::max();
  return Limited(Calculate(text), -kLargest, kLargest);
}

CString DecimalText(double value, int fewestDecimals) {
  return IsFloat(value) ? ShortestDecimalText(static_cast<float>(value), fewestDecimals)
                        : ShortestDecimalText(value, fewestDecimals);
}

CString DecimalText(float value, int fewestDecimals) {
  return ShortestDecimalText(value, fewestDecimals);
}

CString Shortened(std::string_view text, int bytes) {
  const auto most = static_cast<std::size_t>(std::max(bytes, 0));
  if (text.size() <= most) {
    return CString(text);
  }
  std::size_t length = 0;
  for (std::size_t next = 0; next <= most; next += IsLeadByte(text[next]) ? 2 : 1) {
    length = next;
  }
  return CString(text.substr(0, length)) + "...";
}

}  // namespace quorvel
