#include "inifile/document.h"

#include <quorkit/ports/ports.h>

#include <algorithm>
#include <cstring>

#include "base/letter_case.h"

namespace quorkit::inifile {
namespace {

char lowerAscii(char byte) {
    return byte >= 'A' && byte <= 'Z' ? static_cast<char>(byte + 32) : byte;
}

}  // namespace

Encoding IniDocument::encoding() const {
    if (!encoding_) encoding_ = encodingOf(file_);
    return *encoding_;
}

std::optional<std::string> IniDocument::content() && {
    const Encoding asFound = encoding();
    return putTogether(std::move(file_), asFound);
}

std::optional<std::string> IniDocument::encoded(StringView text) const {
    std::optional<std::string> bytes = encode(text, encoding());
    if (!bytes) ports::giveReason("the encoding of the INI file lacks a character of the text");
    return bytes;
}

bool IniDocument::canHoldSection(StringView name) const {
    return isSectionName(name) && (findSection(name) || canHold(trimBlanks(name)));
}

String IniDocument::decoded(std::size_t begin, std::size_t end) const {
    String text;
    addDecoded(text, begin, end);
    return text;
}

void IniDocument::addDecoded(String& text, std::size_t begin, std::size_t end) const {
    const std::string_view bytes = part(begin, end);
    const std::size_t size = text.size();
    text.resize(size + bytes.size());
    unsigned all = 0;
    for (std::size_t i = 0; i < bytes.size(); ++i) {
        const auto byte = static_cast<unsigned char>(bytes[i]);
        text[size + i] = byte;
        all |= byte;
    }
    if (all < 0x80) return;
    text.resize(size);
    text += decode(bytes, encoding());
}

void IniDocument::addValue(String& text, const Line& line) const {
    if (isReadPlainly(part(line.valueBegin, line.valueEnd)))
        addDecoded(text, line.valueBegin, line.valueEnd);
    else
        text += readForm(decoded(line.valueBegin, line.valueEnd));
}

String IniDocument::valueOf(const Line& line) const {
    String value;
    addValue(value, line);
    return value;
}

String IniDocument::entryOf(const Line& line) const {
    if (line.kind != LineKind::Key) return decoded(line.begin, line.end);
    String entry;
    entry.reserve(line.end - line.begin);
    addDecoded(entry, line.nameBegin, line.nameEnd);
    entry += u'=';
    addValue(entry, line);
    return entry;
}

// --- Finding ---

IniDocument::Wanted::Wanted(StringView name) : lower(base::toLower(trimBlanks(name))) {
    if (isAscii(lower)) ascii.emplace(lower.begin(), lower.end());
}

bool IniDocument::isNamed(const Line& line, const Wanted& name) const {
    const std::string_view bytes = part(line.nameBegin, line.nameEnd);
    if (isAscii(bytes))
        return name.ascii && bytes.size() == name.ascii->size() &&
               std::ranges::equal(bytes, *name.ascii, {}, lowerAscii);
    return base::toLower(nameOf(line)) == name.lower;
}

std::optional<Line> IniDocument::nextHeader(std::size_t from) const {
    const char* const text = file_.text.data();
    const std::size_t size = file_.text.size();
    while (from < size) {
        std::size_t first = from;
        while (first < size && (text[first] == ' ' || text[first] == '\t')) ++first;
        if (first < size && text[first] == '[') {
            const Line line = lineAt(file_.text, from);
            if (line.kind == LineKind::Section) return line;
        }
        const void* end = first < size ? std::memchr(text + first, '\n', size - first) : nullptr;
        if (end == nullptr) break;
        from = static_cast<std::size_t>(static_cast<const char*>(end) - text) + 1;
    }
    return std::nullopt;
}

std::optional<Line> IniDocument::findSection(StringView name) const {
    if (trimBlanks(name).empty()) return std::nullopt;
    const Wanted section(name);
    if (index_) return findInIndex(section.lower);
    auto header = nextHeader(0);
    while (header && !isNamed(*header, section)) header = nextHeader(header->next);
    return header;
}

std::optional<Line> IniDocument::findKey(const Line& header, StringView key) const {
    const Wanted name(key);
    std::optional<Line> found;
    forEachLine(header, [&](const Line& line) {
        if (line.kind == LineKind::Key && isNamed(line, name)) found = line;
        return !found;
    });
    return found;
}

std::size_t IniDocument::endOfSection(const Line& header) const {
    const auto next = nextHeader(header.next);
    return next ? next->begin : file_.text.size();
}

/// The last line of a section that has none of the given kinds; its header when there is no other.
Line IniDocument::lastLineBut(const Line& header, std::initializer_list<LineKind> kinds) const {
    Line last = header;
    forEachLine(header, [&](const Line& line) {
        if (std::ranges::find(kinds, line.kind) == kinds.end()) last = line;
        return true;
    });
    return last;
}

std::optional<Line> IniDocument::findInIndex(const String& lower) const {
    auto found = index_->headers.find(lower);
    while (found == index_->headers.end()) {
        const auto header = nextHeader(index_->end);
        if (!header) return std::nullopt;
        index_->end = header->next;
        const auto added = index_->headers.try_emplace(base::toLower(nameOf(*header)), *header);
        if (added.second && added.first->first == lower) found = added.first;
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

}  // namespace quorkit::inifile
