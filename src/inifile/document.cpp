#include "inifile/document.h"

#include <algorithm>
#include <cstring>
#include <span>

#include "inifile/old_lines.h"
#include "runtime/letter_case.h"

namespace quorkit {
namespace {

bool isAscii(std::string_view bytes) {
    return std::ranges::all_of(bytes, [](char byte) { return (byte & 0x80) == 0; });
}

char lowerAscii(char byte) {
    return byte >= 'A' && byte <= 'Z' ? static_cast<char>(byte + 32) : byte;
}

}  // namespace

IniDocument::IniDocument(std::string content, Encoding asciiAs)
    : marked_(takeMarkOff(std::move(content))), asciiAs_(asciiAs) {
    if (marked_.marked) encoding_ = marked_.encoding;
}

Encoding IniDocument::encoding() const {
    if (!encoding_) encoding_ = isAscii(marked_.text) ? asciiAs_ : encodingOf(marked_.text);
    return *encoding_;
}

bool IniDocument::keepsItsEncoding() const {
    return marked_.marked || isAscii(marked_.text) || encodingOf(marked_.text) == encoding();
}

String IniDocument::decoded(std::size_t begin, std::size_t end) const {
    const std::string_view bytes = part(begin, end);
    return decode(bytes, isAscii(bytes) ? Encoding::Ansi : encoding());
}

String IniDocument::entryOf(const Line& line) const {
    if (line.kind != LineKind::Key) return decoded(line.begin, line.end);
    return nameOf(line) + u'=' + valueOf(line);
}

// --- Finding ---

IniDocument::Wanted IniDocument::wanted(StringView name) const {
    Wanted result{String(name), {}};
    const auto ascii = [](StringView text) {
        return std::ranges::all_of(text, [](char16_t unit) { return unit < 0x80; });
    };
    if (!ascii(name)) result.folded = decode(encode(name, encoding()), encoding());
    result.folded = runtime::toLower(result.folded);
    if (ascii(result.folded)) result.ascii = encode(result.folded, Encoding::Ansi);
    return result;
}

bool IniDocument::isNamed(const Line& line, const Wanted& name) const {
    const std::string_view bytes = part(line.nameBegin, line.nameEnd);
    if (isAscii(bytes))
        return name.ascii && bytes.size() == name.ascii->size() &&
               std::ranges::equal(bytes, *name.ascii, {}, lowerAscii);
    return runtime::toLower(nameOf(line)) == name.folded;
}

template <class Use>
void IniDocument::forEachLine(const Line& header, Use use) const {
    for (std::size_t at = header.next; at < marked_.text.size();) {
        const Line line = lineAt(marked_.text, at);
        if (line.kind == LineKind::Section || !use(line)) return;
        at = line.next;
    }
}

std::optional<Line> IniDocument::nextHeader(std::size_t from) const {
    const char* const text = marked_.text.data();
    const std::size_t size = marked_.text.size();
    while (from < size) {
        std::size_t first = from;
        while (first < size && (text[first] == ' ' || text[first] == '\t')) ++first;
        if (first < size && text[first] == '[') {
            const Line line = lineAt(marked_.text, from);
            if (line.kind == LineKind::Section) return line;
        }
        const void* end = first < size ? std::memchr(text + first, '\n', size - first) : nullptr;
        if (end == nullptr) break;
        from = static_cast<std::size_t>(static_cast<const char*>(end) - text) + 1;
    }
    return std::nullopt;
}

std::optional<Line> IniDocument::findSection(StringView name) const {
    const Wanted section = wanted(name);
    if (index_) return findInIndex(section.folded);
    auto header = nextHeader(0);
    while (header && !isNamed(*header, section)) header = nextHeader(header->next);
    return header;
}

std::optional<Line> IniDocument::findKey(const Line& header, StringView key) const {
    const Wanted name = wanted(trimBlanks(key));
    std::optional<Line> found;
    forEachLine(header, [&](const Line& line) {
        if (line.kind == LineKind::Key && isNamed(line, name)) found = line;
        return !found;
    });
    return found;
}

std::size_t IniDocument::endOfSection(const Line& header) const {
    const auto next = nextHeader(header.next);
    return next ? next->begin : marked_.text.size();
}

/// The last line of a section that is not blank, its header if need be.
Line IniDocument::lastFilledLine(const Line& header) const {
    Line last = header;
    forEachLine(header, [&](const Line& line) {
        if (line.kind != LineKind::Blank) last = line;
        return true;
    });
    return last;
}

std::optional<Line> IniDocument::findInIndex(const String& folded) const {
    auto found = index_->headers.find(folded);
    while (found == index_->headers.end()) {
        const auto header = nextHeader(index_->end);
        if (!header) return std::nullopt;
        index_->end = header->next;
        const auto added = index_->headers.try_emplace(runtime::toLower(nameOf(*header)), *header);
        if (added.second && added.first->first == folded) found = added.first;
    }
    return found->second;
}

// --- Reading ---

std::optional<String> IniDocument::value(StringView section, StringView key) const {
    const auto header = findSection(section);
    if (!header || trimBlanks(key).empty()) return std::nullopt;
    const auto line = findKey(*header, key);
    if (!line) return std::nullopt;
    return valueOf(*line);
}

void IniDocument::forEachKey(StringView section, const KeyUse& use) const {
    const auto header = findSection(section);
    if (!header) return;
    forEachLine(*header, [&](const Line& line) {
        if (line.kind == LineKind::Key && line.nameBegin != line.nameEnd)
            use(nameOf(line), [&] { return valueOf(line); });
        return true;
    });
}

std::vector<String> IniDocument::sectionNames(std::size_t enough) const {
    std::vector<String> names;
    std::size_t size = 0;
    for (auto header = nextHeader(0); header && size <= enough; header = nextHeader(header->next)) {
        if (header->nameBegin == header->nameEnd) continue;
        names.push_back(nameOf(*header));
        size += names.back().size();
    }
    return names;
}

std::vector<String> IniDocument::entries(StringView section, std::size_t enough) const {
    std::vector<String> result;
    const auto header = findSection(section);
    if (!header) return result;
    std::size_t size = 0;
    forEachLine(*header, [&](const Line& line) {
        if (line.kind == LineKind::Blank) return true;
        result.push_back(entryOf(line));
        size += result.back().size();
        return size <= enough;
    });
    return result;
}

// --- Changing ---

void IniDocument::replace(std::size_t begin, std::size_t end, std::string_view by) {
    if (part(begin, end) == by) return;
    encoding();  // as the file was found
    marked_.text.replace(begin, end - begin, by);
    index_.reset();
    changed_ = true;
}

/// The line end to write behind `line`: its own, or where it has none the first of the file.
std::string IniDocument::lineEndAt(const Line& line) const {
    if (line.ended()) return std::string(part(line.end, line.next));
    const Line first = marked_.text.empty() ? Line() : lineAt(marked_.text, 0);
    return first.ended() ? std::string(part(first.end, first.next)) : "\r\n";
}

/// A key line with another value: everything else in it stays, the quotes of the value included.
std::string IniDocument::rewritten(const Line& line, StringView value) const {
    const char16_t quote = quoteOf(decoded(line.valueBegin, line.valueEnd));
    return std::string(part(line.begin, line.valueBegin)) +
           encode(writtenForm(value, quote), encoding()) +
           std::string(part(line.valueEnd, line.end));
}

/// The line of an entry; nothing when it would be more than a line, or a line of another kind.
std::optional<std::string> IniDocument::written(StringView entry) const {
    const auto equals = entry.find(u'=');
    const bool key = equals != StringView::npos && !trimBlanks(entry).starts_with(u';');
    std::string line = key ? encode(entry.substr(0, equals + 1), encoding()) +
                                 encode(writtenForm(entry.substr(equals + 1)), encoding())
                           : encode(entry, encoding());
    if (line.find_first_of(std::string_view("\r\n\0", 3)) != std::string::npos) return std::nullopt;
    const LineKind kind = lineAt(line, 0).kind;
    if (kind == LineKind::Section || key != (kind == LineKind::Key)) return std::nullopt;
    return line;
}

bool IniDocument::setValue(StringView section, StringView key, StringView value) {
    if (!isSectionName(section) || !isKeyName(key) || !isValue(value)) return false;
    const String entry = String(key) + u'=' + String(value);
    const auto header = findSection(section);
    if (!header) return appendSection(section, {entry});
    if (const auto line = findKey(*header, key)) {
        if (valueOf(*line) != value) replace(line->begin, line->end, rewritten(*line, value));
        return true;
    }
    const auto line = written(entry);
    if (!line) return false;
    Line last = *header;
    forEachLine(*header, [&](const Line& one) {
        if (one.kind != LineKind::Blank) last = one;
        return true;
    });
    const std::string lineEnd = lineEndAt(last);
    replace(last.next, last.next, last.ended() ? *line + lineEnd : lineEnd + *line);
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
    if (!header || section.empty()) return false;
    replace(header->begin, endOfSection(*header), "");
    return true;
}

void IniDocument::moveSectionToEnd(StringView section) {
    const auto header = findSection(section);
    if (!header) return;
    const std::size_t end = endOfSection(*header);
    const Wanted name = wanted(section);
    for (auto other = nextHeader(end); other; other = nextHeader(other->next))
        if (isNamed(*other, name)) return;

    const Line last = lastFilledLine(*header);
    if (end == marked_.text.size()) return;
    std::string lines(part(header->begin, last.next));
    const std::string lineEnd = lineEndAt(last);
    replace(header->begin, end, "");
    if (!marked_.text.ends_with('\n')) {  // the file goes on without a final line end
        lines.insert(0, lineEnd);
        lines.resize(lines.size() - lineEnd.size());
    }
    replace(marked_.text.size(), marked_.text.size(), lines);
}

bool IniDocument::setEntries(StringView section, const std::vector<String>& lines) {
    if (!isSectionName(section) || !std::ranges::all_of(lines, isValue)) return false;
    const auto header = findSection(section);
    if (!header) return appendSection(section, lines);
    const auto merged = mergedLines(*header, lines);
    if (!merged) return false;
    const std::size_t end = endOfSection(*header);
    if (header->ended() || merged->empty()) {
        replace(header->next, end, *merged);
        return true;
    }
    replace(header->next, end, lineEndAt(*header) + *merged);
    return true;
}

/// The text of a section with the given entries. An entry takes over the line that stood for it,
/// unless that line stands before one that is already taken.
std::optional<std::string> IniDocument::mergedLines(const Line& header,
                                                    const std::vector<String>& lines) const {
    OldLines old;
    forEachLine(header, [&](const Line& line) {
        old.add(line, line.kind == LineKind::Blank ? String() : entryOf(line));
        return true;
    });
    const std::string lineEnd = lineEndAt(header);
    std::string result;
    const auto add = [&](const Line& line, std::string_view content) {
        result += content;
        result += line.ended() ? part(line.end, line.next) : std::string_view(lineEnd);
    };
    const auto addBlanks = [&](std::span<const Line> passed) {
        for (const Line& line : passed)
            if (line.kind == LineKind::Blank) add(line, part(line.begin, line.end));
    };
    for (const String& entry : lines) {
        const std::size_t place = old.find(entry);
        if (place == old.size()) {
            const auto line = written(entry);
            if (!line) return std::nullopt;
            (result += *line) += lineEnd;
            continue;
        }
        addBlanks(old.passTo(place));
        const Line& line = old.line(place);
        if (old.entry(place) == entry) {
            add(line, part(line.begin, line.end));
        } else if (line.kind == LineKind::Key && entry.starts_with(nameOf(line) + u'=')) {
            add(line, rewritten(line, StringView(entry).substr(entry.find(u'=') + 1)));
        } else {
            const auto content = written(entry);
            if (!content) return std::nullopt;
            add(line, *content);
        }
    }
    addBlanks(old.passTo(old.size()));
    const bool endsFile = old.size() == 0 ? !header.ended() : !old.line(old.size() - 1).ended();
    if (endsFile && result.ends_with('\n')) result.pop_back();
    if (endsFile && result.ends_with('\r')) result.pop_back();
    return result;
}

bool IniDocument::appendSection(StringView name, const std::vector<String>& lines) {
    const Line first = marked_.text.empty() ? Line() : lineAt(marked_.text, 0);
    const std::string lineEnd = lineEndAt(first);
    std::string section = "[" + encode(name, encoding()) + "]" + lineEnd;
    for (const String& entry : lines) {
        const auto line = written(entry);
        if (!line) return false;
        section += *line + lineEnd;
    }
    const std::size_t end = marked_.text.size();
    if (end != 0 && marked_.text.back() != '\n') {  // the file goes on without a final line end
        section.insert(0, lineEnd);
        section.resize(section.size() - lineEnd.size());
    }
    replace(end, end, section);
    return true;
}

}  // namespace quorkit
