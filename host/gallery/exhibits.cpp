#include "gallery/colour_exhibits.h"
#include "gallery/editor_exhibits.h"
#include "gallery/exhibit.h"
#include "gallery/extended_exhibit.h"
#include "gallery/font_exhibits.h"
#include "gallery/input_exhibits.h"
#include "gallery/layout_exhibits.h"

namespace quorvel::gallery {

std::vector<Exhibit> AllExhibits() {
  return {
      InputTextExhibit(),     InputScaleExhibit(),    InputDpiExhibit(),
      InputPointXYExhibit(),  InputPointXYZExhibit(), UserPaperExhibit(),
      CheckListExhibit(),     SelectColorExhibit(),   SelectColorExExhibit(),
      EditColorExhibit(),     SelectRgbExhibit(),     SelFontExhibit(),
      SelFontExExhibit(),     RuledLinesExhibit(),    FieldExhibit(),
      CelSizeExhibit(),       LayoutExhibit(),        LayoutLinesExhibit(),
      ExtendedLayoutExhibit(),
  };
}

}  // namespace quorvel::gallery
