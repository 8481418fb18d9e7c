#include "kivfcl/display_bitmap.h"

#include "framework/module_state.h"
#include "kivfcl/display_pixels.h"
#include "kivfcl/display_rate.h"
#include "kivfcl/picture_scaling.h"

#include <cstdint>
#include <cstring>
#include <utility>
#include <vector>

namespace quorvel {

namespace {

constexpr WORD kBits = 32;
constexpr std::uint32_t kOpaque = 0xFF000000;

using Pixels = std::vector<std::uint32_t>;

OwnedBitmap LoadAsItIs(UINT id) {
  return OwnedBitmap(static_cast<HBITMAP>(::LoadImageW(
      AfxGetResourceHandle(), MAKEINTRESOURCEW(id), IMAGE_BITMAP, 0, 0, LR_DEFAULTCOLOR)));
}

CSize SizeOf(HBITMAP bitmap) {
  BITMAP description{};
  ::GetObjectW(bitmap, sizeof description, &description);
  return {description.bmWidth, description.bmHeight};
}

/// Of lines from the top, four bytes a pixel.
BITMAPINFO Format(const CSize& size) {
  BITMAPINFO format{};
  format.bmiHeader.biSize = sizeof format.bmiHeader;
  format.bmiHeader.biWidth = size.cx;
  format.bmiHeader.biHeight = -size.cy;
  format.bmiHeader.biPlanes = 1;
  format.bmiHeader.biBitCount = kBits;
  format.bmiHeader.biCompression = BI_RGB;
  return format;
}

Pixels PixelsOf(HBITMAP bitmap, const CSize& size) {
  Pixels pixels(static_cast<std::size_t>(size.cx) * static_cast<std::size_t>(size.cy));
  BITMAPINFO format = Format(size);
  const MemoryDC memory(nullptr);
  ::GetDIBits(memory.Handle(), bitmap, 0, static_cast<UINT>(size.cy), pixels.data(), &format,
              DIB_RGB_COLORS);
  return pixels;
}

OwnedBitmap BitmapOf(const Pixels& pixels, const CSize& size) {
  const BITMAPINFO format = Format(size);
  void* bits = nullptr;
  OwnedBitmap bitmap(
      ::CreateDIBSection(nullptr, &format, DIB_RGB_COLORS, &bits, nullptr, 0));
  if (bitmap != nullptr) {
    std::memcpy(bits, pixels.data(), pixels.size() * sizeof pixels.front());
  }
  return bitmap;
}

/// 0x00BBGGRR as the 0x00RRGGBB of a bitmap's pixel.
std::uint32_t AsPixel(COLORREF color) {
  constexpr int kRed = 16;
  constexpr int kGreen = 8;
  return (std::uint32_t{GetRValue(color)} << kRed) | (std::uint32_t{GetGValue(color)} << kGreen) |
         GetBValue(color);
}

/// Grey and half clear.
Pixels Disabled(const Pixels& pixels) {
  constexpr int kAlphaShift = 24;
  const std::uint32_t grey = AsPixel(::GetSysColor(COLOR_GRAYTEXT));
  Pixels result;
  result.reserve(pixels.size());
  for (const std::uint32_t pixel : pixels) {
    result.push_back(((pixel >> kAlphaShift) / 2 << kAlphaShift) | grey);
  }
  return result;
}

}  // namespace

OwnedBitmap LoadDisplayBitmap(UINT id) {
  OwnedBitmap bitmap = LoadAsItIs(id);
  const double rate = __KivFcl_GetDispRate();
  if (bitmap == nullptr || rate == 1.0) {
    return bitmap;
  }
  const CSize size = SizeOf(bitmap.get());
  const CSize newSize(PixelsAt(rate, size.cx), PixelsAt(rate, size.cy));
  Pixels pixels = PixelsOf(bitmap.get(), size);
  for (std::uint32_t& pixel : pixels) {
    pixel |= kOpaque;
  }
  return BitmapOf(ScalePicture(pixels, size, newSize), newSize);
}

DisplayPictures LoadDisplayPictures(UINT id, int count, COLORREF clear) {
  OwnedBitmap bitmap = LoadAsItIs(id);
  const CSize size = bitmap != nullptr ? SizeOf(bitmap.get()) : CSize();
  if (count < 1 || size.cx < count) {
    return {};
  }
  const CSize one(size.cx / count, size.cy);
  const double rate = __KivFcl_GetDispRate();
  if (rate == 1.0) {
    return {std::move(bitmap), nullptr, one};
  }
  // Each picture gets whole pixels, so that none reaches into its neighbour.
  const CSize newOne(PixelsAt(rate, one.cx), PixelsAt(rate, one.cy));
  const CSize newSize(newOne.cx * count, newOne.cy);
  Pixels pixels = PixelsOf(bitmap.get(), size);
  for (std::uint32_t& pixel : pixels) {
    pixel = (pixel & ~kOpaque) == AsPixel(clear) ? 0 : pixel | kOpaque;
  }
  const Pixels scaled = ScalePicture(pixels, size, newSize);
  return {BitmapOf(scaled, newSize), BitmapOf(Disabled(scaled), newSize), newOne};
}

}  // namespace quorvel
