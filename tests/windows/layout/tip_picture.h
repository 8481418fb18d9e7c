// What a tip with one line must look like.
#pragma once

#include "driver/picture.h"
#include "framework/device_context.h"
#include "support/pixels.h"

#include <string>

namespace quorvel::test {

/// MS Gothic at the size of the platform's own dialogs.
inline OwnedFont TipFont() {
  LOGFONTW description{};
  ::GetObjectW(::GetStockObject(DEFAULT_GUI_FONT), sizeof description, &description);
  ::wcscpy(description.lfFaceName, L"ＭＳ ゴシック");
  return OwnedFont(::CreateFontIndirectW(&description));
}

/// Drawn in memory from the words of the description; of the size of a client area.
inline driver::Picture ExpectedTip(const std::wstring& text, int width, int height) {
  const CWnd screen;
  const CClientDC like(&screen);
  const MemoryDC memory(like.Handle());
  const OwnedBitmap bitmap(::CreateCompatibleBitmap(like.Handle(), width, height));
  const SelectedObject selectedBitmap(memory.Handle(), bitmap.get());
  const OwnedFont font = TipFont();
  const SelectedObject selectedFont(memory.Handle(), font.get());
  FillSolid(memory.Handle(), CRect(0, 0, width, height), ::GetSysColor(COLOR_INFOBK));
  ::SetBkColor(memory.Handle(), ::GetSysColor(COLOR_INFOBK));
  ::SetTextColor(memory.Handle(), ::GetSysColor(COLOR_INFOTEXT));
  ::SetTextAlign(memory.Handle(), TA_CENTER);
  ::TextOutW(memory.Handle(), width / 2, 1, text.data(), static_cast<int>(text.size()));
  driver::Picture picture{width, height, {}};
  for (int y = 0; y < height; ++y) {
    for (int x = 0; x < width; ++x) {
      picture.bgrx.push_back(Pixel(::GetPixel(memory.Handle(), x, y)));
    }
  }
  return picture;
}

/// Whether a tip on screen shows just this line.
inline bool ShowsLine(HWND tip, const std::wstring& text) {
  ::UpdateWindow(tip);
  const driver::Picture shown = driver::ReadPixels(tip);
  return shown == ExpectedTip(text, shown.width, shown.height);
}

}  // namespace quorvel::test
