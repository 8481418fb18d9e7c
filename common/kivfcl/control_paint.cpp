#include "kivfcl/control_paint.h"

#include "framework/device_context.h"

namespace quorvel {

void DrawFrames(HDC deviceContext, CRect rect, std::initializer_list<COLORREF> colors) {
  for (const COLORREF color : colors) {
    if (rect.Width() <= 0 || rect.Height() <= 0) {
      return;
    }
    FrameSolid(deviceContext, rect, color);
    rect = rect.Grown(-1, -1);
  }
}

COLORREF MutedColor(COLORREF color) {
  const auto mean = [](int one, int other) { return static_cast<BYTE>((one + other) / 2); };
  const COLORREF face = ::GetSysColor(COLOR_BTNFACE);
  return RGB(mean(GetRValue(color), GetRValue(face)), mean(GetGValue(color), GetGValue(face)),
             mean(GetBValue(color), GetBValue(face)));
}

}  // namespace quorvel
