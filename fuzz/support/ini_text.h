// A simple reader of INI files, which decodes every line completely. It implements the layout of
// docs/inifile.md a second time, independently of the library.
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
    String end;    ///< "\r\n", "\n", or "" for a last line without line end
    String name;   ///< of a header or a key, without the blanks around it
    String value;  ///< of a key, as it is read
    /// The text in front of a value: key, "=", blanks.
    String front() const;
};

using IniLines = std::vector<IniLine>;

struct IniText {
    enum Encoding { Ascii, Ansi, Utf8, Utf16, Utf16Reversed };
    Encoding encoding = Ascii;
    bool marked = false;
    std::string tail;  ///< odd byte at the end
    IniLines lines;

    static IniText of(std::string_view file);

    static constexpr std::size_t kNone = static_cast<std::size_t>(-1);
    /// The header of the section that counts; of several, the first.
    std::size_t findSection(StringView name) const;
    /// The position behind the last line of the section with that header.
    std::size_t endOfSection(std::size_t header) const;
    /// The line of the key that counts.
    std::size_t findKey(std::size_t header, StringView name) const;
    /// All lines except those of the section with that header.
    IniLines outside(std::size_t header) const;

    /// Whether a text can be written into this file without change.
    bool holds(StringView text) const;
    /// Whether the file may be in an encoding that is recognised but not written.
    bool looksForeign() const;
};

String trimBlanks(String text);
/// Two names are the same when these are equal.
String comparable(StringView name);

// The contents that a line can have.
bool isSectionName(const String& name);
bool isKeyName(const String& name);
bool isValue(const String& value);

}  // namespace quorkit::fuzz
