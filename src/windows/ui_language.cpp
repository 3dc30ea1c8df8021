#include "windows/ui_language.h"

#include <quorkit/GQuorConvert.h>
#include <quorkit/ports/system.h>

#include "frame/error_patterns.h"

namespace quorkit {

eLanguage uiLanguage(Ports& ports) {
    LanguageIdentifier identifier = 0;
    resumeNext([&] { identifier = ports.system.GetUserDefaultUILanguage(); });
    if (identifier == 0) resumeNext([&] { identifier = ports.system.GetSystemDefaultLangID(); });
    return GQuorConvert(ports).WindowsLanguageIDToLanguageID(static_cast<Integer>(identifier));
}

}  // namespace quorkit
