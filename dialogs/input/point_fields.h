// The fields of the point dialog and the host's point, and how the dialog closes up when it shows
// two coordinates.
#pragma once

#include "framework/cstring.h"

namespace quorvel {

struct PointTexts {
  CString x;
  CString y;
  CString z;  ///< of three coordinates only
};

/// Elements of the host's array, crosswise as the host's coordinate convention requires: the field X
/// stands for element 1 and the field Y for element 0.
inline constexpr int kElementOfX = 1;
inline constexpr int kElementOfY = 0;
inline constexpr int kElementOfZ = 2;

/// Each coordinate rounded to three decimals, half away from zero, and written with three.
/// `point` has 2 elements, or 3 where `hasZ`.
PointTexts TextsOfPoint(const double* point, bool hasZ);

/// Reads the number that each text begins with, 0.0 where there is none, into `point`.
void ReadPoint(const PointTexts& texts, bool hasZ, double* point);

/// How far the buttons move down (up where negative) to stand 12 pixels below the Y field at the
/// display's scale `rate` 1.0. Both edges in pixels of the dialog's client area.
int ButtonShift(int yFieldBottom, int buttonTop, double rate);

}  // namespace quorvel
