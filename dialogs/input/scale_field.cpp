#include "dialogs/input/scale_field.h"

#include "framework/number_text.h"
#include "kivcomm/rounding.h"

namespace quorvel {

CString ScaleText(double scale) {
  CString text;
  text.Format("%d", TruncatedToInt(__KivComm_CutValue2(scale, 0, kCutHalfAwayFromZero)));
  return text;
}

double ScaleOfText(const CString& text) { return ReadLeadingNumber(text.View()); }

}  // namespace quorvel
