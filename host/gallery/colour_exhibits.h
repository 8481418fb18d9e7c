// The rows of the colour dialogs.
#pragma once

#include "gallery/exhibit.h"

namespace quorvel::gallery {

Exhibit SelectColorExhibit();
Exhibit SelectColorExExhibit();
Exhibit EditColorExhibit();
Exhibit SelectRgbExhibit();

}  // namespace quorvel::gallery
