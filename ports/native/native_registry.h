// The registry of this system; a build has one implementation.
#pragma once

#include <quorkit/ports/registry.h>

namespace quorkit::native {

/// One object for the whole process.
Registry& nativeRegistry();

}  // namespace quorkit::native
