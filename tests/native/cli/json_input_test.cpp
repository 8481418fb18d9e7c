#include "cli/json_input.h"

#include "cli/arguments.h"

#include <gtest/gtest.h>

#include <string>
#include <variant>
#include <vector>

namespace quorvel::cli {
namespace {

std::string Refusal(std::string_view text) {
  try {
    ReadJsonObject(text, "S");
  } catch (const UsageError& error) {
    return error.what();
  }
  return "";
}

TEST(ReadJsonObject, KeepsMembersInOrderWithTheirValues) {
  const auto members = ReadJsonObject(
      "{\"text\":\"\\\"\\u8868\\n\xE8\xA1\xA8\\ud83d\\ude00\",\"number\":-1.5e1,\"yes\":true,"
      "\"nothing\":null,\"list\":[1,[2],{\"a\":3}]}",
      "S");
  ASSERT_EQ(members.size(), 5U);
  EXPECT_EQ(members[0].name, "text");
  EXPECT_EQ(std::get<std::string>(members[0].value.content), "\"表\n表\xF0\x9F\x98\x80");
  EXPECT_EQ(std::get<double>(members[1].value.content), -15);
  EXPECT_TRUE(std::get<bool>(members[2].value.content));
  EXPECT_TRUE(std::holds_alternative<std::monostate>(members[3].value.content));
  const auto& list = std::get<std::vector<JsonValue>>(members[4].value.content);
  ASSERT_EQ(list.size(), 3U);
  EXPECT_EQ(std::get<double>(std::get<std::vector<JsonValue>>(list[1].content)[0].content), 2);
  EXPECT_EQ(std::get<std::vector<JsonMember>>(list[2].content)[0].name, "a");
  EXPECT_TRUE(ReadJsonObject(" { } ", "S").empty());
}

TEST(ReadJsonObject, LabelsTellLinesAndColumnsInCharacters) {
  const auto members =
      ReadJsonObject("\xEF\xBB\xBF{\"表\":1,\"b\":12 ,\r\n  \"c\" : [\n{\"d\":true}]}", "S");
  ASSERT_EQ(members.size(), 3U);
  EXPECT_EQ(members[0].label, "S:1:2: \"表\"");
  EXPECT_EQ(members[1].label, "S:1:8: b");
  EXPECT_EQ(members[2].label, "S:2:3: c");
  const auto& list = std::get<std::vector<JsonValue>>(members[2].value.content);
  EXPECT_EQ(std::get<std::vector<JsonMember>>(list[0].content)[0].label, "S:3:2: d");
}

TEST(ReadJsonObject, RefusesWhatIsNoJson) {
  EXPECT_EQ(Refusal(""),
            "S:1:1: this is no JSON: unexpected end of input; expected '[', '{', or a literal");
  EXPECT_TRUE(Refusal("{\"a\":1").starts_with("S:1:7: this is no JSON: ")) << Refusal("{\"a\":1");
  EXPECT_TRUE(Refusal("{\n\"a\":tru}").starts_with("S:2:8: this is no JSON: "));
  EXPECT_TRUE(Refusal("{dpi:1}").starts_with("S:1:2: this is no JSON: "));
  EXPECT_TRUE(Refusal("{'dpi':1}").starts_with("S:1:2: this is no JSON: "));
  EXPECT_TRUE(Refusal("{\"a\":1,}").starts_with("S:1:8: this is no JSON: "));
  EXPECT_TRUE(Refusal("{}{}").starts_with("S:1:3: this is no JSON: "));
  EXPECT_TRUE(Refusal("{\"a\":\"\t\"}").starts_with("S:1:7: this is no JSON: "));
  EXPECT_TRUE(Refusal("{\"a\":1.}").starts_with("S:1:8: this is no JSON: "));
  EXPECT_TRUE(Refusal("{\"a\":NaN}").starts_with("S:1:6: this is no JSON: "));
  EXPECT_EQ(Refusal("{\"a\":1e999}"), "S:1:10: this is no JSON: a number is out of range");
}

TEST(ReadJsonObject, RefusesWhatIsNoUtf8WhereItStands) {
  for (const std::string bytes :
       {"\x95\x5C", "\xFF", "\xC0\x80", "\xE8\xA1", "\xED\xA0\x80", "\xF4\x90\x80\x80"}) {
    const std::string refusal = Refusal("{\"表\":\"x" + bytes + "\"}");
    EXPECT_TRUE(refusal.starts_with("S:1:8: ") || refusal.starts_with("S:1:9: ")) << refusal;
    EXPECT_NE(refusal.find("ill-formed UTF-8"), std::string::npos) << refusal;
  }
  EXPECT_NE(Refusal("{\"a\":\"\\ud800\"}").find("surrogate"), std::string::npos);
  EXPECT_EQ(Refusal({"\xFF\xFE{\0}\0", 6}), "S:1:1: this is UTF-16, UTF-8 is needed");
}

TEST(ReadJsonObject, RefusesWhatIsNoObject) {
  EXPECT_EQ(Refusal("[1]"), "S:1:1: an object {...} is needed, not a list");
  EXPECT_EQ(Refusal("5"), "S:1:1: an object {...} is needed, not 5");
  EXPECT_EQ(Refusal("\"x\""), "S:1:1: an object {...} is needed, not \"x\"");
  EXPECT_EQ(Refusal("null"), "S:1:1: an object {...} is needed, not null");
}

TEST(ReadJsonObject, RefusesANameThatIsThereTwice) {
  EXPECT_EQ(Refusal("{\"a\":1,\n\"a\":1}"), "S:2:1: \"a\" is given twice");
  EXPECT_EQ(Refusal("{\"a\":[{\"b\":1,\"b\":2}]}"), "S:1:14: \"b\" is given twice");
}

TEST(ReadJsonObject, RefusesTheZeroCharacter) {
  EXPECT_EQ(Refusal("{\"a\":\"x\\u0000y\"}"), "S:1:6: a text cannot hold the zero character");
}

TEST(ReadJsonObject, RefusesMoreThanItsLimits) {
  const auto nested = [](std::size_t depth) {
    return "{\"a\":" + std::string(depth - 1, '[') + std::string(depth - 1, ']') + "}";
  };
  EXPECT_EQ(Refusal(nested(kMostJsonDepth)), "");
  EXPECT_EQ(Refusal(nested(kMostJsonDepth + 1)), "S:1:13: lists and objects lie too deep");
  EXPECT_NE(Refusal("{\"a\":" + std::string(1'000'000, '[')), "");
  const auto wide = [](std::size_t count) {
    std::string text = "{";
    for (std::size_t i = 0; i < count; ++i) {
      text += (i > 0 ? ",\"" : "\"") + std::to_string(i) + "\":0";
    }
    return text + "}";
  };
  EXPECT_EQ(Refusal(wide(kMostJsonMembers)), "");
  EXPECT_NE(Refusal(wide(kMostJsonMembers + 1)).find("too many members"), std::string::npos);
}

TEST(ReadJsonObject, RefusalsAreOneLine) {
  for (const std::string text :
       {"{\"a\nb\":1", "{\"a\":\"x\n", "\n\n{\n", "{\"\\n\":{\"\\n\":", "{\"a\":tr\n"}) {
    EXPECT_NE(Refusal(text), "");
    EXPECT_EQ(Refusal(text).find('\n'), std::string::npos) << Refusal(text);
  }
}

}  // namespace
}  // namespace quorvel::cli
