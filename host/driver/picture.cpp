#include "driver/picture.h"

#include <memory>
#include <stdexcept>
#include <string>

// GDI+ wants the parts of the Windows headers that platform.h leaves out.
#include <objidl.h>

#include <gdiplus.h>

namespace quorvel::driver {

namespace {

struct DcReleaser {
  HWND window;
  void operator()(HDC dc) const { ReleaseDC(window, dc); }
};
using WindowDc = std::unique_ptr<std::remove_pointer_t<HDC>, DcReleaser>;

struct DcDeleter {
  void operator()(HDC dc) const { DeleteDC(dc); }
};
using MemoryDc = std::unique_ptr<std::remove_pointer_t<HDC>, DcDeleter>;

struct BitmapDeleter {
  void operator()(HBITMAP bitmap) const { DeleteObject(bitmap); }
};
using Bitmap = std::unique_ptr<std::remove_pointer_t<HBITMAP>, BitmapDeleter>;

/// Selects an object while it lives.
class Selected {
public:
  Selected(HDC dc, HGDIOBJ object) : m_dc(dc), m_previous(SelectObject(dc, object)) {}
  ~Selected() { SelectObject(m_dc, m_previous); }
  Selected(const Selected&) = delete;
  Selected& operator=(const Selected&) = delete;

private:
  HDC m_dc;
  HGDIOBJ m_previous;
};

/// `window` null: the screen. `rect` in that device context's coordinates.
Picture Read(HWND window, const RECT& rect) {
  constexpr std::uint32_t kColorBits = 0x00FFFFFF;
  Picture picture{rect.right - rect.left, rect.bottom - rect.top, {}};
  if (picture.width <= 0 || picture.height <= 0) {
    return {};
  }
  const WindowDc source(GetDC(window), DcReleaser{window});
  const MemoryDc memory(CreateCompatibleDC(source.get()));
  BITMAPINFO info{};
  info.bmiHeader.biSize = sizeof(info.bmiHeader);
  info.bmiHeader.biWidth = picture.width;
  info.bmiHeader.biHeight = -picture.height;  // rows from the top
  info.bmiHeader.biPlanes = 1;
  info.bmiHeader.biBitCount = 32;
  info.bmiHeader.biCompression = BI_RGB;
  void* bits = nullptr;
  const Bitmap bitmap(CreateDIBSection(memory.get(), &info, DIB_RGB_COLORS, &bits, nullptr, 0));
  if (source == nullptr || memory == nullptr || bitmap == nullptr) {
    throw std::runtime_error("no device context for reading pixels");
  }
  {
    const Selected selected(memory.get(), bitmap.get());
    if (BitBlt(memory.get(), 0, 0, picture.width, picture.height, source.get(), rect.left, rect.top,
               SRCCOPY) == FALSE) {
      throw std::runtime_error("the pixels could not be read");
    }
    GdiFlush();
  }
  const auto* pixels = static_cast<const std::uint32_t*>(bits);
  const auto count =
      static_cast<std::size_t>(picture.width) * static_cast<std::size_t>(picture.height);
  picture.bgrx.assign(pixels, pixels + count);
  for (std::uint32_t& pixel : picture.bgrx) {
    pixel &= kColorBits;
  }
  return picture;
}

/// GDI+ is up while this lives.
class GdiPlus {
public:
  GdiPlus() {
    const Gdiplus::GdiplusStartupInput input;
    if (Gdiplus::GdiplusStartup(&m_token, &input, nullptr) != Gdiplus::Ok) {
      throw std::runtime_error("GDI+ does not start");
    }
  }
  ~GdiPlus() { Gdiplus::GdiplusShutdown(m_token); }
  GdiPlus(const GdiPlus&) = delete;
  GdiPlus& operator=(const GdiPlus&) = delete;

private:
  ULONG_PTR m_token = 0;
};

}  // namespace

std::uint32_t Picture::At(int x, int y) const {
  if (x < 0 || y < 0 || x >= width || y >= height) {
    throw std::out_of_range("pixel " + std::to_string(x) + "," + std::to_string(y) +
                            " of a picture of " + std::to_string(width) + "x" +
                            std::to_string(height));
  }
  return bgrx[static_cast<std::size_t>(y) * static_cast<std::size_t>(width) +
              static_cast<std::size_t>(x)];
}

Picture ReadPixels(HWND window) {
  RECT client{};
  if (GetClientRect(window, &client) == FALSE) {
    throw std::runtime_error("the window is gone");
  }
  return Read(window, client);
}

Picture ReadScreen(const RECT& rect) {
  return Read(nullptr, rect);
}

void SavePng(const Picture& picture, const std::filesystem::path& path) {
  // The encoder of that identifier is a part of GDI+ itself.
  constexpr CLSID kPngEncoder{
      0x557CF406, 0x1A04, 0x11D3, {0x9A, 0x73, 0x00, 0x00, 0xF8, 0x1E, 0xF3, 0x2E}};
  const GdiPlus gdiPlus;
  std::vector<std::uint32_t> pixels = picture.bgrx;
  Gdiplus::Bitmap bitmap(picture.width, picture.height, picture.width * 4, PixelFormat32bppRGB,
                         reinterpret_cast<BYTE*>(pixels.data()));
  if (bitmap.Save(path.c_str(), &kPngEncoder, nullptr) != Gdiplus::Ok) {
    throw std::runtime_error("the picture could not be written");
  }
}

}  // namespace quorvel::driver
