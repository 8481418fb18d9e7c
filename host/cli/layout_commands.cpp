#include "cli/layout_commands.h"

#include <algorithm>

namespace quorvel::cli {

namespace {

/// Of rows, and of columns, that the dialog lets the user make.
constexpr int kMostLines = 20;

std::optional<PageCounts> NewPage(const ParsedOptions& options) {
  if (!options.Has("new")) {
    return std::nullopt;
  }
  const std::vector<int>& counts = options.WholeNumbers("new");
  if (std::ranges::any_of(counts, [](int count) { return count < 1 || count > kMostLines; })) {
    throw UsageError("--new takes 1 to " + std::to_string(kMostLines) + " rows and columns");
  }
  return PageCounts{.rows = counts[0], .columns = counts[1]};
}

void CheckNumbers(const EditLayoutRequest& request) {
  if (!request.numbers.empty() && request.numbers.size() != request.insertions.size()) {
    throw UsageError("--number is needed as often as --insert, or not at all");
  }
  if (std::ranges::any_of(request.numbers, [](int number) { return number < 0; })) {
    throw UsageError("--number must not be negative");
  }
}

}  // namespace

EditLayoutRequest ReadEditLayout(const ParsedOptions& options) {
  EditLayoutRequest request{.file = options.Text("file"),
                            .outFile = options.Text("out"),
                            .newPage = NewPage(options),
                            .isLineMode = options.Has("line-mode"),
                            .insertions = {},
                            .numbers = {},
                            .dotsPerMm = options.Number("dots-per-mm"),
                            .key = options.Text("key"),
                            .position = PositionOf(options)};
  if (request.outFile.empty()) {
    request.outFile = request.file;
  }
  for (const GivenOption& given : options.InOrder()) {
    if (given.name == "insert") {
      request.insertions.push_back(std::get<std::string>(given.value));
    } else if (given.name == "number") {
      request.numbers.push_back(std::get<std::vector<int>>(given.value).front());
    }
  }
  CheckNumbers(request);
  return request;
}

}  // namespace quorvel::cli
