// How the check list dialog sizes itself to its items. All numbers are pixels.
#pragma once

#include "framework/geometry.h"

namespace quorvel {

/// What the layout follows from.
struct CheckListMeasures {
  int widestName = 0;       ///< of the names that are measured; 0 without any
  int characterHeight = 0;  ///< of the font that measured them
  int descent = 0;
  int rows = 0;
  double rate = 1.0;  ///< the display's scale
};

int CheckColumnWidth(double rate);

/// Of the headings and of each row.
int RowHeight(const CheckListMeasures& measures);
int NameColumnWidth(const CheckListMeasures& measures);
/// The list that the headings and all rows fill.
CSize CheckListSize(const CheckListMeasures& measures);

/// Top-left corners of the buttons, in the dialog's client area. `list` is the list's rectangle
/// there, `buttonWidth` that of the OK button's client area.
struct CheckListButtons {
  CPoint ok;
  CPoint cancel;
};
CheckListButtons PlaceCheckListButtons(const CRect& list, int buttonWidth, double rate);

/// The size of the whole dialog with its frame.
CSize CheckListDialogSize(const CSize& list, int buttonHeight, int captionHeight, double rate);

}  // namespace quorvel
