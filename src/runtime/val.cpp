#include "runtime/val.h"

#include <quorkit/errors.h>

#include <array>
#include <cmath>
#include <cstddef>
#include <memory_resource>
#include <string>

#include "runtime/number_text.h"

namespace quorkit::runtime {

Double Val(StringView text) {
    // Numbers are short; this buffer is enough for versions and amounts without memory from the
    // heap.
    std::array<std::byte, 256> buffer;
    std::pmr::monotonic_buffer_resource memory(buffer.data(), buffer.size());
    std::pmr::string packed(&memory);
    for (const char16_t unit : text) {
        if (unit == u' ' || unit == u'\t' || unit == u'\n') continue;
        if (StringView(u"0123456789+-.&abcdefhoABCDEFHO").find(unit) == StringView::npos) break;
        packed += static_cast<char>(unit);
    }
    const Double value = readNumber(packed).value;
    if (std::isinf(value)) raise(ErrorNumber::Overflow);
    return value;
}

}  // namespace quorkit::runtime
