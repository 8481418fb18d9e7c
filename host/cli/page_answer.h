// A page of a layout file as an answer: its rows and columns, its ruled lines, and its cells with
// texts, fonts, merges and field macros.
//
//   const std::optional<Answer> answer = DescribePage(bytesOfTheFile, utf8FromCodePage);
//   answer->ToJson();    // {"result":"shown","kind":"grid","blocks":[{"rows":3,...
//   answer->ToPlain();   // the texts of the cells
#pragma once

#include "cli/outcome.h"

#include <functional>
#include <optional>
#include <string>
#include <string_view>

namespace quorvel::cli {

/// Turns a text of code page 932 into UTF-8.
using Utf8FromCodePage = std::function<std::string(std::string_view)>;

/// The page that `bytes`, those of a layout file of either kind, are; nothing for any others. Cells
/// that a merged one covers are left out. Lengths are millimetres, colours "#RRGGBB".
std::optional<Answer> DescribePage(std::string_view bytes, const Utf8FromCodePage& utf8);

}  // namespace quorvel::cli
