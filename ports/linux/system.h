// The system's own facts on Linux, from the environment.
#pragma once

#include <quorkit/ports/system.h>

#include <string_view>

namespace quorkit {

class LinuxSystem final : public System {
   public:
    LanguageIdentifier GetUserDefaultUILanguage() override;
    /// The same: a Linux system has no language apart from its locale environment.
    LanguageIdentifier GetSystemDefaultLangID() override;
};

/// The Windows language identifier of a locale name such as "de_CH.UTF-8"; 0 for a language that
/// the table lacks. A country it lacks counts as the language's main one.
LanguageIdentifier languageOfLocale(std::string_view locale);

}  // namespace quorkit
