// A colour as the command line takes and prints it.
//
//   ReadColour("#3366ff");                // 0x33, 0x66, 0xFF
//   ColourText({0x33, 0x66, 0xFF});       // "#3366FF"
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace quorvel::cli {

struct Colour {
  std::uint8_t red = 0;
  std::uint8_t green = 0;
  std::uint8_t blue = 0;

  friend bool operator==(const Colour&, const Colour&) = default;
};

/// '#' and exactly six hexadecimal digits, capital or small; nothing for any other text.
std::optional<Colour> ReadColour(std::string_view text);

/// '#' and six hexadecimal digits, in capitals.
std::string ColourText(const Colour& colour);

}  // namespace quorvel::cli
