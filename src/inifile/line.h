// One line of an INI file: its kind, and its value as written. See docs/inifile.md.
#pragma once

#include <quorkit/values.h>

#include <cstddef>
#include <string>
#include <string_view>

namespace quorkit::inifile {

enum class LineKind {
    Blank,    ///< nothing but blanks and tabs
    Section,  ///< "[" name "]"; the text behind the first "]" is ignored
    Comment,  ///< begins with ";"
    Key,      ///< name "=" value
    Other,    ///< anything else
};

/// A line as positions in the text that contains it.
struct Line {
    std::size_t begin = 0;
    std::size_t end = 0;   ///< start of its line end, "\n" or "\r\n"
    std::size_t next = 0;  ///< start of the next line
    LineKind kind = LineKind::Blank;
    std::size_t nameBegin = 0;  ///< of a section or key, without the blanks around it
    std::size_t nameEnd = 0;
    std::size_t valueBegin = 0;  ///< of a key, without the blanks around it
    std::size_t valueEnd = 0;

    bool ended() const { return next != end; }
};

/// The line at `begin`, which is not the end of `text`.
Line lineAt(std::string_view text, std::size_t begin);

/// `text` without blanks and tabs at both ends; around names and values these do not count.
StringView trimBlanks(StringView text);

/// Whether a line can hold the text: nothing in it ends the line, changes the line's kind, or would
/// be read back as something else.
bool isSectionName(StringView name);
bool isKeyName(StringView name);
bool isValue(StringView value);
/// The same for an entry of a whole section, in which a comment with "=" is an entry too.
bool isEntry(StringView key, StringView value);

/// Whether a value is written as it is, without quotes or escapes.
bool isWrittenPlainly(StringView value);
/// A value as it is written: line breaks are escaped, and quotes are added if it would not be read
/// back without them. `quote` is the mark around the old value, or U+0000.
String writtenForm(StringView value, char16_t quote = u'\0');
/// Whether the text behind "=", without the blanks around it, is the value itself.
bool isReadPlainly(std::string_view written);
/// The value of the text behind "=": the blanks around it and one pair of quotes are removed, line
/// breaks restored.
String readForm(StringView written);
/// The mark around a written value; U+0000 for none.
char16_t quoteOf(StringView written);

}  // namespace quorkit::inifile
