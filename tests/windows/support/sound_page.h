// What holds for the page of a layout editor at any moment.
#pragma once

#include "dialogs/layout/page_block.h"
#include "framework/code_page.h"
#include "support/same_page.h"

#include <cmath>
#include <string>
#include <string_view>
#include <vector>

namespace quorvel::test {

/// Whether a length is a number that a page takes.
inline bool IsLength(double length) { return std::isfinite(length) && length >= 0.0; }

/// What is wrong with the lengths of a grid or their sums; empty if nothing is.
inline std::string FaultOfLengths(const PageBlock& block) {
  double height = 0.0;
  for (int row = 0; row < block.Rows(); ++row) {
    if (!IsLength(block.RowLength(row))) {
      return "the height of row " + std::to_string(row);
    }
    height += block.RowLength(row);
  }
  double width = 0.0;
  for (int col = 0; col < block.Cols(); ++col) {
    if (!IsLength(block.ColLength(col))) {
      return "the width of column " + std::to_string(col);
    }
    width += block.ColLength(col);
  }
  constexpr double kOfFloats = 1e-6;
  const auto differ = [](double total, double sum) {
    return std::abs(total - sum) > kOfFloats * std::max(total, sum);
  };
  if (differ(block.Height(), height)) {
    return "a height that is not the sum of its rows";
  }
  return differ(block.Width(), width) ? "a width that is not the sum of its columns" : "";
}

/// Every position of the grid belongs to one cell, to itself or to the one that covers it.
inline std::string FaultOfMerges(const PageBlock& block) {
  const int cols = block.Cols();
  std::vector<int> owners(static_cast<std::size_t>(block.CelCount()), 0);
  for (int index = 0; index < block.CelCount(); ++index) {
    const CLayoutCelData& cel = *block.CelAt(index);
    const int height = cel.GetRowMeargeSize();
    const int width = cel.GetColMeargeSize();
    const int top = index / cols;
    const int left = index % cols;
    if ((height == 0) != (width == 0) || top + height > block.Rows() || left + width > cols) {
      return "the size of merged cell " + std::to_string(index);
    }
    for (int row = top; row < top + height; ++row) {
      for (int col = left; col < left + width; ++col) {
        const int covered = row * cols + col;
        ++owners[static_cast<std::size_t>(covered)];
        if (covered != index && (block.CelAt(covered)->GetRowMeargeSize() != 0 ||
                                 block.CelAt(covered)->GetColMeargeSize() != 0)) {
          return "cell " + std::to_string(covered) + ", covered and a cell of its own";
        }
      }
    }
  }
  for (std::size_t index = 0; index < owners.size(); ++index) {
    if (owners[index] != 1) {
      return "cell " + std::to_string(index) + ", which belongs to " +
             std::to_string(owners[index]) + " cells";
    }
  }
  return {};
}

/// Nothing of the text is lost on the way to the system's characters and back.
inline bool IsOfWholeCharacters(std::string_view text) {
  return text.find('\0') == std::string_view::npos &&
         CodePageFromWide(WideFromCodePage(text)) == text;
}

inline std::string FaultOfCels(const PageBlock& block) {
  constexpr int kLastPlace = 2;
  for (int index = 0; index < block.CelCount(); ++index) {
    const CLayoutCelData* const cel = block.CelAt(index);
    if (cel == nullptr) {
      return "cell " + std::to_string(index) + ", which is missing";
    }
    if (!IsOfWholeCharacters(cel->TextView())) {
      return "the text of cell " + std::to_string(index);
    }
    if (cel->GetFont()->GetVPos() > kLastPlace || cel->GetFont()->GetHPos() > kLastPlace) {
      return "the place of the text of cell " + std::to_string(index);
    }
  }
  return {};
}

/// The first thing that is wrong with a grid; empty where it is sound.
inline std::string FaultOf(const PageBlock& block) {
  constexpr int kMostLines = 255;
  if (block.Rows() < 1 || block.Rows() > kMostLines || block.Cols() < 1 ||
      block.Cols() > kMostLines || block.CelCount() != block.Rows() * block.Cols()) {
    return "the number of rows or columns";
  }
  for (const auto& faultOf : {FaultOfLengths, FaultOfCels, FaultOfMerges}) {
    if (std::string fault = faultOf(block); !fault.empty()) {
      return fault;
    }
  }
  return {};
}

inline std::string FaultOf(CLayoutPageData& page) {
  return IsLength(page.GetMargin()) ? FaultOf(SheetBlock(page)) : "the margin";
}

inline std::string FaultOf(CLayoutExPageData& page) {
  constexpr int kMostRepeats = 200;
  constexpr int kLargestOffset = 1000;
  if (page.GetRepeatRow() < 1 || page.GetRepeatRow() > kMostRepeats) {
    return "the repeats";
  }
  if (page.GetStIndex() < 1 || page.GetStIndex() > kLargestOffset) {
    return "the offset";
  }
  for (const CLayoutExPageData::LISTTYPE block : kBlocksOfPage) {
    if (const std::string fault = FaultOf(ExtendedBlock(page, block)); !fault.empty()) {
      return "block " + std::to_string(block) + ": " + fault;
    }
  }
  return {};
}

}  // namespace quorvel::test
