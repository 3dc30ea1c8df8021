// The names of keys as callers give them: the root's name in front, "HKCU\Software\X".
#pragma once

#include <quorkit/ports/registry.h>

namespace quorkit {

struct RegPath {
    RegistryRoot root = RegistryRoot::None;
    String path;

    bool operator==(const RegPath&) const = default;
};

/// The text in capitals begins with HKEY_CURRENT_USER, HKCU, HKEY_LOCAL_MACHINE, HKLM,
/// HKEY_CLASSES_ROOT or HKCR, tried in this order. One character behind it is skipped, whatever it
/// is, and the rest is the path. For any other text the root is None and the path empty.
RegPath splitRegPath(const String& text);

}  // namespace quorkit
