#include "cli/layout_commands.h"

#include <algorithm>
#include <span>

namespace quorvel::cli {

namespace {

// Of rows, and of columns, that the dialogs let the user make.
constexpr int kMostLines = 20;
constexpr int kMostBlockRows = 5;

bool AreAllWithin(std::span<const int> counts, int most) {
  return std::ranges::all_of(counts, [most](int count) { return count >= 1 && count <= most; });
}

std::optional<PageCounts> NewPage(const ParsedOptions& options) {
  if (!options.Has("new")) {
    return std::nullopt;
  }
  const std::vector<int>& counts = options.WholeNumbers("new");
  if (!AreAllWithin(counts, kMostLines)) {
    throw UsageError(options.Label("new") + " takes 1 to " + std::to_string(kMostLines) +
                     " rows and columns");
  }
  return PageCounts{.rows = counts[0], .columns = counts[1]};
}

std::optional<BlockCounts> NewBlocks(const ParsedOptions& options) {
  if (!options.Has("new")) {
    return std::nullopt;
  }
  const std::vector<int>& counts = options.WholeNumbers("new");
  const std::span<const int> rows(counts.data(), kBlockCount);
  if (!AreAllWithin(rows, kMostBlockRows) || !AreAllWithin({&counts.back(), 1}, kMostLines)) {
    throw UsageError(options.Label("new") + " takes 1 to " + std::to_string(kMostBlockRows) +
                     " rows in each block and 1 to " + std::to_string(kMostLines) + " columns");
  }
  BlockCounts blocks{.rows = {}, .columns = counts.back()};
  std::ranges::copy(rows, blocks.rows.begin());
  return blocks;
}

/// The most that a block of a page can have of either.
constexpr int kMostOfAPage = 255;

/// The whole numbers of an option; none where it is not given.
std::vector<int> GivenCounts(const ParsedOptions& options, std::string_view name) {
  if (!options.Has(name)) {
    return {};
  }
  const std::vector<int>& counts = options.WholeNumbers(name);
  if (!AreAllWithin(counts, kMostOfAPage)) {
    throw UsageError(options.Label(name) + " goes from 1 to " + std::to_string(kMostOfAPage));
  }
  return counts;
}

std::vector<double> GivenLengths(const ParsedOptions& options, std::string_view name) {
  if (!options.Has(name)) {
    return {};
  }
  const std::vector<double>& lengths = options.Numbers(name);
  if (!std::ranges::all_of(lengths, [](double length) { return length > 0; })) {
    throw UsageError(options.Label(name) + " must be above 0");
  }
  return lengths;
}

template <class Number>
std::optional<Number> FirstOf(const std::vector<Number>& numbers) {
  return numbers.empty() ? std::nullopt : std::optional(numbers.front());
}

void CheckNumbers(const ParsedOptions& options, const LayoutArguments& arguments) {
  const std::string label = options.Label(layout_options::kNumber.name);
  if (!arguments.numbers.empty() && arguments.numbers.size() != arguments.insertions.size()) {
    throw UsageError(label + " is needed as often as " +
                     options.Label(layout_options::kInsert.name) + ", or not at all");
  }
  if (std::ranges::any_of(arguments.numbers, [](int number) { return number < 0; })) {
    throw UsageError(label + " must not be negative");
  }
}

/// Every text that was given for a repeatable option.
std::vector<std::string> AllTexts(const ParsedOptions& options, std::string_view name) {
  std::vector<std::string> texts;
  for (const GivenOption& given : options.InOrder()) {
    if (given.name == name) {
      texts.push_back(std::get<std::string>(given.value));
    }
  }
  return texts;
}

LayoutArguments CommonArguments(const ParsedOptions& options) {
  LayoutArguments arguments{.file = options.Text("file"),
                            .outFile = options.Text("out"),
                            .insertions = AllTexts(options, layout_options::kInsert.name),
                            .numbers = {},
                            .dotsPerMm = options.Number(layout_options::kDotsPerMm.name),
                            .key = options.Text("key"),
                            .position = PositionOf(options)};
  if (arguments.outFile.empty()) {
    arguments.outFile = arguments.file;
  }
  for (const GivenOption& given : options.InOrder()) {
    if (given.name == layout_options::kNumber.name) {
      arguments.numbers.push_back(std::get<std::vector<int>>(given.value).front());
    }
  }
  CheckNumbers(options, arguments);
  return arguments;
}

}  // namespace

EditLayoutRequest ReadEditLayout(const ParsedOptions& options) {
  return {.arguments = CommonArguments(options),
          .newPage = NewPage(options),
          .rows = FirstOf(GivenCounts(options, "rows")),
          .columns = FirstOf(GivenCounts(options, "columns")),
          .width = FirstOf(GivenLengths(options, "width")),
          .height = FirstOf(GivenLengths(options, "height")),
          .isLineMode = options.Has("line-mode")};
}

EditLayoutExRequest ReadEditLayoutEx(const ParsedOptions& options) {
  return {.arguments = CommonArguments(options),
          .newPage = NewBlocks(options),
          .rows = GivenCounts(options, "rows"),
          .columns = FirstOf(GivenCounts(options, "columns")),
          .width = FirstOf(GivenLengths(options, "width")),
          .heights = GivenLengths(options, "height"),
          .fields = AllTexts(options, "field")};
}

}  // namespace quorvel::cli
