// UTF-16 (what windows hold) to and from UTF-8 (what the driver reports).
//
//   std::string line = Utf8(Text(dialog));
#pragma once

#include <string>
#include <string_view>

namespace quorvel::driver {

/// Unpaired surrogates become U+FFFD.
std::string Utf8(std::wstring_view text);

/// Malformed sequences become U+FFFD.
std::wstring Utf16(std::string_view utf8);

}  // namespace quorvel::driver
