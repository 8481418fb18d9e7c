// Layout files, *.mtpld and *.mtpld2: the bytes of a page and back. docs/layout-files.md describes
// them byte by byte.
#pragma once

#include "kivdata/page_models.h"
#include "kivdata/whole_file.h"

#include <filesystem>
#include <optional>
#include <span>

namespace quorvel {

/// The bytes of the page's file. What is selected is not part of it, merges that are not sound
/// count as not merged.
FileBytes EncodePage(const GridPageModel& page);
FileBytes EncodePage(const ExPageModel& page);

/// The page of a whole, undamaged file of the right kind; nothing for any other bytes. Encoding
/// what came out gives the same bytes again. Takes no more memory than a small multiple of the
/// bytes.
std::optional<GridPageModel> DecodeGridPage(std::span<const BYTE> bytes);
std::optional<ExPageModel> DecodeExPage(std::span<const BYTE> bytes);

/// The same from and to a file; no exception comes out, lack of memory is a failure like any other.
std::optional<GridPageModel> LoadGridPage(const std::filesystem::path& path) noexcept;
std::optional<ExPageModel> LoadExPage(const std::filesystem::path& path) noexcept;
bool SavePage(const std::filesystem::path& path, const GridPageModel& page) noexcept;
bool SavePage(const std::filesystem::path& path, const ExPageModel& page) noexcept;

}  // namespace quorvel
