// The clipboard. It holds one content, which outlives the program that has put it there.
#pragma once

#include <quorkit/values/clipboard_format.h>

#include <string>

namespace quorkit {

/// Texts are UTF-8, and line ends are kept. Rich text is bytes. A picture is the bytes of a picture
/// file: BMP, PNG, JPEG, GIF, WMF (placeable) or EMF. Metafile stands for the last two, Bitmap for
/// all others. On Windows there are three exceptions: both kinds of text end at the first U+0000; a
/// WMF becomes an EMF; a BMP whose headers do not say where its pixels begin is refused. Windows
/// may round up the size of the memory, so up to 15 bytes behind the end of a PNG, JPEG, GIF or BMP
/// are dropped.
///
/// Without a clipboard, as on Linux without an X server, every operation fails. So does an
/// operation while another program holds the clipboard for longer than a moment.
class Clipboard {
   public:
    virtual ~Clipboard() = default;

    /// On Linux the clipboard then has no owner, so a clipboard manager may restore an old content.
    virtual bool EmptyClipboard() = 0;
    /// Replaces the content of the clipboard. True also when another program has replaced it again
    /// meanwhile. Bytes that are no picture of the kind named by `format` are refused, and the
    /// clipboard stays as it is. Windows also offers a picture as a bitmap, for programs that know
    /// no other form.
    virtual bool PutOnClipboard(ClipboardFormat format, const std::string& data) = 0;
    /// False when there is nothing in that format; `data` then stays as it is.
    virtual bool GetClipboardData(ClipboardFormat format, std::string& data) = 0;
};

}  // namespace quorkit
