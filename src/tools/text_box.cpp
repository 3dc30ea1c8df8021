#include <quorkit/GQuorTools.h>

#include "frame/error_patterns.h"
#include "frame/ui_language.h"
#include "runtime/convert.h"
#include "runtime/trim.h"
#include "tools/typed_number.h"

namespace quorkit {
namespace {

enum Kind { AnyText, WholeNumber, Number, DateText };

bool isLong(Double number) {
    return frame::onErrorReturn(false, [&] { return runtime::roundToLong(number) == number; });
}

}  // namespace

Boolean GQuorTools::CheckTextBoxValue(const ObjectRef& txtBox, Long iKind,
                                      Optional<Long, 0> iMaxLength,
                                      Optional<Boolean, true> bEmptyAllowed) {
    if (iKind < AnyText || iKind > DateText) raise(ErrorNumber::InvalidProcedureCall);
    if (txtBox == nullptr) raise(ErrorNumber::ObjectNotSet);
    const String text = runtime::CStr(txtBox->call(u"Text", CallKind::Get));
    if (runtime::without(runtime::kWhiteSpace, text).empty()) return bEmptyAllowed;
    if (*iMaxLength > 0 && text.size() > static_cast<std::size_t>(*iMaxLength)) return false;
    switch (iKind) {
        case WholeNumber:
        case Number: {
            const auto number = tools::typedNumber(text, frame::uiLanguage(ports_));
            return number && (iKind == Number || isLong(*number));
        }
        case DateText:
            return frame::resumeNext([&] { runtime::CDate(text, frame::uiLanguage(ports_)); });
        default:
            return true;
    }
}

}  // namespace quorkit
