// Values as the gallery shows and logs them.
//
//   NamedText(L"text", text)        text="初期値"
//   NamedNumber(L"scale", 500.5)    scale=500.5
//   ColorText(RGB(51, 102, 255))    #3366FF (赤 51 緑 102 青 255)
#pragma once

#include <quorvel/quorvel.h>

#include <string>
#include <string_view>

namespace quorvel::gallery {

/// From code page 932.
std::wstring Wide(const CString& text);

std::wstring NamedText(std::wstring_view name, const CString& text);

/// The shortest text that reads back as the same number.
std::wstring Number(double value);
std::wstring Number(float value);
std::wstring NamedNumber(std::wstring_view name, double value);

std::wstring ColorText(COLORREF color);

}  // namespace quorvel::gallery
