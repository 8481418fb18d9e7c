#include "kivfcl/kiv_image_data.h"

#include <algorithm>

namespace {

constexpr int kLargestExtent = 32'767;
constexpr int kBitsOfByte = 8;
constexpr int kBitsOfRgb = 24;
constexpr int kBitsOfPaddedRgb = 32;
constexpr int kHighestByte = 255;
constexpr std::size_t kLineUnit = 4;

/// As long as it lives, a picture that is made smaller loses pixels instead of mixing them bit by
/// bit, which is the platform's default. Another mode that the caller has set stays.
class PixelsLeftOut {
public:
  explicit PixelsLeftOut(HDC deviceContext)
      : m_hDC(deviceContext), m_previous(::GetStretchBltMode(deviceContext)) {
    if (m_previous == BLACKONWHITE) {
      ::SetStretchBltMode(m_hDC, COLORONCOLOR);
    }
  }
  ~PixelsLeftOut() { ::SetStretchBltMode(m_hDC, m_previous); }
  PixelsLeftOut(const PixelsLeftOut&) = delete;
  PixelsLeftOut& operator=(const PixelsLeftOut&) = delete;

private:
  HDC m_hDC;
  int m_previous;
};

}  // namespace

BOOL CKivImageData::MakeImageData(int width, int height, int bits, int fill) {
  *this = {};
  const bool isSize = 1 <= width && width <= kLargestExtent && 1 <= height &&
                      height <= kLargestExtent;
  if (!isSize || (bits != kBitsOfRgb && bits != kBitsOfPaddedRgb)) {
    return FALSE;
  }
  const auto pixels = static_cast<std::size_t>(width);
  const std::size_t lineBytes = pixels * static_cast<std::size_t>(bits / kBitsOfByte);
  const std::size_t lineSize = (lineBytes + kLineUnit - 1) / kLineUnit * kLineUnit;
  m_bytes.resize(lineSize * static_cast<std::size_t>(height),
                 static_cast<BYTE>(fill == std::clamp(fill, 0, kHighestByte) ? fill : 0));
  m_nWidth = width;
  m_nHeight = height;
  m_nBits = bits;
  m_nLineSize = lineSize;
  return TRUE;
}

BYTE* CKivImageData::GetLineImage(int y) {
  return 0 <= y && y < m_nHeight ? m_bytes.data() + static_cast<std::size_t>(y) * m_nLineSize
                                 : nullptr;
}

BOOL CKivImageData::StretchDIBit(HDC deviceContext, int x, int y, int width, int height,
                                 int sourceX, int sourceY, int sourceWidth, int sourceHeight,
                                 DWORD operation) const {
  const bool isInside = 0 <= sourceX && 0 < sourceWidth && sourceWidth <= m_nWidth - sourceX &&
                        0 <= sourceY && 0 < sourceHeight && sourceHeight <= m_nHeight - sourceY;
  if (!isInside) {
    return FALSE;
  }
  // A picture of the wanted lines only: where lines run from the top, platforms do not agree from
  // which end a first line is counted.
  const BYTE* firstLine = m_bytes.data() + static_cast<std::size_t>(sourceY) * m_nLineSize;
  BITMAPINFO info{};
  info.bmiHeader.biSize = sizeof info.bmiHeader;
  info.bmiHeader.biWidth = m_nWidth;
  info.bmiHeader.biHeight = -sourceHeight;  // lines from the top
  info.bmiHeader.biPlanes = 1;
  info.bmiHeader.biBitCount = static_cast<WORD>(m_nBits);
  info.bmiHeader.biCompression = BI_RGB;
  const PixelsLeftOut mode(deviceContext);
  const int lines = ::StretchDIBits(deviceContext, x, y, width, height, sourceX, 0, sourceWidth,
                                    sourceHeight, firstLine, &info, DIB_RGB_COLORS, operation);
  return lines != 0 && lines != static_cast<int>(GDI_ERROR) ? TRUE : FALSE;
}
