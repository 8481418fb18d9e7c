// The palette of made colours: what it holds, and how it is stored. No window, no registry.
//
//   std::vector<COLORREF> palette = PaletteFromStored(bytes);   // 41 entries where bytes are none
//   palette = WithFirstReplaced(palette, dialogsSixteen);
//   bytes = StoredFromPalette(palette);
#pragma once

#include "framework/base_types.h"

#include <optional>
#include <span>
#include <vector>

namespace quorvel {

/// The palette begins with the colours that the user makes in the colour grid, white until made.
inline constexpr int kMadeColorCount = 16;

/// They are followed by the standard colours, and those by what the user adds.
inline constexpr int kStandardColorCount = 25;

/// So many entries at the beginning are never deleted.
inline constexpr int kFixedPaletteCount = kMadeColorCount + kStandardColorCount;

/// A palette of more entries is neither stored nor taken from storage.
inline constexpr int kMaxPaletteCount = 4096;

/// Bytes of one stored entry, and of the largest palette.
inline constexpr DWORD kStoredColorSize = 4;
inline constexpr DWORD kMaxStoredPaletteSize = kMaxPaletteCount * kStoredColorSize;

/// The palette of a user who never stored one: 16 white entries and the 25 standard colours, which
/// are all different and none of them white.
std::vector<COLORREF> DefaultPalette();

/// The palette in stored bytes: red, green, blue and a byte that is ignored for each entry. The
/// default palette where nothing is stored, or no palette: a size that is not a multiple of 4, or
/// above kMaxStoredPaletteSize. Zero bytes are an empty palette.
std::vector<COLORREF> PaletteFromStored(const std::optional<std::vector<BYTE>>& stored);

/// The opposite: 4 bytes for each entry, the highest byte being 0.
std::vector<BYTE> StoredFromPalette(std::span<const COLORREF> palette);

/// Fills `colors` with the beginning of the palette, and with white where the palette is shorter.
void CopyFirst(std::span<const COLORREF> palette, std::span<COLORREF> colors);

/// The palette with its beginning replaced by `colors`; longer where `colors` has more entries.
std::vector<COLORREF> WithFirstReplaced(std::vector<COLORREF> palette,
                                        std::span<const COLORREF> colors);

}  // namespace quorvel
