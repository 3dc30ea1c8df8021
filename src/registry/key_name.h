// The full name of a key, as people and .reg files write it: HKEY_CURRENT_USER\Software\X.
#pragma once

#include <optional>

#include "registry/reg_path.h"

namespace quorkit::registry {

/// The long name of the root, and the path behind it.
String printKeyName(const RegPath& key);

/// The key of a name that begins with one of the roots of splitRegPath, in any letter case, and
/// then ends or goes on with "\". The path has one "\" between its names and none at its end.
/// Nothing for any other text, and when a part of the name is not a valid name of a key.
std::optional<RegPath> readKeyName(StringView name);

}  // namespace quorkit::registry
