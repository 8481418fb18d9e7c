// What the controls that show colours paint alike.
#pragma once

#include "framework/geometry.h"

#include <initializer_list>

namespace quorvel {

inline constexpr COLORREF kBlack = RGB(0, 0, 0);
inline constexpr COLORREF kWhite = RGB(255, 255, 255);

/// Frames of 1 pixel, one inside the other, from the edges of `rect` inwards; as many as there is
/// room for. A black one beside a white one stands out on any colour.
void DrawFrames(HDC deviceContext, CRect rect, std::initializer_list<COLORREF> colors);

/// What a disabled control shows in place of a colour: half of it, half of a dialog's background.
COLORREF MutedColor(COLORREF color);

}  // namespace quorvel
