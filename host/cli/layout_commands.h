// The subcommands edit-layout and edit-layout-ex: their options, and what is asked for with them.
// All texts are UTF-8.
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

/// What the layout editors take in common.
struct LayoutArguments {
  std::string file;
  std::string outFile;  // where the page is written; `file` unless another was given
  std::vector<std::string> insertions;
  std::vector<int> numbers;  // none, or one for each of the insertions
  double dotsPerMm = 0;
  std::string key;  // below HKEY_CURRENT_USER, where the user's colours are kept; empty for none
  std::optional<ScreenPosition> position;
};

/// How many rows and columns a page begins with.
struct PageCounts {
  int rows = 0;
  int columns = 0;
};

struct EditLayoutRequest {
  LayoutArguments arguments;
  /// Given when the page is to be made anew instead of being read.
  std::optional<PageCounts> newPage;
  /// What the page is brought to before it is shown, each where it is given; lengths are of all
  /// rows or columns together.
  std::optional<int> rows;
  std::optional<int> columns;
  std::optional<double> width;
  std::optional<double> height;
  bool isLineMode = false;
};

inline constexpr std::size_t kBlockCount = 3;

/// The same of a page of three blocks: header, list and footer.
struct BlockCounts {
  std::array<int, kBlockCount> rows{};
  int columns = 0;
};

struct EditLayoutExRequest {
  LayoutArguments arguments;
  std::optional<BlockCounts> newPage;
  /// As above; these and the heights are empty or one for each block.
  std::vector<int> rows;
  std::optional<int> columns;
  std::optional<double> width;
  std::vector<double> heights;
  std::vector<std::string> fields;
};

/// The page of a file, of either kind, without a dialog.
struct ShowLayoutRequest {
  std::string file;
};

/// Both throw UsageError for what the dialog does not take.
EditLayoutRequest ReadEditLayout(const ParsedOptions& options);
EditLayoutExRequest ReadEditLayoutEx(const ParsedOptions& options);

namespace layout_options {

constexpr Option File(std::string_view help) {
  return {.name = "file",
          .kind = OptionKind::kText,
          .valueName = "FILE",
          .help = help,
          .isOperand = true};
}

/// So many counts, as `valueName` has them.
constexpr Option New(std::string_view valueName, std::size_t counts, std::string_view help) {
  return {.name = "new",
          .kind = OptionKind::kCounts,
          .valueName = valueName,
          .help = help,
          .fewestValues = counts,
          .mostValues = counts};
}

inline constexpr Option kOut{
    .name = "out",
    .kind = OptionKind::kText,
    .valueName = "FILE",
    .help = "file to write when confirmed instead of the one that was read"};
inline constexpr Option kInsert{.name = "insert",
                                .kind = OptionKind::kText,
                                .valueName = "NAME",
                                .help = "a name that the user can insert into cells",
                                .isRepeatable = true};
inline constexpr Option kNumber{
    .name = "number",
    .kind = OptionKind::kWholeNumbers,
    .valueName = "N",
    .help = "number of the next name's tag, less 1; for each name or for none",
    .isRepeatable = true};
inline constexpr Option kDotsPerMm{
    .name = "dots-per-mm",
    .kind = OptionKind::kNumbers,
    .valueName = "N",
    .help = "resolution of the fonts in dots, 0 for 300 dots per inch",
    .defaultValue = "0"};

/// So many numbers, one for each block where there are several.
constexpr Option Rows(std::string_view valueName, std::size_t blocks, std::string_view help) {
  return {.name = "rows",
          .kind = OptionKind::kWholeNumbers,
          .valueName = valueName,
          .help = help,
          .fewestValues = blocks,
          .mostValues = blocks,
          .standIn = "new"};
}
constexpr Option Height(std::string_view valueName, std::size_t blocks, std::string_view help) {
  return {.name = "height",
          .kind = OptionKind::kNumbers,
          .valueName = valueName,
          .help = help,
          .fewestValues = blocks,
          .mostValues = blocks,
          .standIn = "new"};
}
inline constexpr Option kColumns{.name = "columns",
                                 .kind = OptionKind::kWholeNumbers,
                                 .valueName = "N",
                                 .help = "divide the page into so many columns",
                                 .standIn = "new"};
inline constexpr Option kWidth{.name = "width",
                               .kind = OptionKind::kNumbers,
                               .valueName = "MM",
                               .help = "make all columns together so wide, in millimetres",
                               .standIn = "new"};

constexpr Option Key(std::string_view help) {
  return {.name = "key", .kind = OptionKind::kText, .valueName = "TEXT", .help = help};
}

}  // namespace layout_options

inline constexpr std::array kEditLayoutOptions{
    layout_options::File("layout file to edit, *.mtpld"),
    layout_options::kOut,
    layout_options::New("ROWSxCOLUMNS", 2,
                        "begin with a new page, FILE must not be there yet; 1 to 20 of each"),
    layout_options::Rows("N", 1, "divide the page into so many rows"),
    layout_options::kColumns,
    layout_options::kWidth,
    layout_options::Height("MM", 1, "make all rows together so high, in millimetres"),
    Option{.name = "line-mode", .help = "edit outer and inner lines instead of margin and frame"},
    layout_options::kInsert,
    layout_options::kNumber,
    layout_options::kDotsPerMm,
    layout_options::Key("registry key below HKEY_CURRENT_USER that keeps the user's colours; none "
                        "are kept without"),
    kPosition};

inline constexpr std::array kEditLayoutExOptions{
    layout_options::File("layout file to edit, *.mtpld2"),
    layout_options::kOut,
    layout_options::New("HEADER+LIST+FOOTERxCOLUMNS", kBlockCount + 1,
                        "begin with a new page, FILE must not be there yet; 1 to 5 rows in each "
                        "block, 1 to 20 columns, such as 2+1+3x6"),
    layout_options::Rows("H,L,F", kBlockCount, "divide header, list and footer into so many rows"),
    layout_options::kColumns,
    layout_options::kWidth,
    layout_options::Height("H,L,F", kBlockCount,
                           "make all rows of header, list and footer so high, in millimetres"),
    Option{.name = "field",
           .kind = OptionKind::kText,
           .valueName = "NAME",
           .help = "a data field whose values cells can show",
           .isRepeatable = true},
    layout_options::kInsert,
    layout_options::kNumber,
    layout_options::kDotsPerMm,
    layout_options::Key("registry key below HKEY_CURRENT_USER that keeps the user's colours and "
                        "switches; none are kept without"),
    kPosition};

inline constexpr std::array kShowLayoutOptions{
    layout_options::File("layout file to show, *.mtpld or *.mtpld2")};

inline constexpr std::string_view kShowLayoutAnswer =
    R"json({"result":"shown","kind":"grid",...,"blocks":[{"rows":5,"columns":4,...,)json"
    R"json("cells":[{"row":0,"column":0,"rows":1,"columns":2,"text":"...",...},...]}]})json";
inline constexpr std::string_view kEditLayoutAnswer =
    R"json({"result":"confirmed","rows":5,"columns":4,"width":180,"height":40,)json"
    R"json("file":"..."})json";
/// Header, list and footer in this order.
inline constexpr std::string_view kEditLayoutExAnswer =
    R"json({"result":"confirmed","rows":[2,1,3],"columns":6,"width":180,"height":[24,8,30],)json"
    R"json("file":"..."})json";

}  // namespace quorvel::cli
