// Values of a registry, and the limits of its names.
#pragma once

#include <quorkit/values.h>

#include <cstddef>
#include <cstdint>
#include <string>

namespace quorkit {

/// Types of values, by the numbers of Win32. Other numbers are passed on.
enum RegistryType : std::uint32_t {
    kRegNone = 0,
    kRegString = 1,
    kRegExpandString = 2,
    kRegBinary = 3,
    kRegDWord = 4,
    kRegMultiString = 7,
};

/// Whether the data of a type is UTF-16 text, the lower byte first.
inline bool isRegistryText(std::uint32_t type) {
    return type == kRegString || type == kRegExpandString || type == kRegMultiString;
}

/// A type and its data: bytes, including any U+0000 at the end of a text.
struct RegistryValue {
    std::uint32_t type = kRegNone;
    std::string data;

    bool operator==(const RegistryValue&) const = default;
};

/// The value with the empty name is the key's default value.
struct NamedValue {
    String name;
    RegistryValue value;

    bool operator==(const NamedValue&) const = default;
};

/// The first two in characters, the last one in keys counted from the root of a hive.
inline constexpr std::size_t kLongestKeyName = 255;
inline constexpr std::size_t kLongestValueName = 16'383;
inline constexpr std::size_t kDeepestKey = 512;

}  // namespace quorkit
