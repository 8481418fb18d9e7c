// What the layout editors do to cells. Each command acts on the selected cells, row by row, and tells
// which it changed, so that no more is painted anew.
//
//   for (int index : SetVerticalPlace(block, 2)) view.InvalidateCel(index);
#pragma once

#include "dialogs/layout/page_block.h"
#include "framework/collections.h"
#include "framework/cstring.h"

#include <string_view>
#include <vector>

namespace quorvel {

/// Indices of cells.
using CelList = std::vector<int>;

CelList SelectedCels(const PageBlock& block);
/// -1 where none is selected.
int FirstSelectedCel(const PageBlock& block);
/// The cells that were selected.
CelList DeselectAll(PageBlock& block);

/// What a drag of the mouse from one cell to another selects: the rectangle of both, covered cells
/// with it. From a cell to itself it is a click: the cell alone, or nothing if it was alone before.
/// With `add` what was selected stays, and a click only adds. An index of -1 changes nothing.
CelList SelectCels(PageBlock& block, int anchor, int end, bool add);

/// The cell that lies `down` rows and `right` columns (each -1, 0 or 1) from the edge of another one; a
/// merged cell counts as one. The cell itself at the edge of the page, the first cell for -1.
int NeighbourCel(const PageBlock& block, int index, int down, int right);

/// The cell at a column of the first or the last row, merged or not; -1 outside the block.
int CelOfFirstRow(const PageBlock& block, int col);
int CelOfLastRow(const PageBlock& block, int col);

CelList SetVerticalPlace(PageBlock& block, BYTE place);
CelList SetHorizontalPlace(PageBlock& block, BYTE place);
CelList SetTextColor(PageBlock& block, COLORREF color);
CelList SetBackColor(PageBlock& block, COLORREF color);
CelList SetFont(PageBlock& block, const CKivFontEx& font);
CelList SetText(PageBlock& block, const CString& text);
/// Behind the old text, or instead of it.
CelList InsertText(PageBlock& block, const CString& text, bool append);

/// Merges the selection if it is a rectangle; the merged cell stays selected.
CelList MergeSelected(PageBlock& block);
/// Splits the merged cells of the selection; none of it stays selected.
CelList SplitSelected(PageBlock& block);

/// Numbers of the names of an insertion list; 32 bits, unsigned.
using NumberList = CDWordArray;

/// What inserts the name at `choice`, counted from 1: its number in `numbers` and 1 more where each
/// name has one there, otherwise its place.
CString InsertionTag(const CStringArray& names, const NumberList* numbers, int choice);

}  // namespace quorvel
