// The rows of the layout editors.
#pragma once

#include "gallery/exhibit.h"

namespace quorvel::gallery {

/// A page with margin and frame, which is saved and opened again on the way.
Exhibit LayoutExhibit();
/// A page with an outer line and inner lines.
Exhibit LayoutLinesExhibit();

}  // namespace quorvel::gallery
