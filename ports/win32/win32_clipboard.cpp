#include <quorkit/ports/clipboard_owner.h>

#include "native/native_desktop.h"
#include "win32/clipboard_data.h"

namespace quorkit::native {
namespace {

constexpr int kTries = 20;
constexpr DWORD kPause = 20;  // milliseconds

/// The open clipboard. Only one program can have it open, for a moment.
class OpenedClipboard {
   public:
    /// The window becomes the owner that the system requires; it need not stay.
    OpenedClipboard()
        : window_(::CreateWindowExW(0, L"STATIC", nullptr, 0, 0, 0, 0, 0, HWND_MESSAGE, nullptr,
                                    nullptr, nullptr)) {
        for (int i = 0; !opened_ && window_ != nullptr && i < kTries; ++i) {
            if (i != 0) ::Sleep(kPause);
            opened_ = ::OpenClipboard(window_) != FALSE;
        }
    }
    ~OpenedClipboard() {
        if (opened_) ::CloseClipboard();
        if (window_ != nullptr) ::DestroyWindow(window_);
    }
    OpenedClipboard(const OpenedClipboard&) = delete;
    OpenedClipboard& operator=(const OpenedClipboard&) = delete;

    explicit operator bool() const { return opened_; }

   private:
    HWND window_;
    bool opened_ = false;
};

}  // namespace

bool NativeClipboard::EmptyClipboard() {
    const OpenedClipboard opened;
    return opened && ::EmptyClipboard();
}

bool NativeClipboard::PutOnClipboard(ClipboardFormat format, const std::string& data) {
    std::vector<ClipboardItem> items = itemsOf(format, data);
    if (items.empty()) return false;
    const OpenedClipboard opened;
    if (!opened || !::EmptyClipboard()) return false;
    const bool put = items.front().put();
    for (std::size_t i = 1; i < items.size(); ++i) items[i].put();
    return put;
}

bool NativeClipboard::GetClipboardData(ClipboardFormat format, std::string& data) {
    const OpenedClipboard opened;
    if (!opened) return false;
    auto content = contentOf(format);
    if (!content) return false;
    data = std::move(*content);
    return true;
}

}  // namespace quorkit::native

namespace quorkit {

bool ports::ownClipboard(ClipboardFormat, std::string, const std::function<bool()>&) {
    return false;
}

}  // namespace quorkit
