// The signature of a catalogue row as text.
#pragma once

#include <quorkit/catalogue.h>

#include <string>

namespace quorkit::describe {

/// "Function LPad(sPadChar As String, s As String, maxLen As Long) As String". Parameters are by
/// value unless ByRef stands in front of them.
std::string signature(const MemberInfo& member);

/// "global", "creatable" or "runtime".
const char* kindName(ClassKind kind);
/// "method", "get" or "let".
const char* kindName(MemberKind kind);

/// Error 429 when there is no such class.
const ClassInfo& classNamed(StringView name);

/// "0x60030001".
std::string identifierText(Long identifier);

}  // namespace quorkit::describe
