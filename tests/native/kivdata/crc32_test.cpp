#include "kivdata/crc32.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <string_view>
#include <vector>

namespace {

using quorvel::Crc32;

std::span<const BYTE> Bytes(std::string_view text) {
  return {reinterpret_cast<const BYTE*>(text.data()), text.size()};
}

/// By the definition, bit by bit.
std::uint32_t SlowCrc32(std::span<const BYTE> bytes) {
  std::uint32_t crc = 0xFFFFFFFF;
  for (const BYTE byte : bytes) {
    crc ^= byte;
    for (int bit = 0; bit < 8; ++bit) {
      crc = (crc >> 1U) ^ ((crc & 1U) != 0 ? 0xEDB88320U : 0U);
    }
  }
  return ~crc;
}

TEST(Crc32, GivesThePublishedCheckValues) {
  EXPECT_EQ(Crc32({}), 0U);
  EXPECT_EQ(Crc32(Bytes("123456789")), 0xCBF43926U);
  EXPECT_EQ(Crc32(Bytes("The quick brown fox jumps over the lazy dog")), 0x414FA339U);
}

TEST(Crc32, AgreesWithTheDefinitionAtEveryLength) {
  std::vector<BYTE> bytes;
  for (unsigned i = 0; i < 100; ++i) {
    ASSERT_EQ(Crc32(bytes), SlowCrc32(bytes)) << i << " bytes";
    bytes.push_back(static_cast<BYTE>(i * 37 + 11));
  }
}

TEST(Crc32, GoesOnWhereItStopped) {
  const std::string_view text = "The quick brown fox jumps over the lazy dog";
  for (std::size_t cut = 0; cut <= text.size(); ++cut) {
    EXPECT_EQ(Crc32(Bytes(text.substr(cut)), Crc32(Bytes(text.substr(0, cut)))), 0x414FA339U);
  }
}

}  // namespace
