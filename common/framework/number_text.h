// Numbers as text and back, in code page 932 and the same under every C locale.
//
// Full-width digits, signs, points and blanks, as a Japanese keyboard types them, read as their
// half-width forms.
#pragma once

#include "framework/cstring.h"
#include "framework/frame_export.h"

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

namespace quorvel {

/// The text with digits, letters e, blanks, points, signs, brackets and signs of multiplication and
/// division in half width ("*" and "/"), up to the first other character beyond ASCII, which is
/// replaced by a zero byte: no parser reads past it.
FRAME_API std::string HalfWidthForm(std::string_view text);

/// A decimal number that a text begins with.
struct LeadingNumber {
  double value = 0.0;      ///< an infinity of its sign where it is too large
  std::size_t length = 0;  ///< in bytes; 0 where the text begins with no number
  bool tooLarge = false;
};
/// Digits with an optional minus sign, point and exponent, in half width; never "inf", "nan" or
/// hexadecimal.
FRAME_API LeadingNumber ReadDecimal(std::string_view text);

/// A whole number with nothing but blanks around it; empty for an empty text, for anything else in
/// the text and for what an int cannot hold.
FRAME_API std::optional<int> ParseInteger(std::string_view text);

/// A finite decimal number ("3", "3.5", ".5", "1e3") with nothing but blanks around it; empty for
/// anything else and for what a double cannot hold.
FRAME_API std::optional<double> ParseNumber(std::string_view text);

/// The number that a text begins with, as atof reads it: blanks before it are skipped, what follows
/// is ignored, and a text that begins with no number gives 0.0. Too large a number gives an infinity
/// of its sign.
FRAME_API double ReadLeadingNumber(std::string_view text);

/// The shortest text that reads back as exactly `value`: 3.5, not 3.500000.
FRAME_API CString ShortestText(double value);

/// `value` with exactly `decimals` decimals (0 or more), as "%.*f" writes it.
FRAME_API CString FixedText(double value, int decimals);

/// `value` without its decimals; the nearest int where it lies outside their range, 0 for NaN.
FRAME_API int TruncatedToInt(double value);

}  // namespace quorvel
