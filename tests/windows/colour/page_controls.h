// Looks at and works the pages of the colour dialogs.
#pragma once

#include "driver/picture.h"
#include "kivfcl/kiv_slider_ctrl.h"
#include "support/work.h"

#include <string>

namespace quorvel::test {

constexpr int kSwatchId = 2000;

/// A pixel as 0x00BBGGRR.
inline COLORREF ColorAt(HWND window, int x, int y) {
  const std::uint32_t pixel = ReadPixels(window).At(x, y);
  return RGB((pixel >> 16) & 0xFF, (pixel >> 8) & 0xFF, pixel & 0xFF);
}

/// What the page's swatch is filled with; its frame is black.
inline COLORREF SwatchOf(HWND page) {
  ::UpdateWindow(page);
  const RECT swatch = ClientRectOf(Control(page, kSwatchId));
  EXPECT_EQ(ColorAt(page, swatch.left, swatch.top), RGB(0, 0, 0));
  EXPECT_EQ(ColorAt(page, swatch.right - 1, swatch.bottom - 1), RGB(0, 0, 0));
  return ColorAt(page, (swatch.left + swatch.right) / 2, (swatch.top + swatch.bottom) / 2);
}

/// What a slider tells its page, in the way that it does.
inline void NotifySlider(HWND page, int id, UINT code, int position) {
  NMKIVSLIDER notification{};
  notification.hdr.hwndFrom = Control(page, id);
  notification.hdr.idFrom = static_cast<UINT_PTR>(id);
  notification.hdr.code = code;
  notification.nPos = position;
  ::SendMessageW(page, WM_NOTIFY, static_cast<WPARAM>(id),
                 reinterpret_cast<LPARAM>(&notification));
}

/// Drags a slider's thumb from wherever it stands to an end of the strip and beyond.
inline void DragToEnd(HWND slider, bool upright, bool highest) {
  RECT client{};
  ::GetClientRect(slider, &client);
  const POINT centre{client.right / 2, client.bottom / 2};
  POINT end = centre;
  if (upright) {
    end.y = highest ? -500 : 500;
  } else {
    end.x = highest ? 500 : -500;
  }
  ::SendMessageW(slider, WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(centre.x, centre.y));
  ::SendMessageW(slider, WM_MOUSEMOVE, MK_LBUTTON, MAKELPARAM(end.x, end.y));
  ::SendMessageW(slider, WM_LBUTTONUP, 0, MAKELPARAM(end.x, end.y));
}

}  // namespace quorvel::test
