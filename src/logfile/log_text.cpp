#include "logfile/log_text.h"

#include "runtime/code_page.h"

namespace quorkit {
namespace {

constexpr StringView kLineEnd = u"\r\n";

}  // namespace

std::string readMark(Files& files, Handle file) {
    char start[3];
    std::size_t length = 0;
    for (std::size_t got = 1; got != 0 && length < sizeof start; length += got)
        if (files.ReadFile(file, start + length, sizeof start - length, got) != kSuccess) return {};
    const std::string_view begins(start, length);
    for (const std::string_view mark : {runtime::kUtf8Mark, runtime::kUtf16Mark})
        if (begins.starts_with(mark)) return std::string(mark);
    return {};
}

void encodeLine(StringView text, std::string_view mark, std::string& bytes) {
    bytes.clear();
    for (const StringView part : {text, kLineEnd}) {
        if (mark == runtime::kUtf16Mark)
            bytes += runtime::toUtf16(part);
        else if (mark == runtime::kUtf8Mark)
            bytes += runtime::toUtf8(part);
        else
            bytes += runtime::toAnsi(part);
    }
}

}  // namespace quorkit
