#include <quorkit/GQuorConvert.h>

#include "frame/ui_language.h"
#include "runtime/language_identifier.h"

namespace quorkit {

eLanguage GQuorConvert::WindowsLanguageIDToLanguageID(Integer iLanguage) {
    return runtime::languageOf(iLanguage);
}

Integer GQuorConvert::LanguageIDToWindowsLanguageID(eLanguage iLanguage) {
    switch (iLanguage) {
        case eLanguage_German:
            return 2055;
        case eLanguage_French:
            return 4108;
        case eLanguage_Italian:
            return 2064;
        case eLanguage_English:
            return 1033;
        case eLanguage_Spanish:
            return 1034;
        default:
            return static_cast<Integer>(frame::uiLanguage(ports_));
    }
}

}  // namespace quorkit
