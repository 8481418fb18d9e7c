// Any bytes given as a layout file, *.mtpld: as they are, and with length and checksum put right.
#include "fuzz/layout_file_check.h"

#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::span<const BYTE> bytes(data, size);
  quorvel::fuzz::CheckPage(quorvel::DecodeGridPage(bytes), bytes);
  const std::vector<BYTE> sealed = quorvel::fuzz::Sealed(bytes);
  quorvel::fuzz::CheckPage(quorvel::DecodeGridPage(sealed), sealed);
  return 0;
}
