#include "kivdata/crc32.h"

#include <array>
#include <cstddef>
#include <cstring>

namespace quorvel {
namespace {

constexpr std::uint32_t kPolynomial = 0xEDB88320;
constexpr std::uint32_t kByte = 0xFF;
constexpr unsigned kTopByte = 24;  // how far it is shifted
constexpr std::size_t kStep = 16;  // bytes taken at once, each by a table of its own

using Tables = std::array<std::array<std::uint32_t, 256>, kStep>;

/// Table n is the effect of a byte that n more bytes follow.
constexpr Tables MakeTables() {
  Tables tables{};
  for (std::uint32_t byte = 0; byte < 256; ++byte) {
    std::uint32_t value = byte;
    for (int bit = 0; bit < 8; ++bit) {
      value = (value >> 1U) ^ ((value & 1U) != 0 ? kPolynomial : 0);
    }
    tables[0][byte] = value;
  }
  for (std::size_t table = 1; table < kStep; ++table) {
    for (std::size_t byte = 0; byte < 256; ++byte) {
      const std::uint32_t value = tables[table - 1][byte];
      tables[table][byte] = (value >> 8U) ^ tables[0][value & kByte];
    }
  }
  return tables;
}

constexpr Tables kTables = MakeTables();

}  // namespace

std::uint32_t Crc32(std::span<const BYTE> bytes, std::uint32_t before) {
  std::uint32_t crc = ~before;
  const BYTE* next = bytes.data();
  std::size_t left = bytes.size();
  for (; left >= kStep; left -= kStep, next += kStep) {
    std::array<std::uint32_t, kStep / 4> words{};
    std::memcpy(words.data(), next, kStep);
    words[0] ^= crc;
    crc = 0;
    for (std::size_t word = 0; word < words.size(); ++word) {
      const std::uint32_t value = words[word];
      const std::size_t following = kStep - 1 - word * 4;
      crc ^= kTables[following][value & kByte] ^ kTables[following - 1][(value >> 8U) & kByte] ^
             kTables[following - 2][(value >> 16U) & kByte] ^
             kTables[following - 3][value >> kTopByte];
    }
  }
  for (; left > 0; --left, ++next) {
    crc = (crc >> 8U) ^ kTables[0][(crc ^ *next) & kByte];
  }
  return ~crc;
}

}  // namespace quorvel
