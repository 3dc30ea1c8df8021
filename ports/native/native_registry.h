// The registry of the system this program runs on. A build has one of the rooms that implement it.
#pragma once

#include <quorkit/ports/registry.h>

namespace quorkit::native {

/// The same object for the whole process.
Registry& nativeRegistry();

}  // namespace quorkit::native
