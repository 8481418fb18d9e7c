// Whether two fonts or two layout pages hold the same, in all that hosts can ask for.
#pragma once

#include "kivdata/layout_ex_page_data.h"
#include "kivdata/layout_page_data.h"

#include <array>
#include <cstring>

namespace quorvel::test {

/// In all that a dialog may write.
inline bool IsSameFont(const CKivFont& one, const CKivFont& other) {
  const LOGFONTA oneRecord = one.GetLogFont(0);
  const LOGFONTA otherRecord = other.GetLogFont(0);
  return std::memcmp(&oneRecord, &otherRecord, sizeof oneRecord) == 0 &&
         one.GetColor() == other.GetColor() && one.GetV() == other.GetV() &&
         one.GetH() == other.GetH() && one.GetStrikeOutType() == other.GetStrikeOutType();
}

inline bool IsSameFont(const CKivFontEx& one, const CKivFontEx& other) {
  return IsSameFont(static_cast<const CKivFont&>(one), static_cast<const CKivFont&>(other)) &&
         one.GetBackColor() == other.GetBackColor() && one.GetVPos() == other.GetVPos() &&
         one.GetHPos() == other.GetHPos();
}

inline bool IsSameCel(const CLayoutCelData& one, const CLayoutCelData& other) {
  return one.TextView() == other.TextView() && IsSameFont(*one.GetFont(), *other.GetFont()) &&
         one.GetSelected() == other.GetSelected() &&
         one.GetRowMeargeSize() == other.GetRowMeargeSize() &&
         one.GetColMeargeSize() == other.GetColMeargeSize() &&
         one.GetShowLineHL() == other.GetShowLineHL() &&
         one.GetShowLineHR() == other.GetShowLineHR() &&
         one.GetShowLineVT() == other.GetShowLineVT() &&
         one.GetShowLineVB() == other.GetShowLineVB();
}

inline bool IsSameLine(const PEN_STATUS& one, const PEN_STATUS& other) {
  return one.color == other.color && one.width == other.width && one.style == other.style;
}

/// The selection counts, too.
inline bool IsSamePage(const CLayoutPageData& one, const CLayoutPageData& other) {
  bool same = one.GetNumRow() == other.GetNumRow() && one.GetNumCol() == other.GetNumCol() &&
              one.GetType() == other.GetType() && one.GetMargin() == other.GetMargin() &&
              one.GetShowFrame() == other.GetShowFrame() &&
              one.GetByEdgeOutLine() == other.GetByEdgeOutLine() &&
              one.GetByEdgeInLine() == other.GetByEdgeInLine() &&
              IsSameLine(one.GetOutLineStatus(), other.GetOutLineStatus()) &&
              IsSameLine(one.GetInLineStatus(), other.GetInLineStatus());
  for (int row = 0; same && row < one.GetNumRow(); ++row) {
    same = one.GetLengthRow(row) == other.GetLengthRow(row);
  }
  for (int col = 0; same && col < one.GetNumCol(); ++col) {
    same = one.GetLengthCol(col) == other.GetLengthCol(col);
  }
  for (int index = 0; same && index < one.GetCelSize(); ++index) {
    same = IsSameCel(*one.GetCelAt(index), *other.GetCelAt(index));
  }
  return same;
}

constexpr std::array kBlocksOfPage{CLayoutExPageData::LISTTYPE_HEADER,
                                   CLayoutExPageData::LISTTYPE_LIST,
                                   CLayoutExPageData::LISTTYPE_FOOTER};

inline bool IsSameBlock(const CLayoutExPageData& one, const CLayoutExPageData& other,
                        CLayoutExPageData::LISTTYPE block) {
  bool same = one.GetUse(block) == other.GetUse(block) &&
              one.GetNumRow(block) == other.GetNumRow(block) &&
              one.GetCelSize(block) == other.GetCelSize(block);
  for (int row = 0; same && row < one.GetNumRow(block); ++row) {
    same = one.GetLengthRow(block, row) == other.GetLengthRow(block, row);
  }
  for (int index = 0; same && index < one.GetCelSize(block); ++index) {
    same = IsSameCel(*one.GetCelAt(block, index), *other.GetCelAt(block, index));
  }
  return same;
}

/// The selection counts, too.
inline bool IsSamePage(const CLayoutExPageData& one, const CLayoutExPageData& other) {
  bool same = one.GetNumCol() == other.GetNumCol() &&
              one.GetRepeatRow() == other.GetRepeatRow() &&
              one.GetStIndex() == other.GetStIndex() &&
              one.GetByEdgeOutLine() == other.GetByEdgeOutLine() &&
              one.GetByEdgeInLine() == other.GetByEdgeInLine() &&
              IsSameLine(one.GetOutLineStatus(), other.GetOutLineStatus()) &&
              IsSameLine(one.GetInLineStatus(), other.GetInLineStatus());
  for (const int kindOfPage : {0, 1, 2}) {
    same = same && one.GetListShowByPage(kindOfPage) == other.GetListShowByPage(kindOfPage);
  }
  for (int col = 0; same && col < one.GetNumCol(); ++col) {
    same = one.GetLengthCol(col) == other.GetLengthCol(col);
  }
  for (const CLayoutExPageData::LISTTYPE block : kBlocksOfPage) {
    same = same && IsSameBlock(one, other, block);
  }
  return same;
}

}  // namespace quorvel::test
