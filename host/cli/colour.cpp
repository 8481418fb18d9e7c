#include "cli/colour.h"

#include <array>
#include <cstddef>

namespace quorvel::cli {

namespace {

constexpr char kMark = '#';
constexpr std::size_t kChannels = 3;
constexpr std::size_t kDigitsOfChannel = 2;
constexpr std::string_view kDigits = "0123456789ABCDEF";
constexpr char kToCapital = 'A' - 'a';

std::optional<unsigned> DigitValue(char digit) {
  const std::size_t value = kDigits.find(
      'a' <= digit && digit <= 'f' ? static_cast<char>(digit + kToCapital) : digit);
  return value == std::string_view::npos ? std::nullopt
                                         : std::optional(static_cast<unsigned>(value));
}

}  // namespace

std::optional<Colour> ReadColour(std::string_view text) {
  if (text.size() != 1 + kChannels * kDigitsOfChannel || text.front() != kMark) {
    return std::nullopt;
  }
  text.remove_prefix(1);
  std::array<std::uint8_t, kChannels> channels{};
  for (std::uint8_t& channel : channels) {
    const std::optional<unsigned> high = DigitValue(text[0]);
    const std::optional<unsigned> low = DigitValue(text[1]);
    if (!high || !low) {
      return std::nullopt;
    }
    channel = static_cast<std::uint8_t>(*high * kDigits.size() + *low);
    text.remove_prefix(kDigitsOfChannel);
  }
  return Colour{.red = channels[0], .green = channels[1], .blue = channels[2]};
}

std::string ColourText(const Colour& colour) {
  std::string text(1, kMark);
  for (const std::uint8_t channel : {colour.red, colour.green, colour.blue}) {
    text += kDigits[channel / kDigits.size()];
    text += kDigits[channel % kDigits.size()];
  }
  return text;
}

}  // namespace quorvel::cli
