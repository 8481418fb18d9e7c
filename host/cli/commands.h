// The subcommands of the command line: one table, from which arguments are read into plain
// requests and help texts are made. All texts are UTF-8.
//
//   const CommandLine line = ReadCommandLine(arguments);           // {"input-dpi", "--dpi", "300"}
//   std::get<InputDpiRequest>(std::get<Task>(line).request).dpi;   // 300
//
// A new subcommand is a request type here, and in commands.cpp a function that builds it and a row
// of the table; the program then does not compile until it can run the request.
#pragma once

#include "cli/arguments.h"
#include "cli/font_commands.h"
#include "cli/layout_commands.h"
#include "cli/outcome.h"
#include "cli/position.h"

#include <functional>
#include <optional>
#include <span>
#include <stdexcept>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

namespace quorvel::cli {

/// This program's version, as the build names it.
inline constexpr std::string_view kVersion = QUORVEL_VERSION;

struct InputTextRequest {
  std::string title;
  std::string comment;
  std::string text;
  std::optional<ScreenPosition> position;
};

struct InputScaleRequest {
  std::string title;
  std::string comment;
  double scale = 1;
  std::optional<ScreenPosition> position;
};

struct InputDpiRequest {
  int dpi = 0;
  std::optional<ScreenPosition> position;
};

struct InputPointRequest {
  std::vector<double> point;  // two or three elements, in the order of the entry's array
  bool allowsMousePick = false;
  std::optional<ScreenPosition> position;
};

struct UserPaperRequest {
  std::string name;
  int width = 0;   // millimetres
  int height = 0;  // millimetres
};

struct CheckListRequest {
  std::string title;
  std::vector<CheckListItem> items;
};

/// What the colour dialogs take in common.
struct ColorArguments {
  Colour color;
  std::string key;  // below HKEY_CURRENT_USER, where made colours are kept; empty for none
  std::optional<ScreenPosition> position;
};

struct SelectColorRequest {
  ColorArguments arguments;
};

struct SelectColorExRequest {
  ColorArguments arguments;
};

struct EditColorRequest {
  ColorArguments arguments;
};

struct SelectRgbRequest {
  Colour color;
};

/// The dialog that is asked for, with everything that its entry takes.
using Request =
    std::variant<InputTextRequest, InputScaleRequest, InputDpiRequest, InputPointRequest,
                 UserPaperRequest, CheckListRequest, SelectColorRequest, SelectColorExRequest,
                 EditColorRequest, SelectRgbRequest, SelectFontRequest, SelectFontExRequest,
                 EditLayoutRequest, EditLayoutExRequest, ShowLayoutRequest>;

/// One row of the table of subcommands.
struct Command {
  std::string_view name;
  std::string_view summary;
  std::string_view answer;  // an example of what is printed when confirmed
  std::span<const Option> options;
  Request (*build)(const ParsedOptions& options);
  bool opensDialog = true;
};

std::span<const Command> Commands();

/// What to print instead of opening a dialog: to standard output when the status is kSuccess, to
/// standard error otherwise. The text has its line ends; an error is exactly one line.
struct Message {
  std::string text;
  ExitStatus status = ExitStatus::kBadUsage;
};

/// How the answer is printed.
struct AnswerForm {
  bool isPlain = false;
  std::optional<std::string> separator;  // of plain values
};

/// A dialog to open, and what becomes of its answer.
struct Task {
  Request request;
  AnswerForm form;
  ParsedOptions options;  // for what errors call them
};

using CommandLine = std::variant<Message, Task>;

/// A file or standard input that cannot be read. The message is one line, without a line end.
class InputError : public std::runtime_error {
public:
  using std::runtime_error::runtime_error;
};

/// What the command line takes from outside. --json and --json-file read in whole; both may throw
/// InputError, and those that are not given do.
struct Inputs {
  std::function<std::string()> standardInput = []() -> std::string {
    throw InputError("there is no standard input");
  };
  std::function<std::string(const std::string& path)> file =
      [](const std::string& /*path*/) -> std::string { throw InputError("there are no files"); };
  std::string libraryVersion{kVersion};  // which --version tells
};

/// The options that every subcommand has besides its own.
std::span<const Option> CommonOptions();

/// Reads the arguments that follow the program's name. Never throws for what a user typed.
CommandLine ReadCommandLine(std::span<const std::string> arguments, const Inputs& inputs = {});

/// The message for a text that the library refused in `words`, which begin with the structure's
/// member: "face has ...". Where an option or a member of JSON stands for it, the message names
/// that.
Message RefusedTextMessage(std::string_view words, const ParsedOptions& options);

/// The message for bad usage: "quorvel: " and the error's own words.
Message UsageMessage(const UsageError& error);

}  // namespace quorvel::cli
