// Searches texts for one pattern, in linear time whatever the pattern and the text.
#pragma once

#include <quorkit/values.h>

#include <cstddef>
#include <vector>

namespace quorkit::runtime {

class Search {
   public:
    static constexpr std::size_t kNotFound = StringView::npos;

    /// An empty pattern is never found. `pattern` must outlive the search.
    explicit Search(StringView pattern);

    /// The first position at or behind `from` at which `text` holds the pattern. Takes time in
    /// proportion to the text from there to the end of the occurrence.
    std::size_t in(StringView text, std::size_t from) const;

   private:
    StringView pattern_;
    /// For each length of a matched beginning, the length of the longest shorter beginning that
    /// ends at the same place (Knuth, Morris, Pratt).
    std::vector<std::size_t> shorter_;
};

}  // namespace quorkit::runtime
