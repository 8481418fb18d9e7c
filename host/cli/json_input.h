// Reading an object of JSON, with the place of everything in it.
//
//   const std::vector<JsonMember> members = ReadJsonObject(R"({"dpi": 300})", "--json");
//   members[0].name;                              // dpi
//   std::get<double>(members[0].value.content);   // 300
//   members[0].label;                             // --json:1:2: dpi
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

namespace quorvel::cli {

struct JsonMember;

/// A value as it stands there; std::monostate is null.
struct JsonValue {
  std::variant<std::monostate, bool, double, std::string, std::vector<JsonValue>,
               std::vector<JsonMember>>
      content;
};

struct JsonMember {
  std::string name;
  /// What an error calls it: "SOURCE:LINE:COLUMN: NAME". Both count from 1, columns in characters.
  std::string label;
  JsonValue value;
};

/// How deep lists and objects may lie in each other, the outermost included.
inline constexpr std::size_t kMostJsonDepth = 8;

/// How many members an object may have, about four times as many as the largest one that is known.
inline constexpr std::size_t kMostJsonMembers = 100;

/// The members of the object that `text`, UTF-8 with or without a byte order mark, is, in their
/// order; `source` is what errors call the text. Throws UsageError, with the place, for what is no
/// JSON, no UTF-8 or no object, for a name that is there twice, for the zero character, and for
/// more than the limits above.
std::vector<JsonMember> ReadJsonObject(std::string_view text, std::string_view source);

/// The value as an error tells it: itself where it is short, otherwise what it is.
std::string Described(const JsonValue& value);

}  // namespace quorvel::cli
