// What the operating system says of itself and its user.
#pragma once

#include <cstdint>

namespace quorkit {

using LanguageIdentifier = std::uint16_t;  ///< a Windows language identifier

class System {
   public:
    virtual ~System() = default;

    /// The language of the user's interface; 0 when it is not known. On Linux it comes from the
    /// first of LC_ALL, LC_MESSAGES and LANG that is set; "C" and "POSIX" are English.
    virtual LanguageIdentifier GetUserDefaultUILanguage() = 0;
    /// The language of the system itself; 0 when it is not known.
    virtual LanguageIdentifier GetSystemDefaultLangID() = 0;
};

}  // namespace quorkit
