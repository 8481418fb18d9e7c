// Writing one-line JSON objects.
//
//   JsonObject answer;
//   answer.AddText("result", "confirmed").AddNumber("scale", 1000);
//   answer.ToText();   // {"result":"confirmed","scale":1000}
#pragma once

#include <span>
#include <string>
#include <string_view>

namespace quorvel::cli {

/// `utf8` as a JSON string with its quotes, on one line whatever it holds: quotes, backslashes,
/// control characters and U+007F, U+2028, U+2029 are escaped, all else stays UTF-8. Each part that
/// is not UTF-8 (a maximal ill-formed part, as Unicode recommends) becomes U+FFFD.
std::string JsonQuoted(std::string_view utf8);

/// The shortest JSON number that reads back as `value`; "null" for infinities and NaN.
std::string JsonNumber(double value);

/// The number that the shortest text of a float tells: 12.3F as 12.3, not 12.30000019...
double Shortest(float value);

/// A JSON object under construction. Members keep the order in which they were added; names are
/// the caller's to keep distinct.
class JsonObject {
public:
  JsonObject& AddText(std::string_view name, std::string_view utf8);
  JsonObject& AddNumber(std::string_view name, double value);
  JsonObject& AddInteger(std::string_view name, long long value);
  JsonObject& AddFlag(std::string_view name, bool value);
  JsonObject& AddNumbers(std::string_view name, std::span<const double> values);
  JsonObject& AddObject(std::string_view name, const JsonObject& object);
  JsonObject& AddObjects(std::string_view name, std::span<const JsonObject> objects);

  /// The object without any white space between its parts and without a line end.
  std::string ToText() const;

private:
  JsonObject& AddMember(std::string_view name, std::string_view json);

  std::string m_members;
};

}  // namespace quorvel::cli
