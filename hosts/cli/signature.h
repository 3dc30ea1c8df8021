// A catalogue row in words.
#pragma once

#include <quorkit/catalogue.h>

#include <string>

namespace quorkit::cli {

/// "Function LPad(sPadChar As String, s As String, maxLen As Long) As String"; parameters are by
/// value unless they say ByRef.
std::string signature(const MemberInfo& member);

/// "global" or "creatable".
const char* kindName(ClassKind kind);
/// "method", "get" or "let".
const char* kindName(MemberKind kind);

/// "0x60030001".
std::string identifierText(Long identifier);

/// The public record: its fields are Long numbers.
struct RecordInfo {
    const char* name;
    const char* sentence;
    const char* fields[4];
};
inline constexpr RecordInfo kRectangle = {
    "TRect", "A rectangle on the screen.", {"Left", "Top", "Width", "Height"}};

}  // namespace quorkit::cli
