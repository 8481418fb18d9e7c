// The row of the editor of extended pages.
#pragma once

#include "gallery/exhibit.h"

namespace quorvel::gallery {

/// An estimate of header, list and footer, whose list is edited in the list editor, too.
Exhibit ExtendedLayoutExhibit();

}  // namespace quorvel::gallery
