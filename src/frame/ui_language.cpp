#include "frame/ui_language.h"

#include <quorkit/ports/system.h>

#include "frame/error_patterns.h"
#include "runtime/language_identifier.h"

namespace quorkit::frame {

eLanguage uiLanguage(Ports& ports) {
    LanguageIdentifier identifier = 0;
    resumeNext([&] { identifier = ports.system.GetUserDefaultUILanguage(); });
    if (identifier == 0) resumeNext([&] { identifier = ports.system.GetSystemDefaultLangID(); });
    return runtime::languageOf(static_cast<Integer>(identifier));
}

}  // namespace quorkit::frame
