#include "cli/outcome.h"

#include <string_view>
#include <utility>

namespace quorvel::cli {

Answer::Answer(std::string_view result) {
  m_json.AddText(kResultMember, result);
}

Answer::Answer(JsonObject json, std::span<const std::string> plainValues)
    : m_json(std::move(json)) {
  for (const std::string& value : plainValues) {
    m_lines.push_back({value});
  }
}

Answer& Answer::AddText(std::string_view name, std::string_view utf8) {
  m_json.AddText(name, utf8);
  m_lines.push_back({std::string(utf8)});
  return *this;
}

Answer& Answer::AddNumber(std::string_view name, double value) {
  m_json.AddNumber(name, value);
  m_lines.push_back({JsonNumber(value)});
  return *this;
}

Answer& Answer::AddInteger(std::string_view name, long long value) {
  m_json.AddInteger(name, value);
  m_lines.push_back({std::to_string(value)});
  return *this;
}

Answer& Answer::AddFlag(std::string_view name, bool value) {
  m_json.AddFlag(name, value);
  m_lines.push_back({value ? "true" : "false"});
  return *this;
}

Answer& Answer::AddNumbers(std::string_view name, std::span<const double> values) {
  m_json.AddNumbers(name, values);
  std::vector<std::string>& line = m_lines.emplace_back();
  for (const double value : values) {
    line.push_back(JsonNumber(value));
  }
  return *this;
}

Answer& Answer::AddItems(std::string_view name, std::span<const CheckListItem> items) {
  std::vector<JsonObject> objects;
  for (const CheckListItem& item : items) {
    objects.emplace_back().AddText("name", item.name).AddFlag("ticked", item.isTicked);
    if (item.isTicked) {
      m_lines.push_back({item.name});
    }
  }
  m_json.AddObjects(name, objects);
  return *this;
}

std::string Answer::ToPlain(const std::optional<std::string>& separator) const {
  constexpr std::string_view kLineEnd = "\n";
  std::string plain;
  std::string_view before;
  for (const std::vector<std::string>& line : m_lines) {
    for (const std::string& value : line) {
      plain += before;
      plain += value;
      before = separator ? std::string_view(*separator) : " ";
    }
    before = separator ? std::string_view(*separator) : kLineEnd;
  }
  return m_lines.empty() ? plain : plain += kLineEnd;
}

Outcome Confirmed() {
  return {.status = ExitStatus::kSuccess, .answer = Answer(kConfirmedResult)};
}
Outcome Cancelled() {
  return {.status = ExitStatus::kCancelled, .answer = Answer(kCancelledResult)};
}
Outcome MousePick() {
  return {.status = ExitStatus::kOtherChoice, .answer = Answer(kMousePickResult)};
}
Outcome ClearAll() {
  return {.status = ExitStatus::kOtherChoice, .answer = Answer(kClearAllResult)};
}

}  // namespace quorvel::cli
