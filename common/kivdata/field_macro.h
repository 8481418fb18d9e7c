// The text form of a field macro, whose grammar is in docs/field-macros.md: written and read whole.
//
//   const std::string text = FieldMacroText({.typeText = "total", .valType = 203});
//   const std::optional<FieldMacro> macro = ParseFieldMacro(text);   // empty for any other text
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace quorvel {

/// All that the text of a field macro carries. Its texts are bytes, code page 932 by habit; any
/// byte comes back as it was.
struct FieldMacro {
  std::string typeText;  ///< what the user calls the type; says nothing to a program
  unsigned int valType = 0;
  std::string fieldName;
  unsigned char findType = 0;
  std::string findValue;
  std::string refField;
  unsigned char beam = 0;
  int useDecimalPointBeam = 0;
  int use3Figures = 0;

  bool operator==(const FieldMacro&) const = default;
};

/// The one text that stands for `macro`.
std::string FieldMacroText(const FieldMacro& macro);

/// The macro whose text is exactly `text`; empty where there is none. Takes time and memory in
/// proportion to the text.
std::optional<FieldMacro> ParseFieldMacro(std::string_view text);

}  // namespace quorvel
