#include <shlobj.h>
#include <windows.h>

#include "native/native_system.h"
#include "win32/win32_calls.h"

namespace quorkit::native {
namespace {

SystemTime timeOf(const SYSTEMTIME& time) {
    return {time.wYear,   time.wMonth,  time.wDay,         time.wHour,
            time.wMinute, time.wSecond, time.wMilliseconds};
}

}  // namespace

LanguageIdentifier NativeSystem::GetUserDefaultUILanguage() {
    return ::GetUserDefaultUILanguage();
}

LanguageIdentifier NativeSystem::GetSystemDefaultLangID() {
    return ::GetSystemDefaultLangID();
}

bool NativeSystem::GetVersionExA(OsRecord size, OsVersion& version) {
    OSVERSIONINFOEXW record = {};
    record.dwOSVersionInfoSize =
        size == OsRecord::Extended ? sizeof record : sizeof(OSVERSIONINFOW);
    if (!::GetVersionExW(reinterpret_cast<OSVERSIONINFOW*>(&record))) return false;
    version = {record.dwMajorVersion,       record.dwMinorVersion,    record.dwPlatformId,
               textOf(record.szCSDVersion), record.wServicePackMajor, record.wSuiteMask,
               record.wProductType};
    return true;
}

bool NativeSystem::DiallingCode(String& diallingCode) {
    wchar_t digits[16] = {};
    if (::GetLocaleInfoW(::GetSystemDefaultLCID(), LOCALE_ICOUNTRY, digits, 16) == 0) return false;
    diallingCode = textOf(digits);
    return true;
}

SystemTime NativeSystem::GetLocalTime() {
    SYSTEMTIME now;
    ::GetLocalTime(&now);
    return timeOf(now);
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
            ::GetEnvironmentVariableW(wide(name), wide(buffer), static_cast<DWORD>(buffer.size()));
        if (length == 0 && ::GetLastError() != ERROR_SUCCESS) return false;
        const bool fits = length < buffer.size();  // otherwise the size that is needed
        buffer.resize(length);
        if (!fits) continue;
        value = std::move(buffer);
        return true;
    }
}

bool NativeSystem::LocalTimeOf(FileTime time, SystemTime& local) {
    const FILETIME utc = {static_cast<DWORD>(time), static_cast<DWORD>(time >> 32)};
    FILETIME here = {};
    SYSTEMTIME shown = {};
    if (!::FileTimeToLocalFileTime(&utc, &here) || !::FileTimeToSystemTime(&here, &shown))
        return false;
    constexpr int kLastYear = 9999;  // the system accepts later years
    if (shown.wYear > kLastYear) return false;
    local = timeOf(shown);
    return true;
}

bool NativeSystem::GetTempPathA(String& folder) {
    String found =
        askForText([](wchar_t* buffer, DWORD size) { return ::GetTempPathW(size, buffer); });
    if (found.empty()) return false;
    folder = std::move(found);
    return true;
}

bool NativeSystem::SHGetFolderPathA(int folder, String& path) {
    String found(MAX_PATH, u'\0');
    if (::SHGetFolderPathW(nullptr, folder | CSIDL_FLAG_DONT_VERIFY, nullptr, SHGFP_TYPE_CURRENT,
                           wide(found)) != S_OK)
        return false;
    path = found.c_str();
    return true;
}

}  // namespace quorkit::native
