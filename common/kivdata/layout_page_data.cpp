#include "kivdata/layout_page_data.h"

#include "kivdata/layout_file.h"
#include "kivdata/page_models.h"
#include "kivdata/page_results.h"

#include <optional>
#include <utility>

namespace {

constexpr int kGrid = 0;  // the sheet's only block

}  // namespace

struct CLayoutPageData::Model : quorvel::GridPageModel {
  /// Takes over a loaded page; 0 when there is none.
  int Take(std::optional<quorvel::GridPageModel> loaded) {
    if (!loaded) {
      return 0;
    }
    static_cast<quorvel::GridPageModel&>(*this) = *std::move(loaded);
    return 1;
  }
};

CLayoutPageData::CLayoutPageData() : m_model(std::make_unique<Model>()) {}

CLayoutPageData::CLayoutPageData(const CLayoutPageData& other)
    : m_model(std::make_unique<Model>(*other.m_model)) {}

CLayoutPageData& CLayoutPageData::operator=(const CLayoutPageData& other) {
  if (this != &other) {
    Model copy = *other.m_model;
    *m_model = std::move(copy);
  }
  return *this;
}

CLayoutPageData::~CLayoutPageData() = default;

// Files.

int CLayoutPageData::OpenFile(const char* path) {
  return m_model->Take(quorvel::LoadGridPage(quorvel::PathOfHost(path)));
}

int CLayoutPageData::OpenFileW(const wchar_t* path) {
  return m_model->Take(quorvel::LoadGridPage(quorvel::PathOfHost(path)));
}

int CLayoutPageData::SaveFile(const char* path) const {
  return quorvel::SavePage(quorvel::PathOfHost(path), *m_model) ? 1 : 0;
}

int CLayoutPageData::SaveFileW(const wchar_t* path) const {
  return quorvel::SavePage(quorvel::PathOfHost(path), *m_model) ? 1 : 0;
}

int CLayoutPageData::OpenBytes(const void* bytes, std::size_t count) {
  return bytes == nullptr
             ? 0
             : m_model->Take(quorvel::DecodeGridPage({static_cast<const BYTE*>(bytes), count}));
}

std::size_t CLayoutPageData::SaveBytes(void* bytes, std::size_t capacity) const {
  return quorvel::TellBytes(quorvel::EncodePage(*m_model), bytes, capacity);
}

// The page.

int CLayoutPageData::GetByEdgeOutLine() const {
  return m_model->lines.outOn ? 1 : 0;
}

void CLayoutPageData::SetByEdgeOutLine(int on) {
  m_model->lines.outOn = on != 0;
}

int CLayoutPageData::GetByEdgeInLine() const {
  return m_model->lines.inOn ? 1 : 0;
}

void CLayoutPageData::SetByEdgeInLine(int on) {
  m_model->lines.inOn = on != 0;
}

PEN_STATUS CLayoutPageData::GetOutLineStatus() const {
  return m_model->lines.out;
}

void CLayoutPageData::SetOutLineStatus(const PEN_STATUS* status) {
  quorvel::SetPen(m_model->lines.out, status);
}

PEN_STATUS CLayoutPageData::GetInLineStatus() const {
  return m_model->lines.in;
}

void CLayoutPageData::SetInLineStatus(const PEN_STATUS* status) {
  quorvel::SetPen(m_model->lines.in, status);
}

short CLayoutPageData::GetType() const {
  return m_model->type;
}

void CLayoutPageData::SetType(short type) {
  m_model->type = type;
}

float CLayoutPageData::GetMargin() const {
  return m_model->margin;
}

void CLayoutPageData::SetMargin(float margin) {
  if (quorvel::GridLengths::IsGood(margin, quorvel::GridLengths::Precision::kSingle)) {
    m_model->margin = margin;
  }
}

int CLayoutPageData::GetShowFrame() const {
  return m_model->showFrame ? 1 : 0;
}

void CLayoutPageData::SetShowFrame(int shown) {
  m_model->showFrame = shown != 0;
}

// Rows and columns.

BYTE CLayoutPageData::GetNumRow() const {
  return m_model->sheet.NumRow(kGrid);
}

BYTE CLayoutPageData::GetNumCol() const {
  return m_model->sheet.NumCol();
}

void CLayoutPageData::DividePage(BYTE rows, BYTE columns, double dotsPerMm) {
  m_model->sheet.Divide(kGrid, rows, columns, dotsPerMm);
}

double CLayoutPageData::GetAllLengthRow() const {
  return m_model->sheet.AllLengthRow(kGrid);
}

double CLayoutPageData::GetAllLengthCol() const {
  return m_model->sheet.AllLengthCol();
}

void CLayoutPageData::SetAllLengthRow(double total, int equal) {
  m_model->sheet.SetAllLengthRow(kGrid, total, equal != 0);
}

void CLayoutPageData::SetAllLengthCol(double total, int equal) {
  m_model->sheet.SetAllLengthCol(total, equal != 0);
}

double CLayoutPageData::GetLengthRow(int row) const {
  return m_model->sheet.LengthRow(kGrid, row);
}

double CLayoutPageData::GetLengthCol(int col) const {
  return m_model->sheet.LengthCol(col);
}

void CLayoutPageData::SetLengthRow(int row, double length) {
  m_model->sheet.SetLengthRow(kGrid, row, length);
}

void CLayoutPageData::SetLengthCol(int col, double length) {
  m_model->sheet.SetLengthCol(col, length);
}

// Cells.

int CLayoutPageData::GetCelSize() const {
  return m_model->sheet.CellCount(kGrid);
}

int CLayoutPageData::GetIndexFromRowCol(int row, int col) const {
  return m_model->sheet.IndexOf(row, col, GetNumRow());
}

int CLayoutPageData::GetRowColFromIndex(int index, int* row, int* col) const {
  return quorvel::TellPosition(m_model->sheet.PositionOf(index, GetNumRow()), row, col);
}

CLayoutCelData* CLayoutPageData::GetCelAt(int index) {
  return m_model->sheet.Cell(kGrid, index);
}

const CLayoutCelData* CLayoutPageData::GetCelAt(int index) const {
  return std::as_const(m_model->sheet).Cell(kGrid, index);
}

// Selection and merging.

int CLayoutPageData::IsSelected() const {
  return m_model->sheet.IsSelected(kGrid) ? 1 : 0;
}

int CLayoutPageData::IsMeargePossibleCel() const {
  return m_model->sheet.IsMergePossible(kGrid) ? 1 : 0;
}

int CLayoutPageData::IsDividePossibleCel() const {
  return m_model->sheet.IsSplitPossible(kGrid) ? 1 : 0;
}

int CLayoutPageData::GetSerialSelCelCount(int row, int col, BYTE* rows, BYTE* cols) const {
  return quorvel::TellCount(m_model->sheet.RunAt(kGrid, row, col), rows, cols);
}

int CLayoutPageData::MeargeCel(int row, int col) {
  return m_model->sheet.Merge(kGrid, row, col) ? 1 : 0;
}

int CLayoutPageData::DivideCel(int row, int col) {
  return m_model->sheet.Split(kGrid, row, col) ? 1 : 0;
}

// Pixels.

void CLayoutPageData::InitCelRect(const CRect* area, CRect* table) const {
  m_model->sheet.InitRects(kGrid, area, table);
}

int CLayoutPageData::GetCelRect(CRect* rect, const CRect* table, int index, int* row,
                                int* col) const {
  if (rect == nullptr ? !m_model->sheet.HasCellRect(kGrid, table, index)
                      : !m_model->sheet.CellRect(kGrid, table, index, *rect)) {
    return 0;
  }
  if (row != nullptr || col != nullptr) {
    GetRowColFromIndex(index, row, col);
  }
  return 1;
}
