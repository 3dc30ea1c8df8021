#include "runtime/val.h"

#include <quorkit/errors.h>

#include <cmath>
#include <string>

#include "runtime/number_text.h"

namespace quorkit::runtime {

Double Val(StringView text) {
    std::string packed;
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
