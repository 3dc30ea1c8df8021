// Replacing the lines of a section.
#include <algorithm>

#include "base/letter_case.h"
#include "inifile/document.h"

namespace quorkit::inifile {
namespace {

/// The key of a key line; in any other line, the part that stands in its place.
struct Place {
    std::size_t begin;
    std::size_t end;
};
Place keyPlace(std::string_view text, const Line& line) {
    if (line.kind == LineKind::Key) return {line.nameBegin, line.nameEnd};
    const std::string_view whole = text.substr(line.begin, line.end - line.begin);
    return {line.begin, line.begin + std::min(whole.find('='), whole.size())};
}

}  // namespace

/// The old lines of a section while it is written anew. They are taken in order: once a line is
/// passed, it and all lines before it are no longer found.
class IniDocument::OldLines {
   public:
    OldLines(const IniDocument& document, const Line& header) : document_(document) {
        document.forEachLine(header, [&](const Line& line) {
            lines_.push_back(line);
            return true;
        });
    }

    std::size_t size() const { return lines_.size(); }
    const Line& line(std::size_t place) const { return lines_[place]; }

    /// The first line with that key that is not passed yet; size() when there is none.
    std::size_t find(StringView key) {
        std::size_t next = passed_;
        while (next < size() && lines_[next].kind == LineKind::Blank) ++next;
        if (next == size() || document_.holdsKey(lines_[next], key)) return next;
        if (!index_) makeIndex(next);
        const auto found = index_->find(key);
        if (found == index_->end()) return size();
        auto& [places, passed] = found->second;
        while (passed < places.size() && places[passed] < passed_) ++passed;
        return passed == places.size() ? size() : places[passed];
    }

    /// Passes the line at `place` and returns the lines that were skipped on the way to it.
    std::span<const Line> passTo(std::size_t place) {
        const std::size_t from = passed_;
        passed_ = std::min(place + 1, size());
        return std::span(lines_).subspan(from, place - from);
    }

   private:
    /// The positions of one key's lines, and the number of those that are passed.
    struct Places {
        std::vector<std::size_t> places;
        std::size_t passed = 0;
    };

    void makeIndex(std::size_t from) {
        index_.emplace();
        for (std::size_t i = from; i < size(); ++i) {
            if (lines_[i].kind == LineKind::Blank) continue;
            const Place key = keyPlace(document_.file_.text, lines_[i]);
            const String name = document_.decoded(key.begin, key.end);
            (*index_)[String(trimBlanks(name))].places.push_back(i);
        }
    }

    const IniDocument& document_;
    std::vector<Line> lines_;
    std::size_t passed_ = 0;
    /// Made when the order of the entries differs for the first time.
    std::optional<std::unordered_map<String, Places, base::KeyHash, base::KeyEqual>> index_;
};

bool IniDocument::holds(std::size_t begin, std::size_t end, StringView text) const {
    const std::string_view bytes = part(begin, end);
    if (!isAscii(bytes)) return decoded(begin, end) == text;
    return std::ranges::equal(bytes, text, {}, [](char byte) { return char16_t(byte); });
}

bool IniDocument::holdsKey(const Line& line, StringView key) const {
    const Place own = keyPlace(file_.text, line);
    const std::string_view bytes = part(own.begin, own.end);
    if (!isAscii(bytes) || line.kind != LineKind::Key)
        return base::sameKey(trimBlanks(decoded(own.begin, own.end)), key);
    return std::ranges::equal(bytes, key, [](char byte, char16_t unit) {
        return base::toLower(char16_t(byte)) == base::toLower(unit);
    });
}

bool IniDocument::isEntry(const Line& line, const IniEntry& entry) const {
    if (line.kind != LineKind::Key)
        return decoded(line.begin, line.end) == String(entry.name) + u'=' + String(entry.value);
    if (!holds(line.nameBegin, line.nameEnd, entry.name)) return false;
    return isReadPlainly(part(line.valueBegin, line.valueEnd))
               ? holds(line.valueBegin, line.valueEnd, entry.value)
               : valueOf(line) == entry.value;
}

bool IniDocument::setEntries(StringView section, std::span<const IniEntry> lines) {
    if (!isSectionName(section)) return false;
    const auto header = findSection(section);
    if (!header) return appendSection(section, lines);
    std::string merged;
    if (!addMerged(merged, *header, lines)) return false;
    if (!header->ended() && !merged.empty()) merged.insert(0, lineEndAt(*header));
    replace(header->next, endOfSection(*header), merged);
    return true;
}

/// Appends the lines of a section with the given entries. An entry takes over its old line, unless
/// that line comes before one that is already taken.
bool IniDocument::addMerged(std::string& text, const Line& header,
                            std::span<const IniEntry> lines) const {
    OldLines old(*this, header);
    text.reserve(old.size() * 16 + lines.size() * 32);
    const std::string lineEnd = lineEndAt(header);
    std::size_t content = 0;  // size of the text without its last line end
    const auto addEnd = [&](std::string_view end) {
        content = text.size();
        text += end;
    };
    const auto end = [&](const Line& line) {
        addEnd(line.ended() ? part(line.end, line.next) : std::string_view(lineEnd));
    };
    const auto addBlanks = [&](std::span<const Line> passed) {
        for (const Line& line : passed) {
            if (line.kind != LineKind::Blank) continue;
            text += part(line.begin, line.end);
            end(line);
        }
    };
    for (const IniEntry& entry : lines) {
        const std::size_t place = old.find(trimBlanks(entry.name));
        if (place == old.size()) {
            if (!addWritten(text, entry)) return false;
            addEnd(lineEnd);
            continue;
        }
        addBlanks(old.passTo(place));
        const Line& line = old.line(place);
        const bool sameKey =
            line.kind == LineKind::Key && holds(line.nameBegin, line.nameEnd, entry.name);
        if (isEntry(line, entry))
            text += part(line.begin, line.end);
        else if (!(sameKey ? addRewritten(text, line, entry.value) : addWritten(text, entry)))
            return false;
        end(line);
    }
    addBlanks(old.passTo(old.size()));
    const bool endsFile = old.size() == 0 ? !header.ended() : !old.line(old.size() - 1).ended();
    if (endsFile) text.resize(content);
    return true;
}

}  // namespace quorkit::inifile
