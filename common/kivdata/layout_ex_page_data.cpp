#include "kivdata/layout_ex_page_data.h"

#include "kivdata/layout_file.h"
#include "kivdata/page_models.h"
#include "kivdata/page_results.h"

#include <cstddef>
#include <optional>
#include <utility>

namespace {

bool IsBlock(int block) {
  return block >= 0 && block < quorvel::ExPageModel::kBlocks;
}

bool IsPageKind(int page) {
  return page >= 0 && page < quorvel::ExPageModel::kPageKinds;
}

}  // namespace

struct CLayoutExPageData::Model : quorvel::ExPageModel {
  /// Takes over a loaded page; 0 when there is none.
  int Take(std::optional<quorvel::ExPageModel> loaded) {
    if (!loaded) {
      return 0;
    }
    static_cast<quorvel::ExPageModel&>(*this) = *std::move(loaded);
    return 1;
  }
};

CLayoutExPageData::CLayoutExPageData() : m_model(std::make_unique<Model>()) {}

CLayoutExPageData::CLayoutExPageData(const CLayoutExPageData& other)
    : m_model(std::make_unique<Model>(*other.m_model)) {}

CLayoutExPageData& CLayoutExPageData::operator=(const CLayoutExPageData& other) {
  if (this != &other) {
    Model copy = *other.m_model;
    *m_model = std::move(copy);
  }
  return *this;
}

CLayoutExPageData::~CLayoutExPageData() = default;

// Files.

int CLayoutExPageData::OpenFile(const char* path) {
  return m_model->Take(quorvel::LoadExPage(quorvel::PathOfHost(path)));
}

int CLayoutExPageData::OpenFileW(const wchar_t* path) {
  return m_model->Take(quorvel::LoadExPage(quorvel::PathOfHost(path)));
}

int CLayoutExPageData::SaveFile(const char* path) const {
  return quorvel::SavePage(quorvel::PathOfHost(path), *m_model) ? 1 : 0;
}

int CLayoutExPageData::SaveFileW(const wchar_t* path) const {
  return quorvel::SavePage(quorvel::PathOfHost(path), *m_model) ? 1 : 0;
}

int CLayoutExPageData::OpenBytes(const void* bytes, std::size_t count) {
  return bytes == nullptr
             ? 0
             : m_model->Take(quorvel::DecodeExPage({static_cast<const BYTE*>(bytes), count}));
}

std::size_t CLayoutExPageData::SaveBytes(void* bytes, std::size_t capacity) const {
  return quorvel::TellBytes(quorvel::EncodePage(*m_model), bytes, capacity);
}

// The page.

int CLayoutExPageData::GetByEdgeOutLine() const {
  return m_model->lines.outOn ? 1 : 0;
}

void CLayoutExPageData::SetByEdgeOutLine(int on) {
  m_model->lines.outOn = on != 0;
}

int CLayoutExPageData::GetByEdgeInLine() const {
  return m_model->lines.inOn ? 1 : 0;
}

void CLayoutExPageData::SetByEdgeInLine(int on) {
  m_model->lines.inOn = on != 0;
}

PEN_STATUS CLayoutExPageData::GetOutLineStatus() const {
  return m_model->lines.out;
}

void CLayoutExPageData::SetOutLineStatus(const PEN_STATUS* status) {
  quorvel::SetPen(m_model->lines.out, status);
}

PEN_STATUS CLayoutExPageData::GetInLineStatus() const {
  return m_model->lines.in;
}

void CLayoutExPageData::SetInLineStatus(const PEN_STATUS* status) {
  quorvel::SetPen(m_model->lines.in, status);
}

int CLayoutExPageData::GetListShowByPage(int page) const {
  return IsPageKind(page) && m_model->showByPage[static_cast<std::size_t>(page)] ? 1 : 0;
}

void CLayoutExPageData::SetListShowByPage(int page, int shown) {
  if (IsPageKind(page)) {
    m_model->showByPage[static_cast<std::size_t>(page)] = shown != 0;
  }
}

int CLayoutExPageData::GetUse(LISTTYPE block) const {
  return IsBlock(block) && m_model->use[static_cast<std::size_t>(block)] ? 1 : 0;
}

void CLayoutExPageData::SetUse(LISTTYPE block, int used) {
  if (IsBlock(block)) {
    m_model->use[static_cast<std::size_t>(block)] = used != 0;
  }
}

BYTE CLayoutExPageData::GetRepeatRow() const {
  return m_model->repeatRow;
}

void CLayoutExPageData::SetRepeatRow(BYTE times) {
  m_model->repeatRow = times;
}

LONG CLayoutExPageData::GetStIndex() const {
  return m_model->stIndex;
}

void CLayoutExPageData::SetStIndex(LONG index) {
  m_model->stIndex = index;
}

// Rows and columns.

BYTE CLayoutExPageData::GetNumRow(LISTTYPE block) const {
  return m_model->sheet.NumRow(block);
}

BYTE CLayoutExPageData::GetNumCol() const {
  return m_model->sheet.NumCol();
}

void CLayoutExPageData::DividePage(LISTTYPE block, BYTE rows, BYTE columns, double dotsPerMm) {
  m_model->sheet.Divide(block, rows, columns, dotsPerMm);
}

void CLayoutExPageData::InsertRow(LISTTYPE block, int row) {
  m_model->sheet.InsertRow(block, row);
}

void CLayoutExPageData::DeleteRow(LISTTYPE block, int row) {
  m_model->sheet.DeleteRow(block, row);
}

void CLayoutExPageData::InsertCol(int col) {
  m_model->sheet.InsertCol(col);
}

void CLayoutExPageData::DeleteCol(int col) {
  m_model->sheet.DeleteCol(col);
}

float CLayoutExPageData::GetAllLengthRow(LISTTYPE block) const {
  return static_cast<float>(m_model->sheet.AllLengthRow(block));
}

void CLayoutExPageData::SetAllLengthRow(LISTTYPE block, float total, int equal) {
  m_model->sheet.SetAllLengthRow(block, total, equal != 0);
}

float CLayoutExPageData::GetAllLengthCol() const {
  return static_cast<float>(m_model->sheet.AllLengthCol());
}

void CLayoutExPageData::SetAllLengthCol(float total, int equal) {
  m_model->sheet.SetAllLengthCol(total, equal != 0);
}

float CLayoutExPageData::GetLengthRow(LISTTYPE block, int row) const {
  return static_cast<float>(m_model->sheet.LengthRow(block, row));
}

void CLayoutExPageData::SetLengthRow(LISTTYPE block, int row, float length) {
  m_model->sheet.SetLengthRow(block, row, length);
}

float CLayoutExPageData::GetLengthCol(int col) const {
  return static_cast<float>(m_model->sheet.LengthCol(col));
}

void CLayoutExPageData::SetLengthCol(int col, float length) {
  m_model->sheet.SetLengthCol(col, length);
}

// Cells.

int CLayoutExPageData::GetCelSize(LISTTYPE block) const {
  return m_model->sheet.CellCount(block);
}

int CLayoutExPageData::GetIndexFromRowCol(int row, int col) const {
  return m_model->sheet.IndexOf(row, col, quorvel::CellGrid::kMostLines);
}

int CLayoutExPageData::GetRowColFromIndex(int index, int* row, int* col) const {
  return quorvel::TellPosition(m_model->sheet.PositionOf(index, quorvel::CellGrid::kMostLines), row,
                               col);
}

CLayoutCelData* CLayoutExPageData::GetCelAt(LISTTYPE block, int index) {
  return m_model->sheet.Cell(block, index);
}

const CLayoutCelData* CLayoutExPageData::GetCelAt(LISTTYPE block, int index) const {
  return std::as_const(m_model->sheet).Cell(block, index);
}

// Selection and merging.

int CLayoutExPageData::IsSelected(LISTTYPE block) const {
  return m_model->sheet.IsSelected(block) ? 1 : 0;
}

int CLayoutExPageData::GetFirstSelectCel(LISTTYPE block, int* row, int* col) const {
  return quorvel::TellPosition(m_model->sheet.FirstSelected(block), row, col);
}

int CLayoutExPageData::IsInsertRow(LISTTYPE block) const {
  return m_model->sheet.CanInsertRow(block) ? 1 : 0;
}

int CLayoutExPageData::IsDeleteRow(LISTTYPE block) const {
  return m_model->sheet.CanDeleteRow(block) ? 1 : 0;
}

int CLayoutExPageData::IsInsertCol(LISTTYPE block) const {
  return m_model->sheet.CanInsertCol(block) ? 1 : 0;
}

int CLayoutExPageData::IsDeleteCol(LISTTYPE block) const {
  return m_model->sheet.CanDeleteCol(block) ? 1 : 0;
}

int CLayoutExPageData::IsSelRowEq(LISTTYPE block) const {
  return m_model->sheet.CanEqualise(block, quorvel::Direction::kRows) ? 1 : 0;
}

int CLayoutExPageData::IsSelColEq(LISTTYPE block) const {
  return m_model->sheet.CanEqualise(block, quorvel::Direction::kColumns) ? 1 : 0;
}

void CLayoutExPageData::SelRowEq(LISTTYPE block) {
  m_model->sheet.Equalise(block, quorvel::Direction::kRows);
}

void CLayoutExPageData::SelColEq(LISTTYPE block) {
  m_model->sheet.Equalise(block, quorvel::Direction::kColumns);
}

int CLayoutExPageData::IsMeargePossibleCel(LISTTYPE block) const {
  return m_model->sheet.IsMergePossible(block) ? 1 : 0;
}

int CLayoutExPageData::IsDividePossibleCel(LISTTYPE block) const {
  return m_model->sheet.IsSplitPossible(block) ? 1 : 0;
}

int CLayoutExPageData::GetSerialSelCelCount(LISTTYPE block, int row, int col, BYTE* rows,
                                            BYTE* cols) const {
  return quorvel::TellCount(m_model->sheet.RunAt(block, row, col), rows, cols);
}

int CLayoutExPageData::MeargeCel(LISTTYPE block, int row, int col) {
  return m_model->sheet.Merge(block, row, col) ? 1 : 0;
}

int CLayoutExPageData::DivideCel(LISTTYPE block, int row, int col) {
  return m_model->sheet.Split(block, row, col) ? 1 : 0;
}

void CLayoutExPageData::SetShowLine(LISTTYPE block, int top, int innerHorizontal, int bottom,
                                    int left, int innerVertical, int right) {
  m_model->sheet.SetShowLine(block, {top != 0, innerHorizontal != 0, bottom != 0, left != 0,
                                     innerVertical != 0, right != 0});
}

// Pixels.

void CLayoutExPageData::InitCelRect(LISTTYPE block, const CRect* area, CRect* table) const {
  m_model->sheet.InitRects(block, area, table);
}

int CLayoutExPageData::GetCelRect(LISTTYPE block, CRect* rect, const CRect* table, int index,
                                  int* row, int* col) const {
  if (rect == nullptr ? !m_model->sheet.HasCellRect(block, table, index)
                      : !m_model->sheet.CellRect(block, table, index, *rect)) {
    return 0;
  }
  if (row != nullptr || col != nullptr) {
    GetRowColFromIndex(index, row, col);
  }
  return 1;
}
