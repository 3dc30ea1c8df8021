// The catalogue's identities as the system's GUIDs.
#pragma once

#include <objbase.h>
#include <windows.h>

#include <cstdint>
#include <string>

namespace quorkit::automation {

/// The GUID of an identity in the catalogue's form, "673d863d-04b8-44f9-aadf-94b1a8221c8d": letters
/// of either case, whatever stands between the digits is skipped. Missing digits count as zeros.
inline GUID guidOf(const char* identity) {
    constexpr int kBytes = 16;
    std::uint8_t bytes[kBytes] = {};
    int digits = 0;
    for (; *identity != 0 && digits < 2 * kBytes; ++identity) {
        const char one = static_cast<char>(*identity | ' ');
        const bool letter = one >= 'a' && one <= 'f';
        if (!letter && (one < '0' || one > '9')) continue;
        const int digit = letter ? one - 'a' + 10 : one - '0';
        bytes[digits / 2] = static_cast<std::uint8_t>(bytes[digits / 2] << 4 | digit);
        ++digits;
    }
    GUID guid = {};
    guid.Data1 = static_cast<unsigned long>(bytes[0]) << 24 |
                 static_cast<unsigned long>(bytes[1]) << 16 |
                 static_cast<unsigned long>(bytes[2]) << 8 | bytes[3];
    guid.Data2 = static_cast<unsigned short>(bytes[4] << 8 | bytes[5]);
    guid.Data3 = static_cast<unsigned short>(bytes[6] << 8 | bytes[7]);
    for (int i = 0; i < 8; ++i) guid.Data4[i] = bytes[8 + i];
    return guid;
}

/// The form in which the registry has it: "{673D863D-04B8-44F9-AADF-94B1A8221C8D}".
inline std::wstring textOf(const GUID& guid) {
    wchar_t text[39] = {};
    StringFromGUID2(guid, text, 39);
    return text;
}

}  // namespace quorkit::automation
