// The facts of the system this program runs on. A build has one of the rooms that implement it.
#pragma once

#include <quorkit/ports/system.h>

namespace quorkit {

class NativeSystem final : public System {
   public:
    LanguageIdentifier GetUserDefaultUILanguage() override;
    LanguageIdentifier GetSystemDefaultLangID() override;
};

}  // namespace quorkit
