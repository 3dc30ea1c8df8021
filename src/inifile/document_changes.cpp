// Changing a document.
#include <algorithm>

#include "inifile/document.h"

namespace quorkit::inifile {

/// Appends the encoded text to `bytes`. False when the encoding cannot hold it.
bool IniDocument::addEncoded(std::string& bytes, StringView text) const {
    const std::size_t size = bytes.size();
    bytes.resize(size + text.size());
    char16_t all = 0;
    for (std::size_t i = 0; i < text.size(); ++i) {
        bytes[size + i] = static_cast<char>(text[i]);
        all |= text[i];
    }
    if (all < 0x80) return true;
    bytes.resize(size);
    const std::optional<std::string> added = encoded(text);
    if (added) bytes += *added;
    return added.has_value();
}

void IniDocument::replace(std::size_t begin, std::size_t end, std::string_view by) {
    if (part(begin, end) == by) return;
    encoding();  // determined before the text changes
    file_.text.replace(begin, end - begin, by);
    index_.reset();
    changed_ = true;
}

/// The line end to write behind `line`: its own, or if it has none the first one in the file.
std::string IniDocument::lineEndAt(const Line& line) const {
    if (line.ended()) return std::string(part(line.end, line.next));
    const Line first = file_.text.empty() ? Line() : lineAt(file_.text, 0);
    return first.ended() ? std::string(part(first.end, first.next)) : "\r\n";
}

/// Appends a key line with another value; the rest of the line stays, the quotes around the value
/// too. False when the encoding cannot hold it.
bool IniDocument::addRewritten(std::string& text, const Line& line, StringView value) const {
    text += part(line.begin, line.valueBegin);
    const bool quoted = !isReadPlainly(part(line.valueBegin, line.valueEnd));
    const bool held =
        !quoted && isWrittenPlainly(value)
            ? addEncoded(text, value)
            : addEncoded(text,
                         writtenForm(value, quoteOf(decoded(line.valueBegin, line.valueEnd))));
    text += part(line.valueEnd, line.end);
    return held;
}

/// Appends the line of an entry. False when the encoding cannot hold it, and when it would become
/// several lines or a line of another kind.
bool IniDocument::addWritten(std::string& text, const IniEntry& entry) const {
    const std::size_t begin = text.size();
    const bool key = !trimBlanks(entry.name).starts_with(u';');
    if (!addEncoded(text, entry.name)) return false;
    text += '=';
    const bool plainly = !key || isWrittenPlainly(entry.value);
    if (!(plainly ? addEncoded(text, entry.value) : addEncoded(text, writtenForm(entry.value))))
        return false;

    const auto line = std::string_view(text).substr(begin);
    if (line.find_first_of(std::string_view("\r\n\0", 3)) != std::string_view::npos) return false;
    const LineKind kind = lineAt(line, 0).kind;
    return kind != LineKind::Section && key == (kind == LineKind::Key);
}

bool IniDocument::setValue(StringView section, StringView key, StringView value) {
    if (!isSectionName(section) || !isKeyName(key) || !isValue(value)) return false;
    const IniEntry entry{key, value};
    const auto header = findSection(section);
    if (!header) return appendSection(section, std::span(&entry, 1));
    std::string text;
    if (const auto line = findKey(*header, key)) {
        if (valueOf(*line) == value) return true;
        if (!addRewritten(text, *line, value)) return false;
        replace(line->begin, line->end, text);
        return true;
    }
    if (!addWritten(text, entry)) return false;
    // Comments behind the last key usually belong to the section that follows.
    const Line last = lastLineBut(*header, {LineKind::Blank, LineKind::Comment});
    const std::string lineEnd = lineEndAt(last);
    replace(last.next, last.next, last.ended() ? text + lineEnd : lineEnd + text);
    return true;
}

bool IniDocument::removeKey(StringView section, StringView key) {
    const auto header = findSection(section);
    if (!header || trimBlanks(key).empty()) return false;
    const auto line = findKey(*header, key);
    if (line) replace(line->begin, line->next, "");
    return line.has_value();
}

bool IniDocument::removeSection(StringView section) {
    const auto header = findSection(section);
    if (!header) return false;
    replace(header->begin, endOfSection(*header), "");
    return true;
}

void IniDocument::moveSectionToEnd(StringView section) {
    const auto header = findSection(section);
    if (!header) return;
    const std::size_t end = endOfSection(*header);
    const Wanted name(section);
    for (auto other = nextHeader(end); other; other = nextHeader(other->next))
        if (isNamed(*other, name)) return;
    if (end == file_.text.size()) return;

    const std::string lines(part(header->begin, lastLineBut(*header, {LineKind::Blank}).next));
    replace(header->begin, end, "");
    append(lines);
}

bool IniDocument::putInFront(StringView section, std::span<const IniEntry> lines) {
    if (!isSectionName(section)) return false;
    const auto header = findSection(section);
    if (!header) return appendSection(section, lines);
    const std::string lineEnd = lineEndAt(*header);
    std::string text;
    if (!addLines(text, lines, lineEnd)) return false;
    if (!header->ended() && !text.empty()) {
        text.insert(0, lineEnd);
        text.resize(text.size() - lineEnd.size());
    }
    replace(header->next, header->next, text);
    return true;
}

bool IniDocument::addLines(std::string& text, std::span<const IniEntry> lines,
                           std::string_view lineEnd) const {
    return std::ranges::all_of(lines, [&](const IniEntry& entry) {
        const bool added = addWritten(text, entry);
        text += lineEnd;
        return added;
    });
}

bool IniDocument::appendSection(StringView name, std::span<const IniEntry> lines) {
    const Line first = file_.text.empty() ? Line() : lineAt(file_.text, 0);
    const std::string lineEnd = lineEndAt(first);
    std::string section = "[";
    if (!addEncoded(section, trimBlanks(name))) return false;
    section += "]" + lineEnd;
    if (!addLines(section, lines, lineEnd)) return false;
    append(section);
    return true;
}

/// Appends whole lines to the file. A file without a final line end stays without one.
void IniDocument::append(std::string_view lines) {
    const std::string& text = file_.text;
    if (text.empty() || text.ends_with('\n')) return replace(text.size(), text.size(), lines);
    const std::string_view lineEnd = lines.ends_with("\r\n") ? "\r\n" : "\n";
    lines.remove_suffix(lineEnd.size());
    replace(text.size(), text.size(), std::string(lineEnd).append(lines));
}

}  // namespace quorkit::inifile
