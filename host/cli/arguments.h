// Parsing options by a table, and the help text that goes with it. All texts are UTF-8.
//
//   constexpr std::array kTable = {Option{.name = "title", .kind = OptionKind::kText}};
//   const ParsedOptions parsed = ParseOptions(kTable, arguments);   // {"--title", "題名"}
//   parsed.Text("title");                                           // "題名"
#pragma once

#include "cli/colour.h"

#include <cstddef>
#include <span>
#include <stdexcept>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

namespace quorvel::cli {

/// Bad usage of the command line. The message is one line, without a line end.
class UsageError : public std::runtime_error {
public:
  using std::runtime_error::runtime_error;
};

enum class OptionKind {
  kFlag,          // takes no value
  kText,          // any text
  kWholeNumbers,  // ints, separated by commas
  kNumbers,       // finite doubles, separated by commas
  kColour,        // one colour, as #RRGGBB
  kCounts,        // whole numbers of rows with a + between them, then an x and one of columns
  kItem,          // any text, the name of an item that is not ticked
  kTickedItem,    // the same of one that is
};

/// One row of an option table.
struct Option {
  std::string_view name = {};  // without the dashes
  OptionKind kind = OptionKind::kFlag;
  std::string_view valueName = {};  // how the help text calls the value
  std::string_view help = {};
  std::size_t fewestValues = 1;  // how many numbers the value lists, those of columns included
  std::size_t mostValues = 1;
  /// The value taken where the option is not given; empty for none, except that a text option
  /// that is not repeatable always has a value, if only the empty text.
  std::string_view defaultValue = {};
  bool isRepeatable = false;
  /// A text that stands by itself, without the name, and must be there.
  bool isOperand = false;
  /// The option that, given on the command line, makes up for this one as a member of JSON.
  std::string_view standIn = {};
};

/// The value of one given option; which alternative is held follows from the option's kind.
using OptionValue =
    std::variant<std::monostate, std::string, std::vector<int>, std::vector<double>, Colour>;

struct GivenOption {
  std::string name;
  OptionValue value;
  std::string label;  // what an error calls it: the option, or the member with its place
};

/// The options of one command line with their values. Reading a value that the table does not
/// give (an unknown name, another kind, no default) throws std::logic_error.
class ParsedOptions {
public:
  void Add(std::string_view name, OptionValue value);
  void Add(std::string_view name, OptionValue value, std::string label);
  void SetHelpWanted() { m_isHelpWanted = true; }

  bool Has(std::string_view name) const;
  /// What an error calls the option's value, or its name where none was given.
  std::string Label(std::string_view name) const;
  const std::string& Text(std::string_view name) const;
  int WholeNumber(std::string_view name) const { return WholeNumbers(name).front(); }
  const std::vector<int>& WholeNumbers(std::string_view name) const;
  double Number(std::string_view name) const { return Numbers(name).front(); }
  const std::vector<double>& Numbers(std::string_view name) const;
  const Colour& ColourValue(std::string_view name) const;

  /// Everything in the order given; values that come from defaults follow at the end.
  std::span<const GivenOption> InOrder() const { return m_given; }

  /// True when --help was met; what stands after it was not looked at.
  bool IsHelpWanted() const { return m_isHelpWanted; }

private:
  template <class VALUE>
  const VALUE& Value(std::string_view name) const;

  std::vector<GivenOption> m_given;
  bool m_isHelpWanted = false;
};

/// Parses "--name VALUE", "--name=VALUE" and flags in any order. The argument after a name is its
/// value whatever it looks like, so any text can be given. Arguments that do not begin with a dash
/// are the table's operands, in their order. "--help" is known in every table and ends the parsing.
/// Throws UsageError on anything else: an unknown option, an argument that is no option and no
/// operand, a missing or empty operand, a missing or unexpected value, a bad number or colour, a
/// second value for an option that is not repeatable.
ParsedOptions ParseOptions(std::span<const Option> table, std::span<const std::string> arguments);

/// The two halves of ParseOptions, between which more may be added: what the arguments say, and
/// what must be there or has a default.
ParsedOptions ParseGivenOptions(std::span<const Option> table,
                                std::span<const std::string> arguments);
void CompleteOptions(std::span<const Option> table, ParsedOptions& parsed);

/// The same in the elements of JSON, which are read elsewhere: so many numbers as the option takes,
/// a colour, counts. `label` is what an error calls the value.
bool IsCountRight(const Option& option, std::size_t count);
Colour ReadColourOf(std::string_view text, std::string_view label);
std::vector<int> ReadCountsOf(const Option& option, std::string_view text, std::string_view label);

/// One indented line for each option of the table and one for --help, each with its line end;
/// operands are called as their values.
std::string OptionHelp(std::span<const Option> table);

/// The table's operands and "[OPTION]...", as they follow a subcommand.
std::string UsageOf(std::span<const Option> table);

/// Two columns of text: `left` indented by two blanks and padded to `width`, then `right`.
std::string HelpLine(std::string_view left, std::size_t width, std::string_view right);

}  // namespace quorvel::cli
