// Pages as the gallery shows and logs them.
//
//   PageInWords(TitleBlock());   // 4 x 6 cells, 170 x 45 mm, ...
#pragma once

#include <quorvel/quorvel.h>

#include <string>

namespace quorvel::gallery {

/// Counts, lengths, lines or margin, and the texts of all cells, row by row: a dash for none, the
/// rows and columns of a merged cell behind its text.
std::wstring PageInWords(const CLayoutPageData& page);
/// The same for each block, with the hidden lines of a cell in braces behind its text: top, bottom,
/// left, right by their first letters.
std::wstring PageInWords(const CLayoutExPageData& page);

/// Counts and sizes, for a user.
std::wstring PageInShort(const CLayoutPageData& page);
std::wstring PageInShort(const CLayoutExPageData& page);

/// A cell's text as a person wants to read it: a field macro by what it stands for, "[品名]" or
/// "[合計 金額 3桁]", any other text as it is.
std::wstring TextInWords(const CString& text);

}  // namespace quorvel::gallery
