// Pictures of the module in force, as large as the display's scale makes them.
//
//   m_bmpArrow = quorvel::LoadDisplayBitmap(IDB_DROP_ARROW);
#pragma once

#include "framework/device_context.h"
#include "kivfcl/kivfcl_export.h"

namespace quorvel {

/// On a display at 100 % the bitmap as it is. Null where there is none.
KIVFCL_API OwnedBitmap LoadDisplayBitmap(UINT id);

/// `count` pictures of one width side by side. On a display at another scale than 100 % each pixel
/// has an opacity, and pixels of the colour `clear` have none; at 100 % the bitmap is as it is.
struct DisplayPictures {
  OwnedBitmap bitmap;    ///< null where there is none, or of no `count` pictures
  OwnedBitmap disabled;  ///< the same for commands that are not possible; null at 100 %
  CSize size;            ///< of each picture
};
KIVFCL_API DisplayPictures LoadDisplayPictures(UINT id, int count, COLORREF clear);

}  // namespace quorvel
