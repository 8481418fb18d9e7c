#include "dialogs/input/point_fields.h"

#include "framework/number_text.h"
#include "kivcomm/rounding.h"
#include "kivfcl/display_pixels.h"

namespace quorvel {

namespace {

constexpr int kDecimals = 3;
constexpr int kGapAboveButtons = 12;

CString CoordinateText(double value) {
  return FixedText(__KivComm_CutValue2(value, kDecimals, kCutHalfAwayFromZero), kDecimals);
}

}  // namespace

PointTexts TextsOfPoint(const double* point, bool hasZ) {
  return {CoordinateText(point[kElementOfX]), CoordinateText(point[kElementOfY]),
          hasZ ? CoordinateText(point[kElementOfZ]) : CString()};
}

void ReadPoint(const PointTexts& texts, bool hasZ, double* point) {
  point[kElementOfX] = ReadLeadingNumber(texts.x.View());
  point[kElementOfY] = ReadLeadingNumber(texts.y.View());
  if (hasZ) {
    point[kElementOfZ] = ReadLeadingNumber(texts.z.View());
  }
}

int ButtonShift(int yFieldBottom, int buttonTop, double rate) {
  return yFieldBottom - buttonTop + PixelsAt(rate, kGapAboveButtons);
}

}  // namespace quorvel
