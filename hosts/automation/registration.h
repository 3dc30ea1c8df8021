// The entries by which Windows finds the automation server: all from the catalogue, so an
// installation, a removal and a look need no file of the server.
#pragma once

#include <windows.h>

#include <cstddef>
#include <string>

namespace quorkit::automation {

/// For everybody on this machine, which only an administrator can register, or for this user.
enum class Scope { Machine, User };

/// The two kinds of programs; each has its own entries of classes and interfaces.
enum class Bits { B32 = 32, B64 = 64 };
inline constexpr Bits kOwnBits = sizeof(void*) == 8 ? Bits::B64 : Bits::B32;

/// Registers the classes, their interfaces and the type library of the server at `dllPath`, whether
/// or not there is such a file. Replaces what is registered for the same scope and bitness, and
/// leaves that of the other bitness alone. A relative path begins at the current folder. On a
/// failure some entries may be there; unregisterServer removes them.
HRESULT registerServer(Scope scope, const std::wstring& dllPath, Bits bits = kOwnBits);

/// Removes these entries; what the other bitness needs of them is written again for it. What is not
/// there does not matter. A failure does not keep the other entries from being removed; the first
/// one is the result.
HRESULT unregisterServer(Scope scope, Bits bits = kOwnBits);

/// A path that does not depend on the current folder; "" for what is no path.
std::wstring fullPath(const std::wstring& path);

struct Registered {
    std::size_t classes = 0;  ///< how many of the catalogue's
    std::wstring dllPath;     ///< of the first of them
};
/// What is registered for a scope and a bitness.
Registered registered(Scope scope, Bits bits = kOwnBits);

}  // namespace quorkit::automation
