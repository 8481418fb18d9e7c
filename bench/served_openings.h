// Dialogs opened on command, so that another program's can be opened between them.
//
//   > sel-rgb
//   < 41.3 3.2
#pragma once

namespace quorvel::bench {

/// Says "ready" on standard output once the owner's window is there. Then opens, for each line of
/// standard input, the dialog that it names, confirms it as soon as it has been painted whole, and
/// answers with the milliseconds from the call to that and from the answer to the return. Ends with
/// the input. Throws std::runtime_error for a name that it does not know and for a dialog that was
/// never painted.
void ServeOpenings();

}  // namespace quorvel::bench
