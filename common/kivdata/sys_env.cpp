#include "kivdata/sys_env.h"

#include "kivdata/kiv_registry_store.h"
#include "kivdata/made_colours.h"

#include <algorithm>
#include <cstddef>
#include <span>
#include <string_view>
#include <utility>
#include <vector>

namespace {

constexpr const char* kMadeColorsSection = "MadeColors";
constexpr const char* kPaletteName = "Palette";

constexpr LONG kCtrlFontHeight = -12;  // 9 points at 96 dots per inch
constexpr std::string_view kCtrlFontName = "MS UI Gothic";

std::vector<COLORREF> LoadPalette(const CKivSysEnv& env) {
  return quorvel::PaletteFromStored(quorvel::LoadBinaryValue(
      env.GetRegistry(kMadeColorsSection), kPaletteName, quorvel::kMaxStoredPaletteSize));
}

int StorePalette(const CKivSysEnv& env, std::span<const COLORREF> palette) {
  const std::vector<BYTE> stored = quorvel::StoredFromPalette(palette);
  return env.GetRegistry(kMadeColorsSection)
      .WriteRegistry(kPaletteName, REG_BINARY, stored.data(), static_cast<DWORD>(stored.size()));
}

}  // namespace

CKivSysEnv::CKivSysEnv(const char* key) : m_strKey(key) {}

CKivRegistry CKivSysEnv::GetRegistry(const char* section) const {
  const CString subkey(section);
  // A section of an empty key would be a key beside those of the system.
  if (m_strKey.IsEmpty() || subkey.IsEmpty()) {
    return CKivRegistry(m_strKey);
  }
  return CKivRegistry(m_strKey + "\\" + subkey);
}

int CKivSysEnv::OpenCstColor(COLORREF* colors, int count) const {
  return quorvel::ZeroIfThrown([&] {
    if (colors == nullptr || count <= 0) {
      return 0;
    }
    quorvel::CopyFirst(LoadPalette(*this), {colors, static_cast<std::size_t>(count)});
    return 1;
  });
}

int CKivSysEnv::OpenCstColor(CArray<COLORREF, COLORREF>& colors) const {
  return quorvel::ZeroIfThrown([&] {
    CArray<COLORREF, COLORREF> opened;
    for (const COLORREF color : LoadPalette(*this)) {
      opened.Add(color);
    }
    colors = std::move(opened);
    return 1;
  });
}

int CKivSysEnv::SaveCstColor(const COLORREF* colors, int count) {
  return quorvel::ZeroIfThrown([&] {
    if (colors == nullptr || count <= 0 || count > quorvel::kMaxPaletteCount) {
      return 0;
    }
    const std::span<const COLORREF> first(colors, static_cast<std::size_t>(count));
    return StorePalette(*this, quorvel::WithFirstReplaced(LoadPalette(*this), first));
  });
}

int CKivSysEnv::SaveCstColor(const CArray<COLORREF, COLORREF>& colors) {
  return quorvel::ZeroIfThrown([&] {
    if (colors.GetSize() > quorvel::kMaxPaletteCount) {
      return 0;
    }
    std::vector<COLORREF> palette;
    for (INT_PTR i = 0; i < colors.GetSize(); ++i) {
      palette.push_back(colors.GetAt(i));
    }
    return StorePalette(*this, palette);
  });
}

// Callers ask the environment for it, as given.
// NOLINTNEXTLINE(readability-convert-member-functions-to-static)
LOGFONTA CKivSysEnv::GetCtrlFont() const {
  LOGFONTA font{};
  font.lfHeight = kCtrlFontHeight;
  font.lfWeight = FW_NORMAL;
  font.lfCharSet = SHIFTJIS_CHARSET;
  std::ranges::copy(kCtrlFontName, font.lfFaceName);
  return font;
}
