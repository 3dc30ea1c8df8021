#include "inifile/line.h"

#include <cstring>

namespace quorkit::inifile {
namespace {

/// Marks a value whose line breaks are escaped; no value in a real file begins like this.
constexpr StringView kEscaped = u"$!ESCAPEDFIELD@#";

template <class Unit>
bool isBlank(Unit unit) {
    return unit == ' ' || unit == '\t';
}

std::size_t skipBlanks(std::string_view text, std::size_t from, std::size_t end) {
    while (from < end && isBlank(text[from])) ++from;
    return from;
}

std::size_t skipBlanksBack(std::string_view text, std::size_t from, std::size_t begin) {
    while (from > begin && isBlank(text[from - 1])) --from;
    return from;
}

std::size_t find(std::string_view text, char wanted, std::size_t begin, std::size_t end) {
    if (begin >= end) return end;
    const void* found = std::memchr(text.data() + begin, wanted, end - begin);
    return found == nullptr
               ? end
               : static_cast<std::size_t>(static_cast<const char*>(found) - text.data());
}

bool holds(StringView text, StringView units) {
    return text.find_first_of(units) != StringView::npos;
}

String escape(StringView value) {
    String result(kEscaped);
    for (const char16_t unit : value) {
        if (unit == u'\\')
            result += u"\\\\";
        else if (unit == u'\r')
            result += u"\\r";
        else if (unit == u'\n')
            result += u"\\n";
        else
            result += unit;
    }
    return result;
}

/// False when `escaped` is not the result of `escape`; then it is an ordinary value.
bool unescape(StringView escaped, String& value) {
    for (std::size_t i = kEscaped.size(); i < escaped.size(); ++i) {
        if (escaped[i] != u'\\') {
            value += escaped[i];
            continue;
        }
        if (++i == escaped.size()) return false;
        if (escaped[i] == u'\\')
            value += u'\\';
        else if (escaped[i] == u'r')
            value += u'\r';
        else if (escaped[i] == u'n')
            value += u'\n';
        else
            return false;
    }
    return true;
}

}  // namespace

Line lineAt(std::string_view text, std::size_t begin) {
    Line line;
    line.begin = begin;
    line.end = find(text, '\n', begin, text.size());
    line.next = line.end == text.size() ? line.end : line.end + 1;
    if (line.ended() && line.end > begin && text[line.end - 1] == '\r') --line.end;

    const std::size_t first = skipBlanks(text, begin, line.end);
    if (first == line.end) return line;
    if (text[first] == ';') {
        line.kind = LineKind::Comment;
        return line;
    }
    if (text[first] == '[') {
        const std::size_t close = find(text, ']', first, line.end);
        if (close != line.end) {
            line.kind = LineKind::Section;
            line.nameBegin = skipBlanks(text, first + 1, close);
            line.nameEnd = skipBlanksBack(text, close, line.nameBegin);
            return line;
        }
    }
    const std::size_t equals = find(text, '=', first, line.end);
    if (equals == line.end) {
        line.kind = LineKind::Other;
        return line;
    }
    line.kind = LineKind::Key;
    line.nameBegin = first;
    line.nameEnd = skipBlanksBack(text, equals, first);
    line.valueBegin = skipBlanks(text, equals + 1, line.end);
    line.valueEnd = skipBlanksBack(text, line.end, line.valueBegin);
    return line;
}

StringView trimBlanks(StringView text) {
    while (!text.empty() && isBlank(text.front())) text.remove_prefix(1);
    while (!text.empty() && isBlank(text.back())) text.remove_suffix(1);
    return text;
}

bool isSectionName(StringView name) {
    return !trimBlanks(name).empty() && !holds(name, StringView(u"]\r\n\0", 4));
}

bool isKeyName(StringView name) {
    const StringView trimmed = trimBlanks(name);
    return !trimmed.empty() && trimmed.front() != u';' && trimmed.front() != u'[' &&
           !holds(name, StringView(u"=\r\n\0", 4));
}

bool isValue(StringView value) {
    return value.find(u'\0') == StringView::npos;
}

char16_t quoteOf(StringView written) {
    const bool quoted = written.size() >= 2 && written.front() == written.back() &&
                        (written.front() == u'"' || written.front() == u'\'');
    return quoted ? written.front() : u'\0';
}

bool isEntry(StringView key, StringView value) {
    const StringView name = trimBlanks(key);
    if (name.empty() || holds(key, StringView(u"=\r\n\0", 4)) || !isValue(value)) return false;
    if (name.front() == u';') return !holds(value, u"\r\n");  // a comment has no escapes
    return name.front() != u'[' || (!holds(name, u"]") && !holds(value, u"]"));
}

bool isWrittenPlainly(StringView value) {
    return value.empty() ||
           (!isBlank(value.front()) && !isBlank(value.back()) && quoteOf(value) == 0 &&
            !value.starts_with(kEscaped) && !holds(value, u"\r\n"));
}

bool isReadPlainly(std::string_view written) {
    return written.empty() || (written.front() != '"' && written.front() != '\'' &&
                               written.front() != kEscaped.front());
}

String writtenForm(StringView value, char16_t quote) {
    String written(value);
    if (holds(value, u"\r\n") || value.starts_with(kEscaped)) written = escape(value);
    const bool quotesNeeded = trimBlanks(written).size() != written.size() || quoteOf(written) != 0;
    if (quote == u'\0' && quotesNeeded) quote = u'"';
    return quote == u'\0' ? written : quote + written + quote;
}

String readForm(StringView written) {
    StringView value = trimBlanks(written);
    if (quoteOf(value) != 0) value = value.substr(1, value.size() - 2);
    String plain;
    if (value.starts_with(kEscaped) && unescape(value, plain)) return plain;
    return String(value);
}

}  // namespace quorkit::inifile
