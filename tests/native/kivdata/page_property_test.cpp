// Both kinds of layout page, worked by long random sequences of operations and compared with the
// reference in whole after every one. A failure tells the seed and the shortest sequence found.

#include "kivdata/dice.h"
#include "kivdata/layout_ex_page_data.h"
#include "kivdata/layout_page_data.h"
#include "kivdata/page_adapters.h"
#include "kivdata/page_difference.h"
#include "kivdata/reference_page.h"
#include "kivdata/sample_pages.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <iterator>
#include <limits>
#include <memory>
#include <numeric>
#include <optional>
#include <random>
#include <set>
#include <sstream>
#include <string>
#include <type_traits>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

namespace quorvel {
namespace {

using test::TemporaryFolder;

template <class Adapter>
ReferencePage NewReference(const Adapter& actual) {
  ReferencePage expected(Adapter::kKind);
  expected.settings = actual.Settings();
  return expected;
}

CKivFontEx AnyFont(Dice& dice) {
  LOGFONTA record{};
  record.lfHeight = static_cast<LONG>(dice.Word());
  record.lfWidth = dice.Number(-50, 50);
  record.lfEscapement = dice.Number(0, 3600);
  record.lfOrientation = static_cast<LONG>(dice.Word());
  record.lfWeight = dice.Number(0, 1000);
  for (BYTE* byte : {&record.lfItalic, &record.lfUnderline, &record.lfStrikeOut, &record.lfCharSet,
                     &record.lfOutPrecision, &record.lfClipPrecision, &record.lfQuality,
                     &record.lfPitchAndFamily}) {
    *byte = static_cast<BYTE>(dice.Number(0, 255));
  }
  const std::string face = dice.Text(LF_FACESIZE - 1);
  std::copy(face.begin(), face.end(), std::begin(record.lfFaceName));

  CKivFontEx font;
  font.SetLogFont(&record);
  const COLORREF color = dice.Word();
  const COLORREF backColor = dice.Word();
  font.SetColor(&color);
  font.SetBackColor(&backColor);
  font.SetStrikeOutType(static_cast<BYTE>(dice.Number(0, 1)));
  font.SetV(dice.Length());
  font.SetH(dice.Length() / 3);
  font.SetHPos(static_cast<BYTE>(dice.Number(0, 2)));
  font.SetVPos(static_cast<BYTE>(dice.Number(0, 2)));
  return font;
}

/// How carefully a sequence treats what the page leaves to its callers.
enum class Care {
  kLinesInStep,   ///< borders change on both sides of a line, cells are merged by the page
  kAnyBorders,    ///< any border alone, cells are also merged by hand
  kAnyMergeSizes  ///< also merge sizes that make no blocks
};

struct Failure {
  int step = 0;
  std::string problem;
  std::vector<std::string> operations;
};

/// A page and its reference through one sequence; a second pair takes copies.
template <class Adapter>
class Duel {
public:
  struct Options {
    unsigned seed = 0;
    int largest = 7;  ///< rows and columns are kept to this
    Care care = Care::kLinesInStep;
    std::string file;
  };

  explicit Duel(const Options& options) : m_options(options) {
    Dice dice(options.seed);
    for (Contestant& each : m_pages) {
      each.expected = NewReference(*each.actual);
    }
    for (int block = 0; block < Adapter::kBlocks; ++block) {
      Divide(block, dice.Number(1, options.largest), dice.Number(1, options.largest), 0);
    }
  }

  /// Plays the given steps; each has its own dice, so that it does not depend on which others are
  /// played.
  std::optional<Failure> Play(const std::vector<int>& steps) {
    Failure failure;
    for (const int step : steps) {
      Dice dice(m_options.seed * 100003U + static_cast<unsigned>(step));
      failure.step = step;
      m_bordersChanged = false;
      failure.operations.push_back(Told(step, ": ", Operate(dice)));
      FollowBorders();
      if (m_problem.empty()) {
        m_problem = Problem(Current(), AnyArea(dice));
      }
      if (!m_problem.empty()) {
        failure.problem = m_problem;
        return failure;
      }
    }
    return std::nullopt;
  }

private:
  using Number = typename Adapter::Number;
  using Operation = std::string (Duel::*)(Dice&);
  static constexpr bool kThreeBlocks = Adapter::kBlocks == 3;

  struct Contestant {
    std::unique_ptr<Adapter> actual = std::make_unique<Adapter>();
    ReferencePage expected{Adapter::kKind};
    /// For every block its columns and where its cells are.
    std::vector<std::pair<int, std::vector<const CLayoutCelData*>>> cells;
  };

  Contestant& Current() { return m_pages.at(m_current); }
  Contestant& Other() { return m_pages.at(1 - m_current); }
  Adapter& Actual() { return *Current().actual; }
  ReferencePage& Expected() { return Current().expected; }

  bool AreLinesInStep() const { return m_options.care == Care::kLinesInStep; }

  /// In a block with merge sizes that make no blocks the page's answers are its own.
  bool IsUnclear(int block) { return !Expected().Selection(block).sound; }

  /// Takes over what the reference leaves open: single lines, or after a change all borders when
  /// their two sides did not agree before.
  void FollowBorders() {
    ReferencePage& expected = Expected();
    if (!AreLinesInStep()) {
      if (m_bordersChanged) {
        AdoptBorders(Actual(), expected);
      }
      expected.undecided.clear();
      return;
    }
    for (const LineOfEdges& line : expected.undecided) {
      const Edge& first = line.edges.front();
      expected.Decide(line, Shows(CellAt(line.block, first.owner), first.border));
    }
    expected.undecided.clear();
    for (int block = 0; block < Adapter::kBlocks; ++block) {
      Require(expected.Rows(block) != Actual().NumRow(block) ||
                  expected.Cols() != Actual().NumCol() || LinesAreInStep(Actual(), expected, block),
              "block ", block, ": the two sides of a line differ");
    }
  }

  template <class... Parts>
  void Require(bool holds, const Parts&... what) {
    if (!holds && m_problem.empty()) {
      m_problem = Told(what...);
    }
  }

  /// Compares a page in whole, and that its cells stayed in place if its shape did.
  std::string Problem(Contestant& page, const CRect& area) {
    if (std::string wrong = Difference(*page.actual, page.expected, area); !wrong.empty()) {
      return wrong;
    }
    AdoptLengths(*page.actual, page.expected);
    std::vector<std::pair<int, std::vector<const CLayoutCelData*>>> cells;
    for (int block = 0; block < Adapter::kBlocks; ++block) {
      cells.emplace_back(page.expected.Cols(), std::vector<const CLayoutCelData*>());
      for (int index = 0; index < page.actual->CelSize(block); ++index) {
        cells.back().second.push_back(page.actual->CelAt(block, index));
      }
      if (!page.cells.empty()) {
        const auto& [oldCols, oldCells] = page.cells.at(static_cast<std::size_t>(block));
        if (oldCols == cells.back().first && oldCells.size() == cells.back().second.size() &&
            oldCells != cells.back().second) {
          return Told("block ", block, ": the cells moved, the shape is the same");
        }
      }
    }
    page.cells = std::move(cells);
    return "";
  }

  static CRect AnyArea(Dice& dice) {
    const int left = dice.Number(-2000, 2000);
    const int top = dice.Number(-2000, 2000);
    return {left, top, left + dice.Number(0, 1500), top + dice.Number(0, 1500)};
  }

  std::string Operate(Dice& dice) {
    static const std::vector<std::pair<int, Operation>> operations = Operations();
    int ticket = 0;
    for (const auto& [weight, operation] : operations) {
      ticket += weight;
    }
    ticket = dice.Number(1, ticket);
    for (const auto& [weight, operation] : operations) {
      ticket -= weight;
      if (ticket <= 0) {
        return (this->*operation)(dice);
      }
    }
    return "nothing";
  }

  /// With how often each is to come, of about a thousand.
  static std::vector<std::pair<int, Operation>> Operations() {
    std::vector<std::pair<int, Operation>> operations = {
        {70, &Duel::SetText},         {40, &Duel::SetFont},
        {40, &Duel::SetBorders},      {80, &Duel::Mark},
        {170, &Duel::SelectArea},     {20, &Duel::SelectAllOrNone},
        {110, &Duel::Merge},          {50, &Duel::MergeByHand},
        {60, &Duel::DivideCell},      {60, &Duel::DivideAnew},
        {50, &Duel::SetLength},       {50, &Duel::SetAllLength},
        {30, &Duel::SetSetting},      {10, &Duel::Copy},
        {10, &Duel::SwitchPages},     {5, &Duel::SaveAndOpen},
        {2, &Duel::OpenOtherKind},    {10, &Duel::Nonsense},
        {20, &Duel::SetAnyMergeSize},
    };
    if constexpr (kThreeBlocks) {
      operations.insert(operations.end(), {{50, &Duel::InsertRow},
                                           {50, &Duel::DeleteRow},
                                           {40, &Duel::InsertCol},
                                           {40, &Duel::DeleteCol},
                                           {30, &Duel::MakeRowsEqual},
                                           {30, &Duel::MakeColsEqual},
                                           {80, &Duel::ShowLines}});
    }
    return operations;
  }

  int AnyBlock(Dice& dice) { return dice.Number(0, Adapter::kBlocks - 1); }

  /// A block that has cells, if there is one.
  int AnyFilledBlock(Dice& dice) {
    int block = AnyBlock(dice);
    for (int tries = 0; tries < 3 && Expected().Rows(block) == 0; ++tries) {
      block = (block + 1) % Adapter::kBlocks;
    }
    return block;
  }

  Place AnyPlace(Dice& dice, int block) {
    return {dice.Number(0, Expected().Rows(block) - 1), dice.Number(0, Expected().Cols() - 1)};
  }

  CLayoutCelData& CellAt(int block, Place place) {
    return *Actual().CelAt(block, Actual().page.GetIndexFromRowCol(place.row, place.col));
  }

  // Single cells.

  std::string SetText(Dice& dice) {
    const int block = AnyFilledBlock(dice);
    if (Expected().Rows(block) == 0) {
      return "no cell";
    }
    const Place place = AnyPlace(dice, block);
    const bool null = dice.OneIn(15);
    const std::string text = null ? "" : dice.Text(dice.OneIn(20) ? 400 : 8);
    CellAt(block, place).SetText(null ? nullptr : text.c_str());
    Expected().Cell(block, place).text = text;
    return Told("SetText of block ", block, place);
  }

  std::string SetFont(Dice& dice) {
    const int block = AnyFilledBlock(dice);
    if (Expected().Rows(block) == 0) {
      return "no cell";
    }
    const Place place = AnyPlace(dice, block);
    const CKivFontEx font = AnyFont(dice);
    CellAt(block, place).SetFont(nullptr);
    CellAt(block, place).SetFont(&font);
    Expected().Cell(block, place).font = font;
    return Told("SetFont of block ", block, place);
  }

  std::string SetBorders(Dice& dice) {
    const int block = AnyFilledBlock(dice);
    if (Expected().Rows(block) == 0) {
      return "no cell";
    }
    const Place place = AnyPlace(dice, block);
    const Border border =
        dice.OneOf({Border::kLeft, Border::kTop, Border::kRight, Border::kBottom});
    const bool shown = dice.OneIn(2);
    if (!AreLinesInStep()) {
      SetBorder(CellAt(block, place), border, shown);
      Expected().Cell(block, place).Shows(border) = shown;
      return Told("border ", static_cast<int>(border), " of block ", block, place, " to ", shown);
    }
    const Place owner = ItemAt(Expected().Blocks(block), place).first;
    Expected().ShowLineOf(block, {owner, border}, shown);
    for (const Place each : PlacesOf({{0, 0}, Expected().Rows(block), Expected().Cols()})) {
      for (const Border side : kBorders) {
        SetBorder(CellAt(block, each), side, Expected().Cell(block, each).Shows(side));
      }
    }
    return Told("the line of border ", static_cast<int>(border), " of block ", block, owner, " to ",
                shown);
  }

  void Select(int block, Place place, bool selected) {
    CellAt(block, place).SetSelected(selected ? 2 : 0);
    Expected().Cell(block, place).selected = selected;
  }

  std::string Mark(Dice& dice) {
    const int block = AnyFilledBlock(dice);
    if (Expected().Rows(block) == 0) {
      return "no cell";
    }
    const Place place = AnyPlace(dice, block);
    const bool selected = !Expected().Cell(block, place).selected;
    Select(block, place, selected);
    return Told("SetSelected of block ", block, place, " to ", selected);
  }

  /// Marks a rectangle, with or without the covered cells in it, as the only marks or beside
  /// others.
  std::string SelectArea(Dice& dice) {
    const int block = AnyFilledBlock(dice);
    if (Expected().Rows(block) == 0) {
      return "no cell";
    }
    const Place one = AnyPlace(dice, block);
    const Place two = AnyPlace(dice, block);
    const bool only = !dice.OneIn(3);
    const bool covered = dice.OneIn(4);
    const GridOf<Span> blocks = Expected().Blocks(block);
    for (int row = 0; row < Expected().Rows(block); ++row) {
      for (int col = 0; col < Expected().Cols(); ++col) {
        const Place place{row, col};
        const bool within =
            std::clamp(row, std::min(one.row, two.row), std::max(one.row, two.row)) == row &&
            std::clamp(col, std::min(one.col, two.col), std::max(one.col, two.col)) == col;
        const bool own = ItemAt(blocks, place).first == place;
        if (within && (own || covered)) {
          Select(block, place, true);
        } else if (only) {
          Select(block, place, false);
        }
      }
    }
    return Told("select block ", block, one, " to ", two, only ? " only" : " also",
                covered ? " with covered cells" : "");
  }

  std::string SelectAllOrNone(Dice& dice) {
    const int block = AnyBlock(dice);
    const bool selected = dice.OneIn(2);
    for (int row = 0; row < Expected().Rows(block); ++row) {
      for (int col = 0; col < Expected().Cols(); ++col) {
        Select(block, {row, col}, selected);
      }
    }
    return Told("select all of block ", block, ": ", selected);
  }

  // Merging.

  /// The beginning of a run, a merged cell, or anything around the grid.
  Place AnyTarget(Dice& dice, int block, bool merged) {
    const ReferenceSelection selection = Expected().Selection(block);
    std::vector<Place> targets;
    if (merged) {
      for (int row = 0; row < Expected().Rows(block); ++row) {
        for (int col = 0; col < Expected().Cols(); ++col) {
          const ReferenceCell& cell = Expected().Cell(block, {row, col});
          if (cell.rowMergeSize * cell.colMergeSize > 1) {
            targets.push_back({row, col});
          }
        }
      }
    } else {
      for (const Run& run : selection.runs) {
        targets.push_back(run.span.first);
      }
    }
    if (targets.empty() || dice.OneIn(4)) {
      return {dice.Number(-1, Expected().Rows(block)), dice.Number(-1, Expected().Cols())};
    }
    return targets.at(
        static_cast<std::size_t>(dice.Number(0, static_cast<int>(targets.size()) - 1)));
  }

  std::string Merge(Dice& dice) {
    const int block = AnyBlock(dice);
    const Place place = AnyTarget(dice, block, false);
    const int merged = Actual().MeargeCel(block, place.row, place.col);
    if (IsUnclear(block)) {
      return AdoptCells(block, "MeargeCel");
    }
    m_bordersChanged = Expected().MeargeCel(block, place);
    Require((merged != 0) == m_bordersChanged, "MeargeCel gave ", merged);
    return Told("MeargeCel of block ", block, place);
  }

  /// Merges as a host does, cell by cell, when the page tells a run of two cells or more.
  std::string MergeByHand(Dice& dice) {
    const int block = AnyBlock(dice);
    if (AreLinesInStep() || IsUnclear(block)) {
      return "nothing";
    }
    const Place place = AnyTarget(dice, block, false);
    BYTE rows = 0;
    BYTE cols = 0;
    if (Actual().GetSerialSelCelCount(block, place.row, place.col, &rows, &cols) == 0 ||
        rows * cols < 2) {
      return "no run";
    }
    for (int row = 0; row < rows; ++row) {
      for (int col = 0; col < cols; ++col) {
        const bool first = row == 0 && col == 0;
        CLayoutCelData& cell = CellAt(block, {place.row + row, place.col + col});
        cell.SetRowMeargeSize(first ? rows : BYTE{0});
        cell.SetColMeargeSize(first ? cols : BYTE{0});
        if (!first) {
          cell.SetSelected(0);
        }
      }
    }
    Require(Expected().MergeByHand(block, place), "a run was told where there is none");
    return Told("merge by hand at block ", block, place);
  }

  std::string DivideCell(Dice& dice) {
    const int block = AnyBlock(dice);
    const Place place = AnyTarget(dice, block, true);
    const int divided = Actual().DivideCel(block, place.row, place.col);
    if (IsUnclear(block)) {
      return AdoptCells(block, "DivideCel");
    }
    m_bordersChanged = Expected().DivideCel(block, place);
    Require((divided != 0) == m_bordersChanged, "DivideCel gave ", divided);
    return Told("DivideCel of block ", block, place);
  }

  /// Takes over a block's marks, merge sizes and borders.
  std::string AdoptCells(int block, const char* operation) {
    for (const Place place : PlacesOf({{0, 0}, Expected().Rows(block), Expected().Cols()})) {
      const CLayoutCelData& cell = CellAt(block, place);
      Expected().Cell(block, place).selected = cell.GetSelected() != 0;
      Expected().Cell(block, place).rowMergeSize = cell.GetRowMeargeSize();
      Expected().Cell(block, place).colMergeSize = cell.GetColMeargeSize();
    }
    m_bordersChanged = true;
    return Told(operation, " in block ", block, ", which is unclear");
  }

  std::string SetAnyMergeSize(Dice& dice) {
    const int block = AnyFilledBlock(dice);
    if (m_options.care != Care::kAnyMergeSizes || Expected().Rows(block) == 0) {
      return "nothing";
    }
    const Place place = AnyPlace(dice, block);
    const int rows = dice.Number(0, 3);
    const int cols = dice.Number(0, 3);
    CellAt(block, place).SetRowMeargeSize(static_cast<BYTE>(rows));
    CellAt(block, place).SetColMeargeSize(static_cast<BYTE>(cols));
    Expected().Cell(block, place).rowMergeSize = rows;
    Expected().Cell(block, place).colMergeSize = cols;
    return Told("merge size of block ", block, place, " to ", rows, " x ", cols);
  }

  // Shape.

  std::string Divide(int block, int rows, int columns, double dotsPerMm) {
    Actual().DividePage(block, rows, columns, dotsPerMm);
    m_bordersChanged = Expected().DividePage(block, rows, columns, dotsPerMm);
    return Told("DividePage of block ", block, " to ", rows, " x ", columns);
  }

  std::string DivideAnew(Dice& dice) {
    const int block = AnyBlock(dice);
    int rows = dice.OneIn(3) ? Expected().Rows(block) : dice.Number(1, m_options.largest);
    if (dice.OneIn(10)) {
      rows = 0;
    }
    int columns = dice.OneIn(3) ? Expected().Cols() : dice.Number(1, m_options.largest);
    if (dice.OneIn(20)) {
      columns = 0;
    }
    constexpr double kNoNumber = std::numeric_limits<double>::quiet_NaN();
    return Divide(block, rows, columns, dice.OneOf({0.0, 11.811, 4.0, -4.0, kNoNumber}));
  }

  /// A line of the grid, now and then one around it.
  static int AnyLine(Dice& dice, int count) {
    return dice.OneIn(10) ? dice.OneOf({-1, count, 255, -1000000}) : dice.Number(0, count - 1);
  }

  std::string InsertRow(Dice& dice) {
    const int block = AnyBlock(dice);
    if (Expected().Rows(block) >= m_options.largest) {
      return DeleteRow(dice);
    }
    const int row = AnyLine(dice, std::max(Expected().Rows(block), 1));
    Actual().page.InsertRow(Adapter::Type(block), row);
    m_bordersChanged = Expected().InsertRow(block, row);
    return Told("InsertRow of block ", block, " before ", row);
  }

  std::string DeleteRow(Dice& dice) {
    const int block = AnyBlock(dice);
    const int row = AnyLine(dice, std::max(Expected().Rows(block), 1));
    Actual().page.DeleteRow(Adapter::Type(block), row);
    m_bordersChanged = Expected().DeleteRow(block, row);
    return Told("DeleteRow of block ", block, ": ", row);
  }

  std::string InsertCol(Dice& dice) {
    if (Expected().Cols() >= m_options.largest) {
      return DeleteCol(dice);
    }
    const int col = AnyLine(dice, Expected().Cols());
    Actual().page.InsertCol(col);
    m_bordersChanged = Expected().InsertCol(col);
    return Told("InsertCol before ", col);
  }

  std::string DeleteCol(Dice& dice) {
    const int col = AnyLine(dice, Expected().Cols());
    Actual().page.DeleteCol(col);
    m_bordersChanged = Expected().DeleteCol(col);
    return Told("DeleteCol: ", col);
  }

  // Lengths.

  std::string SetLength(Dice& dice) {
    const bool bad = dice.OneIn(5);
    const auto length = static_cast<Number>(bad ? dice.NoLength() : dice.Length());
    const int block = AnyBlock(dice);
    const bool column = dice.OneIn(2);
    ReferenceLengths& lengths = column ? Expected().widths : Expected().At(block).heights;
    const int count = static_cast<int>(lengths.size());
    const int line = AnyLine(dice, std::max(count, 1));
    if (column) {
      Actual().SetLengthCol(line, length);
    } else {
      Actual().SetLengthRow(block, line, length);
    }
    if (!bad && line >= 0 && line < count) {
      lengths.at(static_cast<std::size_t>(line)).value = length;
    }
    return Told(column ? "SetLengthCol " : "SetLengthRow of block ", block, ", ", line, " to ",
                length);
  }

  std::string SetAllLength(Dice& dice) {
    const bool bad = dice.OneIn(8);
    const auto total = static_cast<Number>(bad ? dice.NoLength() : dice.Length());
    const int block = AnyBlock(dice);
    const bool column = dice.OneIn(2);
    const int equal = dice.Number(0, 2);
    ReferenceLengths& lengths = column ? Expected().widths : Expected().At(block).heights;
    if (column) {
      Actual().SetAllLengthCol(total, equal);
    } else {
      Actual().SetAllLengthRow(block, total, equal);
    }
    Expected().SetAllLength(lengths, total, equal != 0);
    if (!bad && !lengths.empty()) {
      Number sum = 0;
      for (int line = 0; line < static_cast<int>(lengths.size()); ++line) {
        sum += column ? Actual().LengthCol(line) : Actual().LengthRow(block, line);
      }
      const Number all = column ? Actual().AllLengthCol() : Actual().AllLengthRow(block);
      Require(sum == total && all == total, "the lengths sum to ", sum, ", all are ", all);
    }
    return Told(column ? "SetAllLengthCol " : "SetAllLengthRow of block ", block, " to ", total,
                ", equal ", equal);
  }

  void RequireSameSum(const ReferenceLengths& lengths, const std::vector<int>& lines,
                      const auto& lengthAt) {
    if (lines.size() < 2) {
      return;
    }
    double before = 0;
    double after = 0;
    for (const int line : lines) {
      before += lengths.at(static_cast<std::size_t>(line)).value;
      after += lengthAt(line);
    }
    Require(std::fabs(before - after) <=
                static_cast<double>(lines.size()) * Expected().Epsilon() * before,
            "the sum went from ", before, " to ", after);
  }

  std::string MakeRowsEqual(Dice& dice) {
    const int block = AnyBlock(dice);
    const ReferenceLengths before = Expected().At(block).heights;
    const std::vector<int> rows = Expected().Selection(block).rows;
    Actual().page.SelRowEq(Adapter::Type(block));
    if (IsUnclear(block)) {
      AdoptLengths(Actual(), Expected());
      return "SelRowEq of an unclear block";
    }
    Expected().SelRowEq(block);
    RequireSameSum(before, rows, [&](int row) { return Actual().LengthRow(block, row); });
    return Told("SelRowEq of block ", block);
  }

  std::string MakeColsEqual(Dice& dice) {
    const int block = AnyBlock(dice);
    const ReferenceLengths before = Expected().widths;
    const std::vector<int> cols = Expected().Selection(block).cols;
    Actual().page.SelColEq(Adapter::Type(block));
    if (IsUnclear(block)) {
      AdoptLengths(Actual(), Expected());
      return "SelColEq of an unclear block";
    }
    Expected().SelColEq(block);
    RequireSameSum(before, cols, [&](int col) { return Actual().LengthCol(col); });
    return Told("SelColEq of block ", block);
  }

  // Ruled lines.

  std::string ShowLines(Dice& dice) {
    const int block = AnyBlock(dice);
    std::array<int, 6> shown{};
    for (int& each : shown) {
      each = dice.Number(0, 2);
    }
    Actual().page.SetShowLine(Adapter::Type(block), shown[0], shown[1], shown[2], shown[3],
                              shown[4], shown[5]);
    if (IsUnclear(block)) {
      return AdoptCells(block, "SetShowLine");
    }
    // What it sets must be so in any case; what else was out of step may come into step by it.
    ReferencePage& expected = Expected();
    m_bordersChanged = expected.SetShowLine(block, shown[0] != 0, shown[1] != 0, shown[2] != 0,
                                            shown[3] != 0, shown[4] != 0, shown[5] != 0);
    const ReferenceSelection selection = expected.Selection(block);
    for (const Run& run : selection.runs) {
      CheckLinesOf(block, run, selection, shown);
    }
    return Told("SetShowLine of block ", block, ": ", shown[0], shown[1], shown[2], shown[3],
                shown[4], shown[5]);
  }

  /// That the cells of a run and their neighbours have the lines that the run was given.
  void CheckLinesOf(int block, const Run& run, const ReferenceSelection& selection,
                    const std::array<int, 6>& shown) {
    std::set<Edge> contested;
    for (const LineOfEdges& line : Expected().undecided) {
      contested.insert(line.edges.begin(), line.edges.end());
    }
    const Span page{{0, 0}, Expected().Rows(block), Expected().Cols()};
    for (const Place place : PlacesOf(run.span)) {
      const Span& its = ItemAt(selection.blocks, place);
      for (const Border border : kBorders) {
        const Place next = NeighboursOf(place).at(static_cast<std::size_t>(border));
        if (its.Holds(next)) {
          continue;  // inside a block
        }
        const bool wanted =
            shown.at(run.span.Holds(next) ? InnerSwitch(border) : OuterSwitch(border)) != 0;
        const bool state = Shows(CellAt(block, its.first), border);
        Require(state == wanted || contested.contains({its.first, border}), "border ",
                static_cast<int>(border), " of ", its.first, " is ", state);
        if (page.Holds(next)) {
          const Place facing = ItemAt(selection.blocks, next).first;
          Require(Shows(CellAt(block, facing), Opposite(border)) == state, "the border of ", facing,
                  " that faces ", its.first, " is not the same");
        }
      }
    }
  }

  /// Which of SetShowLine's switches is for a border.
  static std::size_t OuterSwitch(Border border) {
    constexpr std::array<std::size_t, 4> kSwitches = {3, 0, 5, 2};
    return kSwitches.at(static_cast<std::size_t>(border));
  }
  static std::size_t InnerSwitch(Border border) {
    return border == Border::kTop || border == Border::kBottom ? 1 : 4;
  }

  // The page as a whole.

  std::string SetSetting(Dice& dice) {
    Actual().ChangeSetting(dice, Expected().settings);
    return "a setting";
  }

  std::string Copy(Dice& dice) {
    if (dice.OneIn(4)) {
      const CLayoutCelData* cell = Actual().CelAt(0, 0);
      Adapter& self = Actual();
      Actual().page = self.page;
      Require(Actual().CelAt(0, 0) == cell, "the cells moved");
      return "assign to itself";
    }
    Other().expected = Expected();
    if (dice.OneIn(2)) {
      Other().actual = std::make_unique<Adapter>(Actual());
      Other().cells.clear();
    } else {
      Other().actual->page = Actual().page;
    }
    m_problem = Problem(Other(), AnyArea(dice));
    return "copy to the second page";
  }

  std::string SwitchPages(Dice& /*dice*/) {
    m_current = 1 - m_current;
    return "go on with the second page";
  }

  std::string SaveAndOpen(Dice& dice) {
    Require(Actual().page.SaveFile(m_options.file.c_str()) != 0, "SaveFile failed");
    const int target = dice.Number(0, 2);
    Contestant fresh;
    Contestant& page = target == 0 ? fresh : target == 1 ? Other() : Current();
    page.expected = Expected();
    page.expected.ReadBack();
    Require(page.actual->page.OpenFile(m_options.file.c_str()) != 0, "OpenFile failed");
    if (m_problem.empty()) {
      m_problem = Problem(page, AnyArea(dice));
    }
    return Told("save, open in page ", target);
  }

  std::string OpenOtherKind(Dice& /*dice*/) {
    std::conditional_t<kThreeBlocks, GridAdapter, BlocksAdapter> other;
    Require(other.page.SaveFile(m_options.file.c_str()) != 0, "SaveFile failed");
    Require(Actual().page.OpenFile(m_options.file.c_str()) == 0, "the other kind was opened");
    return "open a file of the other kind";
  }

  /// What names nothing changes nothing.
  std::string Nonsense(Dice& dice) {
    Adapter& page = Actual();
    const int block = AnyBlock(dice);
    const int rows = Expected().Rows(block);
    const int cols = Expected().Cols();
    const CRect area(0, 0, 100, 100);
    CRect rect;
    int number = -7;
    BYTE count = 77;
    page.DividePage(block, rows, 0, 0);
    Require(page.page.OpenFile(nullptr) == 0 && page.page.SaveFile(nullptr) == 0 &&
                page.page.OpenFile("/nowhere/at/all") == 0 &&
                page.page.SaveFile("/nowhere/at/all") == 0,
            "a file that cannot be");
    Require(page.page.GetIndexFromRowCol(-1, 0) == -1 &&
                page.page.GetIndexFromRowCol(0, -1) == -1 &&
                page.page.GetIndexFromRowCol(0, cols) == -1 &&
                page.page.GetIndexFromRowCol(kThreeBlocks ? 255 : rows, 0) == -1,
            "an index of no cell");
    Require(page.page.GetRowColFromIndex(-1, &number, &number) == 0 &&
                page.page.GetRowColFromIndex(kThreeBlocks ? 255 * cols : rows * cols, &number,
                                             &number) == 0 &&
                number == -7,
            "a place of no cell");
    // Where the answer is for nobody, it is enough that nothing breaks.
    page.page.GetRowColFromIndex(0, nullptr, nullptr);
    page.GetSerialSelCelCount(block, 0, 0, nullptr, &count);
    page.GetSerialSelCelCount(block, 0, 0, &count, nullptr);
    page.InitCelRect(block, nullptr, &rect);
    page.InitCelRect(block, &area, nullptr);
    Require(page.GetCelRect(block, &rect, nullptr, 0, nullptr, nullptr) == 0 && rect == CRect(),
            "a rectangle from no table");
    if constexpr (kThreeBlocks) {
      UnknownBlock(dice.OneOf({-1, 3, 1000000, -2000000000}));
    }
    return "nonsense";
  }

  void UnknownBlock(int block) {
    CLayoutExPageData& page = Actual().page;
    const auto type = Adapter::Type(block);
    const CRect area(0, 0, 100, 100);
    CRect rect;
    BYTE count = 77;
    BYTE otherCount = 77;
    Place place;
    page.DividePage(type, 3, 3, 0);
    page.InsertRow(type, 0);
    page.DeleteRow(type, 0);
    page.SetLengthRow(type, 0, 1.0F);
    page.SetAllLengthRow(type, 1.0F, 1);
    page.SelRowEq(type);
    page.SelColEq(type);
    page.SetShowLine(type, 1, 0, 1, 0, 1, 0);
    page.SetUse(type, 1);
    page.InitCelRect(type, &area, &rect);
    Require(page.GetNumRow(type) == 0 && page.GetAllLengthRow(type) == 0 &&
                page.GetLengthRow(type, 0) == 0 && page.GetCelSize(type) == 0 &&
                page.GetCelAt(type, 0) == nullptr && page.GetUse(type) == 0,
            "a block that is not");
    Require(page.IsSelected(type) == 0 && page.IsInsertRow(type) == 0 &&
                page.IsDeleteRow(type) == 0 && page.IsInsertCol(type) == 0 &&
                page.IsDeleteCol(type) == 0 && page.IsSelRowEq(type) == 0 &&
                page.IsSelColEq(type) == 0 && page.IsMeargePossibleCel(type) == 0 &&
                page.IsDividePossibleCel(type) == 0 && page.MeargeCel(type, 0, 0) == 0 &&
                page.DivideCel(type, 0, 0) == 0 &&
                page.GetFirstSelectCel(type, &place.row, &place.col) == 0 &&
                page.GetSerialSelCelCount(type, 0, 0, &count, &otherCount) == 0 && count == 0 &&
                otherCount == 0 && page.GetCelRect(type, &rect, &rect, 0, nullptr, nullptr) == 0 &&
                rect == CRect(),
            "a selection in a block that is not");
  }

  Options m_options;
  std::array<Contestant, 2> m_pages;
  std::size_t m_current = 0;
  bool m_bordersChanged = false;  ///< by an operation on the shape, the merges or the lines
  std::string m_problem;
};

template <class Adapter>
std::optional<Failure> PlayNew(const typename Duel<Adapter>::Options& options,
                               const std::vector<int>& steps) {
  return Duel<Adapter>(options).Play(steps);
}

/// Leaves out steps, ever smaller pieces of the sequence, as long as it still fails.
template <class Adapter>
Failure Shortest(const typename Duel<Adapter>::Options& options, Failure failure) {
  std::vector<int> steps(static_cast<std::size_t>(failure.step) + 1);
  std::iota(steps.begin(), steps.end(), 0);
  for (std::size_t piece = steps.size(); piece > 0; piece /= 2) {
    for (std::size_t from = 0; from < steps.size();) {
      std::vector<int> fewer = steps;
      const auto first = fewer.begin() + static_cast<std::ptrdiff_t>(from);
      fewer.erase(first, first + static_cast<std::ptrdiff_t>(std::min(piece, fewer.size() - from)));
      if (const std::optional<Failure> again = PlayNew<Adapter>(options, fewer)) {
        failure = *again;
        steps = fewer;
      } else {
        from += piece;
      }
    }
  }
  return failure;
}

/// Plays many sequences; tells the first that fails.
template <class Adapter>
void PlaySequences(int sequences, int length, Care care) {
  const TemporaryFolder folder;
  std::vector<int> steps(static_cast<std::size_t>(length));
  std::iota(steps.begin(), steps.end(), 0);
  for (int sequence = 0; sequence < sequences; ++sequence) {
    typename Duel<Adapter>::Options options;
    options.seed = static_cast<unsigned>(sequence);
    options.largest = sequence % 12 == 11 ? 12 : 3 + sequence % 5;
    options.care = care;
    options.file = folder.File("page");
    const std::optional<Failure> failure = PlayNew<Adapter>(options, steps);
    if (failure) {
      const Failure shortest = Shortest<Adapter>(options, *failure);
      std::ostringstream operations;
      std::copy(shortest.operations.begin(), shortest.operations.end(),
                std::ostream_iterator<std::string>(operations, "\n"));
      FAIL() << "seed " << options.seed << ", grids up to " << options.largest
             << ", failed at step " << failure->step << ": " << failure->problem
             << "\nshortest sequence:\n"
             << operations.str() << shortest.problem;
    }
  }
}

/// A page and its reference for the tests of extremes.
template <class Adapter>
class Extreme {
public:
  Adapter actual;
  ReferencePage expected{Adapter::kKind};

  Extreme() : expected(NewReference(actual)) {}

  void DividePage(int block, int rows, int columns) {
    actual.DividePage(block, rows, columns, 0);
    expected.DividePage(block, rows, columns, 0);
  }
  /// Merges a rectangle; nothing is selected afterwards.
  void Merge(int block, const Span& span) {
    for (const Place place : PlacesOf(span)) {
      actual.CelAt(block, place.row * expected.Cols() + place.col)->SetSelected(1);
      expected.Cell(block, place).selected = true;
    }
    EXPECT_NE(actual.MeargeCel(block, span.first.row, span.first.col), 0);
    EXPECT_TRUE(expected.MeargeCel(block, span.first));
    actual.CelAt(block, span.first.row * expected.Cols() + span.first.col)->SetSelected(0);
    expected.Cell(block, span.first).selected = false;
  }
  void ExpectSame() {
    EXPECT_EQ(Difference(actual, expected, CRect(-5, 7, 1000, 600)), "");
    AdoptLengths(actual, expected);
  }
};

template <class Adapter>
class PageExtremes : public testing::Test {};
using PageKinds = testing::Types<GridAdapter, BlocksAdapter>;
TYPED_TEST_SUITE(PageExtremes, PageKinds);

TYPED_TEST(PageExtremes, ANewPageIsOneCellOfTenMillimetres) {
  Extreme<TypeParam> page;
  page.ExpectSame();
}

TYPED_TEST(PageExtremes, AsManyRowsAndColumnsAsABlockCanHave) {
  constexpr int kBlock = TypeParam::kBlocks / 2;
  Extreme<TypeParam> page;
  page.DividePage(kBlock, 255, 255);
  page.ExpectSame();

  const TemporaryFolder folder;
  const std::string file = folder.File("page");
  TypeParam opened;
  ASSERT_NE(page.actual.page.SaveFile(file.c_str()), 0);
  ASSERT_NE(opened.page.OpenFile(file.c_str()), 0);
  EXPECT_EQ(Difference(opened, page.expected, CRect(0, 0, 1, 1)), "");
}

TYPED_TEST(PageExtremes, MergesAsLongAsTheGrid) {
  constexpr int kBlock = TypeParam::kBlocks / 2;
  Extreme<TypeParam> page;
  page.DividePage(kBlock, 255, 2);
  page.Merge(kBlock, {{0, 1}, 255, 1});
  page.ExpectSame();
  page.Merge(kBlock, {{0, 0}, 255, 2});
  page.ExpectSame();
  page.DividePage(kBlock, 2, 255);
  page.ExpectSame();
  page.Merge(kBlock, {{0, 0}, 2, 255});
  page.ExpectSame();
  page.DividePage(kBlock, 1, 1);
  page.ExpectSame();
}

TEST(PageExtremes, InsertedLinesEndAt255) {
  Extreme<BlocksAdapter> page;
  CLayoutExPageData& actual = page.actual.page;
  const auto list = CLayoutExPageData::LISTTYPE_LIST;
  page.DividePage(1, 254, 2);
  page.Merge(1, {{0, 0}, 254, 1});
  for (const int row : {100, 0, 254}) {  // the second and the third are refused
    actual.InsertRow(list, row);
    page.expected.InsertRow(1, row);
    page.ExpectSame();
  }
  EXPECT_EQ(actual.GetCelAt(list, 0)->GetRowMeargeSize(), 255);
  actual.GetCelAt(list, 0)->SetSelected(1);
  EXPECT_EQ(actual.IsInsertRow(list), 0);
  EXPECT_NE(actual.IsDeleteRow(list), 0);
  actual.GetCelAt(list, 0)->SetSelected(0);
  const auto header = CLayoutExPageData::LISTTYPE_HEADER;
  page.DividePage(0, 2, 254);
  page.Merge(0, {{1, 0}, 1, 254});
  for (const int col : {253, 0, 254}) {
    actual.InsertCol(col);
    page.expected.InsertCol(col);
    page.ExpectSame();
  }
  EXPECT_EQ(actual.GetCelAt(header, 255)->GetColMeargeSize(), 255);
  actual.GetCelAt(header, 0)->SetSelected(1);
  EXPECT_EQ(actual.IsInsertCol(header), 0);
  EXPECT_NE(actual.IsDeleteCol(header), 0);
}

TEST(PageExtremes, TheLastLineStaysAndABlockWithoutRowsHasNone) {
  Extreme<BlocksAdapter> page;
  CLayoutExPageData& actual = page.actual.page;
  const auto footer = CLayoutExPageData::LISTTYPE_FOOTER;
  actual.DeleteRow(footer, 0);
  actual.DeleteCol(0);
  page.ExpectSame();

  page.DividePage(2, 0, 1);
  page.ExpectSame();
  actual.InsertRow(footer, 0);
  actual.DeleteRow(footer, 0);
  actual.SetAllLengthRow(footer, 5, 1);
  page.ExpectSame();
  for (const int col : {0, 1}) {
    actual.InsertCol(col);
    page.expected.InsertCol(col);
  }
  page.ExpectSame();
  page.DividePage(2, 3, 3);  // 10 mm again, there being nothing to go by
  page.ExpectSame();
}

/// A length that is one, from the least to the greatest.
template <class Number>
Number ExtremeLength(Dice& dice) {
  return dice.OneOf({Number{0}, std::numeric_limits<Number>::denorm_min(),
                     std::numeric_limits<Number>::min(), Number(1e-30), Number(0.1), Number(1) / 3,
                     Number(1), Number(16777217), Number(1e6), Number(999999999999.9), Number(1e12),
                     static_cast<Number>(dice.Length()), static_cast<Number>(dice.Length())});
}

TYPED_TEST(PageExtremes, LengthsSumToExactlyTheTotal) {
  using Number = typename TypeParam::Number;
  Dice dice(1);
  for (int round = 0; round < 4000; ++round) {
    TypeParam actual;
    const int count = dice.OneIn(20) ? 255 : dice.Number(1, 30);
    const int grown = std::min(count + 1, 255);
    actual.DividePage(0, 1, count, 0);
    ReferenceLengths lengths(static_cast<std::size_t>(count));
    for (int col = 0; col < count; ++col) {
      const auto length = ExtremeLength<Number>(dice);
      actual.SetLengthCol(col, length);
      lengths.at(static_cast<std::size_t>(col)).value = length;
    }
    const auto lengthAt = [&](int col) { return actual.LengthCol(col); };
    ASSERT_EQ(LengthDifference<TypeParam>("column", lengths, actual.AllLengthCol(), lengthAt), "");

    const auto total = ExtremeLength<Number>(dice);
    const int equal = dice.Number(0, 1);
    actual.SetAllLengthCol(total, equal);
    ReferencePage(TypeParam::kKind).SetAllLength(lengths, total, equal != 0);
    ASSERT_EQ(LengthDifference<TypeParam>("column", lengths, actual.AllLengthCol(), lengthAt), "")
        << count << " columns, in all " << total << ", equal " << equal;
    Number sum = 0;
    for (int col = 0; col < count; ++col) {
      sum += actual.LengthCol(col);
    }
    ASSERT_EQ(sum, total);
    ASSERT_EQ(actual.AllLengthCol(), total);

    ReferencePage expected(TypeParam::kKind);
    expected.DividePage(0, 1, count, 0);
    AdoptLengths(actual, expected);
    expected.DividePage(0, 1, grown, 0);
    actual.DividePage(0, 1, grown, 0);
    ASSERT_EQ(
        LengthDifference<TypeParam>("column", expected.widths, actual.AllLengthCol(), lengthAt),
        "");
    AdoptLengths(actual, expected);

    constexpr LONG kLeast = std::numeric_limits<LONG>::min();
    constexpr LONG kMost = std::numeric_limits<LONG>::max();
    const CRect area = dice.OneOf({CRect(kLeast, kLeast, kMost, kMost), CRect(0, 0, kMost, 1),
                                   CRect(kLeast, -1, 0, 0), CRect(3, 3, 3, 3)});
    ASSERT_EQ(RectDifference(actual, expected, 0, expected.Selection(0), area), "");
  }
}

TEST(PageProperty, GridPageDoesWhatItsReferenceDoes) {
  PlaySequences<GridAdapter>(200, 200, Care::kLinesInStep);
}

TEST(PageProperty, ThreeBlockPageDoesWhatItsReferenceDoes) {
  PlaySequences<BlocksAdapter>(200, 200, Care::kLinesInStep);
}

TEST(PageProperty, GridPageTakesAnyBordersAndMergesByHand) {
  PlaySequences<GridAdapter>(60, 200, Care::kAnyBorders);
}

TEST(PageProperty, ThreeBlockPageTakesAnyBordersAndMergesByHand) {
  PlaySequences<BlocksAdapter>(60, 200, Care::kAnyBorders);
}

TEST(PageProperty, MergeSizesThatMakeNoBlockAreGoneAfterAChangeOfShape) {
  PlaySequences<GridAdapter>(30, 200, Care::kAnyMergeSizes);
  PlaySequences<BlocksAdapter>(30, 200, Care::kAnyMergeSizes);
}

}  // namespace
}  // namespace quorvel
