#include "logfile/log_text.h"

#include "base/code_page.h"
#include "base/unicode.h"

namespace quorkit {
std::string_view markOf(std::string_view start) {
    for (const std::string_view mark : {base::kUtf8Mark, base::kUtf16Mark})
        if (start.starts_with(mark)) return mark;
    return {};
}

std::string_view lineBreakOf(std::string_view mark) {
    using namespace std::string_view_literals;
    return mark == base::kUtf16Mark ? "\r\0\n\0"sv : "\r\n"sv;
}

void encodeLine(StringView text, std::string_view mark, std::string& bytes) {
    bytes.clear();
    if (mark == base::kUtf16Mark)
        bytes += base::toUtf16(text);
    else if (mark == base::kUtf8Mark)
        bytes += base::toUtf8(text);
    else
        bytes += base::toAnsi(text);
    bytes += lineBreakOf(mark);
}

}  // namespace quorkit
