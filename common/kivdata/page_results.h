// What the two page classes have in common in giving their answers to hosts.
#pragma once

#include "kivdata/layout_file.h"
#include "kivdata/page_models.h"

#include <cstring>
#include <optional>

namespace quorvel {

/// Stores the size of a run of selected cells, 0 and 0 where there is none; whether there is one.
/// Each pointer may be null.
inline int TellCount(const std::optional<CellRange>& run, BYTE* rows, BYTE* cols) {
  if (rows != nullptr) {
    *rows = static_cast<BYTE>(run ? run->rows : 0);
  }
  if (cols != nullptr) {
    *cols = static_cast<BYTE>(run ? run->cols : 0);
  }
  return run ? 1 : 0;
}

/// Stores the place of a cell; whether there is one. Each pointer may be null, and nothing is
/// stored where there is no cell.
inline int TellPosition(const std::optional<CellRange>& cell, int* row, int* col) {
  if (cell && row != nullptr) {
    *row = cell->row;
  }
  if (cell && col != nullptr) {
    *col = cell->col;
  }
  return cell ? 1 : 0;
}

/// Copies the bytes of a file if there is room for them; how many they are.
inline std::size_t TellBytes(const FileBytes& file, void* bytes, std::size_t capacity) {
  const std::span<const BYTE> span = file.Span();
  if (bytes != nullptr && span.size() <= capacity) {
    std::memcpy(bytes, span.data(), span.size());
  }
  return span.size();
}

/// Takes over a line style that can be drawn.
inline void SetPen(PEN_STATUS& pen, const PEN_STATUS* status) {
  if (status != nullptr && IsGoodPen(*status)) {
    pen = *status;
  }
}

}  // namespace quorvel
