// The public enumerations and the public record.
//
// On Windows include this header before <windows.h>, which defines macros with the names of CSIDLS,
// eDriveType and eBrowserInfoFlags constants. Their values are the same.
#pragma once

#include <quorkit/values.h>

namespace quorkit {

#define ENUMERATION(name, sentence) enum name : Long {
#define CONSTANT(name, value) name = value,
#define END(name) \
    }             \
    ;
#include <quorkit/enumerations.def>
#undef ENUMERATION
#undef CONSTANT
#undef END

/// A rectangle on the screen.
struct TRect {
    Long Left = 0;
    Long Top = 0;
    Long Width = 0;
    Long Height = 0;
};

}  // namespace quorkit
