// Where in the registry a path leads.
#pragma once

#include <quorkit/ports/registry.h>
#include <quorkit/values.h>

namespace quorkit::registry {

struct RegPath {
    RegistryRoot root = RegistryRoot::None;
    String path;  ///< the names beneath the root, spelled as they were given

    bool operator==(const RegPath&) const = default;
};

/// A path as text: HKEY_CURRENT_USER, HKEY_LOCAL_MACHINE or HKEY_CLASSES_ROOT, or HKCU, HKLM or
/// HKCR, in any letter case, one character of any kind, and the names. A text that begins with none
/// of them has no root and no names.
RegPath splitRegPath(const String& text);

/// How an operation on several keys went, and with which key it failed.
struct RegResult {
    ErrorCode code = kSuccess;
    RegPath key = {};
};

}  // namespace quorkit::registry
