// The rows of the simple input dialogs.
#pragma once

#include "gallery/exhibit.h"

namespace quorvel::gallery {

Exhibit InputTextExhibit();
Exhibit InputScaleExhibit();
Exhibit InputDpiExhibit();
Exhibit InputPointXYExhibit();
Exhibit InputPointXYZExhibit();
Exhibit UserPaperExhibit();
Exhibit CheckListExhibit();

}  // namespace quorvel::gallery
