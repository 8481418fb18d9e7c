// The CRC-32 of zip and PNG files.
//
//   Crc32({{'1', '2', '3', '4', '5', '6', '7', '8', '9'}})   // 0xCBF43926
#pragma once

#include "framework/base_types.h"

#include <cstdint>
#include <span>

namespace quorvel {

/// The checksum of `bytes`, or of bytes that go on after those whose checksum is `before`.
std::uint32_t Crc32(std::span<const BYTE> bytes, std::uint32_t before = 0);

}  // namespace quorvel
