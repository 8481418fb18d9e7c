// The place of a dialog, as several subcommands take it.
//
//   PositionOf(options);   // {50, 60} for "--position 50,60"
#pragma once

#include "cli/arguments.h"

#include <optional>

namespace quorvel::cli {

/// A point of the screen in pixels.
struct ScreenPosition {
  int x = 0;
  int y = 0;
};

inline constexpr Option kPosition = {.name = "position",
                                     .kind = OptionKind::kWholeNumbers,
                                     .valueName = "X,Y",
                                     .help = "top-left corner on the screen, in pixels",
                                     .fewestValues = 2,
                                     .mostValues = 2};

/// None where the option is not given.
inline std::optional<ScreenPosition> PositionOf(const ParsedOptions& options) {
  if (!options.Has(kPosition.name)) {
    return std::nullopt;
  }
  const std::vector<int>& position = options.WholeNumbers(kPosition.name);
  return ScreenPosition{.x = position[0], .y = position[1]};
}

}  // namespace quorvel::cli
