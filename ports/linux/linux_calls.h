// System calls and their results.
#pragma once

#include <quorkit/ports/files.h>

#include <cerrno>
#include <string>

namespace quorkit::native {

/// The code for `errno`.
ErrorCode lastError();
/// The same after a call on `path`; kPathNotFound when its folder is missing too. A link that leads
/// nowhere or in a circle is not found.
ErrorCode lastErrorAt(const std::string& path);

inline ErrorCode resultOf(int returned) {
    return returned == 0 ? kSuccess : lastError();
}

/// Repeats a call while signals interrupt it.
template <class Call>
auto unlessInterrupted(Call call) {
    auto result = call();
    while (result == -1 && errno == EINTR) result = call();
    return result;
}

}  // namespace quorkit::native
