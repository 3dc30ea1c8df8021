// Opens documents and addresses with xdg-open, which passes them to the desktop.
#include <quorkit/ports/ports.h>
#include <sys/stat.h>

#include <algorithm>
#include <string>
#include <vector>

#include "base/letter_case.h"
#include "linux/linux_names.h"
#include "linux/name_text.h"
#include "linux/start_program.h"
#include "native/native_processes.h"

namespace quorkit::native {
namespace {

bool isLetter(char16_t unit) {
    return (unit >= u'a' && unit <= u'z') || (unit >= u'A' && unit <= u'Z');
}

/// Whether a text begins like an address (RFC 3986): "mailto:", but not the drive "C:".
bool hasScheme(const String& text) {
    const std::size_t length = text.find(u':');
    if (length == String::npos || length < 2 || !isLetter(text[0])) return false;
    return std::ranges::all_of(text.substr(0, length), [](char16_t unit) {
        return isLetter(unit) || StringView(u"0123456789+-.").find(unit) != StringView::npos;
    });
}

/// The argument for xdg-open, which takes a text that begins with "-" for an option.
ErrorCode wordOf(const String& target, std::string& word) {
    if (target.find(u'\0') != String::npos) return kInvalidName;
    if (hasScheme(target)) return appendBytes(target, word) ? kSuccess : kInvalidName;
    struct stat about = {};
    if (pathOf(target, word) == kSuccess && stat(word.c_str(), &about) == 0) {
        if (word.starts_with('-')) word.insert(0, "./");
        return kSuccess;
    }
    if (base::toLower(target.substr(0, 4)) != u"www.") return kFileNotFound;
    word.clear();
    return wordOf(u"http://" + target, word);
}

}  // namespace

ErrorCode NativeProcesses::HandToDesktop(const String& target) {
    std::vector<std::string> words = {"xdg-open", ""};
    if (const ErrorCode code = wordOf(target, words[1])) return code;
    const Streams nothing{Streams::Nothing, Streams::Nothing, Streams::Nothing};
    const ErrorCode code = Start(nothing, Session::Own).runDetached(words);
    if (code == kFileNotFound) ports::giveReason("the program xdg-open is not there");
    return code;
}

}  // namespace quorkit::native
