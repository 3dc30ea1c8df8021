// The clipboard: one content, which outlives the program that has put it there.
#pragma once

#include <quorkit/values/clipboard_format.h>

#include <string>

namespace quorkit {

/// Texts are UTF-8, line ends kept. Rich text is its bytes. A picture is the bytes of a picture
/// file: BMP, PNG, JPEG, GIF, WMF (placeable) or EMF; Metafile is the last two, Bitmap all others,
/// device-independent ones too. Windows ends both kinds of text at the first U+0000, makes a WMF an
/// EMF, and refuses a BMP whose headers do not say where its pixels begin. There the size of memory
/// may be rounded up, so up to 15 bytes behind the end of a PNG, JPEG, GIF or BMP are left out.
///
/// Without a clipboard, as without an X server on Linux, everything fails; so it does when another
/// program keeps it to itself for longer than a moment.
class Clipboard {
   public:
    virtual ~Clipboard() = default;

    /// On Linux nobody owns it then: a clipboard manager may put an old content back.
    virtual bool EmptyClipboard() = 0;
    /// Puts a content in place of whatever is there; true also when another program has put a newer
    /// one there meanwhile. Bytes that are no picture of the kind that `format` names are refused,
    /// and the clipboard stays as it is. Windows also offers a picture as a bitmap to programs that
    /// know no other.
    virtual bool PutOnClipboard(ClipboardFormat format, const std::string& data) = 0;
    /// False when there is nothing of that format; `data` is then left as it is.
    virtual bool GetClipboardData(ClipboardFormat format, std::string& data) = 0;
};

}  // namespace quorkit
