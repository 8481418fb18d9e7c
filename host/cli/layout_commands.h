// The subcommand edit-layout: its options, and what is asked for with them. All texts are UTF-8.
//
//   const EditLayoutRequest request = ReadEditLayout(options);   // "枠.mtpld", "--new", "3x4"
//   request.newPage->rows;                                       // 3
#pragma once

#include "cli/arguments.h"
#include "cli/position.h"

#include <array>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace quorvel::cli {

/// How many rows and columns a page begins with.
struct PageCounts {
  int rows = 0;
  int columns = 0;
};

struct EditLayoutRequest {
  std::string file;
  std::string outFile;  // where the page is written; `file` unless another was given
  /// Given when the page is to be made anew instead of being read.
  std::optional<PageCounts> newPage;
  bool isLineMode = false;
  std::vector<std::string> insertions;
  std::vector<int> numbers;  // none, or one for each of the insertions
  double dotsPerMm = 0;
  std::string key;  // below HKEY_CURRENT_USER, where the user's colours are kept; empty for none
  std::optional<ScreenPosition> position;
};

/// Throws UsageError for what the dialog does not take.
EditLayoutRequest ReadEditLayout(const ParsedOptions& options);

inline constexpr std::array kEditLayoutOptions{
    Option{.name = "file",
           .kind = OptionKind::kText,
           .valueName = "FILE",
           .help = "layout file to edit, *.mtpld",
           .isOperand = true},
    Option{.name = "out",
           .kind = OptionKind::kText,
           .valueName = "FILE",
           .help = "file to write when confirmed instead of the one that was read"},
    Option{.name = "new",
           .kind = OptionKind::kCounts,
           .valueName = "ROWSxCOLUMNS",
           .help = "begin with a new page, FILE must not be there yet; 1 to 20 of each"},
    Option{.name = "line-mode", .help = "edit outer and inner lines instead of margin and frame"},
    Option{.name = "insert",
           .kind = OptionKind::kText,
           .valueName = "NAME",
           .help = "a name that the user can insert into cells",
           .isRepeatable = true},
    Option{.name = "number",
           .kind = OptionKind::kWholeNumbers,
           .valueName = "N",
           .help = "number of the next name's tag, less 1; for each name or for none",
           .isRepeatable = true},
    Option{.name = "dots-per-mm",
           .kind = OptionKind::kNumbers,
           .valueName = "N",
           .help = "resolution of the fonts in dots, 0 for 300 dots per inch",
           .defaultValue = "0"},
    Option{.name = "key",
           .kind = OptionKind::kText,
           .valueName = "TEXT",
           .help = "registry key below HKEY_CURRENT_USER that keeps the user's colours; none are "
                   "kept without"},
    kPosition};

inline constexpr std::string_view kEditLayoutAnswer =
    R"json({"result":"confirmed","rows":5,"columns":4,"width":180,"height":40,)json"
    R"json("file":"..."})json";

}  // namespace quorvel::cli
