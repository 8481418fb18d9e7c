#include "dialogs/layout/cel_commands.h"

#include <algorithm>
#include <string>
#include <tuple>

namespace quorvel {

namespace {

/// Calls `visit(index, cell)` for each selected cell, row by row. Which cells are selected may change
/// meanwhile.
template <class Visit>
void VisitSelected(const PageBlock& block, Visit visit) {
  for (int row = 0; row < block.Rows(); ++row) {
    for (int col = 0; col < block.Cols(); ++col) {
      const int index = block.IndexOf(row, col);
      CLayoutCelData* const cel = block.CelAt(index);
      if (cel != nullptr && cel->GetSelected() != 0) {
        visit(index, *cel);
      }
    }
  }
}

template <class Change>
CelList ChangeSelected(PageBlock& block, Change change) {
  CelList changed;
  VisitSelected(block, [&](int index, CLayoutCelData& cel) {
    change(cel);
    changed.push_back(index);
  });
  return changed;
}

void Select(PageBlock& block, int index, CelList& changed) {
  if (CLayoutCelData* const cel = block.CelAt(index); cel != nullptr) {
    cel->SetSelected(1);
    changed.push_back(index);
  }
}

void SelectRectangle(PageBlock& block, int anchor, int end, CelList& changed) {
  int firstRow = 0;
  int firstCol = 0;
  int lastRow = 0;
  int lastCol = 0;
  block.RowColOf(anchor, firstRow, firstCol);
  block.RowColOf(end, lastRow, lastCol);
  std::tie(firstRow, lastRow) = std::minmax({firstRow, lastRow});
  std::tie(firstCol, lastCol) = std::minmax({firstCol, lastCol});
  for (int row = firstRow; row <= lastRow; ++row) {
    for (int col = firstCol; col <= lastCol; ++col) {
      Select(block, block.IndexOf(row, col), changed);
    }
  }
}

/// The cell that shows a grid position: itself or the merged one that covers it; -1 outside the page.
int VisibleCel(const PageBlock& block, int row, int col) {
  for (int index = 0; index < block.CelCount(); ++index) {
    const CLayoutCelData& cel = *block.CelAt(index);
    int top = 0;
    int left = 0;
    block.RowColOf(index, top, left);
    if (top <= row && row < top + cel.GetRowMeargeSize() && left <= col &&
        col < left + cel.GetColMeargeSize()) {
      return index;
    }
  }
  return -1;
}

}  // namespace

CelList SelectedCels(const PageBlock& block) {
  CelList selected;
  VisitSelected(block, [&](int index, const CLayoutCelData&) { selected.push_back(index); });
  return selected;
}

int FirstSelectedCel(const PageBlock& block) {
  const CelList selected = SelectedCels(block);
  return selected.empty() ? -1 : selected.front();
}

CelList DeselectAll(PageBlock& block) {
  return ChangeSelected(block, [](CLayoutCelData& cel) { cel.SetSelected(0); });
}

CelList SelectCels(PageBlock& block, int anchor, int end, bool add) {
  if (anchor < 0 || end < 0 || block.CelAt(anchor) == nullptr || block.CelAt(end) == nullptr) {
    return {};
  }
  const bool wasSelected = block.CelAt(anchor)->GetSelected() != 0;
  CelList changed = add ? CelList() : DeselectAll(block);
  if (anchor != end) {
    SelectRectangle(block, anchor, end, changed);
  } else if (add || !wasSelected || changed.size() > 1) {
    Select(block, anchor, changed);
  }
  return changed;
}

int NeighbourCel(const PageBlock& block, int index, int down, int right) {
  const CLayoutCelData* const cel = block.CelAt(index);
  if (cel == nullptr) {
    return VisibleCel(block, 0, 0);
  }
  int row = 0;
  int col = 0;
  block.RowColOf(index, row, col);
  row += down > 0 ? std::max<int>(cel->GetRowMeargeSize(), 1) : down;
  col += right > 0 ? std::max<int>(cel->GetColMeargeSize(), 1) : right;
  const int next = VisibleCel(block, row, col);
  return next < 0 ? index : next;
}

int CelOfFirstRow(const PageBlock& block, int col) { return VisibleCel(block, 0, col); }

int CelOfLastRow(const PageBlock& block, int col) {
  return VisibleCel(block, block.Rows() - 1, col);
}

CelList SetVerticalPlace(PageBlock& block, BYTE place) {
  return ChangeSelected(block, [&](CLayoutCelData& cel) { cel.GetFont()->SetVPos(place); });
}

CelList SetHorizontalPlace(PageBlock& block, BYTE place) {
  return ChangeSelected(block, [&](CLayoutCelData& cel) { cel.GetFont()->SetHPos(place); });
}

CelList SetTextColor(PageBlock& block, COLORREF color) {
  return ChangeSelected(block, [&](CLayoutCelData& cel) { cel.GetFont()->SetColor(&color); });
}

CelList SetBackColor(PageBlock& block, COLORREF color) {
  return ChangeSelected(block, [&](CLayoutCelData& cel) { cel.GetFont()->SetBackColor(&color); });
}

CelList SetFont(PageBlock& block, const CKivFontEx& font) {
  return ChangeSelected(block, [&](CLayoutCelData& cel) { cel.SetFont(&font); });
}

CelList SetText(PageBlock& block, const CString& text) { return InsertText(block, text, false); }

CelList InsertText(PageBlock& block, const CString& text, bool append) {
  return ChangeSelected(block, [&](CLayoutCelData& cel) {
    std::string whole(append ? cel.TextView() : std::string_view());
    whole += text.View();
    cel.SetText(CString(whole));
  });
}

CelList MergeSelected(PageBlock& block) {
  CelList changed;
  VisitSelected(block, [&](int index, const CLayoutCelData&) {
    int row = 0;
    int col = 0;
    block.RowColOf(index, row, col);
    if (block.Merge(row, col)) {
      changed.push_back(index);
    }
  });
  return changed;
}

CelList SplitSelected(PageBlock& block) {
  CelList changed;
  VisitSelected(block, [&](int index, CLayoutCelData& cel) {
    int row = 0;
    int col = 0;
    block.RowColOf(index, row, col);
    cel.SetSelected(0);
    changed.push_back(index);
    const int rows = cel.GetRowMeargeSize();
    const int cols = cel.GetColMeargeSize();
    if (block.Split(row, col)) {
      for (int i = 1; i < rows * cols; ++i) {
        changed.push_back(block.IndexOf(row + i / cols, col + i % cols));
      }
    }
  });
  return changed;
}

CString InsertionTag(const CStringArray& names, const NumberList* numbers, int choice) {
  const bool hasNumbers = numbers != nullptr && numbers->GetSize() == names.GetSize();
  // The number is shown as hosts store it, signed; it may run over.
  const DWORD number =
      hasNumbers ? numbers->GetAt(choice - 1) + 1 : static_cast<DWORD>(choice);
  const std::string text = "<M>" + std::to_string(static_cast<int>(number)) + " " +
                           names.GetAt(choice - 1).GetString() + "</M>";
  return CString(text);
}

}  // namespace quorvel
