// The rows of the font dialogs.
#pragma once

#include "gallery/exhibit.h"

namespace quorvel::gallery {

Exhibit SelFontExhibit();
Exhibit SelFontExExhibit();

}  // namespace quorvel::gallery
