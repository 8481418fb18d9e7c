// The colour dialogs.
#include "hostile/hostile_call.h"
#include "hostile/hostile_values.h"

#include <gtest/gtest.h>


namespace quorvel::test {

namespace {

using ColourEntry = BOOL (*)(CKivSysEnv*, COLORREF*, CPoint*);

struct NamedEntry {
  const char* name;
  ColourEntry entry;
};
constexpr std::array kEntries{
    NamedEntry{"SelColor", __SelColorDlg}, NamedEntry{"SelColorEx", __SelColorDlgEx},
    NamedEntry{"EditColor", __EditColorDlg},
    NamedEntry{"SelRgb", [](CKivSysEnv*, COLORREF* color, CPoint*) { return __SelRGBDlg(color); }}};

/// An untouched dialog gives the colour back, without its highest byte.
Outcome RunColour(ColourEntry entry, COLORREF initial) {
  COLORREF color = initial;
  const bool confirmed = entry(nullptr, &color, nullptr) != FALSE;
  if (confirmed) {
    EXPECT_EQ(color, initial & 0xFFFFFF);
  }
  return {confirmed, color == initial};
}

}  // namespace

std::vector<HostileArgument> ColourArguments() {
  HostileTable table;
  for (const auto& [name, entry] : kEntries) {
    const std::string prefix(name);
    table.Add(prefix + "_color", "Null",
              [entry = entry] { return Outcome{entry(nullptr, nullptr, nullptr) != FALSE, true}; },
              Opening::kNone);
    for (const COLORREF color : kHostileColors) {
      table.Add(prefix + "_color", std::to_string(color),
                [entry = entry, color] { return RunColour(entry, color); });
    }
  }
  return table.Take();
}

}  // namespace quorvel::test
