#include <quorkit/GQuorTools.h>
#include <quorkit/ports/host.h>

#include "frame/pending_error.h"
#include "runtime/convert.h"

namespace quorkit {
namespace {

String line(StringView name, StringView text) {
    return String(name).append(text) += u"\r\n";
}

String lineUnlessEmpty(StringView name, StringView text) {
    return text.empty() ? String() : line(name, text);
}

}  // namespace

void GQuorTools::DisplayError(const Optional<String>& sModuleName,
                              const Optional<String>& sFunction, const Optional<String>& sErrNumber,
                              const Optional<String>& sErrMsg, const Optional<String>& sAddInfo,
                              const Optional<String>& sApp, Optional<Integer, 0> iImage) {
    const frame::PendingError& pending = frame::pendingError();
    const std::string_view description = pending.text;
    const String text =
        u"Application Error!\r\n\r\n" +
        line(u"Error-Number: ", sErrNumber->empty() ? runtime::CStr(pending.number) : *sErrNumber) +
        line(u"Description : ",
             sErrMsg->empty() ? String(description.begin(), description.end()) : *sErrMsg) +
        lineUnlessEmpty(u"Additional Info: ", *sAddInfo) +
        lineUnlessEmpty(u"Function: ", *sFunction) + lineUnlessEmpty(u"Module: ", *sModuleName) +
        lineUnlessEmpty(u"Application: ", *sApp);
    ports_.host.MessageBoxA(text, u"Error", static_cast<std::uint32_t>(*iImage));
}

}  // namespace quorkit
