// Opens addresses and mails with other programs.
#include <quorkit/GQuorProgram.h>
#include <quorkit/ports/host.h>
#include <quorkit/ports/processes.h>

#include "file/file_error.h"
#include "frame/error_patterns.h"

namespace quorkit {
namespace {

constexpr const char16_t* kCaption = u"quorkit";

}  // namespace

void GQuorProgram::OpenURL(const String& vsURL, const Optional<Boolean>&) {
    if (vsURL.empty()) {
        ports_.host.MessageBoxA(u"Es wurde keine Seite f\u00FCr die Anzeige im Browser vorgegeben.",
                                kCaption, kInformationIcon);
        return;
    }
    try {
        frame::untrapped([&] {
            const ErrorCode code = ports_.processes.HandToDesktop(vsURL);
            if (code != kSuccess) file::raiseFileError(code);
        });
    } catch (const AutomationError& error) {
        const std::string_view description = error.what();
        ports_.host.MessageBoxA(
            u"Problem beim Aufruf der Seite. (" + String(description.begin(), description.end()) +
                u"\r\nBitte rufen Sie die Seite \r\n" + vsURL + u"\r\naus Ihrem Browser auf",
            kCaption, kExclamationIcon);
    }
}

Boolean GQuorProgram::OpenMail(Unchanged<String> MailTo, const Optional<Unchanged<String>>& Subject,
                               const Optional<Unchanged<String>>& CC,
                               const Optional<Unchanged<String>>& BCC,
                               const Optional<Unchanged<String>>& Body) {
    return frame::onErrorReturn(false, [&] {
        String query;
        if (!Subject->empty()) query = u"?Subject=" + URLPathEncode(*Subject);
        if (!CC->empty()) query += u"&CC=" + *CC;
        if (!BCC->empty()) query += u"&BCC=" + *BCC;
        if (!Body->empty()) query += u"&Body=" + URLPathEncode(*Body);
        if (!query.starts_with(u'?')) query.insert(0, 1, u'?');
        return ports_.processes.HandToDesktop(u"mailto:" + *MailTo + query) == kSuccess;
    });
}

}  // namespace quorkit
