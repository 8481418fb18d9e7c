// The values of options out of an object of JSON. Each option has a member of its name in camel
// case, "dotsHeight" for --dots-height: a text, a number, a list of them for options that take
// several or can be repeated, true or false for flags. The items of a list to tick are one member,
// "items".
//
//   ParsedOptions parsed = ParseGivenOptions(kTable, {"--title", "題名"});
//   AddMembers(kTable, ReadJsonObject(R"({"title":"x","position":[50,60]})", "--json"), parsed);
//   parsed.Text("title");               // 題名: what is on the command line wins
//   parsed.WholeNumbers("position");    // 50, 60
#pragma once

#include "cli/arguments.h"
#include "cli/json_input.h"

#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace quorvel::cli {

/// "dotsHeight" for "dots-height".
std::string MemberName(std::string_view optionName);

/// Adds what the options do not say already. A member "result", which answers have, is checked and
/// taken as said. Throws UsageError, with the place, for a member that is no option of the table
/// and for a value that its option does not take, whether or not it is used.
void AddMembers(std::span<const Option> table, const std::vector<JsonMember>& members,
                ParsedOptions& parsed);

}  // namespace quorvel::cli
