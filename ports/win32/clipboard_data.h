// The content of the system's clipboard: handles, each under the number of a format.
#pragma once

#include <quorkit/ports/clipboard.h>
#include <windows.h>

#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace quorkit::native {

/// One form of a content for the clipboard.
class ClipboardItem {
   public:
    /// Copies the bytes into memory of their own.
    ClipboardItem(UINT format, const std::string& bytes);
    explicit ClipboardItem(HENHMETAFILE metafile);

    /// Gives the form to the clipboard, which must be open; false when that refuses it.
    bool put();

   private:
    using Handle = std::unique_ptr<void, void (*)(HANDLE)>;
    UINT format_;
    Handle handle_;
};

/// All forms of a content, the best one first; none for a content without any.
std::vector<ClipboardItem> itemsOf(ClipboardFormat format, const std::string& data);

/// The open clipboard's content in a format; nothing when there is none.
std::optional<std::string> contentOf(ClipboardFormat format);

}  // namespace quorkit::native
