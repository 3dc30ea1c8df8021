#include "native/system.h"

#include <windows.h>

namespace quorkit {

LanguageIdentifier NativeSystem::GetUserDefaultUILanguage() {
    return ::GetUserDefaultUILanguage();
}

LanguageIdentifier NativeSystem::GetSystemDefaultLangID() {
    return ::GetSystemDefaultLangID();
}

}  // namespace quorkit
