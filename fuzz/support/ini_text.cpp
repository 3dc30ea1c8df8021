#include "support/ini_text.h"

#include <algorithm>

#include "base/code_page.h"
#include "base/letter_case.h"
#include "base/unicode.h"

namespace quorkit::fuzz {
namespace {

constexpr StringView kBlanks = u" \t";
constexpr auto kNowhere = String::npos;

bool isAscii(std::string_view bytes) {
    return std::ranges::all_of(bytes,
                               [](char byte) { return static_cast<signed char>(byte) >= 0; });
}

String readForm(String value) {
    const StringView mark = u"$!ESCAPEDFIELD@#";
    const bool quoted = value.size() >= 2 && value.front() == value.back() &&
                        (value.front() == u'"' || value.front() == u'\'');
    if (quoted) value = value.substr(1, value.size() - 2);
    if (!value.starts_with(mark)) return value;
    String plain;
    for (std::size_t i = mark.size(); i < value.size(); ++i) {
        if (value[i] != u'\\') {
            plain += value[i];
            continue;
        }
        const std::size_t which =
            i + 1 < value.size() ? StringView(u"\\rn").find(value[i + 1]) : kNowhere;
        if (which == kNowhere) return value;
        plain += u"\\\r\n"[which];
        ++i;
    }
    return plain;
}

IniLine lineOf(String text, String end) {
    IniLine line;
    line.text = text;
    line.end = std::move(end);
    const std::size_t first = text.find_first_not_of(kBlanks);
    if (first == kNowhere) return line;
    const std::size_t close = text[first] == u'[' ? text.find(u']') : kNowhere;
    const std::size_t equals = text.find(u'=');
    if (text[first] == u';') {
        line.kind = IniLine::Comment;
    } else if (close != kNowhere) {
        line.kind = IniLine::Header;
        line.name = trimBlanks(text.substr(first + 1, close - first - 1));
    } else if (equals != kNowhere) {
        line.kind = IniLine::Key;
        line.name = trimBlanks(text.substr(0, equals));
        line.value = readForm(trimBlanks(text.substr(equals + 1)));
    } else {
        line.kind = IniLine::Other;
    }
    return line;
}

/// The lines of a text; `decode` converts a line to text.
template <class Text, class Decode>
IniLines linesOf(const Text& text, Decode decode) {
    IniLines lines;
    for (std::size_t at = 0; at < text.size();) {
        const std::size_t found = text.find('\n', at);
        const bool ended = found != Text::npos;
        const std::size_t next = ended ? found + 1 : text.size();
        const bool both = ended && found > at && text[found - 1] == '\r';
        const std::size_t end = ended ? found - (both ? 1 : 0) : next;
        lines.push_back(lineOf(decode(text.substr(at, end - at)), both    ? u"\r\n"
                                                                  : ended ? u"\n"
                                                                          : u""));
        at = next;
    }
    return lines;
}

String swapped(String text) {
    for (char16_t& unit : text) unit = static_cast<char16_t>(unit << 8 | unit >> 8);
    return text;
}

}  // namespace

String IniLine::front() const {
    const std::size_t behind = text.find_first_not_of(kBlanks, text.find(u'=') + 1);
    return text.substr(0, behind);
}

IniText IniText::of(std::string_view file) {
    IniText ini;
    const bool reversed = file.starts_with("\xFE\xFF");
    if (reversed || file.starts_with("\xFF\xFE")) {
        ini.encoding = reversed ? Utf16Reversed : Utf16;
        ini.marked = true;
        file.remove_prefix(2);
        ini.tail = file.substr(file.size() - file.size() % 2);
        const String text = base::fromUtf16(file);
        ini.lines = linesOf(reversed ? swapped(text) : text, [](String line) { return line; });
        return ini;
    }
    ini.marked = file.starts_with("\xEF\xBB\xBF");
    if (ini.marked) file.remove_prefix(3);
    ini.encoding = isAscii(file) ? Ascii : base::isUtf8(file) ? Utf8 : Ansi;
    if (ini.marked) ini.encoding = Utf8;
    const bool ansi = ini.encoding == Ansi;
    ini.lines = linesOf(std::string(file), [ansi](const std::string& line) {
        return ansi ? base::fromAnsi(line) : base::fromUtf8(line);
    });
    return ini;
}

std::size_t IniText::findSection(StringView name) const {
    const String wanted = comparable(name);
    if (wanted.empty()) return kNone;
    for (std::size_t i = 0; i < lines.size(); ++i)
        if (lines[i].kind == IniLine::Header && comparable(lines[i].name) == wanted) return i;
    return kNone;
}

std::size_t IniText::endOfSection(std::size_t header) const {
    std::size_t end = header + 1;
    while (end < lines.size() && lines[end].kind != IniLine::Header) ++end;
    return end;
}

std::size_t IniText::findKey(std::size_t header, StringView name) const {
    const String wanted = comparable(name);
    if (wanted.empty()) return kNone;
    const std::size_t end = endOfSection(header);
    for (std::size_t i = header + 1; i < end; ++i)
        if (lines[i].kind == IniLine::Key && comparable(lines[i].name) == wanted) return i;
    return kNone;
}

IniLines IniText::outside(std::size_t header) const {
    IniLines others = lines;
    if (header == kNone) return others;
    const auto begin = others.begin() + static_cast<std::ptrdiff_t>(header);
    others.erase(begin, others.begin() + static_cast<std::ptrdiff_t>(endOfSection(header)));
    return others;
}

bool IniText::holds(StringView text) const {
    if (encoding == Utf16 || encoding == Utf16Reversed) return true;
    if (encoding == Ansi) return base::fromAnsi(base::toAnsi(text)) == text;
    return base::isUtf8(base::toUtf8(text, Malformed::Keep));
}

bool IniText::looksForeign() const {
    return std::ranges::any_of(
        lines, [](const IniLine& line) { return line.text.find(u'\0') != kNowhere; });
}

String trimBlanks(String text) {
    const std::size_t first = std::min(text.find_first_not_of(kBlanks), text.size());
    return text.substr(first, text.find_last_not_of(kBlanks) + 1 - first);
}

String comparable(StringView name) {
    return base::toLower(trimBlanks(String(name)));
}

bool isSectionName(const String& name) {
    return !trimBlanks(name).empty() && name.find_first_of(StringView(u"]\r\n\0", 4)) == kNowhere;
}

bool isKeyName(const String& name) {
    const String key = trimBlanks(name);
    return !key.empty() && key[0] != u';' && key[0] != u'[' &&
           name.find_first_of(StringView(u"=\r\n\0", 4)) == kNowhere;
}

bool isValue(const String& value) {
    return value.find(u'\0') == kNowhere;
}

}  // namespace quorkit::fuzz
