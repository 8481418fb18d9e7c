// Sizes that are given in pixels of a display at 100 %, on a display at another scale.
#pragma once

#include <cmath>

namespace quorvel {

/// `rate` is the display's scale, 1.0 at 100 %: see __KivFcl_GetDispRate.
inline int PixelsAt(double rate, int pixels) {
  return static_cast<int>(std::lround(pixels * rate));
}

}  // namespace quorvel
