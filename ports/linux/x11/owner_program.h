// The program quorkit-clipboard. It owns the content of the clipboard after the program that has
// put it there is gone.
#pragma once

#include <quorkit/ports/clipboard.h>

#include <string>

namespace quorkit::x11 {

/// Starts the program with a content. True when the program has put it on the clipboard.
///
/// These places are searched for the program: the folder that the environment variable
/// QUORKIT_LIBEXEC names, unless this program has more rights than its user; the folder of the
/// running program, then ../libexec/quorkit and ../libexec from there; the folder where this
/// library was to be installed; PATH. Except in the first and the last place, it must be a file of
/// this user or of root, and no link.
bool startOwner(ClipboardFormat format, const std::string& content);

}  // namespace quorkit::x11
