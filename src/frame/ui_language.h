// The language of the user interface.
#pragma once

#include <quorkit/enumerations.h>
#include <quorkit/ports/ports.h>

namespace quorkit::frame {

/// The language of the user's interface, or the system's own when that is not known. A language
/// that has no constant is eLanguage_Unknown. Never an error, never eLanguage_System.
eLanguage uiLanguage(Ports& ports);

}  // namespace quorkit::frame
