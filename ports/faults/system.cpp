#include <quorkit/ports/faults.h>

namespace quorkit {

LanguageIdentifier FaultySystem::GetUserDefaultUILanguage() {
    return due("GetUserDefaultUILanguage") ? LanguageIdentifier{0}
                                           : inner_.GetUserDefaultUILanguage();
}
LanguageIdentifier FaultySystem::GetSystemDefaultLangID() {
    return due("GetSystemDefaultLangID") ? LanguageIdentifier{0} : inner_.GetSystemDefaultLangID();
}
bool FaultySystem::GetVersionExA(OsRecord size, OsVersion& version) {
    return due("GetVersionExA") ? done() : inner_.GetVersionExA(size, version);
}
bool FaultySystem::GetLocaleInfoA(String& dialingCode) {
    return due("GetLocaleInfoA") ? done() : inner_.GetLocaleInfoA(dialingCode);
}
SystemTime FaultySystem::GetLocalTime() {
    return inner_.GetLocalTime();
}
bool FaultySystem::FileTimeToSystemTime(FileTime time, SystemTime& local) {
    return due("FileTimeToSystemTime") ? done() : inner_.FileTimeToSystemTime(time, local);
}
std::uint64_t FaultySystem::QueryPerformanceCounter() {
    return inner_.QueryPerformanceCounter();
}
bool FaultySystem::GetEnvironmentVariableA(const String& name, String& value) {
    return due("GetEnvironmentVariableA") ? done() : inner_.GetEnvironmentVariableA(name, value);
}
bool FaultySystem::GetTempPathA(String& folder) {
    return due("GetTempPathA") ? done() : inner_.GetTempPathA(folder);
}
bool FaultySystem::SHGetFolderPathA(int folder, String& path) {
    return due("SHGetFolderPathA") ? done() : inner_.SHGetFolderPathA(folder, path);
}

}  // namespace quorkit
