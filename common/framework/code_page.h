// Texts between code page 932, in which hosts and dialogs hold them, and UTF-16, in which the
// windows do: explicit, so that the system's own code page never matters.
#pragma once

#include "framework/frame_export.h"

#include <string>
#include <string_view>

namespace quorvel {

/// Bytes that are no character of code page 932 become the platform's replacement for them.
FRAME_API std::wstring WideFromCodePage(std::string_view text);

/// Characters that code page 932 lacks become question marks: ask IsInCodePage first.
FRAME_API std::string CodePageFromWide(std::wstring_view text);

/// Whether code page 932 has every character of the text exactly; look-alikes do not count.
FRAME_API bool IsInCodePage(std::wstring_view text);

}  // namespace quorvel
