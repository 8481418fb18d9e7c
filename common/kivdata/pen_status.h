// PEN_STATUS: the style of one ruled line of a page.
//
//   PEN_STATUS outer = {RGB(0, 0, 0), 0.3F, 0};   // black, 0.3 mm, solid
//   page.SetOutLineStatus(&outer);
#pragma once

#include "framework/base_types.h"

struct PEN_STATUS {
  static constexpr float kUsualWidth = 0.1F;

  COLORREF color = 0;         ///< 0x00BBGGRR
  float width = kUsualWidth;  ///< millimetres
  short style = 0;  ///< line type: 0 solid, 1 dashed, 2 dotted, 3 with one dot, 4 with two, 5 none
};
