// What the gallery keeps from one run to the next, in the user's registry.
//
//   SaveSetting(L"input-dpi", bytes);
//   std::optional<Bytes> bytes = LoadSetting(L"input-dpi");
#pragma once

#include "gallery/kept_value.h"

#include <optional>
#include <string>

namespace quorvel::gallery {

/// Nothing where there is none of this name.
std::optional<Bytes> LoadSetting(const std::wstring& name);
/// False where it could not be kept.
bool SaveSetting(const std::wstring& name, const Bytes& bytes);

}  // namespace quorvel::gallery
