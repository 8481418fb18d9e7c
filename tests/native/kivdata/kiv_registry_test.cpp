#include "kivdata/kiv_registry.h"

#include "kivdata/kiv_registry_native.h"
#include "kivdata/kiv_registry_store.h"

#include <array>
#include <cstdint>
#include <exception>
#include <optional>
#include <vector>

#include <gtest/gtest.h>

namespace quorvel {
namespace {

constexpr std::uint32_t kUntouched = 0xDEADBEEF;

class KivRegistry : public testing::Test {
protected:
  void SetUp() override { ClearRegistry(); }

  /// The 4 bytes under `name`, or kUntouched where reading returns 0.
  std::uint32_t Read(const char* name) const {
    std::uint32_t value = kUntouched;
    const int read = m_registry.ReadRegistry(name, &value, sizeof value);
    EXPECT_EQ(read != 0, value != kUntouched) << name;
    return value;
  }
  int Write(const char* name, DWORD type, std::uint32_t value) {
    return m_registry.WriteRegistry(name, type, &value, sizeof value);
  }

  CKivRegistry m_registry{"Software\\Maker\\Product\\LayoutEdit"};
};

TEST_F(KivRegistry, ReadsBackWhatWasWritten) {
  EXPECT_EQ(Read("TextColor"), kUntouched);
  EXPECT_NE(Write("TextColor", REG_BINARY, 0x00123456), 0);
  EXPECT_NE(Write("BackColor", REG_BINARY, 0x00FFFFFF), 0);
  EXPECT_EQ(Read("TextColor"), 0x00123456U);
  EXPECT_EQ(Read("BackColor"), 0x00FFFFFFU);
  EXPECT_NE(Write("TextColor", REG_BINARY, 7), 0);
  EXPECT_EQ(Read("TextColor"), 7U);
  EXPECT_EQ(Read("BackColor"), 0x00FFFFFFU);
}

TEST_F(KivRegistry, CopiesAndOthersOfTheSameKeyReadTheSameValues) {
  const CKivRegistry copy = m_registry;
  const CKivRegistry another("Software\\Maker\\Product\\LayoutEdit");
  const CKivRegistry elsewhere("Software\\Maker\\Product\\LayoutExEdit");
  ASSERT_NE(Write("MacroIns", REG_BINARY, 5), 0);

  for (const CKivRegistry* registry : {&copy, &another}) {
    std::uint32_t value = kUntouched;
    EXPECT_NE(registry->ReadRegistry("MacroIns", &value, sizeof value), 0);
    EXPECT_EQ(value, 5U);
  }
  std::uint32_t value = kUntouched;
  EXPECT_EQ(elsewhere.ReadRegistry("MacroIns", &value, sizeof value), 0);
  EXPECT_EQ(value, kUntouched);
  EXPECT_STREQ(copy.GetKey(), "Software\\Maker\\Product\\LayoutEdit");
}

TEST_F(KivRegistry, AValueOfAnotherTypeCountsAsNone) {
  for (const DWORD type : {DWORD{0}, DWORD{1}, DWORD{2}, REG_DWORD, DWORD{7}, DWORD{11}}) {
    ASSERT_NE(Write("TextReal", type, 1), 0);
    EXPECT_EQ(Read("TextReal"), kUntouched) << type;
  }
  ASSERT_NE(Write("TextReal", REG_BINARY, 1), 0);
  EXPECT_EQ(Read("TextReal"), 1U);
}

TEST_F(KivRegistry, AValueOfAnotherSizeCountsAsNone) {
  const std::array<BYTE, 5> bytes{1, 2, 3, 4, 5};
  for (const DWORD size : {0U, 1U, 3U, 5U}) {
    ASSERT_NE(m_registry.WriteRegistry("TextColor", REG_BINARY, bytes.data(), size), 0);
    EXPECT_EQ(Read("TextColor"), kUntouched) << size;
  }
  ASSERT_NE(m_registry.WriteRegistry("TextColor", REG_BINARY, bytes.data(), 4), 0);
  EXPECT_NE(Read("TextColor"), kUntouched);
}

TEST_F(KivRegistry, AValueMayHaveNoBytes) {
  BYTE untouched = 9;
  EXPECT_EQ(m_registry.ReadRegistry("Empty", &untouched, 0), 0);
  EXPECT_NE(m_registry.WriteRegistry("Empty", REG_BINARY, nullptr, 0), 0);
  EXPECT_NE(m_registry.ReadRegistry("Empty", &untouched, 0), 0);
  EXPECT_EQ(untouched, 9);
}

TEST_F(KivRegistry, RefusesWhatNamesNoValueOrHasNoData) {
  std::uint32_t value = 3;
  EXPECT_EQ(Write(nullptr, REG_BINARY, 1), 0);
  EXPECT_EQ(Write("", REG_BINARY, 1), 0);
  EXPECT_EQ(m_registry.WriteRegistry("TextColor", REG_BINARY, nullptr, 4), 0);
  EXPECT_EQ(Read("TextColor"), kUntouched);
  EXPECT_EQ(m_registry.ReadRegistry(nullptr, &value, sizeof value), 0);
  EXPECT_EQ(m_registry.ReadRegistry("", &value, sizeof value), 0);

  ASSERT_NE(Write("TextColor", REG_BINARY, 1), 0);
  EXPECT_EQ(m_registry.ReadRegistry("TextColor", nullptr, 4), 0);
  EXPECT_EQ(m_registry.WriteRegistry("TextColor", REG_BINARY, nullptr, 4), 0);
  EXPECT_EQ(Read("TextColor"), 1U);
  EXPECT_EQ(value, 3U);
}

TEST_F(KivRegistry, AnEmptyKeyHoldsNothing) {
  CKivRegistry registry{CString()};
  std::uint32_t value = 3;
  EXPECT_EQ(registry.WriteRegistry("TextColor", REG_BINARY, &value, sizeof value), 0);
  EXPECT_EQ(registry.ReadRegistry("TextColor", &value, sizeof value), 0);
  EXPECT_FALSE(LoadRegistryValue("", "TextColor", 4)) << "nothing reached the store";
}

TEST_F(KivRegistry, FailuresReturnZeroAndChangeNothing) {
  ASSERT_NE(Write("TextColor", REG_BINARY, 1), 0);
  {
    const RegistryFault fault(RegistryFault::Of::kReading);
    EXPECT_EQ(Read("TextColor"), kUntouched);
  }
  {
    const RegistryFault fault(RegistryFault::Of::kWriting);
    EXPECT_EQ(Write("TextColor", REG_BINARY, 2), 0);
  }
  EXPECT_EQ(Read("TextColor"), 1U);
}

TEST_F(KivRegistry, BytesOfAnySizeAreReadUpToABound) {
  EXPECT_EQ(LoadBinaryValue(m_registry, "Palette", 8), std::nullopt);
  const std::vector<BYTE> bytes{1, 2, 3};
  ASSERT_NE(m_registry.WriteRegistry("Palette", REG_BINARY, bytes.data(), 3), 0);
  EXPECT_EQ(LoadBinaryValue(m_registry, "Palette", 8), bytes);
  EXPECT_EQ(LoadBinaryValue(m_registry, "Palette", 3), bytes);
  EXPECT_EQ(LoadBinaryValue(m_registry, "Palette", 2), std::nullopt);
  EXPECT_EQ(LoadBinaryValue(m_registry, "", 8), std::nullopt);
  EXPECT_EQ(LoadBinaryValue(m_registry, nullptr, 8), std::nullopt);
  ASSERT_NE(m_registry.WriteRegistry("Palette", REG_DWORD, bytes.data(), 3), 0);
  EXPECT_EQ(LoadBinaryValue(m_registry, "Palette", 8), std::nullopt);
}

TEST_F(KivRegistry, AFailureToReadBytesIsNotTakenForAnAbsentValue) {
  const RegistryFault fault(RegistryFault::Of::kReading);
  EXPECT_THROW(LoadBinaryValue(m_registry, "Palette", 8), std::exception);
}

}  // namespace
}  // namespace quorvel
