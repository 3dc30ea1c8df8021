// What the system's clipboard holds: handles, each under the number of a format.
#pragma once

#include <quorkit/ports/clipboard.h>
#include <windows.h>

#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace quorkit::native {

/// A form of a content that is to be put on the clipboard.
class ClipboardItem {
   public:
    /// Bytes, in memory of their own.
    ClipboardItem(UINT format, const std::string& bytes);
    explicit ClipboardItem(HENHMETAFILE metafile);

    /// Gives it to the clipboard, which must be open; false when that does not take it.
    bool put();

   private:
    using Handle = std::unique_ptr<void, void (*)(HANDLE)>;
    UINT format_;
    Handle handle_;
};

/// All forms of a content, the best one first; none when it has none.
std::vector<ClipboardItem> itemsOf(ClipboardFormat format, const std::string& data);

/// What the open clipboard holds of a format; nothing when it holds none.
std::optional<std::string> contentOf(ClipboardFormat format);

}  // namespace quorkit::native
