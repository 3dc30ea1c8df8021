// Putting a content in place of another.
#pragma once

#include <quorkit/ports/clipboard.h>

#include "frame/error_patterns.h"

namespace quorkit::clipboard {

/// `put` tells whether it has put the new content on the clipboard, which is emptied unless it has.
/// It is not emptied first: while it is empty, programs that keep a history of it put the old
/// content back, perhaps over the new one.
template <class Put>
void replaceContent(Clipboard& clipboard, Put put) {
    bool done = false;
    frame::resumeNext([&] { done = put(); });
    if (!done) frame::resumeNext([&] { clipboard.EmptyClipboard(); });
}

}  // namespace quorkit::clipboard
