#include "native/system.h"

#include <windows.h>

namespace quorkit {
namespace {

const wchar_t* wide(const String& text) {
    return reinterpret_cast<const wchar_t*>(text.c_str());
}

}  // namespace

LanguageIdentifier NativeSystem::GetUserDefaultUILanguage() {
    return ::GetUserDefaultUILanguage();
}

LanguageIdentifier NativeSystem::GetSystemDefaultLangID() {
    return ::GetSystemDefaultLangID();
}

SystemTime NativeSystem::GetLocalTime() {
    SYSTEMTIME now;
    ::GetLocalTime(&now);
    return {now.wYear,   now.wMonth,  now.wDay,         now.wHour,
            now.wMinute, now.wSecond, now.wMilliseconds};
}

std::uint64_t NativeSystem::QueryPerformanceCounter() {
    LARGE_INTEGER count;
    ::QueryPerformanceCounter(&count);
    return static_cast<std::uint64_t>(count.QuadPart);
}

bool NativeSystem::GetEnvironmentVariableA(const String& name, String& value) {
    if (!isVariableName(name)) return false;
    String buffer(256, u'\0');
    for (;;) {
        ::SetLastError(ERROR_SUCCESS);
        const DWORD length =
            ::GetEnvironmentVariableW(wide(name), reinterpret_cast<wchar_t*>(buffer.data()),
                                      static_cast<DWORD>(buffer.size()));
        if (length == 0 && ::GetLastError() != ERROR_SUCCESS) return false;
        const bool fits = length < buffer.size();  // otherwise it is the size that is needed
        buffer.resize(length);
        if (!fits) continue;
        value = std::move(buffer);
        return true;
    }
}

bool NativeSystem::FileTimeToSystemTime(FileTime, SystemTime&) {
    return false;
}
bool NativeSystem::GetTempPathA(String&) {
    return false;
}
bool NativeSystem::SHGetFolderPathA(int, String&) {
    return false;
}

}  // namespace quorkit
