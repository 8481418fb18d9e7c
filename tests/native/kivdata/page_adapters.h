// GridAdapter and BlocksAdapter: the two kinds of layout page behind one face, so that one test
// serves both. The block is always given and is 0 for the page that has no blocks.
//
//   BlocksAdapter page;
//   page.SetLengthRow(1, 0, 12.5);
#pragma once

#include "kivdata/dice.h"
#include "kivdata/layout_ex_page_data.h"
#include "kivdata/layout_page_data.h"
#include "kivdata/reference_page.h"

#include <string>

namespace quorvel {

inline ReferencePen ToReference(const PEN_STATUS& pen) {
  return {pen.color, pen.width, pen.style};
}

/// Throws the dice for a line style and sets it; one that is not to be taken leaves `expected`.
template <class Set>
void ChangePen(Dice& dice, ReferencePen& expected, const Set& set) {
  if (dice.OneIn(8)) {
    set(nullptr);
    return;
  }
  const bool bad = dice.OneIn(6);
  const PEN_STATUS pen = {dice.Word() & 0xFFFFFFU,
                          static_cast<float>(bad ? dice.NoLength() : dice.Length()),
                          static_cast<short>(dice.Number(0, 5))};
  set(&pen);
  if (!bad) {
    expected = ToReference(pen);
  }
}

/// CLayoutPageData.
class GridAdapter {
public:
  using Number = double;
  static constexpr PageKind kKind = PageKind::kGrid;
  static constexpr int kBlocks = 1;

  CLayoutPageData page;

  int NumRow(int /*block*/) const { return page.GetNumRow(); }
  int NumCol() const { return page.GetNumCol(); }
  void DividePage(int /*block*/, int rows, int columns, double dotsPerMm) {
    page.DividePage(static_cast<BYTE>(rows), static_cast<BYTE>(columns), dotsPerMm);
  }
  Number AllLengthRow(int /*block*/) const { return page.GetAllLengthRow(); }
  Number AllLengthCol() const { return page.GetAllLengthCol(); }
  void SetAllLengthRow(int /*block*/, Number total, int equal) {
    page.SetAllLengthRow(total, equal);
  }
  void SetAllLengthCol(Number total, int equal) { page.SetAllLengthCol(total, equal); }
  Number LengthRow(int /*block*/, int row) const { return page.GetLengthRow(row); }
  Number LengthCol(int col) const { return page.GetLengthCol(col); }
  void SetLengthRow(int /*block*/, int row, Number length) { page.SetLengthRow(row, length); }
  void SetLengthCol(int col, Number length) { page.SetLengthCol(col, length); }
  int CelSize(int /*block*/) const { return page.GetCelSize(); }
  CLayoutCelData* CelAt(int /*block*/, int index) { return page.GetCelAt(index); }
  const CLayoutCelData* CelAt(int /*block*/, int index) const { return page.GetCelAt(index); }
  int IsSelected(int /*block*/) const { return page.IsSelected(); }
  int IsMeargePossibleCel(int /*block*/) const { return page.IsMeargePossibleCel(); }
  int IsDividePossibleCel(int /*block*/) const { return page.IsDividePossibleCel(); }
  int GetSerialSelCelCount(int /*block*/, int row, int col, BYTE* rows, BYTE* cols) const {
    return page.GetSerialSelCelCount(row, col, rows, cols);
  }
  int MeargeCel(int /*block*/, int row, int col) { return page.MeargeCel(row, col); }
  int DivideCel(int /*block*/, int row, int col) { return page.DivideCel(row, col); }
  void InitCelRect(int /*block*/, const CRect* area, CRect* table) const {
    page.InitCelRect(area, table);
  }
  int GetCelRect(int /*block*/, CRect* rect, const CRect* table, int index, int* row,
                 int* col) const {
    return page.GetCelRect(rect, table, index, row, col);
  }

  ReferenceSettings Settings() const {
    ReferenceSettings settings;
    settings.type = page.GetType();
    settings.margin = page.GetMargin();
    settings.frameShown = page.GetShowFrame() != 0;
    settings.outLine = page.GetByEdgeOutLine() != 0;
    settings.inLine = page.GetByEdgeInLine() != 0;
    settings.outPen = ToReference(page.GetOutLineStatus());
    settings.inPen = ToReference(page.GetInLineStatus());
    return settings;
  }

  /// Sets one of the page's settings, here and in `expected`.
  void ChangeSetting(Dice& dice, ReferenceSettings& expected) {
    const int value = dice.Number(0, 2);
    switch (dice.Number(0, 6)) {
      case 0:
        expected.type = dice.Number(-32768, 32767);
        page.SetType(static_cast<short>(expected.type));
        break;
      case 1: {
        const bool bad = dice.OneIn(4);
        const auto margin = static_cast<float>(bad ? dice.NoLength() : dice.Length());
        page.SetMargin(margin);
        expected.margin = bad ? expected.margin : margin;
        break;
      }
      case 2:
        page.SetShowFrame(value);
        expected.frameShown = value != 0;
        break;
      case 3:
        page.SetByEdgeOutLine(value);
        expected.outLine = value != 0;
        break;
      case 4:
        page.SetByEdgeInLine(value);
        expected.inLine = value != 0;
        break;
      case 5:
        ChangePen(dice, expected.outPen,
                  [this](const PEN_STATUS* pen) { page.SetOutLineStatus(pen); });
        break;
      default:
        ChangePen(dice, expected.inPen,
                  [this](const PEN_STATUS* pen) { page.SetInLineStatus(pen); });
        break;
    }
  }
};

/// CLayoutExPageData.
class BlocksAdapter {
public:
  using Number = float;
  static constexpr PageKind kKind = PageKind::kThreeBlocks;
  static constexpr int kBlocks = 3;

  CLayoutExPageData page;

  static CLayoutExPageData::LISTTYPE Type(int block) {
    return static_cast<CLayoutExPageData::LISTTYPE>(block);
  }

  int NumRow(int block) const { return page.GetNumRow(Type(block)); }
  int NumCol() const { return page.GetNumCol(); }
  void DividePage(int block, int rows, int columns, double dotsPerMm) {
    page.DividePage(Type(block), static_cast<BYTE>(rows), static_cast<BYTE>(columns), dotsPerMm);
  }
  Number AllLengthRow(int block) const { return page.GetAllLengthRow(Type(block)); }
  Number AllLengthCol() const { return page.GetAllLengthCol(); }
  void SetAllLengthRow(int block, Number total, int equal) {
    page.SetAllLengthRow(Type(block), total, equal);
  }
  void SetAllLengthCol(Number total, int equal) { page.SetAllLengthCol(total, equal); }
  Number LengthRow(int block, int row) const { return page.GetLengthRow(Type(block), row); }
  Number LengthCol(int col) const { return page.GetLengthCol(col); }
  void SetLengthRow(int block, int row, Number length) {
    page.SetLengthRow(Type(block), row, length);
  }
  void SetLengthCol(int col, Number length) { page.SetLengthCol(col, length); }
  int CelSize(int block) const { return page.GetCelSize(Type(block)); }
  CLayoutCelData* CelAt(int block, int index) { return page.GetCelAt(Type(block), index); }
  const CLayoutCelData* CelAt(int block, int index) const {
    return page.GetCelAt(Type(block), index);
  }
  int IsSelected(int block) const { return page.IsSelected(Type(block)); }
  int IsMeargePossibleCel(int block) const { return page.IsMeargePossibleCel(Type(block)); }
  int IsDividePossibleCel(int block) const { return page.IsDividePossibleCel(Type(block)); }
  int GetSerialSelCelCount(int block, int row, int col, BYTE* rows, BYTE* cols) const {
    return page.GetSerialSelCelCount(Type(block), row, col, rows, cols);
  }
  int MeargeCel(int block, int row, int col) { return page.MeargeCel(Type(block), row, col); }
  int DivideCel(int block, int row, int col) { return page.DivideCel(Type(block), row, col); }
  void InitCelRect(int block, const CRect* area, CRect* table) const {
    page.InitCelRect(Type(block), area, table);
  }
  int GetCelRect(int block, CRect* rect, const CRect* table, int index, int* row, int* col) const {
    return page.GetCelRect(Type(block), rect, table, index, row, col);
  }

  ReferenceSettings Settings() const {
    ReferenceSettings settings;
    settings.outLine = page.GetByEdgeOutLine() != 0;
    settings.inLine = page.GetByEdgeInLine() != 0;
    settings.outPen = ToReference(page.GetOutLineStatus());
    settings.inPen = ToReference(page.GetInLineStatus());
    for (int each = 0; each < 3; ++each) {
      const auto index = static_cast<std::size_t>(each);
      settings.shownByPage.at(index) = page.GetListShowByPage(each) != 0;
      settings.used.at(index) = page.GetUse(Type(each)) != 0;
    }
    settings.repeatRow = page.GetRepeatRow();
    settings.startIndex = page.GetStIndex();
    return settings;
  }

  /// Sets one of the page's settings, here and in `expected`.
  void ChangeSetting(Dice& dice, ReferenceSettings& expected) {
    const int value = dice.Number(0, 2);
    const int place = dice.Number(-1, 3);  // of a page or a block, or of none
    const bool known = place >= 0 && place < 3;
    switch (dice.Number(0, 7)) {
      case 0:
        page.SetByEdgeOutLine(value);
        expected.outLine = value != 0;
        break;
      case 1:
        page.SetByEdgeInLine(value);
        expected.inLine = value != 0;
        break;
      case 2:
        ChangePen(dice, expected.outPen,
                  [this](const PEN_STATUS* pen) { page.SetOutLineStatus(pen); });
        break;
      case 3:
        ChangePen(dice, expected.inPen,
                  [this](const PEN_STATUS* pen) { page.SetInLineStatus(pen); });
        break;
      case 4:
        page.SetListShowByPage(place, value);
        if (known) {
          expected.shownByPage.at(static_cast<std::size_t>(place)) = value != 0;
        }
        break;
      case 5:
        page.SetUse(Type(place), value);
        if (known) {
          expected.used.at(static_cast<std::size_t>(place)) = value != 0;
        }
        break;
      case 6:
        expected.repeatRow = dice.Number(0, 255);
        page.SetRepeatRow(static_cast<BYTE>(expected.repeatRow));
        break;
      default:
        expected.startIndex = static_cast<LONG>(dice.Word());
        page.SetStIndex(expected.startIndex);
        break;
    }
  }
};

}  // namespace quorvel
