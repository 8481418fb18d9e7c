// The rules of the font dialogs that need no window: sizes in millimetres and which controls a host
// lets the user change.
#pragma once

#include "framework/cstring.h"
#include "res/ids.h"

#include <array>

namespace quorvel {

/// The resolution to calculate with: what the host gave, but for one within 0.000001 of zero 300
/// dots per inch. Nothing else is replaced, NaN neither.
double EffectiveDotsPerMm(double dotsPerMm);

/// A size as a field shows it: at most three decimals, no zeros at their end.
CString MillimetreText(double millimetres);

/// The size that a field's text begins with, 0.0 where it begins with none; `shown` itself as long
/// as the text is the one that `shown` was shown with.
double MillimetresOfText(const CString& text, double shown);

/// The size of the sample in whole points: 3.25 for each millimetre of character height, whatever
/// the display's real size.
int SamplePoints(double millimetres);

/// A control that the user may change only if its bit is set in the host's mask.
struct MaskedControl {
  unsigned bit;
  int id;
};

inline constexpr std::array kFontControls{
    MaskedControl{0x001, IDC_FONT_FACE},      MaskedControl{0x002, IDC_FONT_STYLE},
    MaskedControl{0x004, IDC_FONT_STRIKEOUT}, MaskedControl{0x008, IDC_FONT_UNDERLINE},
    MaskedControl{0x010, IDC_FONT_COLOUR},    MaskedControl{0x040, IDC_FONT_HEIGHT},
    MaskedControl{0x080, IDC_FONT_WIDTH}};

/// Those that only the extended dialog has.
inline constexpr std::array kExFontControls{MaskedControl{0x020, IDC_FONT_BACK_COLOUR},
                                            MaskedControl{0x100, IDC_FONT_VERTICAL},
                                            MaskedControl{0x200, IDC_FONT_HORIZONTAL}};

}  // namespace quorvel
