// The texts that the user paper dialog makes.
#pragma once

#include "framework/cstring.h"

namespace quorvel {

/// "(420x297)": the size in millimetres as it stands beside the name and at its end.
CString PaperSizeLabel(int width, int height);

}  // namespace quorvel
