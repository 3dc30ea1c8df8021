// The lines of a section while it is written anew: which of them stands for an entry.
#pragma once

#include <quorkit/values.h>

#include <optional>
#include <span>
#include <unordered_map>
#include <vector>

#include "inifile/line.h"
#include "runtime/letter_case.h"

namespace quorkit {

/// Lines are taken in order: once one is passed, it and those before it are not found any more.
class OldLines {
   public:
    /// `entry` is empty for a blank line, which stands for nothing.
    void add(const Line& line, String entry);

    std::size_t size() const { return lines_.size(); }
    const Line& line(std::size_t place) const { return lines_[place]; }
    const String& entry(std::size_t place) const { return entries_[place]; }

    /// The first line not yet passed with the key of `entry`, or that is `entry` when it has no
    /// key; size() when there is none.
    std::size_t find(StringView entry);
    /// Passes the line at `place`; the lines that were passed over on the way to it.
    std::span<const Line> passTo(std::size_t place);

   private:
    /// Where the lines of one key stand, and how many of those places are passed.
    struct Places {
        std::vector<std::size_t> places;
        std::size_t passed = 0;
    };
    using Index = std::unordered_map<StringView, Places, runtime::TextHash, runtime::TextEqual>;

    std::vector<Line> lines_;
    std::vector<String> entries_;
    std::size_t passed_ = 0;
    std::optional<Index> index_;  // made when the order of the entries first differs
};

}  // namespace quorkit
