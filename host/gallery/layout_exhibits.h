// The rows of the dialogs that the layout editors open.
#pragma once

#include "gallery/exhibit.h"

namespace quorvel::gallery {

Exhibit RuledLinesExhibit();
Exhibit FieldExhibit();
Exhibit CelSizeExhibit();

}  // namespace quorvel::gallery
