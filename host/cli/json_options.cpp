#include "cli/json_options.h"

#include "cli/json.h"
#include "cli/outcome.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>
#include <utility>

namespace quorvel::cli {

namespace {

constexpr std::string_view kItems = "items";

[[noreturn]] void Refuse(std::string_view label, std::string_view needed, const JsonValue& value) {
  throw UsageError(std::string(label) + " needs " + std::string(needed) + ", not " +
                   Described(value));
}

template <class Content>
const Content& Expect(const JsonValue& value, std::string_view label, std::string_view needed) {
  const auto* content = std::get_if<Content>(&value.content);
  if (content == nullptr) {
    Refuse(label, needed, value);
  }
  return *content;
}

template <class Number>
constexpr std::string_view kNoun = "number";
template <>
constexpr std::string_view kNoun<int> = "whole number";

template <class Number>
Number ReadNumber(const JsonValue& value, std::string_view label, std::string_view needed) {
  const double number = Expect<double>(value, label, needed);
  if constexpr (std::is_same_v<Number, int>) {
    using Limits = std::numeric_limits<int>;
    if (number != std::trunc(number)) {
      Refuse(label, needed, value);
    }
    if (number < Limits::min() || number > Limits::max()) {
      throw UsageError(std::string(label) + " goes from " + std::to_string(Limits::min()) + " to " +
                       std::to_string(Limits::max()));
    }
  }
  return static_cast<Number>(number);
}

template <class Number>
std::vector<Number> ReadNumbers(const Option& option, const JsonValue& value,
                                std::string_view label) {
  const std::string noun(kNoun<Number>);
  if (option.mostValues == 1) {
    return {ReadNumber<Number>(value, label, "a " + noun)};
  }
  std::string needed = "a list of " + std::to_string(option.fewestValues);
  if (option.mostValues != option.fewestValues) {
    needed += " to " + std::to_string(option.mostValues);
  }
  needed += " " + noun + "s";
  const auto& list = Expect<std::vector<JsonValue>>(value, label, needed);
  if (!IsCountRight(option, list.size())) {
    throw UsageError(std::string(label) + " needs " + needed + ", not " +
                     std::to_string(list.size()));
  }
  std::vector<Number> numbers;
  numbers.reserve(list.size());
  for (const JsonValue& element : list) {
    numbers.push_back(ReadNumber<Number>(element, label, needed));
  }
  return numbers;
}

const std::string& ReadText(const JsonValue& value, std::string_view label) {
  return Expect<std::string>(value, label, "a text");
}

OptionValue ReadValue(const Option& option, const JsonValue& value, std::string_view label) {
  switch (option.kind) {
    case OptionKind::kWholeNumbers:
      return ReadNumbers<int>(option, value, label);
    case OptionKind::kNumbers:
      return ReadNumbers<double>(option, value, label);
    case OptionKind::kColour:
      return ReadColourOf(Expect<std::string>(value, label, "a colour as \"#RRGGBB\""), label);
    case OptionKind::kCounts:
      return ReadCountsOf(option, ReadText(value, label), label);
    default:
      return ReadText(value, label);
  }
}

/// The values of one option, in their order.
using Values = std::vector<GivenOption>;

Values ReadOption(const Option& option, const JsonMember& member) {
  const auto given = [&](OptionValue value) {
    return GivenOption{std::string(option.name), std::move(value), member.label};
  };
  Values values;
  if (option.kind == OptionKind::kFlag) {
    if (Expect<bool>(member.value, member.label, "true or false")) {
      values.push_back(given(std::monostate()));
    }
  } else if (option.isRepeatable) {
    for (const JsonValue& element :
         Expect<std::vector<JsonValue>>(member.value, member.label, "a list")) {
      values.push_back(given(ReadValue(option, element, member.label)));
    }
  } else {
    values.push_back(given(ReadValue(option, member.value, member.label)));
    if (option.isOperand && std::get<std::string>(values.front().value).empty()) {
      throw UsageError(member.label + " must not be empty");
    }
  }
  return values;
}

const Option* FindKind(std::span<const Option> table, OptionKind kind) {
  const auto found = std::ranges::find(table, kind, &Option::kind);
  return found == table.end() ? nullptr : &*found;
}

/// An item: its name alone, or {"name": TEXT, "ticked": true or false}.
GivenOption ReadItem(const JsonValue& value, std::string_view label, const Option& item,
                     const Option& tickedItem) {
  if (const auto* name = std::get_if<std::string>(&value.content)) {
    return {std::string(item.name), *name, std::string(label)};
  }
  const auto& members = Expect<std::vector<JsonMember>>(
      value, label, R"(texts or objects {"name":TEXT,"ticked":true})");
  const std::string* name = nullptr;
  bool isTicked = false;
  for (const JsonMember& member : members) {
    if (member.name == "name") {
      name = &ReadText(member.value, member.label);
    } else if (member.name == "ticked") {
      isTicked = Expect<bool>(member.value, member.label, "true or false");
    } else {
      throw UsageError(member.label + " is no member of an item");
    }
  }
  if (name == nullptr) {
    throw UsageError(std::string(label) + " has an item without a name");
  }
  return {std::string(isTicked ? tickedItem.name : item.name), *name, std::string(label)};
}

void CheckResult(const JsonMember& member) {
  constexpr std::array kResults{kConfirmedResult, kCancelledResult, kMousePickResult,
                                kClearAllResult};
  if (std::ranges::find(kResults, ReadText(member.value, member.label)) == kResults.end()) {
    throw UsageError(member.label + " is none of an answer: " + Described(member.value));
  }
}

}  // namespace

std::string MemberName(std::string_view optionName) {
  constexpr char kToCapital = 'A' - 'a';
  std::string name;
  bool isCapital = false;
  for (const char character : optionName) {
    if (character == '-') {
      isCapital = true;
      continue;
    }
    name += isCapital ? static_cast<char>(character + kToCapital) : character;
    isCapital = false;
  }
  return name;
}

void AddMembers(std::span<const Option> table, const std::vector<JsonMember>& members,
                ParsedOptions& parsed) {
  const ParsedOptions onCommandLine = parsed;
  const auto add = [&](Values values, std::initializer_list<std::string_view> losesTo) {
    if (std::ranges::any_of(losesTo,
                            [&](std::string_view name) { return onCommandLine.Has(name); })) {
      return;
    }
    for (GivenOption& given : values) {
      parsed.Add(given.name, std::move(given.value), std::move(given.label));
    }
  };
  const Option* const item = FindKind(table, OptionKind::kItem);
  const Option* const tickedItem = FindKind(table, OptionKind::kTickedItem);
  for (const JsonMember& member : members) {
    if (member.name == kResultMember) {
      CheckResult(member);
      continue;
    }
    if (member.name == kItems && item != nullptr && tickedItem != nullptr) {
      Values values;
      for (const JsonValue& element :
           Expect<std::vector<JsonValue>>(member.value, member.label, "a list")) {
        values.push_back(ReadItem(element, member.label, *item, *tickedItem));
      }
      add(std::move(values), {item->name, tickedItem->name});
      continue;
    }
    const auto option = std::ranges::find_if(table, [&](const Option& candidate) {
      return &candidate != item && &candidate != tickedItem &&
             MemberName(candidate.name) == member.name;
    });
    if (option == table.end()) {
      throw UsageError(member.label + " is not known here, --help lists the options");
    }
    add(ReadOption(*option, member), {option->name, option->standIn});
  }
}

}  // namespace quorvel::cli
