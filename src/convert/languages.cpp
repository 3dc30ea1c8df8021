#include <quorkit/GQuorConvert.h>

#include "windows/ui_language.h"

namespace quorkit {

eLanguage GQuorConvert::WindowsLanguageIDToLanguageID(Integer iLanguage) {
    switch (iLanguage) {
        case 1031:
        case 2055:
        case 3079:
        case 4103:
        case 5127:
            return eLanguage_German;
        case 1036:
        case 2060:
        case 3084:
        case 4108:
        case 5132:
            return eLanguage_French;
        case 1040:
        case 2064:
            return eLanguage_Italian;
        case 1033:
        case 2057:
        case 3081:
        case 4105:
        case 5129:
        case 6153:
        case 7177:
        case 8201:
        case 9225:
        case 10249:
        case 11273:
            return eLanguage_English;
        case 1034:
            return eLanguage_Spanish;
        default:
            return eLanguage_Unknown;
    }
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
            return static_cast<Integer>(uiLanguage(ports_));
    }
}

}  // namespace quorkit
