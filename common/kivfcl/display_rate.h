// The display's scale, for sizes that are given in pixels of a display at 100 %.
#pragma once

#include "kivfcl/kivfcl_export.h"

/// 1.0 on a display at 100 % (96 dots per inch), 1.5 at 150 %.
KIVFCL_API double __KivFcl_GetDispRate();

namespace quorvel {

/// `pixels` of a display at 100 % on this one.
KIVFCL_API int DisplayPixels(int pixels);

}  // namespace quorvel
