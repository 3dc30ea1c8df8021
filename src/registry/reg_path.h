// Finds the place in the registry to which a path leads.
#pragma once

#include <quorkit/ports/registry.h>
#include <quorkit/values.h>

namespace quorkit::registry {

struct RegPath {
    RegistryRoot root = RegistryRoot::None;
    String path;  ///< the names beneath the root, in their spelling

    bool operator==(const RegPath&) const = default;
};

/// A path as text: HKEY_CURRENT_USER, HKEY_LOCAL_MACHINE or HKEY_CLASSES_ROOT, or HKCU, HKLM or
/// HKCR, in any letter case, then one character of any kind, then the names. Any other text has no
/// root and no names.
RegPath splitRegPath(const String& text);

/// The outcome of an operation on several keys, and the key with which it failed.
struct RegResult {
    ErrorCode code = kSuccess;
    RegPath key = {};
};

}  // namespace quorkit::registry
