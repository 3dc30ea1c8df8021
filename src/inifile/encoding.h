// The encodings of INI files. A file in UTF-16 is handled as UTF-8, which can carry all of it.
#pragma once

#include <quorkit/values.h>

#include <string>
#include <string_view>

namespace quorkit {

enum class Encoding {
    Ansi,   ///< code page 1252: no byte-order mark, and not Utf8
    Utf8,   ///< with the byte-order mark, or valid with at least one multi-byte character
    Utf16,  ///< little-endian, with the byte-order mark
};

/// What a byte-order mark says: the encoding, and the text without it as it is handled.
struct MarkedText {
    bool marked = false;
    Encoding encoding = Encoding::Ansi;
    std::string text;
    std::string tail = {};  ///< half a character at the end of a damaged UTF-16 file
};
MarkedText takeMarkOff(std::string content);
/// The bytes of the file again.
std::string putMarkOn(MarkedText marked);

/// The encoding of text without a byte-order mark.
Encoding encodingOf(std::string_view unmarkedText);

bool isAscii(std::string_view bytes);
bool isAscii(StringView text);

/// One piece of handled text as text and back. A character that the encoding lacks becomes "?".
String decode(std::string_view bytes, Encoding encoding);
std::string encode(StringView text, Encoding encoding);
/// The same, put behind what is there.
void addEncoded(std::string& bytes, StringView text, Encoding encoding);

}  // namespace quorkit
