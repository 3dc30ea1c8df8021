// The encodings of INI files. A file in UTF-16 is handled as UTF-8, which can hold all of it.
#pragma once

#include <quorkit/values.h>

#include <optional>
#include <string>
#include <string_view>

namespace quorkit::inifile {

enum class Encoding {
    Plain,  ///< only ASCII so far; new text is handled as UTF-8
    Ansi,   ///< code page 1252
    Utf8,
    Utf16,
};

/// The content of a file, split up.
struct FileText {
    std::string_view mark = {};  ///< the byte-order mark at its start
    std::string text = {};       ///< the rest, in the form in which it is handled
    std::string tail = {};       ///< half a character at the end of a damaged UTF-16 file
    bool refused = false;        ///< it cannot be read in its encoding, and is empty here
};
FileText takeApart(std::string content);
/// The encoding by the mark, or without one by the text.
Encoding encodingOf(const FileText& file);
/// The content of the file, whose encoding was `encoding` when it was split up. A file that is no
/// longer plain becomes code page 1252 if that can hold it, else UTF-8. Nothing when it would be
/// read back in another encoding.
std::optional<std::string> putTogether(FileText file, Encoding encoding);

bool isAscii(std::string_view bytes);
bool isAscii(StringView text);

/// Converts a piece of handled text to a String and back; nothing when the encoding lacks a
/// character.
String decode(std::string_view bytes, Encoding encoding);
std::optional<std::string> encode(StringView text, Encoding encoding);

}  // namespace quorkit::inifile
