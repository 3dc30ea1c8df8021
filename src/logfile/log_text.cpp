#include "logfile/log_text.h"

#include "runtime/code_page.h"

namespace quorkit {
std::string_view markOf(std::string_view start) {
    for (const std::string_view mark : {runtime::kUtf8Mark, runtime::kUtf16Mark})
        if (start.starts_with(mark)) return mark;
    return {};
}

std::string_view lineBreakOf(std::string_view mark) {
    using namespace std::string_view_literals;
    return mark == runtime::kUtf16Mark ? "\r\0\n\0"sv : "\r\n"sv;
}

void encodeLine(StringView text, std::string_view mark, std::string& bytes) {
    bytes.clear();
    if (mark == runtime::kUtf16Mark)
        bytes += runtime::toUtf16(text);
    else if (mark == runtime::kUtf8Mark)
        bytes += runtime::toUtf8(text);
    else
        bytes += runtime::toAnsi(text);
    bytes += lineBreakOf(mark);
}

}  // namespace quorkit
