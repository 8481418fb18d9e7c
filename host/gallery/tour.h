// The guided tour: the gallery works all its dialogs by itself, checks what comes back and takes
// their pictures.
//
//   const bool asExpected = RunTour(window, L"pictures");
#pragma once

#include "gallery/gallery_window.h"

#include <filesystem>

namespace quorvel::gallery {

/// Visits every exhibit, lets its value be kept and come back, and prints a line for each run on the
/// standard output, in UTF-8. A line with "FAILED" says what was not as expected. `folder` is created
/// if needed and gets <name>.png for every exhibit and scene, and gallery*.png for the gallery's pages.
/// True if everything was as expected. Throws std::exception if a picture cannot be taken of the
/// gallery itself or written.
bool RunTour(GalleryWindow& gallery, const std::filesystem::path& folder);

}  // namespace quorvel::gallery
