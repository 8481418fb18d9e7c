// Small pictures made larger for a display at another scale.
//
//   const ScaledPicture large = ScalePicture(pixels, {16, 15}, {24, 23});
#pragma once

#include "framework/geometry.h"

#include <cstdint>
#include <span>
#include <vector>

namespace quorvel {

/// A pixel is 0xAARRGGBB, the colour not multiplied by the opacity; lines follow each other from the
/// top. Each pixel of the result is the average of the area that it covers, where clear pixels give
/// no colour: at a whole multiple every pixel is repeated. `size` and `newSize` are at least 1 x 1;
/// `pixels` are as many as `size` tells.
std::vector<std::uint32_t> ScalePicture(std::span<const std::uint32_t> pixels, const CSize& size,
                                        const CSize& newSize);

}  // namespace quorvel
