// The colour dialogs, and the environment of all entries that take one.
#include "hostile/hostile_call.h"
#include "hostile/hostile_values.h"

#include <gtest/gtest.h>

#include <memory>

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
Outcome RunColour(ColourEntry entry, CKivSysEnv* env, COLORREF initial) {
  COLORREF color = initial;
  const bool confirmed = entry(env, &color, nullptr) != FALSE;
  if (confirmed) {
    EXPECT_EQ(color, initial & 0xFFFFFF);
  }
  return {confirmed, color == initial};
}

/// With an environment whose key no host should name. All it makes is below one key.
template <class Run>
Outcome WithKey(const std::string& text, Run run) {
  constexpr const char* kRoot = "Software\\QuorvelTests\\Hostile\\";
  CKivSysEnv env((kRoot + text).c_str());
  const Outcome outcome = run(&env);
  ::RegDeleteTreeA(HKEY_CURRENT_USER, "Software\\QuorvelTests\\Hostile");
  return outcome;
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
                [entry = entry, color] { return RunColour(entry, nullptr, color); });
    }
    if (prefix == "SelRgb") {
      continue;
    }
    table.Add(prefix + "_env", "Null", [entry = entry] { return RunColour(entry, nullptr, 5); });
    table.Add(prefix + "_env", "EmptyKey", [entry = entry] {
      CKivSysEnv env("");
      return RunColour(entry, &env, 5);
    });
    table.Add(prefix + "_env", "NullKey", [entry = entry] {
      CKivSysEnv env(nullptr);
      return RunColour(entry, &env, 5);
    });
    for (const Named<std::string>& text : FewHostileTexts()) {
      table.Add(prefix + "_env", text.name, [entry = entry, text] {
        return WithKey(text.value, [&](CKivSysEnv* env) { return RunColour(entry, env, 5); });
      });
    }
  }
  return table.Take();
}

}  // namespace quorvel::test
