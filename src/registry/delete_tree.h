// Deleting a key with all that is beneath it.
#pragma once

#include "registry/reg_path.h"

namespace quorkit::registry {

/// Deletes the key, the deepest ones beneath it first. A key that cannot be emptied stays, and so
/// do the ones above it; the others go. Answers the first failure. What vanishes meanwhile is none,
/// but the key itself must be there, else kFileNotFound; a root itself is kInvalidParameter, and
/// nothing is deleted. The path has one "\" between its names and no more.
RegResult deleteTree(Registry& registry, const RegPath& key);

}  // namespace quorkit::registry
