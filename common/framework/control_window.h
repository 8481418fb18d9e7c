// Makes the window of one control.
//
// A theme costs more than all the rest of a small control, and texts and controls that are drawn by
// their owner show nothing of it: made here, they are left out of it.
#pragma once

#include "framework/geometry.h"

namespace quorvel {

struct ControlWindow {
  const wchar_t* className = nullptr;
  const wchar_t* text = nullptr;
  DWORD style = 0;  ///< WS_CHILD is added
  DWORD extendedStyle = 0;
  CRect rect;  ///< in the parent's client pixels
  DWORD id = 0;
};

/// Null when it cannot be made.
HWND CreateControlWindow(const ControlWindow& control, HWND parent);

}  // namespace quorvel
