// Pages for the gallery to begin with, as drawings have them.
//
//   CLayoutPageData page = TitleBlock();
//   PageInWords(page);   // 4 x 6 cells, 170 x 45 mm, ...
#pragma once

#include <quorvel/quorvel.h>

#include <string>

namespace quorvel::gallery {

/// Of the pages' fonts: 300 dots per inch.
inline constexpr double kSampleDotsPerMm = 300 / 25.4;

/// The title block in the corner of a drawing: margin and frame, merged cells, fields to be filled
/// in by the host.
CLayoutPageData TitleBlock();
/// A list of parts with an outer line and inner lines.
CLayoutPageData PartsForm();

/// Counts, lengths, lines or margin, and the texts of all cells, row by row: a dash for none, the
/// rows and columns of a merged cell behind its text.
std::wstring PageInWords(const CLayoutPageData& page);

}  // namespace quorvel::gallery
