// The facts of this system; a build has one implementation.
#pragma once

#include <quorkit/ports/system.h>

namespace quorkit::native {

class NativeSystem final : public System {
   public:
    LanguageIdentifier GetUserDefaultUILanguage() override;
    LanguageIdentifier GetSystemDefaultLangID() override;
    bool GetVersionExA(OsRecord size, OsVersion& version) override;
    bool DiallingCode(String& diallingCode) override;
    SystemTime GetLocalTime() override;
    std::uint64_t QueryPerformanceCounter() override;
    bool LocalTimeOf(FileTime time, SystemTime& local) override;
    bool GetEnvironmentVariableA(const String& name, String& value) override;
    bool GetTempPathA(String& folder) override;
    bool SHGetFolderPathA(int folder, String& path) override;
};

}  // namespace quorkit::native
