// One line of an INI file: what it is, and how a value stands in it. See docs/inifile.md.
#pragma once

#include <quorkit/values.h>

#include <cstddef>
#include <string>
#include <string_view>

namespace quorkit::inifile {

enum class LineKind {
    Blank,    ///< nothing but blanks and tabs
    Section,  ///< "[" name "]", and whatever follows the first "]"
    Comment,  ///< begins with ";"
    Key,      ///< name "=" value
    Other,    ///< anything else
};

/// A line as places in the text that holds it.
struct Line {
    std::size_t begin = 0;
    std::size_t end = 0;   ///< where its line end, "\n" or "\r\n", begins
    std::size_t next = 0;  ///< where the next line begins
    LineKind kind = LineKind::Blank;
    std::size_t nameBegin = 0;  ///< of a section or key, without blanks around it
    std::size_t nameEnd = 0;
    std::size_t valueBegin = 0;  ///< of a key, without blanks around it
    std::size_t valueEnd = 0;

    bool ended() const { return next != end; }
};

/// The line that begins at `begin`, which is not the end of `text`.
Line lineAt(std::string_view text, std::size_t begin);

/// `text` without blanks and tabs at both ends: they do not count around names and values.
StringView trimBlanks(StringView text);

/// Whether a line can carry them: nothing that would end the line, make it another line's kind, or
/// come back as something else.
bool isSectionName(StringView name);
bool isKeyName(StringView name);
bool isValue(StringView value);
/// The same for an entry of a whole section, where a comment with "=" is an entry too.
bool isEntry(StringView key, StringView value);

/// Whether a value is written as it is, without quotes and escapes.
bool isWrittenPlainly(StringView value);
/// How a value is written: line breaks escaped, then in quotes where it would not come back
/// without. `quote` is the mark that the old value stood in, or U+0000.
String writtenForm(StringView value, char16_t quote = u'\0');
/// Whether what stands behind "=", without the blanks around it, is the value as it is.
bool isReadPlainly(std::string_view written);
/// The value of what stands behind "=": blanks around it and one pair of quotes taken off, line
/// breaks put back.
String readForm(StringView written);
/// The mark that a written value stands in; U+0000 for none.
char16_t quoteOf(StringView written);

}  // namespace quorkit::inifile
