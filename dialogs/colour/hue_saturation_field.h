// The hue and saturation field of the selected-colour page, apart from windows: hue from left to
// right, saturation from none at the top to full at the bottom.
#pragma once

#include "framework/geometry.h"

#include <functional>

namespace quorvel {

/// Hue 0 to 360, the others 0 to 255.
struct HsbValues {
  int hue = 0;
  int saturation = 0;
  int brightness = 0;

  friend constexpr bool operator==(const HsbValues&, const HsbValues&) = default;
};

/// The values at a point, which counts as the nearest one of the field; its right and lower edge
/// belong to it. The brightness stays.
HsbValues ValuesAtPoint(const CRect& field, CPoint point, const HsbValues& before);

/// Where the marker of the values stands.
CPoint MarkerOfHsb(const CRect& field, const HsbValues& values);

/// Fills a picture of `size` pixels with the field at one brightness. `lineAt` gives the line so many
/// lines below the top: three bytes, blue, green and red, for each pixel.
void FillHueSaturationPicture(const CSize& size, int brightness,
                              const std::function<BYTE*(int)>& lineAt);

}  // namespace quorvel
