#include "cli/json_options.h"

#include <gtest/gtest.h>

#include <array>
#include <string>
#include <variant>
#include <vector>

namespace quorvel::cli {
namespace {

using enum OptionKind;

constexpr std::array kTable = {
    Option{.name = "file", .kind = kText, .valueName = "FILE", .help = "h", .isOperand = true},
    Option{.name = "some-text", .kind = kText, .valueName = "TEXT", .help = "h"},
    Option{.name = "count", .kind = kWholeNumbers, .valueName = "N", .help = "h"},
    Option{.name = "scale", .kind = kNumbers, .valueName = "N", .help = "h"},
    Option{.name = "position",
           .kind = kWholeNumbers,
           .valueName = "X,Y",
           .help = "h",
           .fewestValues = 2,
           .mostValues = 2},
    Option{.name = "point",
           .kind = kNumbers,
           .valueName = "A,B[,C]",
           .help = "h",
           .fewestValues = 2,
           .mostValues = 3},
    Option{.name = "ink", .kind = kColour, .valueName = "#RRGGBB", .help = "h"},
    Option{.name = "new",
           .kind = kCounts,
           .valueName = "ROWSxCOLUMNS",
           .help = "h",
           .fewestValues = 2,
           .mostValues = 2},
    Option{.name = "rows", .kind = kWholeNumbers, .valueName = "N", .help = "h", .standIn = "new"},
    Option{.name = "loud", .help = "h"},
    Option{.name = "name", .kind = kText, .valueName = "TEXT", .help = "h", .isRepeatable = true},
    Option{.name = "number",
           .kind = kWholeNumbers,
           .valueName = "N",
           .help = "h",
           .isRepeatable = true},
    Option{.name = "item", .kind = kItem, .valueName = "NAME", .help = "h", .isRepeatable = true},
    Option{.name = "ticked-item",
           .kind = kTickedItem,
           .valueName = "NAME",
           .help = "h",
           .isRepeatable = true},
};

ParsedOptions Parse(std::string_view json, const std::vector<std::string>& arguments = {}) {
  ParsedOptions parsed = ParseGivenOptions(kTable, arguments);
  AddMembers(kTable, ReadJsonObject(json, "S"), parsed);
  return parsed;
}

std::string Refusal(std::string_view json, const std::vector<std::string>& arguments = {}) {
  try {
    Parse(json, arguments);
  } catch (const UsageError& error) {
    return error.what();
  }
  return "";
}

/// "name=text" of all texts in their order.
std::vector<std::string> Texts(const ParsedOptions& parsed) {
  std::vector<std::string> texts;
  for (const GivenOption& given : parsed.InOrder()) {
    if (const auto* text = std::get_if<std::string>(&given.value)) {
      texts.push_back(given.name + "=" + *text);
    }
  }
  return texts;
}

TEST(MemberName, IsTheOptionsInCamelCase) {
  EXPECT_EQ(MemberName("text"), "text");
  EXPECT_EQ(MemberName("dots-height"), "dotsHeight");
  EXPECT_EQ(MemberName("show-strike-out-type"), "showStrikeOutType");
}

TEST(AddMembers, TakesEveryKindOfValue) {
  const ParsedOptions parsed =
      Parse(R"({"file":"a.b","someText":"表","count":-7,"scale":1.5,"position":[-1,2],)"
            R"("point":[1,2.5,3],"ink":"#0a0B0c","new":"3x4","loud":true,)"
            R"("name":["x",""],"number":[1,2]})");
  EXPECT_EQ(parsed.Text("file"), "a.b");
  EXPECT_EQ(parsed.Text("some-text"), "表");
  EXPECT_EQ(parsed.WholeNumber("count"), -7);
  EXPECT_EQ(parsed.Number("scale"), 1.5);
  EXPECT_EQ(parsed.WholeNumbers("position"), (std::vector{-1, 2}));
  EXPECT_EQ(parsed.Numbers("point"), (std::vector<double>{1, 2.5, 3}));
  EXPECT_EQ(parsed.ColourValue("ink"), (Colour{0x0A, 0x0B, 0x0C}));
  EXPECT_EQ(parsed.WholeNumbers("new"), (std::vector{3, 4}));
  EXPECT_TRUE(parsed.Has("loud"));
  EXPECT_EQ(Texts(parsed),
            (std::vector<std::string>{"file=a.b", "some-text=表", "name=x", "name="}));
  EXPECT_FALSE(Parse(R"({"loud":false})").Has("loud"));
}

TEST(AddMembers, WholeNumbersMayBeWrittenWithPoints) {
  EXPECT_EQ(Parse(R"({"count":300.0})").WholeNumber("count"), 300);
  EXPECT_EQ(Parse(R"({"count":3e2})").WholeNumber("count"), 300);
  EXPECT_EQ(Parse(R"({"count":-2147483648})").WholeNumber("count"), -2147483647 - 1);
}

TEST(AddMembers, ItemsAreNamesOrObjects) {
  const ParsedOptions parsed =
      Parse(R"({"items":["壁",{"name":"窓","ticked":true},{"ticked":false,"name":""}]})");
  EXPECT_EQ(Texts(parsed), (std::vector<std::string>{"item=壁", "ticked-item=窓", "item="}));
}

TEST(AddMembers, WhatIsOnTheCommandLineWins) {
  EXPECT_EQ(Parse(R"({"count":1})", {"--count", "2"}).WholeNumber("count"), 2);
  EXPECT_EQ(Parse(R"({"file":"a"})", {"b"}).Text("file"), "b");
  EXPECT_EQ(Texts(Parse(R"({"name":["a","b"]})", {"--name", "c"})),
            (std::vector<std::string>{"name=c"}));
  EXPECT_EQ(Texts(Parse(R"({"items":["a"]})", {"--ticked-item", "c"})),
            (std::vector<std::string>{"ticked-item=c"}));
  EXPECT_FALSE(Parse(R"({"rows":1})", {"--new", "2x2"}).Has("rows"));
  EXPECT_TRUE(Parse(R"({"rows":1,"new":"2x2"})").Has("rows"));
  // Also what is not used must be right.
  EXPECT_EQ(Refusal(R"({"count":"x"})", {"--count", "2"}),
            R"(S:1:2: count needs a whole number, not "x")");
}

TEST(AddMembers, TheResultOfAnAnswerIsTakenAsSaid) {
  for (const std::string result : {"confirmed", "cancelled", "mouse-pick", "clear-all"}) {
    EXPECT_TRUE(Parse("{\"result\":\"" + result + "\"}").InOrder().empty());
  }
  EXPECT_EQ(Refusal(R"({"result":"done"})"), R"(S:1:2: result is none of an answer: "done")");
  EXPECT_EQ(Refusal(R"({"result":1})"), "S:1:2: result needs a text, not 1");
}

TEST(AddMembers, RefusesMembersThatAreNoOptions) {
  for (const std::string name :
       {"Count", "some-text", "item", "tickedItem", "json", "plain", "help"}) {
    EXPECT_NE(Refusal("{\"" + name + "\":1}").find("is not known here"), std::string::npos) << name;
  }
  EXPECT_EQ(Refusal(R"({"count":1, "depth":2})"),
            "S:1:13: depth is not known here, --help lists the options");
}

TEST(AddMembers, RefusesValuesOfAnotherType) {
  EXPECT_EQ(Refusal(R"({"someText":5})"), "S:1:2: someText needs a text, not 5");
  EXPECT_EQ(Refusal(R"({"someText":null})"), "S:1:2: someText needs a text, not null");
  EXPECT_EQ(Refusal(R"({"count":1.5})"), "S:1:2: count needs a whole number, not 1.5");
  EXPECT_EQ(Refusal(R"({"count":2147483648})"), "S:1:2: count goes from -2147483648 to 2147483647");
  EXPECT_EQ(Refusal(R"({"count":[1]})"), "S:1:2: count needs a whole number, not a list");
  EXPECT_EQ(Refusal(R"({"scale":{}})"), "S:1:2: scale needs a number, not an object");
  EXPECT_EQ(Refusal(R"({"position":"1,2"})"),
            R"(S:1:2: position needs a list of 2 whole numbers, not "1,2")");
  EXPECT_EQ(Refusal(R"({"position":[1]})"),
            "S:1:2: position needs a list of 2 whole numbers, not 1");
  EXPECT_EQ(Refusal(R"({"point":[1,2,3,4]})"),
            "S:1:2: point needs a list of 2 to 3 numbers, not 4");
  EXPECT_EQ(Refusal(R"({"point":[1,true]})"),
            "S:1:2: point needs a list of 2 to 3 numbers, not true");
  EXPECT_EQ(Refusal(R"({"ink":"red"})"), R"(S:1:2: ink needs a colour as #RRGGBB, not "red")");
  EXPECT_EQ(Refusal(R"({"ink":255})"), R"(S:1:2: ink needs a colour as "#RRGGBB", not 255)");
  EXPECT_EQ(Refusal(R"({"new":"3"})"), R"(S:1:2: new needs counts as ROWSxCOLUMNS, not "3")");
  EXPECT_EQ(Refusal(R"({"loud":1})"), "S:1:2: loud needs true or false, not 1");
  EXPECT_EQ(Refusal(R"({"name":"x"})"), R"(S:1:2: name needs a list, not "x")");
  EXPECT_EQ(Refusal(R"({"name":["x",1]})"), "S:1:2: name needs a text, not 1");
  EXPECT_EQ(Refusal(R"({"number":[1,"2"]})"), R"(S:1:2: number needs a whole number, not "2")");
  EXPECT_EQ(Refusal(R"({"file":""})"), "S:1:2: file must not be empty");
  EXPECT_EQ(Refusal(R"({"someText":)" + std::string(R"(")") + std::string(100, 'x') + R"("})"), "");
  EXPECT_EQ(Refusal(R"({"count":")" + std::string(100, 'x') + R"("})"),
            "S:1:2: count needs a whole number, not a text");
}

TEST(AddMembers, RefusesItemsThatAreNone) {
  EXPECT_EQ(Refusal(R"({"items":"x"})"), R"(S:1:2: items needs a list, not "x")");
  EXPECT_EQ(Refusal(R"({"items":[1]})"),
            R"(S:1:2: items needs texts or objects {"name":TEXT,"ticked":true}, not 1)");
  EXPECT_EQ(Refusal(R"({"items":[{"ticked":true}]})"), "S:1:2: items has an item without a name");
  EXPECT_EQ(Refusal(R"({"items":[{"name":"x","tick":1}]})"),
            "S:1:23: tick is no member of an item");
  EXPECT_EQ(Refusal(R"({"items":[{"name":"x","ticked":1}]})"),
            "S:1:23: ticked needs true or false, not 1");
}

}  // namespace
}  // namespace quorvel::cli
