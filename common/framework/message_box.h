// AfxMessageBox: a message to the user over the dialog in hand.
#pragma once

#include "framework/base_types.h"
#include "framework/frame_export.h"

/// Shows `text` (code page 932) over the active window, under that window's title, and returns which
/// button was pressed. `type` is as for MessageBoxW; without an icon it gets the exclamation mark.
FRAME_API int AfxMessageBox(const char* text, UINT type = MB_OK);
