#include <quorkit/ports/ports.h>
#include <quorkit/ports/system.h>
#include <windows.h>

#include "files.h"

namespace quorkit::ports {
namespace {

class Win32System final : public System {
   public:
    LanguageIdentifier GetUserDefaultUILanguage() override { return ::GetUserDefaultUILanguage(); }
    LanguageIdentifier GetSystemDefaultLangID() override { return ::GetSystemDefaultLangID(); }
};

}  // namespace

Ports& native() {
    static Win32Files files;
    static Win32System system;
    static Ports ports{files, system};
    return ports;
}

}  // namespace quorkit::ports
