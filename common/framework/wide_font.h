// A font's description as hosts give it, turned into the one that the windows use.
#pragma once

#include "framework/base_types.h"
#include "framework/code_page.h"

#include <iterator>
#include <string_view>

namespace quorvel {

/// The face's name is in code page 932 and need not end with a zero byte.
inline LOGFONTW WideLogFont(const LOGFONTA& font) {
  LOGFONTW wide{};
  wide.lfHeight = font.lfHeight;
  wide.lfWidth = font.lfWidth;
  wide.lfEscapement = font.lfEscapement;
  wide.lfOrientation = font.lfOrientation;
  wide.lfWeight = font.lfWeight;
  wide.lfItalic = font.lfItalic;
  wide.lfUnderline = font.lfUnderline;
  wide.lfStrikeOut = font.lfStrikeOut;
  wide.lfCharSet = font.lfCharSet;
  wide.lfOutPrecision = font.lfOutPrecision;
  wide.lfClipPrecision = font.lfClipPrecision;
  wide.lfQuality = font.lfQuality;
  wide.lfPitchAndFamily = font.lfPitchAndFamily;
  const std::string_view bytes(std::begin(font.lfFaceName), std::size(font.lfFaceName));
  // No longer than the narrow name: a character takes at least one byte.
  WideFromCodePage(bytes.substr(0, bytes.find('\0')))
      .copy(std::begin(wide.lfFaceName), LF_FACESIZE - 1);
  return wide;
}

}  // namespace quorvel
