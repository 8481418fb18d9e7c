// Where the controls of the colour edit page stand, apart from windows.
#pragma once

#include "dialogs/colour/color_components.h"
#include "framework/geometry.h"

#include <array>

namespace quorvel {

struct ColorComponentRow {
  CRect label;
  CRect slider;
  CRect edit;
};

struct EditColorLayout {
  CRect model;  ///< with its list dropped down
  std::array<ColorComponentRow, kMostComponents> rows;
  /// The row of all that lies lowest ends here.
  int bottom = 0;
};

/// In `place`, whose coordinates the result has; `rate` is the display's scale.
EditColorLayout LayOutEditColor(const CRect& place, double rate);

}  // namespace quorvel
