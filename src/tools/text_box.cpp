#include <quorkit/GQuorTools.h>

#include "frame/error_patterns.h"
#include "runtime/convert.h"
#include "windows/ui_language.h"

namespace quorkit {
namespace {

enum Kind { AnyText, WholeNumber, Number, DateText };

}  // namespace

Boolean GQuorTools::CheckTextBoxValue(const ObjectRef& txtBox, Long iKind,
                                      Optional<Long, 0> iMaxLength,
                                      Optional<Boolean, true> bEmptyAllowed) {
    if (iKind < AnyText || iKind > DateText) raise(ErrorNumber::InvalidProcedureCall);
    if (txtBox == nullptr) raise(ErrorNumber::ObjectNotSet);
    const Variant text = runtime::CStr(txtBox->call(u"Text", CallKind::Get));
    const std::size_t length = text.get<String>().size();
    if (length == 0) return bEmptyAllowed;
    if (*iMaxLength > 0 && length > static_cast<std::size_t>(*iMaxLength)) return false;
    switch (iKind) {
        case WholeNumber:
            return onErrorReturn(false, [&] { return runtime::CDbl(text) == runtime::CLng(text); });
        case Number:
            return runtime::IsNumeric(text);
        case DateText:
            return resumeNext([&] { runtime::CDate(text, uiLanguage(ports_)); });
        default:
            return true;
    }
}

}  // namespace quorkit
