// A page as the gallery draws it, with nothing but what the library's pages tell a host.
//
//   DrawPage(deviceContext, area, page);
#pragma once

#include <quorvel/quorvel.h>

namespace quorvel::gallery {

/// Draws the page as large as it fits into `area`, at its left: backgrounds, texts (field macros
/// by what they stand for), the lines between cells and the line around the page. What `area` has
/// left is untouched.
void DrawPage(HDC deviceContext, const CRect& area, const CLayoutPageData& page);
/// The same for the blocks that are in use, one below the other: lines only where they are shown,
/// the outer line around each block.
void DrawPage(HDC deviceContext, const CRect& area, const CLayoutExPageData& page);

}  // namespace quorvel::gallery
