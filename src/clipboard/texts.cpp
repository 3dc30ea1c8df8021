#include <quorkit/GQuorClipboard.h>
#include <quorkit/ports/clipboard.h>

#include "base/code_page.h"
#include "base/unicode.h"
#include "clipboard/replace.h"
#include "frame/error_patterns.h"

namespace quorkit {
namespace {

String plainTextOf(const std::string& bytes) {
    return base::fromUtf8(bytes);
}

String richTextOf(const std::string& bytes) {
    return base::isUtf8(bytes) ? base::fromUtf8(bytes) : base::fromAnsi(bytes);
}

std::string bytesOfRichText(const String& text) {
    std::string bytes = base::toAnsi(text);
    return richTextOf(bytes) == text ? bytes : base::toUtf8(text);
}

String textOn(Clipboard& clipboard, ClipboardFormat format, String (*textOf)(const std::string&)) {
    return frame::onErrorReturn(String(), [&] {
        std::string bytes;
        return clipboard.GetClipboardData(format, bytes) ? textOf(bytes) : String();
    });
}

}  // namespace

void GQuorClipboard::SetTextToClipboard(const String& sText) {
    clipboard::replaceContent(ports_.clipboard, [&] {
        return ports_.clipboard.PutOnClipboard(ClipboardFormat::Text, base::toUtf8(sText));
    });
}

void GQuorClipboard::SetRTFTextToClipboard(const String& sRTFText) {
    clipboard::replaceContent(ports_.clipboard, [&] {
        return ports_.clipboard.PutOnClipboard(ClipboardFormat::RichText,
                                               bytesOfRichText(sRTFText));
    });
}

String GQuorClipboard::GetTextFromClipboard() {
    return textOn(ports_.clipboard, ClipboardFormat::Text, plainTextOf);
}

String GQuorClipboard::GetRTFTextFromClipboard() {
    return textOn(ports_.clipboard, ClipboardFormat::RichText, richTextOf);
}

}  // namespace quorkit
