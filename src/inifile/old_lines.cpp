#include "inifile/old_lines.h"

#include <algorithm>
#include <utility>

namespace quorkit {
namespace {

StringView keyOf(StringView entry) {
    return trimBlanks(entry.substr(0, entry.find(u'=')));
}

}  // namespace

void OldLines::add(const Line& line, String entry) {
    lines_.push_back(line);
    entries_.push_back(std::move(entry));
}

std::size_t OldLines::find(StringView entry) {
    const StringView key = keyOf(entry);
    std::size_t next = passed_;
    while (next < size() && lines_[next].kind == LineKind::Blank) ++next;
    if (next == size() || runtime::sameText(keyOf(entries_[next]), key)) return next;

    if (!index_) {
        index_.emplace();
        for (std::size_t i = next; i < size(); ++i)
            if (lines_[i].kind != LineKind::Blank)
                (*index_)[keyOf(entries_[i])].places.push_back(i);
    }
    const auto found = index_->find(key);
    if (found == index_->end()) return size();
    auto& [places, passed] = found->second;
    while (passed < places.size() && places[passed] < passed_) ++passed;
    return passed == places.size() ? size() : places[passed];
}

std::span<const Line> OldLines::passTo(std::size_t place) {
    const std::size_t from = std::exchange(passed_, std::min(place + 1, size()));
    return std::span(lines_).subspan(from, place - from);
}

}  // namespace quorkit
