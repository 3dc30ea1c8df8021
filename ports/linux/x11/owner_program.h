// The program quorkit-clipboard, which owns the content of the clipboard when the one that has put
// it there is gone.
#pragma once

#include <quorkit/ports/clipboard.h>

#include <string>

namespace quorkit::x11 {

/// Starts the program with a content. True when it has it on the clipboard.
///
/// It is looked for in the folder that the environment variable QUORKIT_LIBEXEC names, unless this
/// program has more rights than its user; in the folder of the running program, from there in
/// ../libexec/quorkit and ../libexec, where this library was to be installed, and on PATH. But for
/// the first and the last it must be a file, no link, of this user or of root.
bool startOwner(ClipboardFormat format, const std::string& content);

}  // namespace quorkit::x11
