// The registry: a tree of keys, each with named values.
#pragma once

#include <quorkit/ports/files.h>
#include <quorkit/values.h>
#include <quorkit/values/registry_value.h>

#include <cstdint>
#include <span>
#include <string>
#include <vector>

namespace quorkit {

/// By the numbers of Win32.
enum class RegistryRoot : std::uint32_t {
    None = 0,
    ClassesRoot = 0x80000000,
    CurrentUser = 0x80000001,
    LocalMachine = 0x80000002,
};

enum class RegistryAccess : std::uint32_t {
    Read = 0x20019,
    Write = 0x20006,
};

/// Something damaged in the store that a person has to mend.
struct RegistryDamage {
    String place;  ///< a path, followed by ":" and a line number if it is one line
    String what;
};

/// Names of keys and values keep their spelling and match without regard to letter case. A path is
/// a list of names with one or more "\" between them, and optionally at the end; "\" in front gives
/// kBadPathName. kInvalidParameter for a name that holds U+0000 or is too long, and for a path that
/// is too deep.
///
/// kFileNotFound when a key or value does not exist, kAccessDenied when this user may not use it.
/// An operation that fails changes nothing unless it says so.
///
/// The classes root shows HKEY_CURRENT_USER\Software\Classes over
/// HKEY_LOCAL_MACHINE\Software\Classes. On Linux it has the keys and values of both, and the user's
/// cover the machine's. A write goes to the user's key if that exists, otherwise to the machine's.
/// A deletion takes the user's first.
class Registry {
   public:
    virtual ~Registry() = default;

    /// Opens a key; the empty path is the root itself, and None has no keys. On success RegCloseKey
    /// must follow.
    virtual ErrorCode RegOpenKeyExA(RegistryRoot root, const String& path, RegistryAccess access,
                                    Handle& key) = 0;
    /// Opens a key for reading and writing; the key and missing keys above it are made. A failure
    /// may leave some of the keys above it made.
    virtual ErrorCode RegCreateKeyA(RegistryRoot root, const String& path, Handle& key) = 0;
    virtual void RegCloseKey(Handle key) = 0;

    virtual ErrorCode RegQueryValueExA(Handle key, const String& name, RegistryValue& value) = 0;
    /// Sets all of the values; of two with the same name the later one counts. On a failure none is
    /// set, except that Windows may keep some.
    virtual ErrorCode SetValues(Handle key, std::span<const NamedValue> values) = 0;
    virtual ErrorCode RegDeleteValueA(Handle key, const String& name) = 0;
    // On a failure the two lists below stay as they were.

    /// All values of a key, in the system's order.
    virtual ErrorCode ListValues(Handle key, std::vector<NamedValue>& values) = 0;
    /// The names of all keys directly beneath a key, in the system's order.
    virtual ErrorCode ListKeys(Handle key, std::vector<String>& names) = 0;
    /// Deletes the key `name` beneath `parent`, which is open for writing, together with its
    /// values. kAccessDenied when there are keys beneath it; kInvalidParameter when `name` is empty
    /// or holds a "\".
    virtual ErrorCode RegDeleteKeyA(Handle parent, const String& name) = 0;

    /// The damages in the store, when it is the library's own; none when it is the system's.
    virtual std::vector<RegistryDamage> FindDamage() = 0;
};

}  // namespace quorkit
