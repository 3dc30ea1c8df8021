// The program quorkit-clipboard, which owns the content of the clipboard when the one that has put
// it there is gone.
#pragma once

#include <quorkit/ports/clipboard.h>

#include <string>

namespace quorkit::x11 {

/// What the program answers once the content is on the clipboard.
inline constexpr char kOwns = '+';
/// So many seconds later it gives up.
inline constexpr unsigned kLongestStart = 5;

/// Starts the program with a content. True when it has it on the clipboard.
///
/// It is looked for in the folder of the running program, from there in ../libexec/quorkit and
/// ../libexec, where this library was built and where it was to be installed, and on PATH. Where
/// the library was built it must belong to this user or to root.
bool startOwner(ClipboardFormat format, const std::string& content);

}  // namespace quorkit::x11
