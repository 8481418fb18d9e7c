// The environment of every entry that takes one.
#include "hostile/hostile_call.h"
#include "hostile/hostile_values.h"
#include "support/same_page.h"

#include <gtest/gtest.h>

#include <array>
#include <string>

namespace quorvel::test {

namespace {

using EntryRun = Outcome (*)(CKivSysEnv* env);

template <BOOL (*entry)(CKivSysEnv*, COLORREF*, CPoint*)>
Outcome RunColour(CKivSysEnv* env) {
  COLORREF color = 5;
  const bool confirmed = entry(env, &color, nullptr) != FALSE;
  EXPECT_EQ(color, 5U);
  return {confirmed, color == 5};
}

/// The sizes of its record are asked for, which is what a confirmed font has.
CKivFontEx UsualFont() {
  constexpr double kDotsPerMm = 11.811023622047244;
  CKivFontEx font;
  font.CalcLogFontToMm(kDotsPerMm);
  font.CalcMmToLogFont(kDotsPerMm);
  return font;
}

Outcome RunFont(CKivSysEnv* env) {
  const CKivFontEx before = UsualFont();
  CKivFont font = static_cast<const CKivFont&>(before);
  const bool confirmed =
      __SelFontDlg(env, &font, 0.0, "t", TRUE, FALSE, QUORVEL_FONT_ALL) != FALSE;
  EXPECT_TRUE(IsSameFont(font, static_cast<const CKivFont&>(before)));
  return {confirmed, IsSameFont(font, static_cast<const CKivFont&>(before))};
}

Outcome RunFontEx(CKivSysEnv* env) {
  const CKivFontEx before = UsualFont();
  CKivFontEx font = before;
  const bool confirmed = __SelFontExDlg(env, &font, 0.0, "t", FALSE, QUORVEL_FONT_ALL) != FALSE;
  EXPECT_TRUE(IsSameFont(font, before));
  return {confirmed, IsSameFont(font, before)};
}

Outcome RunEditor(CKivSysEnv* env) {
  CLayoutPageData page;
  page.DividePage(2, 3, 0.0);
  const CLayoutPageData before = page;
  const bool confirmed =
      __LayoutEditDlg(env, &page, nullptr, nullptr, 0.0, 0, nullptr) != FALSE;
  EXPECT_TRUE(IsSamePage(page, before));
  return {confirmed, IsSamePage(page, before)};
}

Outcome RunExEditor(CKivSysEnv* env) {
  CLayoutExPageData page;
  page.DividePage(CLayoutExPageData::LISTTYPE_LIST, 2, 3, 0.0);
  const CLayoutExPageData before = page;
  const bool confirmed =
      __LayoutExEditDlg(env, &page, nullptr, nullptr, nullptr, 0.0, nullptr) != FALSE;
  EXPECT_TRUE(IsSamePage(page, before));
  return {confirmed, IsSamePage(page, before)};
}

struct NamedEntry {
  const char* name;
  EntryRun run;
};
constexpr std::array kEntries{NamedEntry{"SelColor", RunColour<__SelColorDlg>},
                              NamedEntry{"SelColorEx", RunColour<__SelColorDlgEx>},
                              NamedEntry{"EditColor", RunColour<__EditColorDlg>},
                              NamedEntry{"SelFont", RunFont},
                              NamedEntry{"SelFontEx", RunFontEx},
                              NamedEntry{"LayoutEdit", RunEditor},
                              NamedEntry{"LayoutExEdit", RunExEditor}};

/// With a key that no host should name. All that it makes is below one key.
Outcome RunWithKey(EntryRun run, const std::string& text) {
  constexpr const char* kRoot = "Software\\QuorvelTests\\Hostile";
  CKivSysEnv env((kRoot + ("\\" + text)).c_str());
  const Outcome outcome = run(&env);
  ::RegDeleteTreeA(HKEY_CURRENT_USER, kRoot);
  return outcome;
}

}  // namespace

std::vector<HostileArgument> EnvironmentArguments() {
  HostileTable table;
  for (const auto& [name, run] : kEntries) {
    const std::string argument = std::string(name) + "_env";
    table.Add(argument, "Null", [run = run] { return run(nullptr); });
    table.Add(argument, "EmptyKey", [run = run] {
      CKivSysEnv env("");
      return run(&env);
    });
    table.Add(argument, "NullKey", [run = run] {
      CKivSysEnv env(nullptr);
      return run(&env);
    });
    for (const Named<std::string>& text : FewHostileTexts()) {
      table.Add(argument, text.name, [run = run, text] { return RunWithKey(run, text.value); });
    }
  }
  return table.Take();
}

}  // namespace quorvel::test
