#include <quorkit/GQuorClipboard.h>
#include <quorkit/ports/clipboard.h>

#include "clipboard/replace.h"
#include "frame/error_patterns.h"
#include "runtime/code_page.h"

namespace quorkit {
namespace {

String plainTextOf(const std::string& bytes) {
    return runtime::fromUtf8(bytes);
}

String richTextOf(const std::string& bytes) {
    return runtime::isUtf8(bytes) ? runtime::fromUtf8(bytes) : runtime::fromAnsi(bytes);
}

std::string bytesOfRichText(const String& text) {
    std::string bytes = runtime::toAnsi(text);
    return richTextOf(bytes) == text ? bytes : runtime::toUtf8(text);
}

String textOn(Clipboard& clipboard, ClipboardFormat format, String (*textOf)(const std::string&)) {
    return onErrorReturn(String(), [&] {
        std::string bytes;
        return clipboard.GetClipboardData(format, bytes) ? textOf(bytes) : String();
    });
}

}  // namespace

void GQuorClipboard::SetTextToClipboard(const String& sText) {
    replaceContent(ports_.clipboard, [&] {
        return ports_.clipboard.PutOnClipboard(ClipboardFormat::Text, runtime::toUtf8(sText));
    });
}

void GQuorClipboard::SetRTFTextToClipboard(const String& sRTFText) {
    replaceContent(ports_.clipboard, [&] {
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
