#include "kivdata/field_macro.h"

#include <array>
#include <charconv>
#include <cstddef>
#include <utility>

namespace quorvel {

namespace {

// What stands between the values, in this order.
constexpr std::string_view kType = "<F type=";
constexpr std::string_view kTypeText = " ";
constexpr std::string_view kField = " field=";
constexpr std::string_view kFind = " find";
constexpr std::string_view kRef = " ref=";
constexpr std::string_view kDecimals = " decimals=";
constexpr std::string_view kFixed = " fixed=";
constexpr std::string_view kGrouped = " grouped=";
constexpr std::string_view kEnd = ">";

/// Neither half of a two-byte character of code page 932 can be this byte.
constexpr char kQuote = '"';

/// How the find types 0 to 5 are written; any other is kNumbered and its number.
constexpr std::array<std::string_view, 6> kComparisons{"=", "<>", ">", ">=", "<", "<="};
constexpr char kNumbered = '#';

void AppendQuoted(std::string& text, std::string_view value) {
  text += kQuote;
  for (const char byte : value) {
    text += byte;
    if (byte == kQuote) {
      text += kQuote;
    }
  }
  text += kQuote;
}

void AppendComparison(std::string& text, unsigned char findType) {
  if (findType < kComparisons.size()) {
    text += kComparisons.at(findType);
  } else {
    text += kNumbered;
    text += std::to_string(findType);
  }
}

/// Takes a text to pieces from its beginning. Each function reads what it is named after and says
/// whether it was there; after a failure the rest of the text means nothing.
class Reader {
public:
  explicit Reader(std::string_view text) : m_rest(text) {}

  bool AtEnd() const { return m_rest.empty(); }

  bool Skip(std::string_view expected) {
    if (!m_rest.starts_with(expected)) {
      return false;
    }
    m_rest.remove_prefix(expected.size());
    return true;
  }

  /// A number in its one accepted spelling, that in which it is written. `number` has to be 0.
  template <class Number>
  bool ReadNumber(Number& number) {
    // Out of range or no number: stays 0. Other digits, as in 007, are left for what comes next,
    // which never begins with a digit.
    std::from_chars(m_rest.data(), m_rest.data() + m_rest.size(), number);
    return Skip(std::to_string(number));
  }

  bool ReadQuoted(std::string& value) {
    if (!Skip({&kQuote, 1})) {
      return false;
    }
    while (true) {
      const std::size_t quote = m_rest.find(kQuote);
      if (quote == std::string_view::npos) {
        return false;
      }
      value += m_rest.substr(0, quote);
      m_rest.remove_prefix(quote + 1);
      if (!Skip({&kQuote, 1})) {
        return true;
      }
      value += kQuote;
    }
  }

  /// A comparison, which ends where the quoted value begins.
  bool ReadComparison(unsigned char& findType) {
    if (Skip({&kNumbered, 1})) {
      return ReadNumber(findType) && findType >= kComparisons.size();
    }
    const std::string_view comparison = m_rest.substr(0, m_rest.find(kQuote));
    for (std::size_t i = 0; i < kComparisons.size(); ++i) {
      if (comparison == kComparisons.at(i)) {
        findType = static_cast<unsigned char>(i);
        return Skip(comparison);
      }
    }
    return false;
  }

private:
  std::string_view m_rest;
};

}  // namespace

std::string FieldMacroText(const FieldMacro& macro) {
  std::string text(kType);
  text += std::to_string(macro.valType);
  text += kTypeText;
  AppendQuoted(text, macro.typeText);
  text += kField;
  AppendQuoted(text, macro.fieldName);
  text += kFind;
  AppendComparison(text, macro.findType);
  AppendQuoted(text, macro.findValue);
  text += kRef;
  AppendQuoted(text, macro.refField);
  text += kDecimals;
  text += std::to_string(macro.beam);
  text += kFixed;
  text += std::to_string(macro.useDecimalPointBeam);
  text += kGrouped;
  text += std::to_string(macro.use3Figures);
  text += kEnd;
  return text;
}

std::optional<FieldMacro> ParseFieldMacro(std::string_view text) {
  FieldMacro macro;
  Reader reader(text);
  const bool whole = reader.Skip(kType) && reader.ReadNumber(macro.valType) &&
                     reader.Skip(kTypeText) && reader.ReadQuoted(macro.typeText) &&
                     reader.Skip(kField) && reader.ReadQuoted(macro.fieldName) &&
                     reader.Skip(kFind) && reader.ReadComparison(macro.findType) &&
                     reader.ReadQuoted(macro.findValue) && reader.Skip(kRef) &&
                     reader.ReadQuoted(macro.refField) && reader.Skip(kDecimals) &&
                     reader.ReadNumber(macro.beam) && reader.Skip(kFixed) &&
                     reader.ReadNumber(macro.useDecimalPointBeam) && reader.Skip(kGrouped) &&
                     reader.ReadNumber(macro.use3Figures) && reader.Skip(kEnd) && reader.AtEnd();
  return whole ? std::optional(std::move(macro)) : std::nullopt;
}

}  // namespace quorvel
