// One grid of cells, whichever page it belongs to: what the layout editors' view and commands work on.
//
//   SheetBlock block(page);              // all of a CLayoutPageData
//   ExtendedBlock header(exPage, CLayoutExPageData::LISTTYPE_HEADER);
//   SetVerticalPlace(block, 1);
#pragma once

#include "framework/geometry.h"
#include "kivdata/layout_ex_page_data.h"
#include "kivdata/layout_page_data.h"

namespace quorvel {

/// Lengths are in millimetres; rows, columns and indices count from 0. Does not own the page.
class PageBlock {
public:
  PageBlock() = default;
  virtual ~PageBlock() = default;
  PageBlock(const PageBlock&) = delete;
  PageBlock& operator=(const PageBlock&) = delete;

  virtual int Rows() const = 0;
  virtual int Cols() const = 0;
  /// Makes the grid anew with these counts; cells that are in both stay.
  virtual void Divide(int rows, int cols, double dotsPerMm) = 0;

  virtual double RowLength(int row) const = 0;
  virtual double ColLength(int col) const = 0;
  virtual void SetRowLength(int row, double length) = 0;
  virtual void SetColLength(int col, double length) = 0;
  virtual double Height() const = 0;
  virtual double Width() const = 0;
  virtual void SetHeight(double total, bool equal) = 0;
  virtual void SetWidth(double total, bool equal) = 0;

  virtual int CelCount() const = 0;
  virtual int IndexOf(int row, int col) const = 0;
  virtual void RowColOf(int index, int& row, int& col) const = 0;
  /// Null where there is none.
  virtual CLayoutCelData* CelAt(int index) const = 0;

  virtual bool IsSelected() const = 0;
  virtual bool CanMerge() const = 0;
  virtual bool CanSplit() const = 0;
  /// Merges the selection if it is a rectangle with (row, col) as its top-left cell.
  virtual bool Merge(int row, int col) = 0;
  virtual bool Split(int row, int col) = 0;

  /// Fills a table of Rows() times Cols() rectangles: the grid laid onto an area of pixels.
  virtual void InitRects(const CRect& area, CRect* table) const = 0;
  /// A cell's rectangle with all that it covers; false for a covered cell.
  virtual bool RectOf(CRect& rect, const CRect* table, int index) const = 0;
};

/// The grid of a page that has one.
class SheetBlock : public PageBlock {
public:
  explicit SheetBlock(CLayoutPageData& page) : m_page(page) {}

  int Rows() const override { return m_page.GetNumRow(); }
  int Cols() const override { return m_page.GetNumCol(); }
  void Divide(int rows, int cols, double dotsPerMm) override {
    m_page.DividePage(static_cast<BYTE>(rows), static_cast<BYTE>(cols), dotsPerMm);
  }
  double RowLength(int row) const override { return m_page.GetLengthRow(row); }
  double ColLength(int col) const override { return m_page.GetLengthCol(col); }
  void SetRowLength(int row, double length) override { m_page.SetLengthRow(row, length); }
  void SetColLength(int col, double length) override { m_page.SetLengthCol(col, length); }
  double Height() const override { return m_page.GetAllLengthRow(); }
  double Width() const override { return m_page.GetAllLengthCol(); }
  void SetHeight(double total, bool equal) override {
    m_page.SetAllLengthRow(total, equal ? 1 : 0);
  }
  void SetWidth(double total, bool equal) override { m_page.SetAllLengthCol(total, equal ? 1 : 0); }
  int CelCount() const override { return m_page.GetCelSize(); }
  int IndexOf(int row, int col) const override { return m_page.GetIndexFromRowCol(row, col); }
  void RowColOf(int index, int& row, int& col) const override {
    m_page.GetRowColFromIndex(index, &row, &col);
  }
  CLayoutCelData* CelAt(int index) const override { return m_page.GetCelAt(index); }
  bool IsSelected() const override { return m_page.IsSelected() != 0; }
  bool CanMerge() const override { return m_page.IsMeargePossibleCel() != 0; }
  bool CanSplit() const override { return m_page.IsDividePossibleCel() != 0; }
  bool Merge(int row, int col) override { return m_page.MeargeCel(row, col) != 0; }
  bool Split(int row, int col) override { return m_page.DivideCel(row, col) != 0; }
  void InitRects(const CRect& area, CRect* table) const override {
    m_page.InitCelRect(&area, table);
  }
  bool RectOf(CRect& rect, const CRect* table, int index) const override {
    return m_page.GetCelRect(&rect, table, index, nullptr, nullptr) != 0;
  }

private:
  CLayoutPageData& m_page;
};

/// The grid of one block of an extended page. Its columns are those of all three blocks.
class ExtendedBlock : public PageBlock {
public:
  ExtendedBlock(CLayoutExPageData& page, CLayoutExPageData::LISTTYPE block)
      : m_page(page), m_block(block) {}

  int Rows() const override { return m_page.GetNumRow(m_block); }
  int Cols() const override { return m_page.GetNumCol(); }
  void Divide(int rows, int cols, double dotsPerMm) override {
    m_page.DividePage(m_block, static_cast<BYTE>(rows), static_cast<BYTE>(cols), dotsPerMm);
  }
  double RowLength(int row) const override { return m_page.GetLengthRow(m_block, row); }
  double ColLength(int col) const override { return m_page.GetLengthCol(col); }
  void SetRowLength(int row, double length) override {
    m_page.SetLengthRow(m_block, row, static_cast<float>(length));
  }
  void SetColLength(int col, double length) override {
    m_page.SetLengthCol(col, static_cast<float>(length));
  }
  double Height() const override { return m_page.GetAllLengthRow(m_block); }
  double Width() const override { return m_page.GetAllLengthCol(); }
  void SetHeight(double total, bool equal) override {
    m_page.SetAllLengthRow(m_block, static_cast<float>(total), equal ? 1 : 0);
  }
  void SetWidth(double total, bool equal) override {
    m_page.SetAllLengthCol(static_cast<float>(total), equal ? 1 : 0);
  }
  int CelCount() const override { return m_page.GetCelSize(m_block); }
  int IndexOf(int row, int col) const override { return m_page.GetIndexFromRowCol(row, col); }
  void RowColOf(int index, int& row, int& col) const override {
    m_page.GetRowColFromIndex(index, &row, &col);
  }
  CLayoutCelData* CelAt(int index) const override { return m_page.GetCelAt(m_block, index); }
  bool IsSelected() const override { return m_page.IsSelected(m_block) != 0; }
  bool CanMerge() const override { return m_page.IsMeargePossibleCel(m_block) != 0; }
  bool CanSplit() const override { return m_page.IsDividePossibleCel(m_block) != 0; }
  bool Merge(int row, int col) override { return m_page.MeargeCel(m_block, row, col) != 0; }
  bool Split(int row, int col) override { return m_page.DivideCel(m_block, row, col) != 0; }
  void InitRects(const CRect& area, CRect* table) const override {
    m_page.InitCelRect(m_block, &area, table);
  }
  bool RectOf(CRect& rect, const CRect* table, int index) const override {
    return m_page.GetCelRect(m_block, &rect, table, index, nullptr, nullptr) != 0;
  }

private:
  CLayoutExPageData& m_page;
  CLayoutExPageData::LISTTYPE m_block;
};

/// Gives the grid these counts, and its lines share the size that it has. A block without rows has
/// no height yet: its first rows bring one.
inline void DivideWithin(PageBlock& block, int rows, int cols, double dotsPerMm) {
  const bool newRows = block.Rows() > 0 && rows != block.Rows();
  const bool newCols = cols != block.Cols();
  const double height = block.Height();
  const double width = block.Width();
  block.Divide(rows, cols, dotsPerMm);
  if (newRows) {
    block.SetHeight(height, false);
  }
  if (newCols) {
    block.SetWidth(width, false);
  }
}

}  // namespace quorvel
