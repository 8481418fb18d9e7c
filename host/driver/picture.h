// Pictures of what windows show.
//
//   const Picture picture = ReadScreen(WindowRect(dialog));
//   picture.At(0, 0) == 0xRRGGBB;
//   SavePng(picture, L"dialog.png");
#pragma once

#include "driver/platform.h"

#include <cstdint>
#include <filesystem>
#include <vector>

namespace quorvel::driver {

/// Rows from the top, pixels from the left, each 0x00RRGGBB.
struct Picture {
  int width = 0;
  int height = 0;
  std::vector<std::uint32_t> bgrx;

  /// Throws std::out_of_range outside the picture.
  std::uint32_t At(int x, int y) const;

  friend bool operator==(const Picture&, const Picture&) = default;
};

/// The window's client area, also where other windows cover it. Throws std::runtime_error if the
/// window is gone.
Picture ReadPixels(HWND window);

/// A rectangle of the screen, frames and all; what lies outside the screen is black.
Picture ReadScreen(const RECT& rect);

/// Writes a PNG file, replacing one of that name. Throws std::runtime_error if it cannot.
void SavePng(const Picture& picture, const std::filesystem::path& path);

}  // namespace quorvel::driver
