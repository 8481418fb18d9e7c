#include "kivfcl/kiv_image_data.h"

#include <algorithm>

namespace {

constexpr int kLargestExtent = 32'767;
constexpr int kBitsOfByte = 8;
constexpr int kHighestByte = 255;
constexpr std::size_t kLineUnit = 4;

}  // namespace

BOOL CKivImageData::MakeImageData(int width, int height, int bits, int fill) {
  *this = {};
  const bool isSize = 1 <= width && width <= kLargestExtent && 1 <= height &&
                      height <= kLargestExtent;
  if (!isSize || (bits != 24 && bits != 32)) {
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
  if (m_bytes.empty()) {
    return FALSE;
  }
  BITMAPINFO info{};
  info.bmiHeader.biSize = sizeof info.bmiHeader;
  info.bmiHeader.biWidth = m_nWidth;
  info.bmiHeader.biHeight = -m_nHeight;  // lines from the top
  info.bmiHeader.biPlanes = 1;
  info.bmiHeader.biBitCount = static_cast<WORD>(m_nBits);
  info.bmiHeader.biCompression = BI_RGB;
  const int lines = ::StretchDIBits(deviceContext, x, y, width, height, sourceX, sourceY,
                                    sourceWidth, sourceHeight, m_bytes.data(), &info,
                                    DIB_RGB_COLORS, operation);
  return lines != 0 && lines != static_cast<int>(GDI_ERROR) ? TRUE : FALSE;
}
