#include "cli/commands.h"

#include "cli/json.h"
#include "cli/json_options.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <utility>

namespace quorvel::cli {

namespace {

using enum OptionKind;

constexpr Option kTitle = {
    .name = "title", .kind = kText, .valueName = "TEXT", .help = "title of the dialog"};
constexpr Option kComment = {
    .name = "comment", .kind = kText, .valueName = "TEXT", .help = "explanation above the field"};

constexpr std::array kInputTextOptions = {
    kTitle, kComment,
    Option{.name = "text", .kind = kText, .valueName = "TEXT", .help = "text to begin with"},
    kPosition};

constexpr std::array kInputScaleOptions = {kTitle, kComment,
                                           Option{.name = "scale",
                                                  .kind = kNumbers,
                                                  .valueName = "N",
                                                  .help = "denominator to begin with",
                                                  .defaultValue = "1"},
                                           kPosition};

constexpr std::array kInputDpiOptions = {Option{.name = "dpi",
                                                .kind = kWholeNumbers,
                                                .valueName = "N",
                                                .help = "resolution to begin with",
                                                .defaultValue = "300"},
                                         kPosition};

constexpr std::array kInputPointOptions = {
    Option{.name = "point",
           .kind = kNumbers,
           .valueName = "A,B[,C]",
           .help = "coordinates to begin with, two or three: A is shown as Y, B as X, C as Z",
           .fewestValues = 2,
           .mostValues = 3,
           .defaultValue = "0,0"},
    Option{.name = "mouse-pick", .help = "offer to pick the point in the drawing instead"},
    kPosition};

constexpr std::array kUserPaperOptions = {
    Option{.name = "name", .kind = kText, .valueName = "TEXT", .help = "name handed to the dialog"},
    Option{.name = "width",
           .kind = kWholeNumbers,
           .valueName = "N",
           .help = "width to begin with, in millimetres",
           .defaultValue = "0"},
    Option{.name = "height",
           .kind = kWholeNumbers,
           .valueName = "N",
           .help = "height to begin with, in millimetres",
           .defaultValue = "0"}};

constexpr std::string_view kItemOption = "item";
constexpr std::string_view kTickedItemOption = "ticked-item";

constexpr std::array kCheckListOptions = {kTitle,
                                          Option{.name = kItemOption,
                                                 .kind = kItem,
                                                 .valueName = "NAME",
                                                 .help = "the next item, not ticked",
                                                 .isRepeatable = true},
                                          Option{.name = kTickedItemOption,
                                                 .kind = kTickedItem,
                                                 .valueName = "NAME",
                                                 .help = "the next item, ticked",
                                                 .isRepeatable = true}};

constexpr Option kColor = {.name = "color",
                           .kind = kColour,
                           .valueName = "#RRGGBB",
                           .help = "colour to begin with",
                           .defaultValue = "#000000"};
constexpr Option kKey = {
    .name = "key",
    .kind = kText,
    .valueName = "TEXT",
    .help = "registry key below HKEY_CURRENT_USER that keeps made colours; none are kept without"};

constexpr std::array kSelectColorOptions = {kColor, kKey, kPosition};

constexpr std::array kEditColorOptions = {
    kColor,
    Option{.name = kKey.name,
           .kind = kText,
           .valueName = kKey.valueName,
           .help = "registry key below HKEY_CURRENT_USER, whose environment gives the fields' font"},
    kPosition};

constexpr std::array kSelectRgbOptions = {kColor};

constexpr std::string_view kColorAnswer = R"json({"result":"confirmed","color":"#3366FF"})json";

Request BuildInputText(const ParsedOptions& options) {
  return InputTextRequest{.title = options.Text("title"),
                          .comment = options.Text("comment"),
                          .text = options.Text("text"),
                          .position = PositionOf(options)};
}

Request BuildInputScale(const ParsedOptions& options) {
  return InputScaleRequest{.title = options.Text("title"),
                           .comment = options.Text("comment"),
                           .scale = options.Number("scale"),
                           .position = PositionOf(options)};
}

Request BuildInputDpi(const ParsedOptions& options) {
  return InputDpiRequest{.dpi = options.WholeNumber("dpi"), .position = PositionOf(options)};
}

Request BuildInputPoint(const ParsedOptions& options) {
  return InputPointRequest{.point = options.Numbers("point"),
                           .allowsMousePick = options.Has("mouse-pick"),
                           .position = PositionOf(options)};
}

Request BuildUserPaper(const ParsedOptions& options) {
  return UserPaperRequest{.name = options.Text("name"),
                          .width = options.WholeNumber("width"),
                          .height = options.WholeNumber("height")};
}

Request BuildCheckList(const ParsedOptions& options) {
  CheckListRequest request{.title = options.Text("title"), .items = {}};
  for (const GivenOption& given : options.InOrder()) {
    if (given.name == kItemOption || given.name == kTickedItemOption) {
      request.items.push_back({.name = std::get<std::string>(given.value),
                               .isTicked = given.name == kTickedItemOption});
    }
  }
  return request;
}

ColorArguments BuildColorArguments(const ParsedOptions& options) {
  return {.color = options.ColourValue(kColor.name),
          .key = options.Text(kKey.name),
          .position = PositionOf(options)};
}

Request BuildSelectColor(const ParsedOptions& options) {
  return SelectColorRequest{.arguments = BuildColorArguments(options)};
}

Request BuildSelectColorEx(const ParsedOptions& options) {
  return SelectColorExRequest{.arguments = BuildColorArguments(options)};
}

Request BuildEditColor(const ParsedOptions& options) {
  return EditColorRequest{.arguments = BuildColorArguments(options)};
}

Request BuildSelectRgb(const ParsedOptions& options) {
  return SelectRgbRequest{.color = options.ColourValue(kColor.name)};
}

Request BuildSelectFont(const ParsedOptions& options) {
  return ReadSelectFont(options);
}

Request BuildSelectFontEx(const ParsedOptions& options) {
  return ReadSelectFontEx(options);
}

Request BuildEditLayout(const ParsedOptions& options) {
  return ReadEditLayout(options);
}

Request BuildEditLayoutEx(const ParsedOptions& options) {
  return ReadEditLayoutEx(options);
}

Request BuildShowLayout(const ParsedOptions& options) {
  return ShowLayoutRequest{.file = options.Text("file")};
}

constexpr std::array kCommands = {
    Command{.name = "input-text",
            .summary = "ask for one line of text",
            .answer = R"json({"result":"confirmed","text":"..."})json",
            .options = kInputTextOptions,
            .build = BuildInputText},
    Command{.name = "input-scale",
            .summary = "ask for the denominator of a drawing scale",
            .answer = R"json({"result":"confirmed","scale":1000})json",
            .options = kInputScaleOptions,
            .build = BuildInputScale},
    Command{.name = "input-dpi",
            .summary = "ask for a resolution in dots per inch",
            .answer = R"json({"result":"confirmed","dpi":300})json",
            .options = kInputDpiOptions,
            .build = BuildInputDpi},
    Command{
        .name = "input-point",
        .summary = "ask for a point with two or three coordinates",
        .answer = R"json({"result":"confirmed","point":[100,200]} or {"result":"mouse-pick"})json",
        .options = kInputPointOptions,
        .build = BuildInputPoint},
    Command{.name = "user-paper",
            .summary = "ask for the name and the size of a user paper",
            .answer =
                R"json({"result":"confirmed","name":"A3(420x297)","width":420,"height":297})json"
                R"json( or {"result":"clear-all"})json",
            .options = kUserPaperOptions,
            .build = BuildUserPaper},
    Command{.name = "check-list",
            .summary = "let the user tick items",
            .answer = R"json({"result":"confirmed","items":[{"name":"...","ticked":true}]})json",
            .options = kCheckListOptions,
            .build = BuildCheckList},
    Command{.name = "select-color",
            .summary = "ask for a colour out of basic and made ones",
            .answer = kColorAnswer,
            .options = kSelectColorOptions,
            .build = BuildSelectColor},
    Command{.name = "select-color-ex",
            .summary = "ask for a colour by a palette, by its components or in a field",
            .answer = kColorAnswer,
            .options = kSelectColorOptions,
            .build = BuildSelectColorEx},
    Command{.name = "edit-color",
            .summary = "ask for a colour by its components in RGB, CMYK or HSB",
            .answer = kColorAnswer,
            .options = kEditColorOptions,
            .build = BuildEditColor},
    Command{.name = "select-rgb",
            .summary = "ask for a colour by hue, saturation and brightness or by RGB",
            .answer = kColorAnswer,
            .options = kSelectRgbOptions,
            .build = BuildSelectRgb},
    Command{.name = "select-font",
            .summary = "ask for a font with its size in millimetres",
            .answer = kSelectFontAnswer,
            .options = kSelectFontOptions,
            .build = BuildSelectFont},
    Command{.name = "select-font-ex",
            .summary = "ask for the font of a cell and the place of its text",
            .answer = kSelectFontExAnswer,
            .options = kSelectFontExOptions,
            .build = BuildSelectFontEx},
    Command{.name = "edit-layout",
            .summary = "lay out a page of cells and write it to its file",
            .answer = kEditLayoutAnswer,
            .options = kEditLayoutOptions,
            .build = BuildEditLayout},
    Command{.name = "edit-layout-ex",
            .summary = "lay out a page of header, list and footer and write it to its file",
            .answer = kEditLayoutExAnswer,
            .options = kEditLayoutExOptions,
            .build = BuildEditLayoutEx},
    Command{.name = "show-layout",
            .summary = "print the page of a layout file, of either kind",
            .answer = kShowLayoutAnswer,
            .options = kShowLayoutOptions,
            .build = BuildShowLayout,
            .opensDialog = false},
};

constexpr std::array kCommonOptions = {
    Option{.name = "json",
           .kind = kText,
           .valueName = "TEXT",
           .help = "take values from an object such as is printed, - for that on standard input"},
    Option{.name = "json-file",
           .kind = kText,
           .valueName = "FILE",
           .help = "take values from the object in a file"},
    Option{.name = "plain", .help = "print the values alone, each on a line"},
    Option{.name = "separator",
           .kind = kText,
           .valueName = "TEXT",
           .help = "with --plain, print the values in one line with this between them"}};

constexpr std::string_view kStandardInput = "-";

constexpr std::string_view kUsage = "usage: quorvel SUBCOMMAND [OPTION]...";

/// The subcommand's own options and those that all have.
std::vector<Option> AllOptions(const Command& command) {
  std::vector<Option> options(command.options.begin(), command.options.end());
  options.insert(options.end(), kCommonOptions.begin(), kCommonOptions.end());
  return options;
}

std::string CommandHelp(const Command& command) {
  std::string help = "usage: quorvel ";
  help += command.name;
  help += ' ';
  help += UsageOf(command.options);
  help += command.opensDialog ? "\n\nOpen a dialog to " : "\n\nWithout a dialog, ";
  help += command.summary;
  help += ".\n\nOptions:\n";
  help += OptionHelp(AllOptions(command));
  help += command.opensDialog ? "\nPrints, when confirmed: " : "\nPrints: ";
  help += command.answer;
  help += '\n';
  return help;
}

std::string GeneralHelp() {
  constexpr std::size_t kNameWidth = 17;  // of the longest left column, "help [SUBCOMMAND]"
  std::string help(kUsage);
  help +=
      "\n\nOpen a dialog and print what the user answered, as one line of JSON in UTF-8.\n"
      "\nSubcommands:\n";
  for (const Command& command : kCommands) {
    help += HelpLine(command.name, kNameWidth, command.summary);
  }
  help += HelpLine("help [SUBCOMMAND]", kNameWidth, "print this help or that of a subcommand");
  help += "\nOptions:\n";
  help += HelpLine("--help", kNameWidth, "print this help");
  help += HelpLine("--version", kNameWidth, "print the version");
  help +=
      "\nAn option's value follows it as --name VALUE or --name=VALUE. Texts may hold any\n"
      "character of code page 932, names of files any at all.\n"
      "\nWith --json and --json-file, members are the options' names in camel case (dotsHeight\n"
      "for --dots-height), and an answer can be fed back as it is. What is given on the command\n"
      "line wins.\n"
      "\nExit status: 0 confirmed, 1 cancelled, 2 mouse pick or clear-all, 64 bad usage,\n"
      "70 failed.\n";
  return help;
}

const Command& FindCommand(std::string_view name) {
  const auto* const found = std::ranges::find(kCommands, name, &Command::name);
  if (found == kCommands.end()) {
    throw UsageError("unknown subcommand " + JsonQuoted(name) + ", quorvel --help lists them");
  }
  return *found;
}

Message HelpMessage(std::span<const std::string> topics) {
  if (topics.size() > 1) {
    throw UsageError("unexpected argument " + JsonQuoted(topics[1]));
  }
  return {.text = topics.empty() ? GeneralHelp() : CommandHelp(FindCommand(topics.front())),
          .status = ExitStatus::kSuccess};
}

Message VersionMessage(std::span<const std::string> rest, const Inputs& inputs) {
  if (!rest.empty()) {
    throw UsageError("unexpected argument " + JsonQuoted(rest.front()));
  }
  return {.text = "quorvel " + inputs.libraryVersion + "\n", .status = ExitStatus::kSuccess};
}

/// The members that --json or --json-file gives; none without them.
std::vector<JsonMember> GivenMembers(const ParsedOptions& options, const Inputs& inputs) {
  const bool hasText = options.Has("json");
  const bool hasFile = options.Has("json-file");
  if (hasText && hasFile) {
    throw UsageError("--json and --json-file are both given");
  }
  if (hasFile) {
    const std::string& path = options.Text("json-file");
    return ReadJsonObject(inputs.file(path), JsonQuoted(path));
  }
  if (!hasText) {
    return {};
  }
  const std::string& text = options.Text("json");
  return text == kStandardInput ? ReadJsonObject(inputs.standardInput(), "standard input")
                                : ReadJsonObject(text, "--json");
}

AnswerForm ReadAnswerForm(const ParsedOptions& options) {
  AnswerForm form{.isPlain = options.Has("plain"), .separator = std::nullopt};
  if (options.Has("separator")) {
    if (!form.isPlain) {
      throw UsageError("--separator needs --plain");
    }
    form.separator = options.Text("separator");
  }
  return form;
}

/// As ReadCommandLine, for at least one argument; throws UsageError and InputError.
CommandLine Interpret(std::span<const std::string> arguments, const Inputs& inputs) {
  const std::string& first = arguments.front();
  const std::span<const std::string> rest = arguments.subspan(1);
  if (first == "--help" || first == "help") {
    return HelpMessage(rest);
  }
  if (first == "--version") {
    return VersionMessage(rest, inputs);
  }
  const Command& command = FindCommand(first);
  ParsedOptions options = ParseGivenOptions(AllOptions(command), rest);
  if (options.IsHelpWanted()) {
    return Message{.text = CommandHelp(command), .status = ExitStatus::kSuccess};
  }
  const AnswerForm form = ReadAnswerForm(options);
  AddMembers(command.options, GivenMembers(options, inputs), options);
  CompleteOptions(command.options, options);
  Request request = command.build(options);
  return Task{.request = std::move(request), .form = form, .options = std::move(options)};
}

}  // namespace

std::span<const Command> Commands() {
  return kCommands;
}

std::span<const Option> CommonOptions() {
  return kCommonOptions;
}

CommandLine ReadCommandLine(std::span<const std::string> arguments, const Inputs& inputs) {
  if (arguments.empty()) {
    return Message{.text = std::string(kUsage) + ", or quorvel --help\n",
                   .status = ExitStatus::kBadUsage};
  }
  try {
    return Interpret(arguments, inputs);
  } catch (const UsageError& error) {
    return UsageMessage(error);
  } catch (const InputError& error) {
    return Message{.text = "quorvel: " + std::string(error.what()) + "\n",
                   .status = ExitStatus::kFailed};
  }
}

Message RefusedTextMessage(std::string_view words, const ParsedOptions& options) {
  // Members of the library's structures, and the options that go there.
  constexpr std::array<std::pair<std::string_view, std::string_view>, 8> kOptionOfMember{{
      {"title", "title"},
      {"comment", "comment"},
      {"text", "text"},
      {"registry_key", "key"},
      {"face", "face"},
      {"items", "item"},
      {"insertions", "insert"},
      {"fields", "field"},
  }};
  const std::string_view member = words.substr(0, words.find(' '));
  const auto* const found =
      std::ranges::find(kOptionOfMember, member, [](const auto& pair) { return pair.first; });
  std::string text(words);
  if (found != kOptionOfMember.end()) {
    // Items that are ticked are texts of the same list.
    const bool isTicked = found->second == kItemOption && !options.Has(kItemOption);
    text = options.Label(isTicked ? kTickedItemOption : found->second) +
           std::string(words.substr(member.size()));
  }
  return UsageMessage(UsageError(text));
}

Message UsageMessage(const UsageError& error) {
  return {.text = "quorvel: " + std::string(error.what()) + "\n", .status = ExitStatus::kBadUsage};
}

}  // namespace quorvel::cli
