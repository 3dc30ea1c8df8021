// The public enumerations as the catalogue has them, and the C++ type of each.
#pragma once

#include <quorkit/catalogue.h>
#include <quorkit/enumerations.h>

namespace quorkit::frame {

#define ENUMERATION(name, sentence) inline constexpr ConstantInfo constantsOf_##name[] = {
#define CONSTANT(name, value) {#name, value},
#define END(name) \
    }             \
    ;
#include <quorkit/enumerations.def>
#undef ENUMERATION
#undef CONSTANT
#undef END

#define CONSTANT(name, value)
#define END(name)

inline constexpr EnumerationInfo kEnumerations[] = {
#define ENUMERATION(name, sentence) {#name, sentence, constantsOf_##name},
#include <quorkit/enumerations.def>
#undef ENUMERATION
};

/// Their places there.
enum EnumerationPlace {
#define ENUMERATION(name, sentence) placeOf_##name,
#include <quorkit/enumerations.def>
#undef ENUMERATION
};

#define ENUMERATION(name, sentence)                        \
    constexpr const EnumerationInfo* enumerationOf(name) { \
        return &kEnumerations[placeOf_##name];             \
    }
#include <quorkit/enumerations.def>
#undef ENUMERATION
#undef CONSTANT
#undef END

}  // namespace quorkit::frame
