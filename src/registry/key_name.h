// The full name of a key, as people and .reg files write it: HKEY_CURRENT_USER\Software\X.
#pragma once

#include <optional>

#include "registry/reg_path.h"

namespace quorkit::registry {

/// The long name of the root, and the path behind it.
String printKeyName(const RegPath& key);

/// The key of a name that begins with one of the roots of splitRegPath, in letters of any case, and
/// ends there or goes on with "\". The path has one "\" between its names and none behind them.
/// Nothing for other texts, and where a name is one that no key can have.
std::optional<RegPath> readKeyName(StringView name);

}  // namespace quorkit::registry
