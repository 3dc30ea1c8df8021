#include "linux/folder_names.h"

#include <charconv>

#include "base/hash.h"
#include "base/letter_case.h"
#include "base/registry_names.h"
#include "base/unicode.h"

namespace quorkit::native {
namespace {

constexpr std::string_view kCutOff = "%~";
constexpr std::size_t kLongestFolder = 240;  // of the 255 bytes that a name may have
constexpr std::size_t kLongestStart = 200;

constexpr std::string_view kDigits = "0123456789abcdef";

bool isContinuation(char byte) {
    return (static_cast<unsigned char>(byte) & 0xC0) == 0x80;
}

/// Whether a lone surrogate begins at `at`: three bytes from ED A0 on.
bool isHalfCharacter(std::string_view bytes, std::size_t at) {
    return bytes[at] == '\xED' && at + 1 < bytes.size() &&
           static_cast<unsigned char>(bytes[at + 1]) >= 0xA0;
}

bool standsForItself(std::string_view bytes, std::size_t at) {
    const char byte = bytes[at];
    if (byte == '/' || byte == '%' || byte == '\x7F') return false;
    if (at == 0 && (byte == '@' || byte == '.')) return false;
    return static_cast<unsigned char>(byte) >= ' ';
}

/// The first bytes of an encoded name, up to the end of a whole character.
std::string_view startOf(std::string_view name) {
    std::size_t length = kLongestStart;
    while (isContinuation(name[length])) --length;
    const std::size_t percent = name.find('%', length - 2);
    return name.substr(0, percent < length ? percent : length);
}

}  // namespace

std::string spelledNameOf(const String& name) {
    const std::string bytes = base::toUtf8(name, Malformed::Keep);
    std::string result;
    std::size_t halves = 0;  // bytes left of a lone surrogate
    for (std::size_t i = 0; i < bytes.size(); ++i) {
        if (isHalfCharacter(bytes, i)) halves = 3;
        const bool plain = halves == 0 && standsForItself(bytes, i);
        if (halves > 0) --halves;
        if (plain) {
            result += bytes[i];
            continue;
        }
        const auto byte = static_cast<unsigned char>(bytes[i]);
        result.append({'%', kDigits[byte >> 4], kDigits[byte & 15]});
    }
    return result;
}

std::string folderNameOf(const String& name) {
    std::string folder = spelledNameOf(base::folded(name));
    if (folder.size() <= kLongestFolder) return folder;
    char digits[16];
    char* const end =
        std::to_chars(digits, std::end(digits), base::hashOf(std::string_view(folder)), 16).ptr;
    return std::string(startOf(folder)).append(kCutOff).append(digits, end);
}

String nameOfSpelled(std::string_view text) {
    std::string bytes;
    for (std::size_t i = 0; i < text.size(); ++i) {
        unsigned char byte = 0;
        const bool encoded =
            text[i] == '%' && i + 2 < text.size() &&
            std::from_chars(&text[i + 1], &text[i + 1] + 2, byte, 16).ptr == &text[i + 1] + 2;
        bytes += encoded ? static_cast<char>(byte) : text[i];
        if (encoded) i += 2;
    }
    return base::fromUtf8(bytes);
}

bool isFolderName(std::string_view folder) {
    if (isCutOff(folder)) return true;
    const String name = nameOfSpelled(folder);
    return base::canNameKey(name) && folderNameOf(name) == folder;
}

bool isCutOff(std::string_view folder) {
    return folder.find(kCutOff) != std::string_view::npos;
}

}  // namespace quorkit::native
