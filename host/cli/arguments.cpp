#include "cli/arguments.h"

#include "cli/json.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <optional>
#include <system_error>
#include <type_traits>
#include <utility>

namespace quorvel::cli {

namespace {

constexpr Option kHelpOption = {.name = "help", .help = "print this help"};

std::string Dashed(std::string_view name) {
  return "--" + std::string(name);
}

/// `text` read as a whole, without sign '+' or blanks; nothing if it is not a NUMBER in range.
template <class NUMBER>
std::optional<NUMBER> ReadNumber(std::string_view text) {
  NUMBER number = 0;
  const char* end = text.data() + text.size();
  const std::from_chars_result read = std::from_chars(text.data(), end, number);
  if (read.ec != std::errc() || read.ptr != end) {
    return std::nullopt;
  }
  if constexpr (std::is_floating_point_v<NUMBER>) {
    if (!std::isfinite(number)) {  // "inf" and "nan" are numbers to from_chars
      return std::nullopt;
    }
  }
  return number;
}

/// `text` read as numbers with one `separator` between them; nothing if any of them is not one.
template <class NUMBER>
std::optional<std::vector<NUMBER>> ReadList(std::string_view text, char separator) {
  std::vector<NUMBER> numbers;
  while (true) {
    const std::size_t end = text.find(separator);
    const std::optional<NUMBER> number = ReadNumber<NUMBER>(text.substr(0, end));
    if (!number) {
      return std::nullopt;
    }
    numbers.push_back(*number);
    if (end == std::string_view::npos) {
      return numbers;
    }
    text.remove_prefix(end + 1);
  }
}

/// "1+2x4" as 1, 2 and 4; nothing if it is no whole numbers.
std::optional<std::vector<int>> ReadCounts(std::string_view text) {
  const std::size_t cross = text.find('x');
  if (cross == std::string_view::npos) {
    return std::nullopt;
  }
  std::optional<std::vector<int>> counts = ReadList<int>(text.substr(0, cross), '+');
  const std::optional<int> columns = ReadNumber<int>(text.substr(cross + 1));
  if (!counts || !columns) {
    return std::nullopt;
  }
  counts->push_back(*columns);
  return counts;
}

std::string ExpectedNumbers(const Option& option) {
  const std::string noun = option.kind == OptionKind::kWholeNumbers ? "whole number" : "number";
  if (option.mostValues == 1) {
    return "a " + noun;
  }
  std::string count = std::to_string(option.fewestValues);
  if (option.mostValues != option.fewestValues) {
    count += " to " + std::to_string(option.mostValues);
  }
  return count + " " + noun + "s separated by commas";
}

template <class NUMBER>
std::vector<NUMBER> ReadNumbers(const Option& option, std::string_view text) {
  std::optional<std::vector<NUMBER>> numbers = ReadList<NUMBER>(text, ',');
  if (!numbers || !IsCountRight(option, numbers->size())) {
    throw UsageError(Dashed(option.name) + " needs " + ExpectedNumbers(option) + ", not " +
                     JsonQuoted(text));
  }
  return *std::move(numbers);
}

OptionValue ReadValue(const Option& option, std::string_view text) {
  switch (option.kind) {
    case OptionKind::kText:
    case OptionKind::kItem:
    case OptionKind::kTickedItem:
      return std::string(text);
    case OptionKind::kWholeNumbers:
      return ReadNumbers<int>(option, text);
    case OptionKind::kNumbers:
      return ReadNumbers<double>(option, text);
    case OptionKind::kColour:
      return ReadColourOf(text, Dashed(option.name));
    case OptionKind::kCounts:
      return ReadCountsOf(option, text, Dashed(option.name));
    case OptionKind::kFlag:
      break;
  }
  return std::monostate();
}

/// "--name=VALUE" taken apart; without '=' there is no value.
struct SplitArgument {
  std::string_view name;
  std::optional<std::string_view> value;
};

SplitArgument Split(std::string_view argument) {
  argument.remove_prefix(2);
  const std::size_t equals = argument.find('=');
  if (equals == std::string_view::npos) {
    return {argument, std::nullopt};
  }
  return {argument.substr(0, equals), argument.substr(equals + 1)};
}

const Option& FindOption(std::span<const Option> table, std::string_view name) {
  if (name == kHelpOption.name) {
    return kHelpOption;
  }
  const auto found = std::ranges::find(table, name, &Option::name);
  if (found == table.end() || found->isOperand) {
    throw UsageError("unknown option " + JsonQuoted(Dashed(name)) + ", --help lists them");
  }
  return *found;
}

/// Takes an argument that is no option as the next operand.
void AddOperand(std::span<const Option> table, const std::string& argument, ParsedOptions& parsed) {
  const auto next = std::ranges::find_if(table, [&parsed](const Option& option) {
    return option.isOperand && !parsed.Has(option.name);
  });
  // An option with a single dash would be a file of that name otherwise.
  if (next == table.end() || argument.starts_with('-')) {
    throw UsageError("unexpected argument " + JsonQuoted(argument));
  }
  if (argument.empty()) {
    throw UsageError(std::string(next->valueName) + " must not be empty");
  }
  parsed.Add(next->name, argument);
}

void RequireOperands(std::span<const Option> table, const ParsedOptions& parsed) {
  for (const Option& option : table) {
    if (option.isOperand && !parsed.Has(option.name)) {
      throw UsageError(std::string(option.valueName) + " is missing");
    }
  }
}

void AddDefaults(std::span<const Option> table, ParsedOptions& parsed) {
  for (const Option& option : table) {
    const bool hasDefault =
        !option.defaultValue.empty() || (option.kind == OptionKind::kText && !option.isRepeatable);
    if (hasDefault && !parsed.Has(option.name)) {
      parsed.Add(option.name, ReadValue(option, option.defaultValue));
    }
  }
}

std::string OptionUsage(const Option& option) {
  if (option.isOperand) {
    return std::string(option.valueName);
  }
  std::string usage = Dashed(option.name);
  if (!option.valueName.empty()) {
    usage += ' ';
    usage += option.valueName;
  }
  return usage;
}

std::string OptionRemark(const Option& option) {
  std::string remark(option.help);
  if (option.isRepeatable) {
    remark += " (may be repeated)";
  }
  if (!option.defaultValue.empty()) {
    remark += " (default ";
    remark += option.defaultValue;
    remark += ')';
  }
  return remark;
}

}  // namespace

bool IsCountRight(const Option& option, std::size_t count) {
  return count >= option.fewestValues && count <= option.mostValues;
}

Colour ReadColourOf(std::string_view text, std::string_view label) {
  const std::optional<Colour> colour = ReadColour(text);
  if (!colour) {
    throw UsageError(std::string(label) + " needs a colour as #RRGGBB, not " + JsonQuoted(text));
  }
  return *colour;
}

std::vector<int> ReadCountsOf(const Option& option, std::string_view text, std::string_view label) {
  std::optional<std::vector<int>> counts = ReadCounts(text);
  if (!counts || !IsCountRight(option, counts->size())) {
    throw UsageError(std::string(label) + " needs counts as " + std::string(option.valueName) +
                     ", not " + JsonQuoted(text));
  }
  return *std::move(counts);
}

void ParsedOptions::Add(std::string_view name, OptionValue value) {
  Add(name, std::move(value), Dashed(name));
}

void ParsedOptions::Add(std::string_view name, OptionValue value, std::string label) {
  m_given.push_back({std::string(name), std::move(value), std::move(label)});
}

std::string ParsedOptions::Label(std::string_view name) const {
  const auto found = std::ranges::find(m_given, name, &GivenOption::name);
  return found == m_given.end() ? Dashed(name) : found->label;
}

bool ParsedOptions::Has(std::string_view name) const {
  return std::ranges::find(m_given, name, &GivenOption::name) != m_given.end();
}

template <class VALUE>
const VALUE& ParsedOptions::Value(std::string_view name) const {
  const auto found = std::ranges::find(m_given, name, &GivenOption::name);
  const VALUE* value = found == m_given.end() ? nullptr : std::get_if<VALUE>(&found->value);
  if (value == nullptr) {
    throw std::logic_error("no such value for option " + std::string(name));
  }
  return *value;
}

const std::string& ParsedOptions::Text(std::string_view name) const {
  return Value<std::string>(name);
}

const std::vector<int>& ParsedOptions::WholeNumbers(std::string_view name) const {
  return Value<std::vector<int>>(name);
}

const std::vector<double>& ParsedOptions::Numbers(std::string_view name) const {
  return Value<std::vector<double>>(name);
}

const Colour& ParsedOptions::ColourValue(std::string_view name) const {
  return Value<Colour>(name);
}

ParsedOptions ParseGivenOptions(std::span<const Option> table,
                                std::span<const std::string> arguments) {
  ParsedOptions parsed;
  for (std::size_t i = 0; i < arguments.size(); ++i) {
    if (!arguments[i].starts_with("--")) {
      AddOperand(table, arguments[i], parsed);
      continue;
    }
    auto [name, value] = Split(arguments[i]);
    const Option& option = FindOption(table, name);
    if (option.kind == OptionKind::kFlag && value) {
      throw UsageError(Dashed(name) + " takes no value");
    }
    if (option.kind != OptionKind::kFlag && !value) {
      if (++i == arguments.size()) {
        throw UsageError(Dashed(name) + " needs a value");
      }
      value = arguments[i];
    }
    if (&option == &kHelpOption) {
      parsed.SetHelpWanted();
      return parsed;
    }
    if (!option.isRepeatable && parsed.Has(name)) {
      throw UsageError(Dashed(name) + " is given twice");
    }
    parsed.Add(name, ReadValue(option, value.value_or("")));
  }
  return parsed;
}

void CompleteOptions(std::span<const Option> table, ParsedOptions& parsed) {
  RequireOperands(table, parsed);
  AddDefaults(table, parsed);
}

ParsedOptions ParseOptions(std::span<const Option> table, std::span<const std::string> arguments) {
  ParsedOptions parsed = ParseGivenOptions(table, arguments);
  if (!parsed.IsHelpWanted()) {
    CompleteOptions(table, parsed);
  }
  return parsed;
}

std::string OptionHelp(std::span<const Option> table) {
  std::size_t width = OptionUsage(kHelpOption).size();
  for (const Option& option : table) {
    width = std::max(width, OptionUsage(option).size());
  }
  std::string help;
  for (const Option& option : table) {
    help += HelpLine(OptionUsage(option), width, OptionRemark(option));
  }
  return help + HelpLine(OptionUsage(kHelpOption), width, OptionRemark(kHelpOption));
}

std::string UsageOf(std::span<const Option> table) {
  std::string usage;
  for (const Option& option : table) {
    if (option.isOperand) {
      usage += option.valueName;
      usage += ' ';
    }
  }
  return usage + "[OPTION]...";
}

std::string HelpLine(std::string_view left, std::size_t width, std::string_view right) {
  std::string line = "  ";
  line += left;
  line.append(width - std::min(width, left.size()) + 2, ' ');
  line += right;
  return line += '\n';
}

}  // namespace quorvel::cli
