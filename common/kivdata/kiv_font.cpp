#include "kivdata/kiv_font.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <limits>
#include <span>

namespace {

constexpr double kUsualHeight = 3.5;  // millimetres
constexpr LONG kUsualDots = 41;       // 3.5 mm at 300 dots per inch

// A constant, because a page makes tens of thousands of fonts at once. The name is that of "MS
// Gothic" in code page 932.
constexpr LOGFONTA kUsualLogFont = {-kUsualDots,
                                    0,
                                    0,
                                    0,
                                    FW_NORMAL,
                                    0,
                                    0,
                                    0,
                                    SHIFTJIS_CHARSET,
                                    0,
                                    0,
                                    0,
                                    0,
                                    "\x82\x6C\x82\x72 \x83\x53\x83\x56\x83\x62\x83\x4E"};

/// The two ranges of bytes that begin a double-byte character of code page 932.
constexpr unsigned char kFirstLead = 0x81;
constexpr unsigned char kLastLead = 0x9F;
constexpr unsigned char kFirstLateLead = 0xE0;
constexpr unsigned char kLastLateLead = 0xFC;

bool IsLeadByte(char byte) {
  const auto value = static_cast<unsigned char>(byte);
  return (value >= kFirstLead && value <= kLastLead) ||
         (value >= kFirstLateLead && value <= kLastLateLead);
}

/// Ends the name with its last whole character and clears all behind.
void TidyFaceName(std::span<char, LF_FACESIZE> face) {
  std::size_t end = 0;
  while (end < LF_FACESIZE - 1 && face[end] != '\0') {
    const std::size_t width = IsLeadByte(face[end]) ? 2 : 1;
    if (end + width > LF_FACESIZE - 1 || face[end + width - 1] == '\0') {
      break;
    }
    end += width;
  }
  std::ranges::fill(face.subspan(end), '\0');
}

bool IsSize(double millimetres) {
  return std::isfinite(millimetres) && millimetres >= 0;
}

bool IsResolution(double dotsPerMm) {
  return std::isfinite(dotsPerMm) && dotsPerMm > 0;
}

LONG NearestDots(double millimetres, double dotsPerMm) {
  constexpr auto kMost = static_cast<double>(std::numeric_limits<LONG>::max());
  return static_cast<LONG>(std::min(std::round(millimetres * dotsPerMm), kMost));
}

}  // namespace

CKivFont::CKivFont() : m_logFont(kUsualLogFont), m_v(kUsualHeight) {}

void CKivFont::SetLogFont(const LOGFONTA* logFont) {
  if (logFont != nullptr) {
    m_logFont = *logFont;
    TidyFaceName(m_logFont.lfFaceName);
  }
}

void CKivFont::SetColor(const COLORREF* color) {
  if (color != nullptr) {
    m_color = *color;
  }
}

void CKivFont::SetStrikeOutType(BYTE type) {
  if (type <= 1) {
    m_strikeOutType = type;
  }
}

void CKivFont::SetV(double height) {
  if (IsSize(height)) {
    m_v = height;
  }
}

void CKivFont::SetH(double width) {
  if (IsSize(width)) {
    m_h = width;
  }
}

void CKivFont::CalcLogFontToMm(double dotsPerMm) {
  if (!IsResolution(dotsPerMm)) {
    return;
  }
  const double height = std::fabs(static_cast<double>(m_logFont.lfHeight)) / dotsPerMm;
  const double width = std::fabs(static_cast<double>(m_logFont.lfWidth)) / dotsPerMm;
  if (IsSize(height) && IsSize(width)) {
    m_v = height;
    m_h = width;
  }
}

void CKivFont::CalcMmToLogFont(double dotsPerMm) {
  if (!IsResolution(dotsPerMm)) {
    return;
  }
  const LONG height = NearestDots(m_v, dotsPerMm);
  m_logFont.lfHeight = m_logFont.lfHeight > 0 ? height : -height;
  m_logFont.lfWidth = NearestDots(m_h, dotsPerMm);
}
