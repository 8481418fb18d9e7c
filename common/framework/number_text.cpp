#include "framework/number_text.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <limits>
#include <string>

namespace quorvel {

namespace {

struct FullWidthForm {
  unsigned char trail;  ///< after the lead byte 0x81
  char halfWidth;
};

constexpr unsigned char kSymbolLead = 0x81;
constexpr unsigned char kAlphanumericLead = 0x82;

// Trail bytes after kAlphanumericLead.
constexpr unsigned char kFullWidthZero = 0x4F;
constexpr unsigned char kFullWidthNine = 0x58;
constexpr unsigned char kFullWidthUpperE = 0x64;
constexpr unsigned char kFullWidthLowerE = 0x85;

/// Besides the minus sign itself, the long-vowel mark: the same key gives it in kana input.
constexpr std::array kSymbols{FullWidthForm{0x40, ' '}, FullWidthForm{0x44, '.'},
                              FullWidthForm{0x7B, '+'}, FullWidthForm{0x7C, '-'},
                              FullWidthForm{0x5B, '-'}, FullWidthForm{0x96, '*'},
                              FullWidthForm{0x7E, '*'}, FullWidthForm{0x5E, '/'},
                              FullWidthForm{0x80, '/'}, FullWidthForm{0x69, '('},
                              FullWidthForm{0x6A, ')'}};

/// Half-width form of a two-byte character that can stand in a calculation; 0 for any other.
char HalfWidth(unsigned char lead, unsigned char trail) {
  if (lead == kAlphanumericLead) {
    if (trail >= kFullWidthZero && trail <= kFullWidthNine) {
      return static_cast<char>('0' + (trail - kFullWidthZero));
    }
    return trail == kFullWidthUpperE || trail == kFullWidthLowerE ? 'e' : '\0';
  }
  if (lead == kSymbolLead) {
    for (const FullWidthForm& form : kSymbols) {
      if (form.trail == trail) {
        return form.halfWidth;
      }
    }
  }
  return '\0';
}

bool IsBlank(char character) { return character == ' ' || (character >= '\t' && character <= '\r'); }

std::string_view WithoutBlanksAround(std::string_view text) {
  while (!text.empty() && IsBlank(text.front())) {
    text.remove_prefix(1);
  }
  while (!text.empty() && IsBlank(text.back())) {
    text.remove_suffix(1);
  }
  return text;
}

/// std::from_chars takes a minus sign only; a plus sign must be followed by the number itself.
std::string_view WithoutPlusSign(std::string_view text) {
  if (text.size() > 1 && text[0] == '+' && text[1] != '-') {
    text.remove_prefix(1);
  }
  return text;
}

/// Whether a decimal number outside the range of a double is too large rather than too small.
bool IsAboveOne(std::string_view number) {
  const std::size_t mantissaEnd = std::min(number.find_first_of("eE"), number.size());
  const std::string_view mantissa = number.substr(0, mantissaEnd);
  const auto point = static_cast<long long>(std::min(mantissa.find('.'), mantissa.size()));
  const auto firstDigit = static_cast<long long>(mantissa.find_first_of("123456789"));
  long long exponent = 0;
  if (mantissaEnd < number.size()) {
    const std::string_view text = WithoutPlusSign(number.substr(mantissaEnd + 1));
    if (std::from_chars(text.data(), text.data() + text.size(), exponent).ec != std::errc()) {
      return !text.starts_with('-');
    }
  }
  return exponent > firstDigit - point;  // the exponent may be the largest number there is
}

}  // namespace

std::string HalfWidthForm(std::string_view text) {
  std::string half;
  half.reserve(text.size());
  for (std::size_t i = 0; i < text.size(); ++i) {
    const auto lead = static_cast<unsigned char>(text[i]);
    if (lead < 0x80) {
      half += text[i];
      continue;
    }
    const char character =
        i + 1 < text.size() ? HalfWidth(lead, static_cast<unsigned char>(text[i + 1])) : '\0';
    half += character;
    if (character == '\0') {
      break;
    }
    ++i;
  }
  return half;
}

LeadingNumber ReadDecimal(std::string_view text) {
  const std::size_t firstDigit = text.find_first_not_of('-');
  if (firstDigit > 1 ||  // also where there is none
      (text[firstDigit] != '.' && (text[firstDigit] < '0' || text[firstDigit] > '9'))) {
    return {};
  }
  LeadingNumber number;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number.value);
  if (error == std::errc::invalid_argument) {
    return {};
  }
  number.length = static_cast<std::size_t>(end - text.data());
  if (error == std::errc::result_out_of_range) {
    number.tooLarge = IsAboveOne(text.substr(0, number.length));
    const double limit = number.tooLarge ? std::numeric_limits<double>::infinity() : 0.0;
    number.value = text[0] == '-' ? -limit : limit;
  }
  return number;
}

std::optional<int> ParseInteger(std::string_view text) {
  const std::string half = HalfWidthForm(text);
  const std::string_view number = WithoutPlusSign(WithoutBlanksAround(half));
  int value = 0;
  const auto [end, error] = std::from_chars(number.data(), number.data() + number.size(), value);
  if (error != std::errc() || end != number.data() + number.size()) {
    return std::nullopt;
  }
  return value;
}

std::optional<double> ParseNumber(std::string_view text) {
  const std::string half = HalfWidthForm(text);
  const std::string_view number = WithoutPlusSign(WithoutBlanksAround(half));
  const LeadingNumber read = ReadDecimal(number);
  if (read.length == 0 || read.length != number.size() || read.tooLarge) {
    return std::nullopt;
  }
  return read.value;
}

double ReadLeadingNumber(std::string_view text) {
  const std::string half = HalfWidthForm(text);
  return ReadDecimal(WithoutPlusSign(WithoutBlanksAround(half))).value;
}

CString ShortestText(double value) {
  std::array<char, 32> text{};
  const char* const end = std::to_chars(text.data(), text.data() + text.size(), value).ptr;
  return CString(std::string_view(text.data(), static_cast<std::size_t>(end - text.data())));
}

CString FixedText(double value, int decimals) {
  constexpr int kLongestWholePart = 1 + std::numeric_limits<double>::max_exponent10 + 2;
  std::string text(static_cast<std::size_t>(kLongestWholePart + std::max(decimals, 0)), '\0');
  const char* const end = std::to_chars(text.data(), text.data() + text.size(), value,
                                        std::chars_format::fixed, std::max(decimals, 0))
                              .ptr;
  text.resize(static_cast<std::size_t>(end - text.data()));
  return CString(std::string_view(text));
}

int TruncatedToInt(double value) {
  if (std::isnan(value)) {
    return 0;
  }
  constexpr double kLowest = std::numeric_limits<int>::min();
  constexpr double kHighest = std::numeric_limits<int>::max();
  return static_cast<int>(std::clamp(value, kLowest, kHighest));
}

}  // namespace quorvel
