#include "gallery/page_words.h"

#include "dialogs/layout/field_choice.h"
#include "dialogs/layout/page_block.h"
#include "gallery/value_text.h"

#include <array>
#include <cstddef>

namespace quorvel::gallery {

namespace {

std::wstring LineInWords(int isOn, const PEN_STATUS& status) {
  if (isOn == 0) {
    return L"off";
  }
  return Number(status.width) + L" mm style " + std::to_wstring(status.style) + L" " +
         ColorText(status.color);
}

template <class Page>
std::wstring LinesInWords(const Page& page) {
  return L"outer line " + LineInWords(page.GetByEdgeOutLine(), page.GetOutLineStatus()) +
         L", inner lines " + LineInWords(page.GetByEdgeInLine(), page.GetInLineStatus());
}

/// A length that is a float has the float's own text.
std::wstring Length(double length) {
  const auto single = static_cast<float>(length);
  return double{single} == length ? Number(single) : Number(length);
}

/// As many lengths as `count`, as a sum.
template <class LengthOf>
std::wstring Sum(int count, LengthOf lengthOf) {
  std::wstring words;
  for (int line = 0; line < count; ++line) {
    words += (line == 0 ? L"" : L"+") + Length(lengthOf(line));
  }
  return words;
}

std::wstring RowLengths(const PageBlock& block) {
  return Sum(block.Rows(), [&](int row) { return block.RowLength(row); });
}

std::wstring ColumnLengths(const PageBlock& block) {
  return Sum(block.Cols(), [&](int col) { return block.ColLength(col); });
}

std::wstring HiddenLines(const CLayoutCelData& cel) {
  std::wstring letters;
  const auto add = [&](int isShown, wchar_t letter) {
    if (isShown == 0) {
      letters += letter;
    }
  };
  add(cel.GetShowLineVT(), L't');
  add(cel.GetShowLineVB(), L'b');
  add(cel.GetShowLineHL(), L'l');
  add(cel.GetShowLineHR(), L'r');
  return letters.empty() ? L"" : L"{" + letters + L"}";
}

std::wstring CelInWords(const CLayoutCelData& cel) {
  std::wstring words = cel.GetText().IsEmpty() ? L"-" : TextInWords(cel.GetText());
  if (cel.GetRowMeargeSize() > 1 || cel.GetColMeargeSize() > 1) {
    words += L"[" + std::to_wstring(cel.GetRowMeargeSize()) + L"x" +
             std::to_wstring(cel.GetColMeargeSize()) + L"]";
  }
  return words;
}

std::wstring RowInWords(const PageBlock& block, int row, bool hasLines) {
  std::wstring words;
  for (int col = 0; col < block.Cols(); ++col) {
    const CLayoutCelData& cel = *block.CelAt(block.IndexOf(row, col));
    if (cel.GetRowMeargeSize() != 0) {
      words += (words.empty() ? L"" : L" | ") + CelInWords(cel) +
               (hasLines ? HiddenLines(cel) : L"");
    }
  }
  return words;
}

std::wstring RowsInWords(const PageBlock& block, bool hasLines) {
  std::wstring words;
  for (int row = 0; row < block.Rows(); ++row) {
    words += (row == 0 ? L": " : L" / ") + RowInWords(block, row, hasLines);
  }
  return words;
}

}  // namespace

std::wstring TextInWords(const CString& text) {
  CKivValInfoOneData info;
  if (info.SetMacroString(text.GetString(), 1) == 0) {
    return Wide(text);
  }
  const int type = FieldTypeOf(info.GetValType());
  std::wstring words = type == 0 ? L"[" : L"[" + Wide(FieldTypeText(type)) + L" ";
  words += Wide(info.GetFieldName());
  if (EnablingOf(type).condition) {
    const std::size_t comparison = info.GetFindType();
    words += comparison < kComparisons.size() ? Wide(kComparisons.at(comparison))
                                              : L" #" + std::to_wstring(comparison) + L" ";
    words += Wide(info.GetFindValue());
  }
  if (!info.GetRefField().IsEmpty()) {
    words += L" " + Wide(info.GetRefField());
  }
  if (info.GetUseDesimalPointBeam() != 0) {
    words += L" ." + std::to_wstring(info.GetBeam());
  }
  return words + (info.GetUse3Figures() != 0 ? L" 3桁]" : L"]");
}

std::wstring PageInWords(const CLayoutPageData& page) {
  CLayoutPageData copy = page;
  const SheetBlock block(copy);
  std::wstring words = std::to_wstring(block.Rows()) + L" x " + std::to_wstring(block.Cols()) +
                       L" cells, " + Length(block.Width()) + L" x " + Length(block.Height()) +
                       L" mm (" + ColumnLengths(block) + L", " + RowLengths(block) + L"), ";
  if (page.GetType() != 0) {
    words += LinesInWords(page);
  } else {
    words += L"margin " + Number(page.GetMargin()) +
             (page.GetShowFrame() != 0 ? L" mm, frame" : L" mm, no frame");
  }
  return words + RowsInWords(block, false);
}

std::wstring PageInWords(const CLayoutExPageData& page) {
  struct NamedBlock {
    const wchar_t* name;
    CLayoutExPageData::LISTTYPE type;
  };
  constexpr std::array kBlocks{NamedBlock{L"header", CLayoutExPageData::LISTTYPE_HEADER},
                               NamedBlock{L"list", CLayoutExPageData::LISTTYPE_LIST},
                               NamedBlock{L"footer", CLayoutExPageData::LISTTYPE_FOOTER}};
  CLayoutExPageData copy = page;
  std::wstring words = std::to_wstring(page.GetNumCol()) + L" columns, " +
                       Number(page.GetAllLengthCol()) + L" mm (" +
                       ColumnLengths(ExtendedBlock(copy, kBlocks.front().type)) + L"), " +
                       LinesInWords(page) + L", on pages ";
  for (int kind = 0; kind < 3; ++kind) {
    words += std::to_wstring(page.GetListShowByPage(kind));
  }
  words += L", " + std::to_wstring(page.GetRepeatRow()) + L" times from " +
           std::to_wstring(page.GetStIndex());
  for (const NamedBlock& named : kBlocks) {
    const ExtendedBlock block(copy, named.type);
    words += std::wstring(L"; ") + named.name;
    words += page.GetUse(named.type) != 0 ? L" " : L" unused ";
    words += Length(block.Height()) + L" mm (" + RowLengths(block) + L")";
    words += RowsInWords(block, true);
  }
  return words;
}

std::wstring PageInShort(const CLayoutPageData& page) {
  CLayoutPageData copy = page;
  const SheetBlock block(copy);
  return std::to_wstring(block.Rows()) + L" 行　" + std::to_wstring(block.Cols()) + L" 列\n" +
         Length(block.Width()) + L" × " + Length(block.Height()) + L" mm";
}

std::wstring PageInShort(const CLayoutExPageData& page) {
  const auto rows = [&page](CLayoutExPageData::LISTTYPE block) {
    return std::to_wstring(page.GetNumRow(block)) + L" 行";
  };
  return std::to_wstring(page.GetNumCol()) + L" 列　幅 " + Length(page.GetAllLengthCol()) +
         L" mm\nヘッダー " + rows(CLayoutExPageData::LISTTYPE_HEADER) + L"\nリスト " +
         rows(CLayoutExPageData::LISTTYPE_LIST) + L" × " + std::to_wstring(page.GetRepeatRow()) +
         L"\nフッター " + rows(CLayoutExPageData::LISTTYPE_FOOTER);
}

}  // namespace quorvel::gallery
