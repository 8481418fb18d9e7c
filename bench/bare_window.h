// What the windows are made of that the colour dialogs' painting is compared with.
#pragma once

#include "framework/device_context.h"

#include <memory>
#include <type_traits>

namespace quorvel::bench {

struct WindowDestroyer {
  void operator()(HWND window) const { ::DestroyWindow(window); }
};
using OwnedWindow = std::unique_ptr<std::remove_pointer_t<HWND>, WindowDestroyer>;

/// A bitmap that stays selected into a device context in memory, ready to be blitted.
class ReadyPicture {
public:
  explicit ReadyPicture(OwnedBitmap bitmap)
      : m_bitmap(std::move(bitmap)), m_selected(m_memory.Handle(), m_bitmap.get()) {}

  HDC Handle() const { return m_memory.Handle(); }

private:
  MemoryDC m_memory{nullptr};
  OwnedBitmap m_bitmap;
  SelectedObject m_selected;
};

/// A picture of 24 or 32 bits for each pixel whose lines, from the top, are written directly.
class LinePicture {
public:
  LinePicture(const CSize& size, int bits)
      : m_lineSize((size.cx * bits / kBitsOfByte + kLineUnit - 1) / kLineUnit * kLineUnit),
        m_picture(Make(size, bits, &m_bytes)) {}

  HDC Handle() const { return m_picture.Handle(); }
  BYTE* Line(int y) const { return m_bytes + static_cast<std::ptrdiff_t>(y) * m_lineSize; }

private:
  static constexpr int kBitsOfByte = 8;
  static constexpr int kLineUnit = 4;

  static OwnedBitmap Make(const CSize& size, int bits, BYTE** bytes) {
    BITMAPINFO info{};
    info.bmiHeader.biSize = sizeof info.bmiHeader;
    info.bmiHeader.biWidth = size.cx;
    info.bmiHeader.biHeight = -size.cy;  // lines from the top
    info.bmiHeader.biPlanes = 1;
    info.bmiHeader.biBitCount = static_cast<WORD>(bits);
    void* memory = nullptr;
    OwnedBitmap bitmap(
        ::CreateDIBSection(nullptr, &info, DIB_RGB_COLORS, &memory, nullptr, 0));
    *bytes = static_cast<BYTE*>(memory);
    return bitmap;
  }

  int m_lineSize;
  BYTE* m_bytes = nullptr;  ///< the bitmap's
  ReadyPicture m_picture;
};

}  // namespace quorvel::bench
