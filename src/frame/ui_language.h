// The language of the user interface.
#pragma once

#include <quorkit/enumerations.h>
#include <quorkit/ports/ports.h>

namespace quorkit::frame {

/// The language that the user's interface speaks, or when that is not known the system's own;
/// eLanguage_Unknown for one that has no constant. Never an error, never eLanguage_System.
eLanguage uiLanguage(Ports& ports);

}  // namespace quorkit::frame
