#include "kivfcl/display_rate.h"

#include "framework/base_types.h"
#include "kivfcl/display_pixels.h"

double __KivFcl_GetDispRate() {
  const HDC screen = ::GetDC(nullptr);
  const double dotsPerInch = ::GetDeviceCaps(screen, LOGPIXELSX);
  ::ReleaseDC(nullptr, screen);
  return dotsPerInch / USER_DEFAULT_SCREEN_DPI;
}

namespace quorvel {

int DisplayPixels(int pixels) { return PixelsAt(__KivFcl_GetDispRate(), pixels); }

}  // namespace quorvel
