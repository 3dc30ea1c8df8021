// Replaces the content of the clipboard.
#pragma once

#include <quorkit/ports/clipboard.h>

#include "frame/error_patterns.h"

namespace quorkit::clipboard {

/// `put` returns whether it has put the new content on the clipboard; otherwise the clipboard is
/// emptied. Do not empty it first: programs that keep a history of the clipboard refill an empty
/// one with the old content, perhaps after the new one has come.
template <class Put>
void replaceContent(Clipboard& clipboard, Put put) {
    bool done = false;
    frame::resumeNext([&] { done = put(); });
    if (!done) frame::resumeNext([&] { clipboard.EmptyClipboard(); });
}

}  // namespace quorkit::clipboard
