#include "cli/commands.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

namespace quorvel::cli {
namespace {

using Arguments = std::vector<std::string>;

/// The request that the arguments ask for; a default one and a failed test if they ask for none.
template <class REQUEST>
REQUEST Read(const Arguments& arguments) {
  const CommandLine line = ReadCommandLine(arguments);
  if (const auto* message = std::get_if<Message>(&line)) {
    ADD_FAILURE() << message->text;
    return {};
  }
  const auto* request = std::get_if<REQUEST>(&std::get<Task>(line).request);
  if (request == nullptr) {
    ADD_FAILURE() << "another subcommand's request";
    return {};
  }
  return *request;
}

Message ReadMessage(const Arguments& arguments) {
  const CommandLine line = ReadCommandLine(arguments);
  const auto* message = std::get_if<Message>(&line);
  if (message == nullptr) {
    ADD_FAILURE() << "a request instead of a message";
    return {};
  }
  return *message;
}

void ExpectHelp(const Arguments& arguments, const std::string& text) {
  const Message message = ReadMessage(arguments);
  EXPECT_EQ(message.status, ExitStatus::kSuccess);
  EXPECT_EQ(message.text, text);
}

void ExpectBadUsage(const Arguments& arguments, const std::string& line) {
  const Message message = ReadMessage(arguments);
  EXPECT_EQ(message.status, ExitStatus::kBadUsage);
  EXPECT_EQ(message.text, line + "\n");
  EXPECT_EQ(std::ranges::count(message.text, '\n'), 1) << message.text;
}

void ExpectPosition(const std::optional<ScreenPosition>& position, int x, int y) {
  ASSERT_TRUE(position.has_value());
  EXPECT_EQ(position->x, x);
  EXPECT_EQ(position->y, y);
}

TEST(Commands, InputTextTakesItsOptions) {
  const auto request = Read<InputTextRequest>({"input-text", "--title", "題名", "--comment", "説明",
                                               "--text", "表ソ能\"\\", "--position", "-10,20"});
  EXPECT_EQ(request.title, "題名");
  EXPECT_EQ(request.comment, "説明");
  EXPECT_EQ(request.text, "表ソ能\"\\");
  ExpectPosition(request.position, -10, 20);
}

TEST(Commands, InputTextWithoutOptionsIsEmpty) {
  const auto request = Read<InputTextRequest>({"input-text"});
  EXPECT_EQ(request.title, "");
  EXPECT_EQ(request.comment, "");
  EXPECT_EQ(request.text, "");
  EXPECT_FALSE(request.position.has_value());
}

TEST(Commands, InputScaleTakesItsOptions) {
  const auto request = Read<InputScaleRequest>(
      {"input-scale", "--title=t", "--comment=c", "--scale=12.5", "--position=1,2"});
  EXPECT_EQ(request.title, "t");
  EXPECT_EQ(request.comment, "c");
  EXPECT_EQ(request.scale, 12.5);
  ExpectPosition(request.position, 1, 2);
}

TEST(Commands, InputScaleBeginsWithOne) {
  const auto request = Read<InputScaleRequest>({"input-scale"});
  EXPECT_EQ(request.title, "");
  EXPECT_EQ(request.comment, "");
  EXPECT_EQ(request.scale, 1);
  EXPECT_FALSE(request.position.has_value());
}

TEST(Commands, InputDpiTakesItsOptions) {
  const auto request = Read<InputDpiRequest>({"input-dpi", "--dpi", "-72", "--position", "3,4"});
  EXPECT_EQ(request.dpi, -72);
  ExpectPosition(request.position, 3, 4);
}

TEST(Commands, InputDpiBeginsWithThreeHundred) {
  const auto request = Read<InputDpiRequest>({"input-dpi"});
  EXPECT_EQ(request.dpi, 300);
  EXPECT_FALSE(request.position.has_value());
}

TEST(Commands, InputPointTakesTwoCoordinates) {
  const auto request = Read<InputPointRequest>(
      {"input-point", "--point", "1.5,-2", "--mouse-pick", "--position", "5,6"});
  EXPECT_EQ(request.point, (std::vector<double>{1.5, -2}));
  EXPECT_TRUE(request.allowsMousePick);
  ExpectPosition(request.position, 5, 6);
}

TEST(Commands, InputPointTakesThreeCoordinates) {
  const auto request = Read<InputPointRequest>({"input-point", "--point", "1,2,3"});
  EXPECT_EQ(request.point, (std::vector<double>{1, 2, 3}));
  EXPECT_FALSE(request.allowsMousePick);
  EXPECT_FALSE(request.position.has_value());
}

TEST(Commands, InputPointBeginsAtTheOrigin) {
  EXPECT_EQ(Read<InputPointRequest>({"input-point"}).point, (std::vector<double>{0, 0}));
}

TEST(Commands, UserPaperTakesItsOptions) {
  const auto request =
      Read<UserPaperRequest>({"user-paper", "--name", "A3", "--width", "420", "--height", "297"});
  EXPECT_EQ(request.name, "A3");
  EXPECT_EQ(request.width, 420);
  EXPECT_EQ(request.height, 297);
}

TEST(Commands, UserPaperBeginsEmpty) {
  const auto request = Read<UserPaperRequest>({"user-paper"});
  EXPECT_EQ(request.name, "");
  EXPECT_EQ(request.width, 0);
  EXPECT_EQ(request.height, 0);
}

TEST(Commands, CheckListKeepsItsItemsInOrder) {
  const auto request = Read<CheckListRequest>({"check-list", "--item", "壁", "--title", "一覧",
                                               "--ticked-item", "窓", "--item=", "--item", "壁"});
  EXPECT_EQ(request.title, "一覧");
  ASSERT_EQ(request.items.size(), 4U);
  EXPECT_EQ(request.items[0].name, "壁");
  EXPECT_FALSE(request.items[0].isTicked);
  EXPECT_EQ(request.items[1].name, "窓");
  EXPECT_TRUE(request.items[1].isTicked);
  EXPECT_EQ(request.items[2].name, "");
  EXPECT_FALSE(request.items[2].isTicked);
  EXPECT_EQ(request.items[3].name, "壁");
  EXPECT_FALSE(request.items[3].isTicked);
}

TEST(Commands, CheckListMayBeEmpty) {
  const auto request = Read<CheckListRequest>({"check-list"});
  EXPECT_EQ(request.title, "");
  EXPECT_TRUE(request.items.empty());
}

void ExpectColorArguments(const ColorArguments& arguments) {
  EXPECT_EQ(arguments.color, (Colour{0x33, 0x66, 0xFF}));
  EXPECT_EQ(arguments.key, "Software\\Maker\\表");
  ExpectPosition(arguments.position, -7, 8);
}

void ExpectNoColorArguments(const ColorArguments& arguments) {
  EXPECT_EQ(arguments.color, (Colour{0, 0, 0}));
  EXPECT_EQ(arguments.key, "");
  EXPECT_FALSE(arguments.position.has_value());
}

TEST(Commands, SelectColorTakesItsOptions) {
  ExpectColorArguments(Read<SelectColorRequest>({"select-color", "--color", "#3366ff", "--key",
                                                 "Software\\Maker\\表", "--position", "-7,8"})
                           .arguments);
}

TEST(Commands, SelectColorExTakesItsOptions) {
  ExpectColorArguments(Read<SelectColorExRequest>({"select-color-ex", "--color=#3366FF",
                                                   "--key=Software\\Maker\\表", "--position=-7,8"})
                           .arguments);
}

TEST(Commands, EditColorTakesItsOptions) {
  ExpectColorArguments(Read<EditColorRequest>({"edit-color", "--color", "#3366fF", "--key",
                                               "Software\\Maker\\表", "--position", "-7,8"})
                           .arguments);
}

TEST(Commands, SelectRgbTakesItsColour) {
  EXPECT_EQ(Read<SelectRgbRequest>({"select-rgb", "--color", "#FE0102"}).color,
            (Colour{0xFE, 1, 2}));
}

TEST(Commands, ColourDialogsBeginWithBlackAndKeepNothing) {
  ExpectNoColorArguments(Read<SelectColorRequest>({"select-color"}).arguments);
  ExpectNoColorArguments(Read<SelectColorExRequest>({"select-color-ex"}).arguments);
  ExpectNoColorArguments(Read<EditColorRequest>({"edit-color"}).arguments);
  EXPECT_EQ(Read<SelectRgbRequest>({"select-rgb"}).color, (Colour{0, 0, 0}));
}

TEST(Commands, WithoutArgumentsTheUsageIsAnError) {
  ExpectBadUsage({}, "usage: quorvel SUBCOMMAND [OPTION]..., or quorvel --help");
}

TEST(Commands, AnUnknownSubcommandIsRefused) {
  ExpectBadUsage({"input"}, R"(quorvel: unknown subcommand "input", quorvel --help lists them)");
  ExpectBadUsage({"Input-Text"},
                 R"(quorvel: unknown subcommand "Input-Text", quorvel --help lists them)");
  ExpectBadUsage({"--title"},
                 R"(quorvel: unknown subcommand "--title", quorvel --help lists them)");
  ExpectBadUsage({"a\nb"}, R"(quorvel: unknown subcommand "a\nb", quorvel --help lists them)");
  ExpectBadUsage({""}, R"(quorvel: unknown subcommand "", quorvel --help lists them)");
}

TEST(Commands, ErrorsOfOptionsAreRefused) {
  ExpectBadUsage({"input-dpi", "--title", "t"},
                 R"(quorvel: unknown option "--title", --help lists them)");
  ExpectBadUsage({"user-paper", "--position", "1,2"},
                 R"(quorvel: unknown option "--position", --help lists them)");
  ExpectBadUsage({"check-list", "--position", "1,2"},
                 R"(quorvel: unknown option "--position", --help lists them)");
  ExpectBadUsage({"input-dpi", "--dpi"}, "quorvel: --dpi needs a value");
  ExpectBadUsage({"input-dpi", "--dpi", "x"}, R"(quorvel: --dpi needs a whole number, not "x")");
  ExpectBadUsage({"user-paper", "--width", "1.5"},
                 R"(quorvel: --width needs a whole number, not "1.5")");
  ExpectBadUsage({"user-paper", "--height", ""},
                 R"(quorvel: --height needs a whole number, not "")");
  ExpectBadUsage({"input-scale", "--scale", "nan"},
                 R"(quorvel: --scale needs a number, not "nan")");
  ExpectBadUsage({"input-point", "--point", "1"},
                 R"(quorvel: --point needs 2 to 3 numbers separated by commas, not "1")");
  ExpectBadUsage({"input-point", "--mouse-pick=1"}, "quorvel: --mouse-pick takes no value");
  ExpectBadUsage({"input-point", "--mouse-pick", "--mouse-pick"},
                 "quorvel: --mouse-pick is given twice");
  ExpectBadUsage({"check-list", "--title=a", "--title=b"}, "quorvel: --title is given twice");
  ExpectBadUsage({"select-rgb", "--position", "1,2"},
                 R"(quorvel: unknown option "--position", --help lists them)");
  ExpectBadUsage({"select-rgb", "--key", "k"},
                 R"(quorvel: unknown option "--key", --help lists them)");
  for (const std::string command : {"select-color", "select-color-ex", "edit-color", "select-rgb"}) {
    ExpectBadUsage({command, "--color", "blue"},
                   R"(quorvel: --color needs a colour as #RRGGBB, not "blue")");
    ExpectBadUsage({command, "--color"}, "quorvel: --color needs a value");
  }
  ExpectBadUsage({"input-text", "stray"}, R"(quorvel: unexpected argument "stray")");
}

TEST(Commands, EveryPositionIsChecked) {
  for (const std::string command : {"input-text", "input-scale", "input-dpi", "input-point",
                                    "select-color", "select-color-ex", "edit-color"}) {
    for (const std::string position : {"1", "1,2,3", "x,y", "1.5,2"}) {
      ExpectBadUsage({command, "--position", position},
                     "quorvel: --position needs 2 whole numbers separated by commas, not \"" +
                         position + "\"");
    }
  }
}

TEST(Commands, TheErrorOfATextIsOneLine) {
  const Message message = UsageMessage(UsageError("what is wrong"));
  EXPECT_EQ(message.status, ExitStatus::kBadUsage);
  EXPECT_EQ(message.text, "quorvel: what is wrong\n");
}

TEST(Commands, VersionIsPrinted) {
  ExpectHelp({"--version"}, "quorvel 0.1.0\n");
  Inputs inputs;
  inputs.libraryVersion = "9.8.7";
  EXPECT_EQ(std::get<Message>(ReadCommandLine(Arguments{"--version"}, inputs)).text,
            "quorvel 9.8.7\n");
  ExpectBadUsage({"--version", "x"}, R"(quorvel: unexpected argument "x")");
}

TEST(Commands, HelpListsEverySubcommand) {
  const std::string expected =
      "usage: quorvel SUBCOMMAND [OPTION]...\n"
      "\n"
      "Open a dialog and print what the user answered, as one line of JSON in UTF-8.\n"
      "\n"
      "Subcommands:\n"
      "  input-text         ask for one line of text\n"
      "  input-scale        ask for the denominator of a drawing scale\n"
      "  input-dpi          ask for a resolution in dots per inch\n"
      "  input-point        ask for a point with two or three coordinates\n"
      "  user-paper         ask for the name and the size of a user paper\n"
      "  check-list         let the user tick items\n"
      "  select-color       ask for a colour out of basic and made ones\n"
      "  select-color-ex    ask for a colour by a palette, by its components or in a field\n"
      "  edit-color         ask for a colour by its components in RGB, CMYK or HSB\n"
      "  select-rgb         ask for a colour by hue, saturation and brightness or by RGB\n"
      "  select-font        ask for a font with its size in millimetres\n"
      "  select-font-ex     ask for the font of a cell and the place of its text\n"
      "  edit-layout        lay out a page of cells and write it to its file\n"
      "  edit-layout-ex     lay out a page of header, list and footer and write it to its file\n"
      "  show-layout        print the page of a layout file, of either kind\n"
      "  help [SUBCOMMAND]  print this help or that of a subcommand\n"
      "\n"
      "Options:\n"
      "  --help             print this help\n"
      "  --version          print the version\n"
      "\n"
      "An option's value follows it as --name VALUE or --name=VALUE. Texts may hold any\n"
      "character of code page 932, names of files any at all.\n"
      "\n"
      "With --json and --json-file, members are the options' names in camel case (dotsHeight\n"
      "for --dots-height), and an answer can be fed back as it is. What is given on the command\n"
      "line wins.\n"
      "\n"
      "Exit status: 0 confirmed, 1 cancelled, 2 mouse pick or clear-all, 64 bad usage,\n"
      "70 failed.\n";
  ExpectHelp({"--help"}, expected);
  ExpectHelp({"help"}, expected);
}

TEST(Commands, HelpOfASubcommandComesFromItsTable) {
  const std::string expected =
      "usage: quorvel input-point [OPTION]...\n"
      "\n"
      "Open a dialog to ask for a point with two or three coordinates.\n"
      "\n"
      "Options:\n"
      "  --point A,B[,C]   coordinates to begin with, two or three: A is shown as Y, B as X, "
      "C as Z (default 0,0)\n"
      "  --mouse-pick      offer to pick the point in the drawing instead\n"
      "  --position X,Y    top-left corner on the screen, in pixels\n"
      "  --json TEXT       take values from an object such as is printed, - for that on standard "
      "input\n"
      "  --json-file FILE  take values from the object in a file\n"
      "  --plain           print the values alone, each on a line\n"
      "  --separator TEXT  with --plain, print the values in one line with this between them\n"
      "  --help            print this help\n"
      "\n"
      R"(Prints, when confirmed: {"result":"confirmed","point":[100,200]} or )"
      R"({"result":"mouse-pick"})"
      "\n";
  ExpectHelp({"input-point", "--help"}, expected);
  ExpectHelp({"input-point", "--point", "1,2", "--help"}, expected);
  ExpectHelp({"help", "input-point"}, expected);
  ExpectHelp({"--help", "input-point"}, expected);
}

TEST(Commands, HelpOfEverySubcommandNamesItsOptions) {
  for (const Command& command : Commands()) {
    const std::string help = ReadMessage({std::string(command.name), "--help"}).text;
    EXPECT_TRUE(help.starts_with("usage: quorvel " + std::string(command.name) + " " +
                                 UsageOf(command.options) + "\n"))
        << help;
    EXPECT_NE(help.find(command.summary), std::string::npos) << help;
    EXPECT_NE(help.find(command.answer), std::string::npos) << help;
    for (const Option& option : command.options) {
      const std::string shown = option.isOperand ? std::string(option.valueName)
                                                 : "--" + std::string(option.name);
      EXPECT_NE(help.find("  " + shown + " "), std::string::npos) << help;
      EXPECT_NE(help.find(option.help), std::string::npos) << help;
    }
    EXPECT_NE(ReadMessage({"--help"}).text.find("  " + std::string(command.name) + " "),
              std::string::npos);
  }
}

TEST(Commands, HelpOfNothingKnownIsRefused) {
  ExpectBadUsage({"help", "nonsense"},
                 R"(quorvel: unknown subcommand "nonsense", quorvel --help lists them)");
  ExpectBadUsage({"help", "input-text", "x"}, R"(quorvel: unexpected argument "x")");
}

TEST(Commands, TheTableIsSound) {
  std::vector<std::string_view> names;
  for (const Command& command : Commands()) {
    EXPECT_EQ(std::ranges::count(names, command.name), 0) << command.name;
    names.push_back(command.name);
    std::vector<std::string_view> options = {"help"};
    for (const Option& option : CommonOptions()) {
      options.push_back(option.name);
    }
    for (const Option& option : command.options) {
      EXPECT_EQ(std::ranges::count(options, option.name), 0) << command.name << option.name;
      options.push_back(option.name);
      EXPECT_FALSE(option.help.empty()) << option.name;
      EXPECT_EQ(option.valueName.empty(), option.kind == OptionKind::kFlag) << option.name;
    }
    // Builds from its operands and its defaults alone.
    Arguments arguments{std::string(command.name)};
    for (const Option& option : command.options) {
      if (option.isOperand) {
        arguments.emplace_back("x");
      }
    }
    EXPECT_TRUE(std::holds_alternative<Task>(ReadCommandLine(arguments))) << command.name;
  }
  EXPECT_EQ(names.size(), std::variant_size_v<Request>);
}

AnswerForm ReadForm(const Arguments& arguments) {
  const CommandLine line = ReadCommandLine(arguments);
  const auto* task = std::get_if<Task>(&line);
  if (task == nullptr) {
    ADD_FAILURE() << std::get<Message>(line).text;
    return {};
  }
  return task->form;
}

TEST(Commands, AnswersAreJsonUnlessPlainIsWanted) {
  EXPECT_FALSE(ReadForm({"input-dpi"}).isPlain);
  EXPECT_TRUE(ReadForm({"input-dpi", "--plain"}).isPlain);
  EXPECT_FALSE(ReadForm({"input-dpi", "--plain"}).separator.has_value());
  EXPECT_EQ(ReadForm({"input-dpi", "--separator=、", "--plain"}).separator, "、");
  EXPECT_EQ(ReadForm({"input-dpi", "--plain", "--separator="}).separator, "");
  ExpectBadUsage({"input-dpi", "--separator", ","}, "quorvel: --separator needs --plain");
}

TEST(Commands, JsonComesFromTheArgumentFromStandardInputOrFromAFile) {
  const Inputs inputs{.standardInput = [] { return R"({"dpi":2})"; },
                      .file = [](const std::string& path) { return "{\"dpi\":" + path + "}"; },
                      .libraryVersion = ""};
  const auto dpi = [&](const Arguments& arguments) {
    const CommandLine line = ReadCommandLine(arguments, inputs);
    return std::get<InputDpiRequest>(std::get<Task>(line).request).dpi;
  };
  EXPECT_EQ(dpi({"input-dpi", "--json", R"({"dpi":1})"}), 1);
  EXPECT_EQ(dpi({"input-dpi", "--json", "-"}), 2);
  EXPECT_EQ(dpi({"input-dpi", "--json-file", "3"}), 3);
  EXPECT_EQ(dpi({"input-dpi", "--json", R"({"dpi":1})", "--dpi", "4"}), 4);
  EXPECT_EQ(dpi({"input-dpi", "--dpi", "4", "--json", R"({"dpi":1})"}), 4);
  ExpectBadUsage({"input-dpi", "--json", "-", "--json-file", "3"},
                 "quorvel: --json and --json-file are both given");
}

TEST(Commands, WhatCannotBeReadIsAFailure) {
  const CommandLine line = ReadCommandLine(Arguments{"input-dpi", "--json-file", "none"});
  EXPECT_EQ(std::get<Message>(line).text, "quorvel: there are no files\n");
  EXPECT_EQ(std::get<Message>(line).status, ExitStatus::kFailed);
}

TEST(Commands, ErrorsOfJsonNameTheirSource) {
  const Inputs inputs{.standardInput = [] { return R"({"dpi":"x"})"; },
                      .file = [](const std::string& /*path*/) { return "{\n \"dpi\":true}"; },
                      .libraryVersion = ""};
  const auto error = [&](const Arguments& arguments) {
    return std::get<Message>(ReadCommandLine(arguments, inputs)).text;
  };
  EXPECT_EQ(error({"input-dpi", "--json", "{}x"}),
            "quorvel: --json:1:3: this is no JSON: invalid literal\n");
  EXPECT_EQ(error({"input-dpi", "--json", "-"}),
            "quorvel: standard input:1:2: dpi needs a whole number, not \"x\"\n");
  EXPECT_EQ(error({"input-dpi", "--json-file", "a b.json"}),
            "quorvel: \"a b.json\":2:2: dpi needs a whole number, not true\n");
}

TEST(Commands, TheExampleOfEveryAnswerCanBeFedBack) {
  for (const Command& command : Commands()) {
    if (!command.opensDialog) {
      continue;
    }
    // Its first line of JSON; that of select-font-ex refers to another.
    std::string answer(command.answer.substr(0, command.answer.find(" or ")));
    if (answer.starts_with("as select-font, and ")) {
      answer = std::string(kSelectFontAnswer.substr(0, kSelectFontAnswer.size() - 1)) + "," +
               answer.substr(std::string_view("as select-font, and ").size()) + "}";
    }
    const CommandLine line =
        ReadCommandLine(Arguments{std::string(command.name), "--json", answer});
    const auto* message = std::get_if<Message>(&line);
    EXPECT_EQ(message, nullptr) << command.name << ": " << message->text;
  }
}

TEST(Commands, ARefusedTextIsCalledAsItWasGiven) {
  const CommandLine line = ReadCommandLine(
      Arguments{"select-font", "--json", R"({"face":"x","title":"y"})", "--title", "z"});
  const ParsedOptions& options = std::get<Task>(line).options;
  EXPECT_EQ(RefusedTextMessage("face is bad", options).text, "quorvel: --json:1:2: face is bad\n");
  EXPECT_EQ(RefusedTextMessage("title is bad", options).text, "quorvel: --title is bad\n");
  EXPECT_EQ(RefusedTextMessage("registry_key is bad", options).text, "quorvel: --key is bad\n");
  EXPECT_EQ(RefusedTextMessage("all is bad", options).text, "quorvel: all is bad\n");
  const CommandLine items = ReadCommandLine(Arguments{"check-list", "--ticked-item", "x"});
  EXPECT_EQ(RefusedTextMessage("items is bad", std::get<Task>(items).options).text,
            "quorvel: --ticked-item is bad\n");
}

}  // namespace
}  // namespace quorvel::cli
