// An INI file taken apart the plain way: every line decoded whole, nothing found quickly. What
// docs/inifile.md says of the layout, once more and independently of the library's own reading.
#pragma once

#include <quorkit/values.h>

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace quorkit::fuzz {

struct IniLine {
    enum Kind { Blank, Header, Comment, Key, Other };
    Kind kind = Blank;
    String text;   ///< without the line end
    String end;    ///< "\r\n", "\n", or "" for a last line without one
    String name;   ///< of a header or a key, without the blanks around it
    String value;  ///< of a key, as it is read
    /// What stands in front of a value: the key, "=", blanks.
    String front() const;
};

using IniLines = std::vector<IniLine>;

struct IniText {
    enum Encoding { Ascii, Ansi, Utf8, Utf16, Utf16Reversed };
    Encoding encoding = Ascii;
    bool marked = false;
    std::string tail;  ///< half a character at the end
    IniLines lines;

    static IniText of(std::string_view file);

    static constexpr std::size_t kNone = static_cast<std::size_t>(-1);
    /// The header of the section that counts.
    std::size_t findSection(StringView name) const;
    /// Behind the last line of the section with that header.
    std::size_t endOfSection(std::size_t header) const;
    /// The line of the key that counts.
    std::size_t findKey(std::size_t header, StringView name) const;
    /// All but the section with that header.
    IniLines outside(std::size_t header) const;

    /// Whether a text can be written into this file as it is.
    bool holds(StringView text) const;
    /// Whether it may be in an encoding that is recognised and not written.
    bool looksForeign() const;
};

String trimBlanks(String text);
/// Names that are the same in this are the same.
String comparable(StringView name);

// What a line can carry.
bool isSectionName(const String& name);
bool isKeyName(const String& name);
bool isValue(const String& value);

}  // namespace quorkit::fuzz
