// Pages for the gallery to begin with, as drawings have them.
//
//   CLayoutPageData page = TitleBlock();
#pragma once

#include <quorvel/quorvel.h>

namespace quorvel::gallery {

/// Of the pages' fonts: 300 dots per inch.
inline constexpr double kSampleDotsPerMm = 300 / 25.4;

/// The title block in the corner of a drawing: margin and frame, merged cells, fields to be filled
/// in by the host.
CLayoutPageData TitleBlock();
/// A list of parts with an outer line and inner lines.
CLayoutPageData PartsForm();

/// An estimate: a header with title, customer, company and headings, a list whose two rows show one
/// record, a footer with totals; lines hidden where nobody rules them.
CLayoutExPageData Estimate();

}  // namespace quorvel::gallery
