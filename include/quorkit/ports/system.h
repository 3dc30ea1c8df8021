// What the operating system says of itself and its user.
#pragma once

#include <quorkit/ports/folders.h>
#include <quorkit/values.h>

#include <cstdint>

namespace quorkit {

using LanguageIdentifier = std::uint16_t;  ///< a Windows language identifier

/// A moment in the user's time zone.
struct SystemTime {
    int year = 1970;
    int month = 1;
    int day = 1;
    int hour = 0;
    int minute = 0;
    int second = 0;
    int milliseconds = 0;
};

/// The version of the operating system as Win32 has it. On Linux the platform is 4 and the version
/// that of the kernel.
struct OsVersion {
    std::uint32_t majorVersion = 0;
    std::uint32_t minorVersion = 0;
    std::uint32_t platformId = 0;
    String servicePack;  ///< up to 128 characters, including any blanks around
    std::uint16_t servicePackMajor = 0;
    std::uint16_t suiteMask = 0;
    std::uint8_t productType = 0;
};

/// The size of the record that is asked for.
enum class OsRecord { Extended = 156, Short = 148 };

class System {
   public:
    virtual ~System() = default;

    /// The language of the user's interface; 0 when it is not known. On Linux it is that of the
    /// first of LC_ALL, LC_MESSAGES and LANG that is set; "C" and "POSIX" are English.
    virtual LanguageIdentifier GetUserDefaultUILanguage() = 0;
    /// The language of the system itself; 0 when it is not known.
    virtual LanguageIdentifier GetSystemDefaultLangID() = 0;

    /// False when the system gives no record of that size. The short record ends with the text of
    /// the service pack.
    virtual bool GetVersionExA(OsRecord size, OsVersion& version) = 0;
    /// The dialling code of the system's country in decimal digits, without leading zeros or "+";
    /// false when it is not known. On Linux it comes from the locale's data on telephones.
    virtual bool DiallingCode(String& diallingCode) = 0;

    virtual SystemTime GetLocalTime() = 0;
    /// A time in the user's time zone. False when no calendar can show it. Linux applies the
    /// daylight saving time of that day, Windows always that of today.
    virtual bool LocalTimeOf(FileTime time, SystemTime& local) = 0;
    /// A counter that runs as long as the system, in steps of a microsecond or less.
    virtual std::uint64_t QueryPerformanceCounter() = 0;

    /// The value of the environment variable `name`. A variable of exactly that spelling is
    /// preferred to one that differs in letter case. False, with `value` unchanged, when there is
    /// none, which includes an empty name and a name with "=" or U+0000.
    virtual bool GetEnvironmentVariableA(const String& name, String& value) = 0;

    /// The folder for temporary files with a separator at its end; false when there is none.
    virtual bool GetTempPathA(String& folder) = 0;
    /// The path of a special folder, by its CSIDLS number, without a separator at its end; the
    /// folder need not exist. False for a folder that this system does not have, or that is no
    /// folder on disk. On Linux the paths are those of the XDG standards: base folders, and those
    /// that a user sets in user-dirs.dirs.
    virtual bool SHGetFolderPathA(int folder, String& path) = 0;

   protected:
    /// Whether an environment variable can have this name.
    static bool isVariableName(const String& name) {
        return !name.empty() && name.find_first_of(StringView(u"=\0", 2)) == String::npos;
    }
};

}  // namespace quorkit
