// The subcommands select-font and select-font-ex: their options, and what is asked for with them.
// All texts are UTF-8.
//
//   const SelectFontRequest request = ReadSelectFont(options);   // "--face", "ＭＳ 明朝"
//   request.font.face;                                           // "ＭＳ 明朝"
#pragma once

#include "cli/arguments.h"
#include "cli/colour.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>

namespace quorvel::cli {

/// Every field of a font, as the host has it before the dialog opens.
struct FontFields {
  std::string face;
  double height = 0;  // millimetres
  double width = 0;   // millimetres
  /// Sizes of the record in dots; those made from the millimetres where they are not given.
  std::optional<int> dotsHeight;
  std::optional<int> dotsWidth;
  int escapement = 0;
  int orientation = 0;
  int weight = 0;
  bool isItalic = false;
  bool isUnderlined = false;
  bool isStruckOut = false;
  std::uint8_t charSet = 0;
  std::uint8_t outPrecision = 0;
  std::uint8_t clipPrecision = 0;
  std::uint8_t quality = 0;
  std::uint8_t pitchAndFamily = 0;
  Colour color;
  std::uint8_t strikeOutType = 0;
};

/// What both dialogs take besides the font.
struct FontDialogArguments {
  std::optional<std::string> title;
  std::string key;  // below HKEY_CURRENT_USER, where made colours are kept; empty for none
  double dotsPerMm = 0;
  bool hasFixedColor = false;
  unsigned enableMask = 0;
};

struct SelectFontRequest {
  FontDialogArguments dialog;
  FontFields font;
  bool showsStrikeOutType = false;
};

struct SelectFontExRequest {
  FontDialogArguments dialog;
  FontFields font;
  Colour backColor;
  std::uint8_t verticalPlace = 0;
  std::uint8_t horizontalPlace = 0;
};

/// Both throw UsageError for a number that the font cannot hold.
SelectFontRequest ReadSelectFont(const ParsedOptions& options);
SelectFontExRequest ReadSelectFontEx(const ParsedOptions& options);

namespace font_options {

template <std::size_t... Sizes>
constexpr auto Joined(const std::array<Option, Sizes>&... tables) {
  std::array<Option, (Sizes + ...)> joined{};
  std::size_t next = 0;
  const auto append = [&](const auto& table) {
    for (const Option& option : table) {
      joined[next++] = option;
    }
  };
  (append(tables), ...);
  return joined;
}

constexpr Option Number(std::string_view name, std::string_view help, std::string_view value) {
  return {.name = name,
          .kind = OptionKind::kWholeNumbers,
          .valueName = "N",
          .help = help,
          .defaultValue = value};
}

constexpr Option Millimetres(std::string_view name, std::string_view help,
                             std::string_view value) {
  return {.name = name,
          .kind = OptionKind::kNumbers,
          .valueName = "MM",
          .help = help,
          .defaultValue = value};
}

constexpr Option Color(std::string_view name, std::string_view help, std::string_view value) {
  return {.name = name,
          .kind = OptionKind::kColour,
          .valueName = "#RRGGBB",
          .help = help,
          .defaultValue = value};
}

inline constexpr std::array kDialog{
    Option{.name = "title",
           .kind = OptionKind::kText,
           .valueName = "TEXT",
           .help = "title of the dialog instead of its own"},
    Option{.name = "key",
           .kind = OptionKind::kText,
           .valueName = "TEXT",
           .help = "registry key below HKEY_CURRENT_USER that keeps made colours; none are kept "
                   "without"},
    Option{.name = "dots-per-mm",
           .kind = OptionKind::kNumbers,
           .valueName = "N",
           .help = "resolution of the sizes in dots, 0 for 300 dots per inch",
           .defaultValue = "0"},
    Option{.name = "fixed-color", .help = "do not let the user change a colour"},
    Number("enable-mask", "sum of the bits of what the user may change", "1023")};

/// "MS Gothic" by its Japanese name, in UTF-8 whatever the compiler makes of a literal.
inline constexpr std::string_view kUsualFace =
    "\xEF\xBC\xAD\xEF\xBC\xB3 \xE3\x82\xB4\xE3\x82\xB7\xE3\x83\x83\xE3\x82\xAF";

inline constexpr std::array kFont{
    Option{.name = "face",
           .kind = OptionKind::kText,
           .valueName = "NAME",
           .help = "name of the face",
           .defaultValue = kUsualFace},
    Millimetres("height", "character height in millimetres", "3.5"),
    Millimetres("width", "character width in millimetres, 0 for the natural one", "0"),
    Option{.name = "dots-height",
           .kind = OptionKind::kWholeNumbers,
           .valueName = "N",
           .help = "height in dots, instead of that of the millimetres",
           .standIn = "height"},
    Option{.name = "dots-width",
           .kind = OptionKind::kWholeNumbers,
           .valueName = "N",
           .help = "width in dots, instead of that of the millimetres",
           .standIn = "width"},
    Number("escapement", "angle of the line, in tenths of a degree", "0"),
    Number("orientation", "angle of the characters, in tenths of a degree", "0"),
    Number("weight", "weight, 400 normal, 700 bold", "400"),
    Option{.name = "italic", .help = "italic"},
    Option{.name = "underline", .help = "underlined"},
    Option{.name = "strike-out", .help = "struck out"},
    Number("strike-out-type", "0 one line, 1 two lines", "0"),
    Number("char-set", "character set, 128 Japanese", "128"),
    Number("out-precision", "output precision", "0"),
    Number("clip-precision", "clipping precision", "0"),
    Number("quality", "quality", "0"),
    Number("pitch-and-family", "pitch and family", "0"),
    Color("color", "colour of the text", "#000000")};

inline constexpr std::array kStrikeOutType{
    Option{.name = "show-strike-out-type", .help = "let the user choose the strike-out type"}};

inline constexpr std::array kPlace{
    Color("back-color", "colour of the background", "#FFFFFF"),
    Number("vertical-place", "0 top, 1 centre, 2 bottom", "0"),
    Number("horizontal-place", "0 left, 1 centre, 2 right", "0")};

}  // namespace font_options

inline constexpr auto kSelectFontOptions = font_options::Joined(
    font_options::kDialog, font_options::kStrikeOutType, font_options::kFont);
inline constexpr auto kSelectFontExOptions =
    font_options::Joined(font_options::kDialog, font_options::kFont, font_options::kPlace);

inline constexpr std::string_view kSelectFontAnswer =
    R"json({"result":"confirmed","face":"...","height":3.5,"width":0,"dotsHeight":-41,)json"
    R"json("dotsWidth":0,"escapement":0,"orientation":0,"weight":400,"italic":false,)json"
    R"json("underline":false,"strikeOut":false,"strikeOutType":0,"charSet":128,)json"
    R"json("outPrecision":0,"clipPrecision":0,"quality":0,"pitchAndFamily":0,)json"
    R"json("color":"#000000"})json";
inline constexpr std::string_view kSelectFontExAnswer =
    R"json(as select-font, and "backColor":"#FFFFFF","verticalPlace":0,)json"
    R"json("horizontalPlace":0)json";

}  // namespace quorvel::cli
