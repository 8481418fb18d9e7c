// The settings in the registry itself, below a key of the test's own.
#include "kivdata/kiv_registry.h"

#include "kivdata/sys_env.h"

#include <array>
#include <cstdint>
#include <string>
#include <vector>

#include <gtest/gtest.h>

namespace quorvel::test {
namespace {

using Colors = CArray<COLORREF, COLORREF>;

constexpr std::uint32_t kUntouched = 0xDEADBEEF;

class KivRegistry : public testing::Test {
protected:
  void SetUp() override {
    ASSERT_FALSE(Exists("")) << "another run has left " << Root().GetString();
  }
  void TearDown() override {
    ::RegDeleteTreeA(HKEY_CURRENT_USER, Root());
    EXPECT_FALSE(Exists(""));
  }

  /// The key that the test deletes at its end, this process's own.
  static CString Root() {
    CString root;
    root.Format("Software\\QuorvelTest%lu", ::GetCurrentProcessId());
    return root;
  }
  static CString Below(const char* subkey) { return Root() + "\\" + subkey; }

  /// Whether a key exists below the root, or the root itself.
  static bool Exists(const char* subkey) {
    HKEY key = nullptr;
    const CString path = *subkey == '\0' ? Root() : Below(subkey);
    const bool exists =
        ::RegOpenKeyExA(HKEY_CURRENT_USER, path, 0, KEY_READ, &key) == ERROR_SUCCESS;
    ::RegCloseKey(key);
    return exists;
  }

  /// Type and bytes of a value, as the registry itself gives them.
  struct Stored {
    DWORD type = 0;
    std::vector<BYTE> data;
  };
  static Stored StoredValue(const wchar_t* subkey, const wchar_t* name) {
    const std::string root = Root().GetString();
    const std::wstring path = std::wstring(root.begin(), root.end()) + subkey;
    Stored stored;
    stored.data.resize(64);
    auto size = static_cast<DWORD>(stored.data.size());
    const LSTATUS status = ::RegGetValueW(HKEY_CURRENT_USER, path.c_str(), name, RRF_RT_ANY,
                                          &stored.type, stored.data.data(), &size);
    stored.data.resize(status == ERROR_SUCCESS ? size : 0);
    return stored;
  }

  static std::uint32_t Read(const CKivRegistry& registry, const char* name) {
    std::uint32_t value = kUntouched;
    const int read = registry.ReadRegistry(name, &value, sizeof value);
    EXPECT_EQ(read != 0, value != kUntouched);
    return value;
  }
  static int Write(CKivRegistry registry, const char* name, std::uint32_t value) {
    return registry.WriteRegistry(name, REG_BINARY, &value, sizeof value);
  }
};

TEST_F(KivRegistry, ReadsBackWhatWasWritten) {
  CKivRegistry registry(Below("LayoutEdit"));
  EXPECT_EQ(Read(registry, "TextColor"), kUntouched);
  EXPECT_FALSE(Exists("")) << "reading makes no key";

  EXPECT_NE(Write(registry, "TextColor", 0x00123456), 0);
  EXPECT_EQ(Read(registry, "TextColor"), 0x00123456U);
  EXPECT_EQ(Read(registry, "BackColor"), kUntouched) << "the key is there, the value is not";
  EXPECT_NE(Write(registry, "TextColor", 7), 0);
  EXPECT_EQ(Read(registry, "TextColor"), 7U);
}

TEST_F(KivRegistry, WritesWithTheTypeGiven) {
  CKivRegistry registry(Below("Types"));
  const std::uint32_t value = 0x04030201;
  EXPECT_NE(registry.WriteRegistry("Binary", 3, &value, 4), 0);
  EXPECT_EQ(StoredValue(L"\\Types", L"Binary").type, REG_BINARY);
  EXPECT_EQ(StoredValue(L"\\Types", L"Binary").data, (std::vector<BYTE>{1, 2, 3, 4}));
  EXPECT_NE(registry.WriteRegistry("Number", REG_DWORD, &value, 4), 0);
  EXPECT_EQ(StoredValue(L"\\Types", L"Number").type, REG_DWORD);
}

TEST_F(KivRegistry, AValueOfAnotherTypeCountsAsNone) {
  CKivRegistry registry(Below("Types"));
  const std::uint32_t value = 0x00410041;
  for (const DWORD type : {REG_NONE, REG_SZ, REG_EXPAND_SZ, REG_DWORD, REG_MULTI_SZ}) {
    ASSERT_NE(registry.WriteRegistry("Value", type, &value, 4), 0) << type;
    EXPECT_EQ(Read(registry, "Value"), kUntouched) << type;
  }
}

TEST_F(KivRegistry, AValueOfAnotherSizeCountsAsNone) {
  CKivRegistry registry(Below("Sizes"));
  const std::vector<BYTE> bytes(70'000, 1);
  for (const DWORD size : {0UL, 1UL, 3UL, 5UL, 70'000UL}) {
    ASSERT_NE(registry.WriteRegistry("Value", REG_BINARY, bytes.data(), size), 0) << size;
    EXPECT_EQ(Read(registry, "Value"), kUntouched) << size;
  }
  std::vector<BYTE> read(70'000);
  EXPECT_NE(registry.ReadRegistry("Value", read.data(), 70'000), 0);
  EXPECT_EQ(read, bytes);
}

TEST_F(KivRegistry, AValueMayHaveNoBytes) {
  CKivRegistry registry(Below("Sizes"));
  BYTE untouched = 9;
  EXPECT_EQ(registry.ReadRegistry("Empty", &untouched, 0), 0);
  EXPECT_NE(registry.WriteRegistry("Empty", REG_BINARY, nullptr, 0), 0);
  EXPECT_NE(registry.ReadRegistry("Empty", &untouched, 0), 0);
  EXPECT_NE(registry.WriteRegistry("Empty", REG_BINARY, &untouched, 1), 0);
  EXPECT_EQ(registry.ReadRegistry("Empty", &untouched, 0), 0);
  EXPECT_EQ(untouched, 9);
}

// In code page 932 the second byte of 表 and of ソ is that of a backslash.
TEST_F(KivRegistry, KeysAndNamesMayBeJapanese) {
  CKivSysEnv env(Below("製図\\表"));
  EXPECT_NE(Write(env.GetRegistry("ソフト設定"), "文字色の表", 5), 0);
  EXPECT_EQ(Read(CKivSysEnv(Below("製図\\表")).GetRegistry("ソフト設定"), "文字色の表"), 5U);
  EXPECT_EQ(StoredValue(L"\\製図\\表\\ソフト設定", L"文字色の表").data,
            (std::vector<BYTE>{5, 0, 0, 0}));
}

TEST_F(KivRegistry, SectionsAndEnvironmentsKeepTheirValuesApart) {
  CKivSysEnv first(Below("First"));
  CKivSysEnv second(Below("Second"));
  ASSERT_NE(Write(first.GetRegistry("LayoutEdit"), "TextColor", 1), 0);
  ASSERT_NE(Write(second.GetRegistry("LayoutEdit"), "TextColor", 2), 0);
  ASSERT_NE(Write(first.GetRegistry(nullptr), "TextColor", 3), 0);
  EXPECT_EQ(Read(first.GetRegistry("LayoutEdit"), "TextColor"), 1U);
  EXPECT_EQ(Read(second.GetRegistry("LayoutEdit"), "TextColor"), 2U);
  EXPECT_EQ(Read(first.GetRegistry(""), "TextColor"), 3U);
  EXPECT_EQ(Read(first.GetRegistry("LayoutExEdit"), "TextColor"), kUntouched);
  EXPECT_EQ(Read(second.GetRegistry(nullptr), "TextColor"), kUntouched);
  EXPECT_TRUE(Exists("First\\LayoutEdit"));
}

TEST_F(KivRegistry, APaletteOutlivesItsEnvironmentObject) {
  Colors saved;
  for (COLORREF color = 0; color < 4096; ++color) {
    saved.Add(color * 0x1001);
  }
  CKivSysEnv env(Below("First"));
  EXPECT_NE(env.SaveCstColor(saved), 0);
  std::array<COLORREF, 16> made{};
  made.fill(RGB(1, 2, 3));
  EXPECT_NE(env.SaveCstColor(made.data(), 16), 0);

  Colors opened;
  EXPECT_NE(CKivSysEnv(Below("First")).OpenCstColor(opened), 0);
  ASSERT_EQ(opened.GetSize(), 4096);
  for (INT_PTR i = 0; i < 4096; ++i) {
    ASSERT_EQ(opened.GetAt(i), i < 16 ? RGB(1, 2, 3) : saved.GetAt(i)) << i;
  }
  made.fill(0);
  EXPECT_NE(CKivSysEnv(Below("First")).OpenCstColor(made.data(), 16), 0);
  EXPECT_EQ(made[15], RGB(1, 2, 3));

  EXPECT_NE(CKivSysEnv(Below("Second")).OpenCstColor(opened), 0);
  EXPECT_EQ(opened.GetSize(), 41) << "another environment has its own";
}

TEST_F(KivRegistry, AnEmptyPaletteIsAPalette) {
  CKivSysEnv env(Below("First"));
  Colors colors;
  EXPECT_NE(env.SaveCstColor(colors), 0);
  colors.Add(1);
  EXPECT_NE(env.OpenCstColor(colors), 0);
  EXPECT_TRUE(colors.IsEmpty());
}

TEST_F(KivRegistry, WhatTheRegistryRefusesReturnsZero) {
  const CString tooLong = Below(std::string(300, 'x').c_str());
  CKivSysEnv env(tooLong);
  EXPECT_EQ(Write(env.GetRegistry(nullptr), "TextColor", 1), 0);
  EXPECT_EQ(Read(env.GetRegistry(nullptr), "TextColor"), kUntouched);
  Colors colors;
  EXPECT_EQ(env.SaveCstColor(colors), 0);
  EXPECT_EQ(env.OpenCstColor(colors), 0) << "a failure is not the default palette";
  EXPECT_TRUE(colors.IsEmpty());
}

/// Handles in use among the smallest values, which new handles take first.
int OpenHandles() {
  int count = 0;
  for (ULONG_PTR value = 4; value < 0x4000; value += 4) {
    DWORD flags = 0;
    count += ::GetHandleInformation(reinterpret_cast<HANDLE>(value), &flags) != FALSE ? 1 : 0;
  }
  return count;
}

TEST_F(KivRegistry, NoCallLeavesAHandleBehind) {
  const CKivRegistry registry(Below("LayoutEdit"));
  ASSERT_NE(Write(registry, "TextColor", 1), 0);
  const int before = OpenHandles();
  ASSERT_GT(before, 0);
  for (int i = 0; i < 100; ++i) {
    EXPECT_NE(Write(registry, "TextColor", 2), 0);
    EXPECT_EQ(Read(registry, "TextColor"), 2U);
    EXPECT_EQ(Read(registry, "BackColor"), kUntouched);
  }
  EXPECT_LT(OpenHandles(), before + 50) << "the system's own may come and go, not one each time";
}

TEST_F(KivRegistry, RefusesWhatNamesNoValueOrHasNoData) {
  CKivRegistry registry(Below("LayoutEdit"));
  EXPECT_EQ(Write(registry, nullptr, 1), 0);
  EXPECT_EQ(Write(registry, "", 1), 0);
  EXPECT_EQ(registry.WriteRegistry("TextColor", REG_BINARY, nullptr, 4), 0);
  EXPECT_FALSE(Exists(""));
  EXPECT_EQ(Read(registry, nullptr), kUntouched);
  EXPECT_EQ(Read(registry, ""), kUntouched);
  ASSERT_NE(Write(registry, "TextColor", 1), 0);
  EXPECT_EQ(registry.ReadRegistry("TextColor", nullptr, 4), 0);
}

TEST_F(KivRegistry, AnEmptyKeyHoldsNothing) {
  EXPECT_EQ(Write(CKivSysEnv(nullptr).GetRegistry("QuorvelTest"), "TextColor", 1), 0);
  EXPECT_EQ(Write(CKivRegistry(CString()), "TextColor", 1), 0);
  EXPECT_EQ(::RegDeleteKeyA(HKEY_CURRENT_USER, "QuorvelTest"), ERROR_FILE_NOT_FOUND);
}

}  // namespace
}  // namespace quorvel::test
