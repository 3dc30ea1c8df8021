#include <quorkit/GQuorWindows.h>
#include <quorkit/ports/host.h>

#include "frame/error_patterns.h"
#include "runtime/convert.h"

namespace quorkit {
namespace {

const char16_t* waitText(Long language) {
    switch (language) {
        case eLanguage_German:
            return u"Bitte warten...";
        case eLanguage_French:
            return u"Attendre s.v.p.";
        case eLanguage_Italian:
            return u"Aspettare p.f.";
        default:
            return u"Please wait...";
    }
}

constexpr const char16_t* kAbout =
    u"quorkit " QUORKIT_VERSION u"\nBuild: " QUORKIT_BUILD
    u"\n\nUtility classes for business programs and macros.";

}  // namespace

void GQuorWindows::WinShowWaitForm(Boolean show, Optional<Long, eLanguage_German> language,
                                   const Optional<Variant>& parrentWindow) {
    Host& host = ports_.host;
    if (show) {
        frame::resumeNext([&] { host.SetPointer(Pointer::Hourglass); });
        WindowHandle owner = 0;
        if (!parrentWindow->isMissing())
            frame::resumeNext([&] { owner = runtime::CLng(*parrentWindow); });
        frame::resumeNext([&] { host.ShowWaitWindow(waitText(*language), owner); });
    } else {
        frame::resumeNext([&] { host.SetPointer(Pointer::Default); });
        frame::resumeNext([&] { host.HideWaitWindow(); });
    }
    frame::resumeNext([&] { host.DoEvents(); });
}

void GQuorWindows::ShowAboutDialog() {
    ports_.host.MessageBoxA(kAbout, u"quorkit", kInformationIcon);
}

}  // namespace quorkit
