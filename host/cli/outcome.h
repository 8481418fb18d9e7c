// How a run of the command line ends: its exit status and what it prints.
//
//   Outcome outcome = Confirmed();
//   outcome.answer.AddInteger("dpi", 300);
//   outcome.answer.ToJson();    // {"result":"confirmed","dpi":300}
//   outcome.answer.ToPlain();   // 300
#pragma once

#include "cli/json.h"

#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace quorvel::cli {

enum class ExitStatus : int {
  kSuccess = 0,  // confirmed, or a help text printed
  kCancelled = 1,
  kOtherChoice = 2,  // the user asked for a mouse pick or for clearing the user papers
  kBadUsage = 64,
  kFailed = 70,
};

inline constexpr std::string_view kResultMember = "result";
inline constexpr std::string_view kConfirmedResult = "confirmed";
inline constexpr std::string_view kCancelledResult = "cancelled";
inline constexpr std::string_view kMousePickResult = "mouse-pick";
inline constexpr std::string_view kClearAllResult = "clear-all";
inline constexpr std::string_view kShownResult = "shown";  // without a dialog

struct CheckListItem {
  std::string name;
  bool isTicked = false;
};

/// What a dialog came to, in both forms that it can be printed in: an object of JSON with the
/// result and every value by its name, and the values alone.
class Answer {
public:
  explicit Answer(std::string_view result);
  /// The two forms made elsewhere, the object with its result.
  Answer(JsonObject json, std::span<const std::string> plainValues);

  Answer& AddText(std::string_view name, std::string_view utf8);
  Answer& AddNumber(std::string_view name, double value);
  Answer& AddInteger(std::string_view name, long long value);
  Answer& AddFlag(std::string_view name, bool value);
  Answer& AddNumbers(std::string_view name, std::span<const double> values);
  /// In the plain form, each item that is ticked is a value.
  Answer& AddItems(std::string_view name, std::span<const CheckListItem> items);

  /// One line, without its end.
  std::string ToJson() const { return m_json.ToText(); }
  /// One line for each value, with its end, and blanks between the numbers of a list; or all in one
  /// line with `separator` between them. Empty where there is no value.
  std::string ToPlain(const std::optional<std::string>& separator = std::nullopt) const;

private:
  JsonObject m_json;
  std::vector<std::vector<std::string>> m_lines;
};

struct Outcome {
  ExitStatus status = ExitStatus::kFailed;
  Answer answer;
};

Outcome Confirmed();
Outcome Cancelled();
Outcome MousePick();
Outcome ClearAll();

}  // namespace quorvel::cli
