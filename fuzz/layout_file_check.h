// What holds for any bytes that are given as a layout file of either kind.
#pragma once

#include "kivdata/crc32.h"
#include "kivdata/layout_file.h"

#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <optional>
#include <span>
#include <vector>

namespace quorvel::fuzz {

/// Corrects the file's length and checksum: a fuzzer would hardly ever find them itself, and what
/// lies behind them would not be reached.
inline std::vector<BYTE> Sealed(std::span<const BYTE> input) {
  constexpr std::size_t kHeadSize = 28;
  constexpr std::size_t kLengthAt = 16;
  constexpr std::size_t kChecksumAt = 24;
  std::vector<BYTE> bytes(input.begin(), input.end());
  if (bytes.size() >= kHeadSize) {
    const std::uint64_t size = bytes.size();
    std::memcpy(bytes.data() + kLengthAt, &size, sizeof size);
    const std::span<const BYTE> all(bytes);
    const std::uint32_t sum = Crc32(all.subspan(kHeadSize), Crc32(all.first(kChecksumAt)));
    std::memcpy(bytes.data() + kChecksumAt, &sum, sizeof sum);
  }
  return bytes;
}

/// Ends the process, which the fuzzer reports with the input.
inline void Require(bool holds) {
  if (!holds) {
    std::abort();
  }
}

/// A page that came out of a file is sound and is written again byte for byte.
template <class Page>
void CheckPage(const std::optional<Page>& page, std::span<const BYTE> bytes) {
  if (!page) {
    return;
  }
  const FileBytes again = EncodePage(*page);
  Require(std::ranges::equal(again.Span(), bytes));
  for (const LayoutSheet::Block& block : page->sheet.Blocks()) {
    Require(block.cells.IsSound());
    Require(block.cells.Rows() == block.rows.Count());
    Require(block.cells.Columns() == page->sheet.Columns().Count());
  }
}

}  // namespace quorvel::fuzz
