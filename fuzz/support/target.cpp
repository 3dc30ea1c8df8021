#include "support/target.h"

#include <algorithm>
#include <charconv>
#include <cstdint>
#include <cstdio>
#include <cstdlib>

#include "base/unicode.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    quorkit::fuzz::run({reinterpret_cast<const char*>(data), size});
    return 0;
}

namespace quorkit::fuzz {

std::string Fields::bytes() {
    const std::size_t end = std::min(rest_.find('\x1F'), rest_.size());
    std::string field(rest_.substr(0, end));
    done_ = end == rest_.size();
    rest_.remove_prefix(done_ ? end : end + 1);
    return field;
}

String Fields::text() {
    return base::fromUtf8(bytes());
}

Long Fields::number() {
    const std::string field = bytes();
    Long number = 0;
    std::from_chars(field.data(), field.data() + field.size(), number);
    return number;
}

std::string shown(std::string_view bytes) {
    std::string text = "\"";
    for (const char byte : bytes) {
        char escaped[5];
        std::snprintf(escaped, sizeof escaped, "\\x%02X", static_cast<unsigned char>(byte));
        const bool prints = byte >= ' ' && byte <= '~' && byte != '"' && byte != '\\';
        text += prints ? std::string(1, byte) : escaped;
        if (byte == '\n') text += "\"\n    \"";
    }
    return text + '"';
}

std::string shown(StringView text) {
    return "u" + shown(base::toUtf8(text, Malformed::Keep));
}

void promise(bool holds, const char* what) {
    if (holds) return;
    std::fprintf(stderr, "broken promise: %s\n", what);
    std::abort();
}

void breakPromise(const char* what, const std::string& got, const std::string& wanted) {
    std::fprintf(stderr, "broken promise: %s\n  got %s\n  not %s\n", what, got.c_str(),
                 wanted.c_str());
    std::abort();
}

}  // namespace quorkit::fuzz
