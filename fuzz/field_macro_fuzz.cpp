// Any text given as a field macro: one that is taken is written again byte for byte, any other
// leaves the settings as they were, the type apart.
#include "kivdata/field_macro.h"
#include "kivdata/val_info_one_data.h"

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <optional>
#include <string>
#include <string_view>

namespace {

/// Ends the process, which the fuzzer reports with the input.
void Require(bool holds) {
  if (!holds) {
    std::abort();
  }
}

CKivValInfoOneData SampleInfo() {
  CKivValInfoOneData info;
  info.SetValType(209);
  info.SetFieldName("field");
  info.SetFindType(99);
  info.SetFindValue("value");
  info.SetRefField("reference");
  info.SetUseDesimalPointBeam(-3);
  info.SetBeam(98);
  info.SetUse3Figures(-4);
  return info;
}

void CheckThatAMacroIsReproduced(std::string_view text) {
  if (const std::optional<quorvel::FieldMacro> macro = quorvel::ParseFieldMacro(text)) {
    Require(quorvel::FieldMacroText(*macro) == text);
  }
}

void CheckThatAHostsTextIsTakenWholeOrNotAtAll(const std::string& text) {
  const std::optional<quorvel::FieldMacro> macro = quorvel::ParseFieldMacro(text);
  CKivValInfoOneData info = SampleInfo();
  CKivValInfoOneData expected = SampleInfo();
  const bool taken = info.SetMacroString(text.c_str(), 1) != 0;
  Require(taken == macro.has_value());
  if (taken) {
    Require(info.GetMacroString(macro->typeText.c_str()) == text.c_str());
  } else {
    expected.SetValType(0);
    Require(info.GetMacroString("") == expected.GetMacroString(""));
  }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string bytes(reinterpret_cast<const char*>(data), size);
  CheckThatAMacroIsReproduced(bytes);
  // A host's text ends at the first zero byte.
  CheckThatAHostsTextIsTakenWholeOrNotAtAll(bytes.substr(0, bytes.find('\0')));
  return 0;
}
