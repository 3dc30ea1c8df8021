// The language comes from the locale environment; variables are read as UTF-8.
#include <langinfo.h>
#include <sys/stat.h>
#include <sys/utsname.h>
#include <unistd.h>

#include <clocale>
#include <cstdio>
#include <cstdlib>
#include <ctime>
#include <memory>
#include <string>
#include <string_view>

#include "base/letter_case.h"
#include "base/unicode.h"
#include "linux/linux_names.h"
#include "native/native_system.h"

namespace quorkit::native {
namespace {

struct Language {
    std::string_view locale;
    LanguageIdentifier identifier;
};

// From the list of language identifiers that Microsoft publishes with its locale names; the main
// country of each language comes first. For Spanish it is the identifier of the traditional sort
// order, the only one that the library's own table of languages knows.
constexpr Language kLanguages[] = {
    {"de_DE", 1031},  {"de_CH", 2055},  {"de_AT", 3079}, {"de_LU", 4103}, {"de_LI", 5127},
    {"fr_FR", 1036},  {"fr_BE", 2060},  {"fr_CA", 3084}, {"fr_CH", 4108}, {"fr_LU", 5132},
    {"it_IT", 1040},  {"it_CH", 2064},  {"en_US", 1033}, {"en_GB", 2057}, {"en_AU", 3081},
    {"en_CA", 4105},  {"en_NZ", 5129},  {"en_IE", 6153}, {"en_ZA", 7177}, {"en_JM", 8201},
    {"en_BZ", 10249}, {"en_TT", 11273}, {"es_ES", 1034},
};

/// The identifier of a locale name such as "de_CH.UTF-8"; 0 for a language that is not in the
/// table. A country that is not in the table counts as the language's main one.
LanguageIdentifier languageOfLocale(std::string_view locale) {
    const std::string_view name = locale.substr(0, locale.find_first_of(".@"));
    if (name == "C" || name == "POSIX") return 1033;
    const std::string_view language = name.substr(0, name.find('_'));
    LanguageIdentifier mainCountry = 0;
    for (const Language& one : kLanguages) {
        if (one.locale == name) return one.identifier;
        if (mainCountry == 0 && one.locale.substr(0, 2) == language) mainCountry = one.identifier;
    }
    return mainCountry;
}

/// The value in the entry "name=value" whose name satisfies `matches`; null when there is none.
template <class Matches>
const char* findVariable(Matches matches) {
    for (char** entry = environ; entry != nullptr && *entry != nullptr; ++entry) {
        const std::string_view text = *entry;
        const auto equals = text.find('=');
        if (equals != std::string_view::npos && matches(text.substr(0, equals)))
            return *entry + equals + 1;
    }
    return nullptr;
}

SystemTime systemTimeOf(const tm& parts, int milliseconds) {
    return {parts.tm_year + 1900, parts.tm_mon + 1, parts.tm_mday, parts.tm_hour,
            parts.tm_min,         parts.tm_sec,     milliseconds};
}

bool isFolder(const char* path) {
    struct stat about = {};
    return stat(path, &about) == 0 && S_ISDIR(about.st_mode);
}

}  // namespace

LanguageIdentifier NativeSystem::GetUserDefaultUILanguage() {
    for (const char* variable : {"LC_ALL", "LC_MESSAGES", "LANG"}) {
        const char* value = std::getenv(variable);
        if (value != nullptr && *value != '\0') return languageOfLocale(value);
    }
    return languageOfLocale("C");
}

/// Linux has no language apart from its locale environment.
LanguageIdentifier NativeSystem::GetSystemDefaultLangID() {
    return GetUserDefaultUILanguage();
}

bool NativeSystem::GetVersionExA(OsRecord, OsVersion& version) {
    constexpr std::uint32_t linuxPlatform = 4;
    utsname about{};
    if (uname(&about) != 0) return false;
    version = {};
    version.platformId = linuxPlatform;
    std::sscanf(about.release, "%u.%u", &version.majorVersion, &version.minorVersion);
    return true;
}

bool NativeSystem::DiallingCode(String& diallingCode) {
    const std::unique_ptr<std::remove_pointer_t<locale_t>, void (*)(locale_t)> locale(
        newlocale(LC_TELEPHONE_MASK, "", nullptr), freelocale);
    if (!locale) return false;
    const std::string code = nl_langinfo_l(_NL_TELEPHONE_INT_PREFIX, locale.get());
    if (code.empty()) return false;
    diallingCode = base::fromUtf8(code);
    return true;
}

SystemTime NativeSystem::GetLocalTime() {
    timespec now{};
    clock_gettime(CLOCK_REALTIME, &now);
    // The calendar shows the same for a whole second.
    thread_local time_t second = -1;
    thread_local tm local{};
    if (now.tv_sec != second) localtime_r(&now.tv_sec, &local);
    second = now.tv_sec;
    return systemTimeOf(local, static_cast<int>(now.tv_nsec / 1'000'000));
}

bool NativeSystem::LocalTimeOf(FileTime time, SystemTime& local) {
    constexpr FileTime ticksAMillisecond = 10'000;
    constexpr FileTime ticksASecond = 1000 * ticksAMillisecond;
    constexpr std::time_t secondsFrom1601To1970 = 11'644'473'600;
    const auto seconds = static_cast<std::time_t>(time / ticksASecond) - secondsFrom1601To1970;
    tm parts{};
    if (localtime_r(&seconds, &parts) == nullptr) return false;
    const auto milliseconds = static_cast<int>(time % ticksASecond / ticksAMillisecond);
    const SystemTime found = systemTimeOf(parts, milliseconds);
    if (found.year < 1601 || found.year > 9999) return false;
    local = found;
    return true;
}

std::uint64_t NativeSystem::QueryPerformanceCounter() {
    timespec now{};
    clock_gettime(CLOCK_MONOTONIC, &now);
    return static_cast<std::uint64_t>(now.tv_sec) * 1'000'000'000 +
           static_cast<std::uint64_t>(now.tv_nsec);
}

bool NativeSystem::GetEnvironmentVariableA(const String& name, String& value) {
    if (!isVariableName(name)) return false;
    const std::string exact = base::toUtf8(name);
    const char* found = findVariable([&](std::string_view one) { return one == exact; });
    if (found == nullptr)
        found = findVariable([&](std::string_view one) {
            // The length rules out most names without a conversion.
            constexpr std::size_t mostBytesAUnit = 3;
            return one.size() >= name.size() && one.size() <= mostBytesAUnit * name.size() &&
                   base::sameText(base::fromUtf8(one), name);
        });
    if (found == nullptr) return false;
    value = base::fromUtf8(found);
    return true;
}

bool NativeSystem::GetTempPathA(String& folder) {
    const char* path = secure_getenv("TMPDIR");
    if (path == nullptr || *path != '/' || !isFolder(path)) path = "/tmp";
    if (!isFolder(path)) return false;
    folder = nameOf(path);
    if (!folder.ends_with(u'\\')) folder += u'\\';
    return true;
}

}  // namespace quorkit::native
