#include "logfile/log_text.h"

#include "runtime/code_page.h"

namespace quorkit {
namespace {

constexpr StringView kLineEnd = u"\r\n";

}  // namespace

std::string_view markOf(std::string_view start) {
    for (const std::string_view mark : {runtime::kUtf8Mark, runtime::kUtf16Mark})
        if (start.starts_with(mark)) return mark;
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
