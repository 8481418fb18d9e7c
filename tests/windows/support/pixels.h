// Colours as pictures of windows have them: 0x00RRGGBB.
#pragma once

#include "framework/base_types.h"

#include <algorithm>
#include <cstdint>
#include <cstdlib>

namespace quorvel::test {

inline std::uint32_t Pixel(COLORREF color) {
  return static_cast<std::uint32_t>(GetRValue(color) << 16 | GetGValue(color) << 8 |
                                    GetBValue(color));
}

/// The largest difference of a channel, 0 to 255.
inline int Contrast(std::uint32_t one, std::uint32_t other) {
  int contrast = 0;
  for (const int shift : {0, 8, 16}) {
    contrast = std::max(contrast, std::abs(static_cast<int>(one >> shift & 0xFF) -
                                           static_cast<int>(other >> shift & 0xFF)));
  }
  return contrast;
}

}  // namespace quorvel::test
