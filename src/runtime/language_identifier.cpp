#include "runtime/language_identifier.h"

namespace quorkit::runtime {

eLanguage languageOf(Integer identifier) {
    switch (identifier) {
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

}  // namespace quorkit::runtime
