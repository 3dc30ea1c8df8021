// What a handle of values stands for.
#pragma once

#include <quorkit/variant.h>

#include <algorithm>
#include <cstddef>
#include <deque>
#include <string>
#include <vector>

namespace quorkit::c {

struct Values {
    Variant result;
    std::vector<Variant> items;
    /// The names of arguments, by position; "" for those that have none.
    std::vector<String> names;
    /// Texts as the client last read them in UTF-8, by index.
    std::deque<std::string> utf8;

    /// How many arguments are in front of the first that has a name.
    std::size_t positional() const {
        const auto named = std::ranges::find_if_not(names, &String::empty);
        return named == names.end() ? items.size()
                                    : static_cast<std::size_t>(named - names.begin());
    }
    String nameAt(std::size_t position) const {
        return position < names.size() ? names[position] : String();
    }
    void clear() {
        result = Variant();
        items.clear();
        names.clear();
    }
};

}  // namespace quorkit::c
