// The platform's elementary types, also where there is no Windows: window-free code
// includes this header instead of <windows.h> and so builds natively for its tests.
#pragma once

#ifdef _WIN32

#ifndef NOMINMAX
#define NOMINMAX
#endif
#ifndef WIN32_LEAN_AND_MEAN
#define WIN32_LEAN_AND_MEAN
#endif
#include <windows.h>

#else

#include <cstdint>

using BOOL = int;
using BYTE = std::uint8_t;
using WORD = std::uint16_t;
using DWORD = std::uint32_t;
using LONG = std::int32_t;
using UINT = unsigned int;
using INT_PTR = std::intptr_t;
using COLORREF = DWORD;

inline constexpr BOOL FALSE = 0;
inline constexpr BOOL TRUE = 1;

constexpr COLORREF RGB(BYTE red, BYTE green, BYTE blue) {
  return static_cast<COLORREF>(red | (green << 8) | (blue << 16));
}

struct tagPOINT {
  LONG x;
  LONG y;
};
using POINT = tagPOINT;

struct tagSIZE {
  LONG cx;
  LONG cy;
};
using SIZE = tagSIZE;

struct tagRECT {
  LONG left;
  LONG top;
  LONG right;
  LONG bottom;
};
using RECT = tagRECT;

inline constexpr int LF_FACESIZE = 32;

struct tagLOGFONTA {
  LONG lfHeight;
  LONG lfWidth;
  LONG lfEscapement;
  LONG lfOrientation;
  LONG lfWeight;
  BYTE lfItalic;
  BYTE lfUnderline;
  BYTE lfStrikeOut;
  BYTE lfCharSet;
  BYTE lfOutPrecision;
  BYTE lfClipPrecision;
  BYTE lfQuality;
  BYTE lfPitchAndFamily;
  char lfFaceName[LF_FACESIZE];
};
using LOGFONTA = tagLOGFONTA;

inline constexpr int FW_NORMAL = 400;
inline constexpr BYTE SHIFTJIS_CHARSET = 128;

inline constexpr DWORD REG_BINARY = 3;
inline constexpr DWORD REG_DWORD = 4;

#endif
