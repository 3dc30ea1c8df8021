// The encodings of INI files. A file in UTF-16 is handled as UTF-8, which can carry all of it.
#pragma once

#include <quorkit/values.h>

#include <optional>
#include <string>
#include <string_view>

namespace quorkit::inifile {

enum class Encoding {
    Plain,  ///< nothing but ASCII yet; what is added to it is handled as UTF-8
    Ansi,   ///< code page 1252
    Utf8,
    Utf16,
};

/// The content of a file, taken apart.
struct FileText {
    std::string_view mark = {};  ///< the byte-order mark it begins with
    std::string text = {};       ///< the rest as it is handled
    std::string tail = {};       ///< half a character at the end of a damaged UTF-16 file
    bool refused = false;        ///< in an encoding that is not read: nothing of it is here
};
FileText takeApart(std::string content);
/// The encoding that the mark tells, or else the text.
Encoding encodingOf(const FileText& file);
/// The content of the file again, which had this encoding when it was taken apart. What is no
/// longer plain becomes code page 1252 where that can hold it, else UTF-8. Nothing when it would be
/// taken for another encoding.
std::optional<std::string> putTogether(FileText file, Encoding encoding);

bool isAscii(std::string_view bytes);
bool isAscii(StringView text);

/// One piece of handled text as text and back; nothing when the encoding lacks a character.
String decode(std::string_view bytes, Encoding encoding);
std::optional<std::string> encode(StringView text, Encoding encoding);

}  // namespace quorkit::inifile
