// Deletes a key with everything beneath it.
#pragma once

#include "registry/reg_path.h"

namespace quorkit::registry {

/// Deletes the key, the deepest keys beneath it first. A key that cannot be emptied stays, and so
/// do those above it; the others are deleted. Returns the first failure. A key beneath that
/// disappears meanwhile is no failure, but the key itself must exist, otherwise kFileNotFound. A
/// root gives kInvalidParameter, and nothing is deleted. The path has exactly one "\" between its
/// names.
RegResult deleteTree(Registry& registry, const RegPath& key);

}  // namespace quorkit::registry
