// The forms in which the clipboard can hold its content.
#pragma once

#include <quorkit/values.h>

namespace quorkit {

/// Numbers of the host run-time's clipboard.
enum class ClipboardFormat : Integer {
    Text = 1,
    Bitmap = 2,
    Metafile = 3,
    RichText = -16639,
};

}  // namespace quorkit
