// What the tests of the two font dialogs have in common.
#pragma once

#include "driver/picture.h"
#include "support/work.h"

#include <quorvel/quorvel.h>

#include <algorithm>
#include <array>
#include <cstring>
#include <iterator>
#include <string>
#include <vector>

namespace quorvel::test {

inline constexpr const wchar_t* kFontTitle = L"ﾌｫﾝﾄの指定";
inline constexpr const wchar_t* kGridTitle = L"色設定";
inline constexpr int kBoxText = 0xFFFF;

inline constexpr int kFace = 1136;
inline constexpr int kStyle = 1137;
inline constexpr int kSize = 1138;
inline constexpr int kColours = 1139;
inline constexpr int kStrikeOut = 1040;
inline constexpr int kUnderline = 1041;
inline constexpr int kSample = 1092;
inline constexpr int kColour = 2003;
inline constexpr int kBackColour = 2004;
inline constexpr int kHeight = 2005;
inline constexpr int kWidth = 2006;
inline constexpr int kVertical = 2007;
inline constexpr int kHorizontal = 2008;
inline constexpr int kStrikeType = 4027;

inline constexpr double kOne300DpiDot = 11.811023622047244;
inline constexpr COLORREF kOddColour = RGB(0xC0, 0x81, 0x42);  // none of the platform's 16
/// One of the colour grid's buttons, with its colour.
inline constexpr int kGridOrange = 13395;
inline constexpr COLORREF kOrange = RGB(255, 128, 0);

inline Condition FontDialogShown() {
  return Painted(DialogWithTitle(kFontTitle));
}
inline Condition GridShown() {
  return Painted(DialogWithTitle(kGridTitle));
}

/// The entries of a combo box.
inline std::vector<std::wstring> Entries(HWND combo) {
  std::vector<std::wstring> entries;
  const auto count = static_cast<WPARAM>(::SendMessageW(combo, CB_GETCOUNT, 0, 0));
  for (WPARAM index = 0; index < count; ++index) {
    std::wstring text(static_cast<std::size_t>(::SendMessageW(combo, CB_GETLBTEXTLEN, index, 0)),
                      L'\0');
    ::SendMessageW(combo, CB_GETLBTEXT, index, reinterpret_cast<LPARAM>(text.data()));
    entries.push_back(text);
  }
  return entries;
}

inline int Selected(HWND combo) {
  return static_cast<int>(::SendMessageW(combo, CB_GETCURSEL, 0, 0));
}

/// Selects an entry as a user does, the notification included.
inline void Pick(HWND dialog, int id, int index) {
  ::SendMessageW(Control(dialog, id), CB_SETCURSEL, static_cast<WPARAM>(index), 0);
  ::SendMessageW(dialog, WM_COMMAND, MAKEWPARAM(id, CBN_SELCHANGE),
                 reinterpret_cast<LPARAM>(Control(dialog, id)));
}

inline void Pick(HWND dialog, int id, const std::wstring& entry) {
  const LRESULT index =
      ::SendMessageW(Control(dialog, id), CB_FINDSTRINGEXACT, static_cast<WPARAM>(-1),
                     reinterpret_cast<LPARAM>(entry.c_str()));
  ASSERT_NE(index, CB_ERR);
  Pick(dialog, id, static_cast<int>(index));
}

inline bool IsChecked(HWND dialog, int id) {
  return ::SendMessageW(Control(dialog, id), BM_GETCHECK, 0, 0) == BST_CHECKED;
}

/// Of two names for the same thing the one that the system has in its language.
inline const wchar_t* SystemsName(const wchar_t* japanese, const wchar_t* english) {
  return PRIMARYLANGID(::GetUserDefaultUILanguage()) == LANG_JAPANESE ? japanese : english;
}
inline std::wstring GothicFace() {
  return SystemsName(L"IPAゴシック", L"IPAGothic");
}
inline std::wstring ProportionalGothicFace() {
  return SystemsName(L"IPA Pゴシック", L"IPAPGothic");
}
inline std::wstring ProportionalMinchoFace() {
  return SystemsName(L"IPA P明朝", L"IPAPMincho");
}
inline std::wstring ItalicStyle() {
  return SystemsName(L"斜体", L"Italic");
}
inline std::wstring BoldStyle() {
  return SystemsName(L"太字", L"Bold");
}

/// The identifiers of the controls that the tabulator key visits.
inline std::vector<int> TabOrderIds(HWND dialog) {
  std::vector<int> ids;
  std::ranges::transform(TabOrder(dialog), std::back_inserter(ids), ::GetDlgCtrlID);
  return ids;
}

/// The pixels inside the sample's rectangle.
inline Picture SampleOf(HWND dialog) {
  const RECT rect = ClientRectOf(Control(dialog, kSample));
  const Picture whole = ReadPixels(dialog);
  Picture sample{rect.right - rect.left, rect.bottom - rect.top, {}};
  for (int y = 0; y < sample.height; ++y) {
    for (int x = 0; x < sample.width; ++x) {
      sample.bgrx.push_back(whole.At(rect.left + x, rect.top + y));
    }
  }
  return sample;
}

/// How many pixels of the picture have exactly this colour.
inline std::size_t CountOf(const Picture& picture, COLORREF color) {
  const std::uint32_t pixel = static_cast<std::uint32_t>(GetRValue(color) << 16) |
                              static_cast<std::uint32_t>(GetGValue(color) << 8) | GetBValue(color);
  return static_cast<std::size_t>(std::ranges::count(picture.bgrx, pixel));
}

/// Every field of the record as bytes, the face name's bytes behind its end included.
inline bool SameRecord(const LOGFONTA& one, const LOGFONTA& other) {
  return std::memcmp(&one, &other, sizeof one) == 0;
}

/// A font with no field at its usual value.
template <class Font = CKivFont>
Font OddFont(const char* face = "IPA P明朝") {
  LOGFONTA record{};
  record.lfHeight = -118;
  record.lfWidth = 47;
  record.lfEscapement = 300;
  record.lfOrientation = 450;
  record.lfWeight = FW_MEDIUM;
  record.lfItalic = 255;
  record.lfUnderline = 1;
  record.lfStrikeOut = 7;
  record.lfCharSet = SHIFTJIS_CHARSET;
  record.lfOutPrecision = OUT_TT_PRECIS;
  record.lfClipPrecision = CLIP_LH_ANGLES;
  record.lfQuality = PROOF_QUALITY;
  record.lfPitchAndFamily = VARIABLE_PITCH | FF_ROMAN;
  std::strncpy(std::begin(record.lfFaceName), face, LF_FACESIZE - 1);
  Font font;
  font.SetLogFont(&record);
  font.SetColor(&kOddColour);
  font.CalcLogFontToMm(kOne300DpiDot);
  return font;
}

}  // namespace quorvel::test
