#include "cli/font_commands.h"

#include <limits>
#include <string_view>

namespace quorvel::cli {

namespace {

constexpr int kMostOfByte = std::numeric_limits<std::uint8_t>::max();
constexpr int kMostStrikeOutType = 1;
constexpr int kMostPlace = 2;

[[noreturn]] void Refuse(const ParsedOptions& options, std::string_view name,
                         std::string_view why) {
  throw UsageError(options.Label(name) + " " + std::string(why));
}

std::uint8_t SmallNumber(const ParsedOptions& options, std::string_view name,
                         int most = kMostOfByte) {
  const int value = options.WholeNumber(name);
  if (value < 0 || value > most) {
    Refuse(options, name, "goes from 0 to " + std::to_string(most));
  }
  return static_cast<std::uint8_t>(value);
}

double Size(const ParsedOptions& options, std::string_view name) {
  const double millimetres = options.Number(name);
  if (millimetres < 0) {
    Refuse(options, name, "must not be negative");
  }
  return millimetres;
}

std::optional<int> GivenNumber(const ParsedOptions& options, std::string_view name) {
  return options.Has(name) ? std::optional(options.WholeNumber(name)) : std::nullopt;
}

/// A text option always has a value, if only the empty text.
std::optional<std::string> GivenText(const ParsedOptions& options, std::string_view name) {
  const std::string& text = options.Text(name);
  return text.empty() ? std::nullopt : std::optional(text);
}

FontDialogArguments Dialog(const ParsedOptions& options) {
  const int mask = options.WholeNumber("enable-mask");
  if (mask < 0) {
    Refuse(options, "enable-mask", "must not be negative");
  }
  return {.title = GivenText(options, "title"),
          .key = options.Text("key"),
          .dotsPerMm = options.Number("dots-per-mm"),
          .hasFixedColor = options.Has("fixed-color"),
          .enableMask = static_cast<unsigned>(mask)};
}

FontFields Font(const ParsedOptions& options) {
  return {.face = options.Text("face"),
          .height = Size(options, "height"),
          .width = Size(options, "width"),
          .dotsHeight = GivenNumber(options, "dots-height"),
          .dotsWidth = GivenNumber(options, "dots-width"),
          .escapement = options.WholeNumber("escapement"),
          .orientation = options.WholeNumber("orientation"),
          .weight = options.WholeNumber("weight"),
          .isItalic = options.Has("italic"),
          .isUnderlined = options.Has("underline"),
          .isStruckOut = options.Has("strike-out"),
          .charSet = SmallNumber(options, "char-set"),
          .outPrecision = SmallNumber(options, "out-precision"),
          .clipPrecision = SmallNumber(options, "clip-precision"),
          .quality = SmallNumber(options, "quality"),
          .pitchAndFamily = SmallNumber(options, "pitch-and-family"),
          .color = options.ColourValue("color"),
          .strikeOutType = SmallNumber(options, "strike-out-type", kMostStrikeOutType)};
}

}  // namespace

SelectFontRequest ReadSelectFont(const ParsedOptions& options) {
  return {.dialog = Dialog(options),
          .font = Font(options),
          .showsStrikeOutType = options.Has("show-strike-out-type")};
}

SelectFontExRequest ReadSelectFontEx(const ParsedOptions& options) {
  return {.dialog = Dialog(options),
          .font = Font(options),
          .backColor = options.ColourValue("back-color"),
          .verticalPlace = SmallNumber(options, "vertical-place", kMostPlace),
          .horizontalPlace = SmallNumber(options, "horizontal-place", kMostPlace)};
}

}  // namespace quorvel::cli
