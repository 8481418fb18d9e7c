// CKivImageData: a picture in memory, filled line by line and stretched onto a window.
//
//   CKivImageData picture;
//   picture.MakeImageData(160, 100, 24, -1);
//   BYTE* line = picture.GetLineImage(0);             // blue, green, red of the leftmost pixel ...
//   picture.StretchDIBit(hDC, 10, 10, 160, 100, 0, 0, 160, 100, SRCCOPY);
#pragma once

#include "framework/base_types.h"
#include "kivfcl/kivfcl_export.h"

#include <vector>

class KIVFCL_API CKivImageData {
public:
  /// Makes a picture of `width` x `height` pixels, replacing what there was. `bits` is 24 or 32 for
  /// each pixel. Every byte is `fill`, or 0 where that is not 0 to 255. FALSE, without a picture,
  /// when the size is below 1 x 1, above 32,767 or `bits` is another. Throws std::bad_alloc.
  BOOL MakeImageData(int width, int height, int bits, int fill);

  int GetWidth() const { return m_nWidth; }
  int GetHeight() const { return m_nHeight; }

  /// The line `y` from the top, padded to whole 4 bytes: blue, green and red of each pixel, with a
  /// fourth, unused byte at 32 bits. Null where there is no such line.
  BYTE* GetLineImage(int y);

  /// Draws the part of the picture from (`sourceX`, `sourceY`), counted from its top-left corner,
  /// into a rectangle of `deviceContext`, with a raster operation such as SRCCOPY. Sizes are in
  /// pixels. Made smaller, it loses pixels, unless a stretching mode such as HALFTONE is set. FALSE
  /// when it cannot, or when the part does not lie inside the picture.
  BOOL StretchDIBit(HDC deviceContext, int x, int y, int width, int height, int sourceX,
                    int sourceY, int sourceWidth, int sourceHeight, DWORD operation) const;

private:
  int m_nWidth = 0;
  int m_nHeight = 0;
  int m_nBits = 0;
  std::size_t m_nLineSize = 0;
  std::vector<BYTE> m_bytes;
};
