// What differs between a layout page and its reference, in words; empty where nothing does.
//
//   EXPECT_EQ(Difference(page, expected, CRect(0, 0, 640, 480)), "");
#pragma once

#include "framework/geometry.h"
#include "kivdata/layout_cel_data.h"
#include "kivdata/layout_ex_page_data.h"
#include "kivdata/page_adapters.h"
#include "kivdata/reference_page.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <cstring>
#include <limits>
#include <optional>
#include <sstream>
#include <string>
#include <utility>
#include <vector>

namespace quorvel {

inline std::ostream& operator<<(std::ostream& stream, Place place) {
  return stream << '(' << place.row << ", " << place.col << ')';
}

template <class... Parts>
std::string Told(const Parts&... parts) {
  std::ostringstream text;
  text.precision(17);
  (text << ... << parts);
  return text.str();
}

inline bool SameFont(const CKivFontEx& one, const CKivFontEx& other) {
  const LOGFONTA oneRecord = one.GetLogFont(0);
  const LOGFONTA otherRecord = other.GetLogFont(0);
  return std::memcmp(&oneRecord, &otherRecord, sizeof(LOGFONTA)) == 0 &&
         one.GetMM() == other.GetMM() && one.GetColor() == other.GetColor() &&
         one.GetStrikeOutType() == other.GetStrikeOutType() &&
         one.GetBackColor() == other.GetBackColor() && one.GetHPos() == other.GetHPos() &&
         one.GetVPos() == other.GetVPos();
}

inline bool Shows(const CLayoutCelData& cell, Border border) {
  switch (border) {
    case Border::kLeft:
      return cell.GetShowLineHL() != 0;
    case Border::kTop:
      return cell.GetShowLineVT() != 0;
    case Border::kRight:
      return cell.GetShowLineHR() != 0;
    default:
      return cell.GetShowLineVB() != 0;
  }
}

inline void SetBorder(CLayoutCelData& cell, Border border, bool shown) {
  const int value = shown ? 1 : 0;
  switch (border) {
    case Border::kLeft:
      cell.SetShowLineHL(value);
      break;
    case Border::kTop:
      cell.SetShowLineVT(value);
      break;
    case Border::kRight:
      cell.SetShowLineHR(value);
      break;
    default:
      cell.SetShowLineVB(value);
      break;
  }
}

inline std::string CellDifference(const CLayoutCelData& actual, const ReferenceCell& expected) {
  if (actual.TextView() != expected.text) {
    return Told("text is '", actual.TextView(), "', not '", expected.text, "'");
  }
  if (actual.GetSelected() != (expected.selected ? 1 : 0)) {
    return Told("selected is ", actual.GetSelected());
  }
  if (actual.GetRowMeargeSize() != expected.rowMergeSize ||
      actual.GetColMeargeSize() != expected.colMergeSize) {
    return Told("merge size is ", int{actual.GetRowMeargeSize()}, " x ",
                int{actual.GetColMeargeSize()}, ", not ", expected.rowMergeSize, " x ",
                expected.colMergeSize);
  }
  for (const Border border : kBorders) {
    if (Shows(actual, border) != expected.Shows(border)) {
      return Told("border ", static_cast<int>(border), " (left, top, right, bottom) is ",
                  Shows(actual, border));
    }
  }
  return SameFont(*actual.GetFont(), expected.font) ? "" : "another font";
}

inline std::string SettingsDifference(const ReferenceSettings& actual,
                                      const ReferenceSettings& expected) {
  const std::array<std::pair<const char*, bool>, 11> same = {{
      {"type", actual.type == expected.type},
      {"margin", actual.margin == expected.margin},
      {"frame", actual.frameShown == expected.frameShown},
      {"outer line", actual.outLine == expected.outLine},
      {"inner lines", actual.inLine == expected.inLine},
      {"style of the outer line", actual.outPen == expected.outPen},
      {"style of the inner lines", actual.inPen == expected.inPen},
      {"pages that show the list", actual.shownByPage == expected.shownByPage},
      {"blocks in use", actual.used == expected.used},
      {"repetitions", actual.repeatRow == expected.repeatRow},
      {"first record", actual.startIndex == expected.startIndex},
  }};
  for (const auto& [setting, equal] : same) {
    if (!equal) {
      return Told("another setting: ", setting);
    }
  }
  return "";
}

template <class Adapter>
std::string LengthDifference(const char* which, const ReferenceLengths& expected,
                             typename Adapter::Number all, const auto& lengthAt) {
  using Number = typename Adapter::Number;
  Number sum = 0;
  for (int index = 0; index < static_cast<int>(expected.size()); ++index) {
    const Number actual = lengthAt(index);
    const ReferenceLength& wanted = expected.at(static_cast<std::size_t>(index));
    if (!std::isfinite(actual) || actual < 0 ||
        !(std::fabs(double{actual} - wanted.value) <= wanted.slack)) {
      return Told(which, ' ', index, " is ", actual, ", not ", wanted.value);
    }
    sum += actual;
  }
  const int count = static_cast<int>(expected.size());
  if (!(std::fabs(all - sum) <=
        static_cast<Number>(count) * std::numeric_limits<Number>::epsilon() * sum)) {
    return Told(which, "s are ", all, " in all, not ", sum);
  }
  for (const int index : {-1, count, 255, 1000000}) {
    if (index < 0 || index >= count) {
      if (lengthAt(index) != 0) {
        return Told(which, ' ', index, " has a length");
      }
    }
  }
  return "";
}

/// Whether merge sizes are what every operation must leave: solid rectangles, all else covered by
/// none.
template <class Adapter>
std::string Unsoundness(const Adapter& page, int block) {
  const int rows = page.NumRow(block);
  const int cols = page.NumCol();
  std::vector<int> covers(static_cast<std::size_t>(rows * cols), 0);
  for (int index = 0; index < rows * cols; ++index) {
    const CLayoutCelData& cell = *page.CelAt(block, index);
    const int high = cell.GetRowMeargeSize();
    const int wide = cell.GetColMeargeSize();
    if ((high == 0) != (wide == 0)) {
      return Told("cell ", index, " has merge size ", high, " x ", wide);
    }
    if (index / cols + high > rows || index % cols + wide > cols) {
      return Told("cell ", index, " is merged beyond the grid");
    }
    for (int row = 0; row < high; ++row) {
      for (int col = 0; col < wide; ++col) {
        const int covered = index + row * cols + col;
        ++covers.at(static_cast<std::size_t>(covered));
        if (covered != index && page.CelAt(block, covered)->GetRowMeargeSize() != 0) {
          return Told("cell ", covered, " lies in the block of cell ", index, ", not covered");
        }
      }
    }
  }
  const auto wrong =
      std::find_if(covers.begin(), covers.end(), [](int times) { return times != 1; });
  return wrong == covers.end()
             ? ""
             : Told("cell ", wrong - covers.begin(), " is in ", *wrong, " blocks");
}

/// The edges along one direction, as InitCelRect has to place them.
template <class Adapter>
std::string EdgeDifference(const std::vector<int>& edges, const ReferenceLengths& lengths, int from,
                           int to) {
  long double total = 0;
  for (const ReferenceLength& length : lengths) {
    total += length.value;
  }
  const auto count = static_cast<long double>(lengths.size());
  const long double extent = static_cast<long double>(to) - from;
  const long double slack =
      0.5L + std::fabs(extent) * count * std::numeric_limits<typename Adapter::Number>::epsilon();
  long double sum = 0;
  for (std::size_t edge = 0; edge < edges.size(); ++edge) {
    const long double share = total > 0 ? sum / total : static_cast<long double>(edge) / count;
    if (std::fabs(from + extent * share - edges.at(edge)) > slack) {
      return Told("edge ", edge, " is at ", edges.at(edge), ", not ", from + extent * share);
    }
    sum += edge < lengths.size() ? lengths.at(edge).value : 0;
  }
  return edges.front() == from && edges.back() == to
             ? ""
             : Told("edges from ", edges.front(), " to ", edges.back());
}

template <class Adapter>
std::string RectDifference(const Adapter& actual, const ReferencePage& expected, int block,
                           const ReferenceSelection& selection, const CRect& area) {
  const int rows = expected.Rows(block);
  const int cols = expected.Cols();
  const CRect untouched(-7, -7, -7, -7);
  const int count = rows * cols;
  std::vector<CRect> table(static_cast<std::size_t>(count) + 1, untouched);
  actual.InitCelRect(block, &area, table.data());
  if (!(table.back() == untouched)) {
    return "InitCelRect wrote beyond the table";
  }
  if (rows == 0) {
    return "";
  }
  const auto entry = [&](int row, int col) -> const CRect& {
    const int index = row * cols + col;
    return table.at(static_cast<std::size_t>(index));
  };
  std::vector<int> across = {entry(0, 0).left};
  std::vector<int> down = {entry(0, 0).top};
  for (int col = 0; col < cols; ++col) {
    across.push_back(entry(0, col).right);
  }
  for (int row = 0; row < rows; ++row) {
    down.push_back(entry(row, 0).bottom);
  }
  if (std::string wrong = EdgeDifference<Adapter>(across, expected.widths, area.left, area.right);
      !wrong.empty()) {
    return "columns: " + wrong;
  }
  if (std::string wrong =
          EdgeDifference<Adapter>(down, expected.At(block).heights, area.top, area.bottom);
      !wrong.empty()) {
    return "rows: " + wrong;
  }

  std::vector<std::optional<CRect>> blocks(table.size());  // at the top-left cells
  for (int index = 0; index < rows * cols; ++index) {
    const auto row = static_cast<std::size_t>(index / cols);
    const auto col = static_cast<std::size_t>(index % cols);
    const CRect position(across.at(col), down.at(row), across.at(col + 1), down.at(row + 1));
    if (!(entry(index / cols, index % cols) == position)) {
      return Told("position ", index, " does not share its neighbours' edges");
    }
    const Place owner = selection.blocks.at(row).at(col).first;
    const int ownIndex = owner.row * cols + owner.col;
    std::optional<CRect>& whole = blocks.at(static_cast<std::size_t>(ownIndex));
    if (whole) {
      whole->right = position.right;  // later positions lie further to the right or below
      whole->bottom = position.bottom;
    } else {
      whole = position;
    }
  }
  for (int index = -1; index <= rows * cols; ++index) {
    CRect rect = untouched;
    int row = -7;
    int col = -7;
    const int told = actual.GetCelRect(block, &rect, table.data(), index, &row, &col);
    const bool has = index >= 0 && blocks.at(static_cast<std::size_t>(index)).has_value();
    if ((told != 0) != has) {
      return Told("GetCelRect of ", index, " gives ", told);
    }
    const bool right = has ? rect == *blocks.at(static_cast<std::size_t>(index)) &&
                                 row == index / cols && col == index % cols
                           : rect == untouched;
    if (!right) {
      return Told("GetCelRect of ", index, " gives a wrong rectangle or place");
    }
  }
  return "";
}

template <class Adapter>
std::string RunDifference(const Adapter& actual, const ReferencePage& expected, int block,
                          const ReferenceSelection& selection) {
  for (int row = -1; row <= expected.Rows(block); ++row) {
    for (int col = -1; col <= expected.Cols(); ++col) {
      const auto run =
          std::find_if(selection.runs.begin(), selection.runs.end(), [&](const Run& each) {
            return each.span.first == Place{row, col};
          });
      const int wantedRows = run == selection.runs.end() ? 0 : run->Rows();
      const int wantedCols = run == selection.runs.end() ? 0 : run->Cols();
      BYTE rows = 77;
      BYTE cols = 77;
      const int told = actual.GetSerialSelCelCount(block, row, col, &rows, &cols);
      if ((told != 0) != (wantedRows > 0) || rows != wantedRows || cols != wantedCols) {
        return Told("GetSerialSelCelCount of ", Place{row, col}, " is ", told, ", ", int{rows},
                    " x ", int{cols}, ", not ", wantedRows, " x ", wantedCols);
      }
    }
  }
  return "";
}

/// Of what only pages of three blocks tell.
inline std::string CommandDifference(const BlocksAdapter& actual, const ReferencePage& expected,
                                     int block, const ReferenceSelection& selection) {
  const CLayoutExPageData& page = actual.page;
  const auto type = BlocksAdapter::Type(block);
  const bool any = !selection.cells.empty();
  Place first{-7, -7};
  const int told = page.GetFirstSelectCel(type, &first.row, &first.col);
  if ((told != 0) != any || (any && first != selection.cells.front().first)) {
    return Told("GetFirstSelectCel is ", told, ' ', first);
  }
  const int rows = expected.Rows(block);
  const int cols = expected.Cols();
  const std::array<std::pair<int, bool>, 6> possible = {{
      {page.IsInsertRow(type), any && rows < 255},
      {page.IsInsertCol(type), any && cols < 255},
      {page.IsDeleteRow(type), any && rows > 1},
      {page.IsDeleteCol(type), any && cols > 1},
      {page.IsSelRowEq(type), selection.rows.size() > 1},
      {page.IsSelColEq(type), selection.cols.size() > 1},
  }};
  for (std::size_t each = 0; each < possible.size(); ++each) {
    if ((possible.at(each).first != 0) != possible.at(each).second) {
      return Told("operation ", each, " (insert row, column, delete row, column, equal rows, ",
                  "columns) is possible: ", possible.at(each).first);
    }
  }
  return "";
}

template <class Adapter>
std::string SelectionDifference(const Adapter& actual, const ReferencePage& expected, int block,
                                const ReferenceSelection& selection) {
  if ((actual.IsSelected(block) != 0) != selection.anyMark) {
    return Told("IsSelected is ", actual.IsSelected(block));
  }
  if ((actual.IsMeargePossibleCel(block) != 0) != selection.CanMerge()) {
    return Told("IsMeargePossibleCel is ", actual.IsMeargePossibleCel(block));
  }
  if ((actual.IsDividePossibleCel(block) != 0) != selection.CanDivide()) {
    return Told("IsDividePossibleCel is ", actual.IsDividePossibleCel(block));
  }
  std::string wrong = RunDifference(actual, expected, block, selection);
  if constexpr (Adapter::kBlocks == 3) {
    if (wrong.empty()) {
      wrong = CommandDifference(actual, expected, block, selection);
    }
  }
  return wrong;
}

/// What is wrong with the cells of a block themselves.
template <class Adapter>
std::string CellsDifference(const Adapter& actual, const ReferencePage& expected, int block) {
  const int cells = expected.Rows(block) * expected.Cols();
  for (int index = 0; index < cells; ++index) {
    const Place place{index / expected.Cols(), index % expected.Cols()};
    Place told{-7, -7};
    if (actual.page.GetIndexFromRowCol(place.row, place.col) != index ||
        actual.page.GetRowColFromIndex(index, &told.row, &told.col) == 0 || told != place) {
      return Told("cell ", index, " is not at ", place);
    }
    const std::string wrong =
        CellDifference(*actual.CelAt(block, index), expected.Cell(block, place));
    if (!wrong.empty()) {
      return Told("cell ", place, ": ", wrong);
    }
  }
  const bool beyond = actual.CelAt(block, -1) != nullptr || actual.CelAt(block, cells) != nullptr;
  return beyond ? "a cell beyond the grid" : "";
}

/// With merge sizes that make no blocks the questions about the cells are asked, but any answer
/// will do.
template <class Adapter>
std::string BlockDifference(const Adapter& actual, const ReferencePage& expected, int block,
                            const CRect& area) {
  const int cells = expected.Rows(block) * expected.Cols();
  if (actual.NumRow(block) != expected.Rows(block) || actual.CelSize(block) != cells) {
    return Told(actual.NumRow(block), " rows and ", actual.CelSize(block), " cells, not ",
                expected.Rows(block), " rows");
  }
  std::string wrong =
      LengthDifference<Adapter>("row", expected.At(block).heights, actual.AllLengthRow(block),
                                [&](int row) { return actual.LengthRow(block, row); });
  if (wrong.empty()) {
    wrong = CellsDifference(actual, expected, block);
  }
  if (!wrong.empty()) {
    return wrong;
  }
  const ReferenceSelection selection = expected.Selection(block);
  wrong = SelectionDifference(actual, expected, block, selection);
  if (wrong.empty()) {
    wrong = RectDifference(actual, expected, block, selection, area);
  }
  if (!selection.sound) {
    return "";
  }
  return wrong.empty() ? Unsoundness(actual, block) : wrong;
}

/// What is wrong with the page as a whole; `area` is where its rectangles are tried.
template <class Adapter>
std::string Difference(const Adapter& actual, const ReferencePage& expected, const CRect& area) {
  if (actual.NumCol() != expected.Cols()) {
    return Told(actual.NumCol(), " columns, not ", expected.Cols());
  }
  std::string wrong = LengthDifference<Adapter>("column", expected.widths, actual.AllLengthCol(),
                                                [&](int col) { return actual.LengthCol(col); });
  if (wrong.empty()) {
    wrong = SettingsDifference(actual.Settings(), expected.settings);
  }
  for (int block = 0; wrong.empty() && block < Adapter::kBlocks; ++block) {
    wrong = BlockDifference(actual, expected, block, area);
    if (!wrong.empty()) {
      wrong = Told("block ", block, ": ", wrong);
    }
  }
  return wrong;
}

/// Whether both sides of each line of a block agree.
template <class Adapter>
bool LinesAreInStep(const Adapter& actual, const ReferencePage& expected, int block) {
  const GridOf<Span> blocks = expected.Blocks(block);
  const auto ownerOf = [&](Place place) -> const CLayoutCelData& {
    const Place owner = ItemAt(blocks, place).first;
    return *actual.CelAt(block, owner.row * expected.Cols() + owner.col);
  };
  const PlacesOf places({{0, 0}, expected.Rows(block), expected.Cols()});
  return std::all_of(places.begin(), places.end(), [&](Place place) {
    const Place right{place.row, place.col + 1};
    const Place below{place.row + 1, place.col};
    const CLayoutCelData& cell = ownerOf(place);
    return (right.col == expected.Cols() || &ownerOf(right) == &cell ||
            Shows(cell, Border::kRight) == Shows(ownerOf(right), Border::kLeft)) &&
           (below.row == expected.Rows(block) || &ownerOf(below) == &cell ||
            Shows(cell, Border::kBottom) == Shows(ownerOf(below), Border::kTop));
  });
}

/// Takes over the borders of all cells.
template <class Adapter>
void AdoptBorders(const Adapter& actual, ReferencePage& expected) {
  for (int block = 0; block < Adapter::kBlocks; ++block) {
    if (actual.NumRow(block) != expected.Rows(block) || actual.NumCol() != expected.Cols()) {
      continue;  // a difference that will be told
    }
    for (const Place place : PlacesOf({{0, 0}, expected.Rows(block), expected.Cols()})) {
      for (const Border border : kBorders) {
        expected.Cell(block, place).Shows(border) =
            Shows(*actual.CelAt(block, place.row * expected.Cols() + place.col), border);
      }
    }
  }
}

/// Takes over the page's own rounding, once it has been found near enough.
template <class Adapter>
void AdoptLengths(const Adapter& actual, ReferencePage& expected) {
  for (int col = 0; col < expected.Cols(); ++col) {
    expected.widths.at(static_cast<std::size_t>(col)) = {actual.LengthCol(col), 0};
  }
  for (int block = 0; block < Adapter::kBlocks; ++block) {
    for (int row = 0; row < expected.Rows(block); ++row) {
      expected.At(block).heights.at(static_cast<std::size_t>(row)) = {actual.LengthRow(block, row),
                                                                      0};
    }
  }
}

}  // namespace quorvel
