// What another program may have put where the library keeps its settings and the made colours: a
// value that is none of ours counts as none.
#include "hostile/hostile_call.h"

#include <gtest/gtest.h>

#include <array>
#include <cstdint>
#include <string>
#include <vector>

namespace quorvel::test {
namespace {

constexpr const char* kKey = "Software\\QuorvelTests\\HostileSettings";
constexpr int kUsualPalette = 41;
constexpr COLORREF kColor = 0x00123456;

struct StoredValue {
  std::string name;
  DWORD type;
  std::vector<BYTE> bytes;
};

/// None of them is a palette, and none a setting of 4 bytes.
const std::vector<StoredValue>& ForeignValues() {
  constexpr std::size_t kMegabyte = 1'000'000;
  static const std::vector<StoredValue> values{
      {"TextWithoutAnEnd", REG_SZ, {'a', 'b', 'c'}},
      {"TextOfFourBytes", REG_SZ, {'a', 0, 'b', 0}},
      {"TextsWithoutAnEnd", REG_MULTI_SZ, {'a', 0, 'b', 0, 'c'}},
      {"Number", REG_DWORD, {1, 2, 3, 4}},
      {"NoType", REG_NONE, {1, 2, 3, 4}},
      {"UnknownType", 0x12345678, {1, 2, 3, 4}},
      {"OneByte", REG_BINARY, {0xFF}},
      {"ThreeBytes", REG_BINARY, {0xFF, 0xFF, 0xFF}},
      {"FiveBytes", REG_BINARY, {0xFF, 0xFF, 0xFF, 0xFF, 0xFF}},
      {"OneMegabyte", REG_BINARY, std::vector<BYTE>(kMegabyte, 0xFF)},
  };
  return values;
}

/// A key of the test's own, gone at its end.
class Settings {
public:
  Settings() { ::RegDeleteTreeA(HKEY_CURRENT_USER, kKey); }
  ~Settings() { ::RegDeleteTreeA(HKEY_CURRENT_USER, kKey); }
  Settings(const Settings&) = delete;
  Settings& operator=(const Settings&) = delete;

  CKivSysEnv& Env() { return m_env; }

  void Put(const char* section, const char* name, const StoredValue& value) {
    ASSERT_NE(m_env.GetRegistry(section).WriteRegistry(name, value.type, value.bytes.data(),
                                                       static_cast<DWORD>(value.bytes.size())),
              0);
  }
  /// What is stored as a setting; all bits where there is none.
  std::uint32_t Number(const char* section, const char* name) const {
    std::uint32_t number = 0xFFFFFFFF;
    m_env.GetRegistry(section).ReadRegistry(name, &number, sizeof number);
    return number;
  }
  INT_PTR PaletteSize() const {
    CArray<COLORREF, COLORREF> colors;
    m_env.OpenCstColor(colors);
    return colors.GetSize();
  }

private:
  CKivSysEnv m_env{kKey};
};

Outcome AskColor(BOOL (*entry)(CKivSysEnv*, COLORREF*, CPoint*), CKivSysEnv& env) {
  COLORREF color = kColor;
  const bool confirmed = entry(&env, &color, nullptr) != FALSE;
  EXPECT_EQ(color, kColor);
  return {confirmed, color == kColor};
}

TEST(HostileSettings, AForeignPaletteCountsAsNone) {
  HostileTable table;
  for (const StoredValue& value : ForeignValues()) {
    for (const auto entry : {__SelColorDlg, __SelColorDlgEx}) {
      table.Add("Palette", value.name, [&value, entry] {
        Settings settings;
        settings.Put("MadeColors", "Palette", value);
        const Outcome outcome = AskColor(entry, settings.Env());
        EXPECT_EQ(settings.PaletteSize(), kUsualPalette);
        return outcome;
      });
    }
  }
  for (const HostileArgument& argument : table.Take()) {
    ExpectHarmless(argument);
  }
}

TEST(HostileSettings, APaletteOfAnyColoursIsShown) {
  HostileTable table;
  for (const std::size_t count : {0U, 1U, 15U, 17U, 40U, 4096U}) {
    constexpr std::size_t kEntry = 4;
    const StoredValue value{"", REG_BINARY, std::vector<BYTE>(count * kEntry, 0xFF)};
    for (const auto entry : {__SelColorDlg, __SelColorDlgEx}) {
      table.Add("Palette", std::to_string(count), [value, entry] {
        Settings settings;
        settings.Put("MadeColors", "Palette", value);
        return AskColor(entry, settings.Env());
      });
    }
  }
  for (const HostileArgument& argument : table.Take()) {
    ExpectHarmless(argument);
  }
}

Outcome EditPage(CKivSysEnv& env) {
  CLayoutPageData page;
  return {__LayoutEditDlg(&env, &page, nullptr, nullptr, 0.0, 0, nullptr) != FALSE, true};
}

Outcome EditExPage(CKivSysEnv& env) {
  CLayoutExPageData page;
  CStringArray insertions;
  insertions.Add("x");
  return {__LayoutExEditDlg(&env, &page, nullptr, &insertions, nullptr, 0.0, nullptr) != FALSE,
          true};
}

struct Setting {
  const char* section;
  const char* name;
  std::uint32_t usual;  ///< what the dialog stores where there was none
  Outcome (*run)(CKivSysEnv& env);
};
constexpr std::array kSettings{Setting{"LayoutEdit", "TextColor", 0, EditPage},
                               Setting{"LayoutEdit", "BackColor", 0xFFFFFF, EditPage},
                               Setting{"LayoutExEdit", "TextColor", 0, EditExPage},
                               Setting{"LayoutExEdit", "BackColor", 0xFFFFFF, EditExPage},
                               Setting{"LayoutExEdit", "MacroIns", 0, EditExPage}};

TEST(HostileSettings, AForeignSettingCountsAsNone) {
  HostileTable table;
  for (const Setting& setting : kSettings) {
    for (const StoredValue& value : ForeignValues()) {
      // Each kind of value once is enough for those that are read in the same way.
      if (std::string(setting.name) != "TextColor" && value.name != "FiveBytes") {
        continue;
      }
      table.Add(setting.name, value.name, [&setting, &value] {
        Settings settings;
        settings.Put(setting.section, setting.name, value);
        const Outcome outcome = setting.run(settings.Env());
        EXPECT_EQ(settings.Number(setting.section, setting.name), setting.usual);
        return outcome;
      });
    }
  }
  for (const HostileArgument& argument : table.Take()) {
    ExpectHarmless(argument);
  }
}

TEST(HostileSettings, AnyFourBytesAreASetting) {
  HostileTable table;
  const StoredValue ones{"Ones", REG_BINARY, {0xFF, 0xFF, 0xFF, 0xFF}};
  for (const Setting& setting : kSettings) {
    table.Add("Settings", std::string(setting.section) + setting.name, [&setting, ones] {
      Settings settings;
      settings.Put(setting.section, setting.name, ones);
      const Outcome outcome = setting.run(settings.Env());
      const bool isColour = std::string(setting.name).ends_with("Color");
      const std::uint32_t stored = settings.Number(setting.section, setting.name);
      if (isColour) {
        EXPECT_EQ(stored, 0x00FFFFFFU) << "a colour's highest byte does not count";
      } else if (outcome.confirmed) {
        EXPECT_EQ(stored, 1U) << "a switch that is not off is on";
      }
      return outcome;
    });
  }
  for (const HostileArgument& argument : table.Take()) {
    ExpectHarmless(argument);
  }
}

}  // namespace
}  // namespace quorvel::test
