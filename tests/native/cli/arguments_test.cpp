#include "cli/arguments.h"

#include <gtest/gtest.h>

#include <array>
#include <limits>
#include <string>
#include <variant>
#include <vector>

namespace quorvel::cli {
namespace {

constexpr std::array kTable = {
    Option{.name = "title",
           .kind = OptionKind::kText,
           .valueName = "TEXT",
           .help = "title of the window"},
    Option{.name = "colour",
           .kind = OptionKind::kText,
           .valueName = "NAME",
           .help = "a colour",
           .defaultValue = "red"},
    Option{.name = "item",
           .kind = OptionKind::kText,
           .valueName = "NAME",
           .help = "an item",
           .isRepeatable = true},
    Option{.name = "count",
           .kind = OptionKind::kWholeNumbers,
           .valueName = "N",
           .help = "how many",
           .defaultValue = "3"},
    Option{.name = "scale", .kind = OptionKind::kNumbers, .valueName = "N", .help = "a scale"},
    Option{.name = "position",
           .kind = OptionKind::kWholeNumbers,
           .valueName = "X,Y",
           .help = "a place",
           .fewestValues = 2,
           .mostValues = 2},
    Option{.name = "point",
           .kind = OptionKind::kNumbers,
           .valueName = "A,B[,C]",
           .help = "a point",
           .fewestValues = 2,
           .mostValues = 3},
    Option{.name = "ink",
           .kind = OptionKind::kColour,
           .valueName = "#RRGGBB",
           .help = "what to draw in",
           .defaultValue = "#0A0B0C"},
    Option{.name = "loud", .help = "make noise"},
};

ParsedOptions Parse(const std::vector<std::string>& arguments) {
  return ParseOptions(kTable, arguments);
}

/// The message with which the arguments are refused; empty if they are not.
std::string Refusal(const std::vector<std::string>& arguments) {
  try {
    Parse(arguments);
  } catch (const UsageError& error) {
    return error.what();
  }
  return "";
}

TEST(ParseOptions, TakesAValueAfterTheNameOrAfterAnEqualsSign) {
  EXPECT_EQ(Parse({"--title", "題名"}).Text("title"), "題名");
  EXPECT_EQ(Parse({"--title=題名"}).Text("title"), "題名");
  EXPECT_EQ(Parse({"--count", "-7"}).WholeNumber("count"), -7);
  EXPECT_EQ(Parse({"--count=8"}).WholeNumber("count"), 8);
}

TEST(ParseOptions, AnyTextCanBeAValue) {
  EXPECT_EQ(Parse({"--title", ""}).Text("title"), "");
  EXPECT_EQ(Parse({"--title="}).Text("title"), "");
  EXPECT_EQ(Parse({"--title", "--help"}).Text("title"), "--help");
  EXPECT_EQ(Parse({"--title=--loud"}).Text("title"), "--loud");
  EXPECT_EQ(Parse({"--title=a=b"}).Text("title"), "a=b");
  EXPECT_EQ(Parse({"--title", "=b"}).Text("title"), "=b");
  EXPECT_EQ(Parse({"--title", "a\nb"}).Text("title"), "a\nb");
}

TEST(ParseOptions, OptionsComeInAnyOrder) {
  const ParsedOptions parsed = Parse({"--loud", "--scale=2.5", "--title", "t", "--count", "4"});
  EXPECT_TRUE(parsed.Has("loud"));
  EXPECT_EQ(parsed.Number("scale"), 2.5);
  EXPECT_EQ(parsed.Text("title"), "t");
  EXPECT_EQ(parsed.WholeNumber("count"), 4);
}

TEST(ParseOptions, WhatIsNotGivenHasItsDefaultOrIsMissing) {
  const ParsedOptions parsed = Parse({});
  EXPECT_EQ(parsed.Text("title"), "");
  EXPECT_EQ(parsed.Text("colour"), "red");
  EXPECT_EQ(parsed.WholeNumber("count"), 3);
  EXPECT_EQ(parsed.ColourValue("ink"), (Colour{10, 11, 12}));
  EXPECT_FALSE(parsed.Has("item"));
  EXPECT_FALSE(parsed.Has("scale"));
  EXPECT_FALSE(parsed.Has("position"));
  EXPECT_FALSE(parsed.Has("loud"));
  EXPECT_FALSE(parsed.IsHelpWanted());
}

TEST(ParseOptions, AGivenValueReplacesTheDefault) {
  const ParsedOptions parsed = Parse({"--colour", "blue", "--count", "4"});
  EXPECT_EQ(parsed.Text("colour"), "blue");
  EXPECT_EQ(parsed.WholeNumber("count"), 4);
  EXPECT_EQ(parsed.InOrder().size(), 4U);  // and the title and the ink
}

TEST(ParseOptions, RepeatedOptionsKeepTheirOrder) {
  const ParsedOptions parsed = Parse({"--item", "b", "--loud", "--item=a", "--item", "b"});
  std::vector<std::string> items;
  for (const GivenOption& given : parsed.InOrder()) {
    if (given.name == "item") {
      items.push_back(std::get<std::string>(given.value));
    }
  }
  EXPECT_EQ(items, (std::vector<std::string>{"b", "a", "b"}));
  EXPECT_EQ(parsed.InOrder()[1].name, "loud");
  EXPECT_TRUE(std::holds_alternative<std::monostate>(parsed.InOrder()[1].value));
}

TEST(ParseOptions, ReadsWholeNumbersOfTheWholeRange) {
  EXPECT_EQ(Parse({"--count", "2147483647"}).WholeNumber("count"), std::numeric_limits<int>::max());
  EXPECT_EQ(Parse({"--count", "-2147483648"}).WholeNumber("count"),
            std::numeric_limits<int>::min());
  EXPECT_EQ(Parse({"--position=-1,20"}).WholeNumbers("position"), (std::vector<int>{-1, 20}));
}

TEST(ParseOptions, ReadsNumbers) {
  EXPECT_EQ(Parse({"--scale", "-0.25"}).Number("scale"), -0.25);
  EXPECT_EQ(Parse({"--scale", "1e3"}).Number("scale"), 1000);
  EXPECT_EQ(Parse({"--scale", "1.7976931348623157e308"}).Number("scale"),
            std::numeric_limits<double>::max());
  EXPECT_EQ(Parse({"--point", "1.5,-2"}).Numbers("point"), (std::vector<double>{1.5, -2}));
  EXPECT_EQ(Parse({"--point", "1,2,3"}).Numbers("point"), (std::vector<double>{1, 2, 3}));
}

TEST(ParseOptions, ReadsColours) {
  EXPECT_EQ(Parse({"--ink", "#3366fF"}).ColourValue("ink"), (Colour{0x33, 0x66, 0xFF}));
  EXPECT_EQ(Parse({"--ink=#010203"}).ColourValue("ink"), (Colour{1, 2, 3}));
}

TEST(ParseOptions, HelpEndsTheParsing) {
  EXPECT_TRUE(Parse({"--help"}).IsHelpWanted());
  EXPECT_TRUE(Parse({"--title", "t", "--help", "--nonsense", "stray"}).IsHelpWanted());
}

TEST(ParseOptions, RefusesAnUnknownOption) {
  EXPECT_EQ(Refusal({"--nonsense", "1"}), R"(unknown option "--nonsense", --help lists them)");
  EXPECT_EQ(Refusal({"--nonsense=1"}), R"(unknown option "--nonsense", --help lists them)");
  EXPECT_EQ(Refusal({"--Title", "t"}), R"(unknown option "--Title", --help lists them)");
  EXPECT_EQ(Refusal({"--titl", "t"}), R"(unknown option "--titl", --help lists them)");
  EXPECT_EQ(Refusal({"--"}), R"(unknown option "--", --help lists them)");
  EXPECT_EQ(Refusal({"--=x"}), R"(unknown option "--", --help lists them)");
}

TEST(ParseOptions, RefusesAnArgumentThatIsNoOption) {
  EXPECT_EQ(Refusal({"stray"}), R"(unexpected argument "stray")");
  EXPECT_EQ(Refusal({"-t"}), R"(unexpected argument "-t")");
  EXPECT_EQ(Refusal({""}), R"(unexpected argument "")");
  EXPECT_EQ(Refusal({"--title", "t", "stray"}), R"(unexpected argument "stray")");
}

TEST(ParseOptions, RefusesAMissingOrUnexpectedValue) {
  EXPECT_EQ(Refusal({"--title"}), "--title needs a value");
  EXPECT_EQ(Refusal({"--loud", "--point"}), "--point needs a value");
  EXPECT_EQ(Refusal({"--loud=yes"}), "--loud takes no value");
  EXPECT_EQ(Refusal({"--loud="}), "--loud takes no value");
  EXPECT_EQ(Refusal({"--help=yes"}), "--help takes no value");
}

TEST(ParseOptions, RefusesASecondValueOfASingleOption) {
  EXPECT_EQ(Refusal({"--title", "a", "--title", "a"}), "--title is given twice");
  EXPECT_EQ(Refusal({"--title", "a", "--title="}), "--title is given twice");
  EXPECT_EQ(Refusal({"--loud", "--loud"}), "--loud is given twice");
}

TEST(ParseOptions, RefusesBadWholeNumbers) {
  for (const std::string text : {"", "x", "1.5", "1x", " 1", "1 ", "+1", "-", "--1", "1e2", "0x10",
                                 "2147483648", "-2147483649", "1,2", "１"}) {
    EXPECT_EQ(Refusal({"--count", text}), "--count needs a whole number, not \"" + text + "\"");
  }
}

TEST(ParseOptions, RefusesBadNumbers) {
  for (const std::string text : {"", "x", "1.5x", " 1", "1 ", "+1", "-", "0x10", "1e999", "-1e999",
                                 "1e-999", "inf", "-inf", "nan", "infinity", "1,2", "."}) {
    EXPECT_EQ(Refusal({"--scale", text}), "--scale needs a number, not \"" + text + "\"");
  }
}

TEST(ParseOptions, RefusesListsOfTheWrongLength) {
  for (const std::string text : {"", "1", "1,2,3", "1,", ",2", "1,,2", "1, 2", "1;2", "1,2,"}) {
    EXPECT_EQ(Refusal({"--position", text}),
              "--position needs 2 whole numbers separated by commas, not \"" + text + "\"");
  }
  for (const std::string text : {"1", "1,2,3,4", "1,2,x"}) {
    EXPECT_EQ(Refusal({"--point", text}),
              "--point needs 2 to 3 numbers separated by commas, not \"" + text + "\"");
  }
}

TEST(ParseOptions, RefusesBadColours) {
  for (const std::string text : {"", "red", "3366FF", "#3366F", "#3366FFF", "#3366GG", "#36F"}) {
    EXPECT_EQ(Refusal({"--ink", text}), "--ink needs a colour as #RRGGBB, not \"" + text + "\"");
  }
}

TEST(ParseOptions, MessagesStayOnOneLine) {
  EXPECT_EQ(Refusal({"--a\nb"}), R"(unknown option "--a\nb", --help lists them)");
  EXPECT_EQ(Refusal({"a\r\nb"}), R"(unexpected argument "a\r\nb")");
  EXPECT_EQ(Refusal({"--count", "1\n"}), R"(--count needs a whole number, not "1\n")");
}

constexpr std::array kOperands = {
    Option{.name = "from",
           .kind = OptionKind::kText,
           .valueName = "SOURCE",
           .help = "where from",
           .isOperand = true},
    Option{.name = "size",
           .kind = OptionKind::kCounts,
           .valueName = "AxB",
           .help = "how large",
           .fewestValues = 2,
           .mostValues = 2,
           .defaultValue = "1x2"},
    Option{.name = "to",
           .kind = OptionKind::kText,
           .valueName = "TARGET",
           .help = "where to",
           .isOperand = true},
};

std::string OperandRefusal(const std::vector<std::string>& arguments) {
  try {
    ParseOptions(kOperands, arguments);
  } catch (const UsageError& error) {
    return error.what();
  }
  return "";
}

TEST(ParseOptions, TakesOperandsInTheirOrderAmongOptions) {
  const std::vector<std::string> arguments = {"a", "--size", "7x-8", "b c"};
  const ParsedOptions parsed = ParseOptions(kOperands, arguments);
  EXPECT_EQ(parsed.Text("from"), "a");
  EXPECT_EQ(parsed.Text("to"), "b c");
  EXPECT_EQ(parsed.WholeNumbers("size"), (std::vector<int>{7, -8}));
  const std::vector<std::string> operands = {"a", "b"};
  EXPECT_EQ(ParseOptions(kOperands, operands).WholeNumbers("size"), (std::vector<int>{1, 2}));
}

TEST(ParseOptions, AsksForEveryOperandOnce) {
  EXPECT_EQ(OperandRefusal({}), "SOURCE is missing");
  EXPECT_EQ(OperandRefusal({"a"}), "TARGET is missing");
  EXPECT_EQ(OperandRefusal({"a", ""}), "TARGET must not be empty");
  EXPECT_EQ(OperandRefusal({"a", "b", "c"}), R"(unexpected argument "c")");
  EXPECT_EQ(OperandRefusal({"a", "-b"}), R"(unexpected argument "-b")");
  EXPECT_EQ(OperandRefusal({"a", "--to", "b"}), R"(unknown option "--to", --help lists them)");
  EXPECT_TRUE(ParseOptions(kOperands, std::vector<std::string>{"--help"}).IsHelpWanted());
}

TEST(ParseOptions, RefusesBadCounts) {
  for (const std::string text : {"", "1", "x", "1x", "x2", "1x2x3", "1X2",
                                 "99999999999x1", "1+2x3"}) {
    EXPECT_EQ(OperandRefusal({"a", "b", "--size", text}),
              "--size needs counts as AxB, not \"" + text + "\"");
  }
}

TEST(ParseOptions, CountsMayHaveRowsOfSeveralParts) {
  constexpr std::array kParts = {Option{.name = "size",
                                        .kind = OptionKind::kCounts,
                                        .valueName = "A+BxC",
                                        .fewestValues = 3,
                                        .mostValues = 3}};
  const std::vector<std::string> arguments = {"--size", "1+-2x30"};
  EXPECT_EQ(ParseOptions(kParts, arguments).WholeNumbers("size"), (std::vector<int>{1, -2, 30}));
  for (const std::string text : {"1x2", "1+2", "1+2+3x4", "+1x2", "1+x2", "1++2x3", "1x2+3",
                                 "1,2x3", "1+2x", "1 +2x3"}) {
    const std::vector<std::string> bad = {"--size", text};
    EXPECT_THROW(ParseOptions(kParts, bad), UsageError) << text;
  }
}

TEST(OptionHelp, CallsOperandsByTheirValues) {
  EXPECT_EQ(OptionHelp(kOperands),
            "  SOURCE      where from\n"
            "  --size AxB  how large (default 1x2)\n"
            "  TARGET      where to\n"
            "  --help      print this help\n");
  EXPECT_EQ(UsageOf(kOperands), "SOURCE TARGET [OPTION]...");
  EXPECT_EQ(UsageOf(kTable), "[OPTION]...");
}

TEST(ParsedOptions, ReadingWhatTheTableDoesNotGiveIsAnError) {
  const ParsedOptions parsed = Parse({"--loud"});
  EXPECT_THROW(parsed.Text("scale"), std::logic_error);
  EXPECT_THROW(parsed.Text("count"), std::logic_error);
  EXPECT_THROW(parsed.WholeNumber("loud"), std::logic_error);
  EXPECT_THROW(parsed.Number("count"), std::logic_error);
  EXPECT_THROW(parsed.Numbers("nonsense"), std::logic_error);
  EXPECT_THROW(parsed.ColourValue("title"), std::logic_error);
  EXPECT_THROW(parsed.Text("ink"), std::logic_error);
}

TEST(OptionHelp, HasALineForEachOptionAndForHelp) {
  EXPECT_EQ(OptionHelp(kTable),
            "  --title TEXT     title of the window\n"
            "  --colour NAME    a colour (default red)\n"
            "  --item NAME      an item (may be repeated)\n"
            "  --count N        how many (default 3)\n"
            "  --scale N        a scale\n"
            "  --position X,Y   a place\n"
            "  --point A,B[,C]  a point\n"
            "  --ink #RRGGBB    what to draw in (default #0A0B0C)\n"
            "  --loud           make noise\n"
            "  --help           print this help\n");
  EXPECT_EQ(OptionHelp({}), "  --help  print this help\n");
}

TEST(HelpLine, PadsTheLeftColumn) {
  EXPECT_EQ(HelpLine("ab", 4, "right"), "  ab    right\n");
  EXPECT_EQ(HelpLine("abcdef", 4, "right"), "  abcdef  right\n");
}

}  // namespace
}  // namespace quorvel::cli
