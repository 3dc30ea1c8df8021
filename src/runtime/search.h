// Searching for one pattern over and over, in linear time whatever the pattern and the text.
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

    /// The first position at or behind `from` where `text` holds the pattern. Takes as long as the
    /// text from there to the end of the occurrence.
    std::size_t in(StringView text, std::size_t from) const;

   private:
    StringView pattern_;
    /// For each length of a matched beginning, the longest shorter beginning that also ends there
    /// (Knuth, Morris, Pratt).
    std::vector<std::size_t> shorter_;
};

}  // namespace quorkit::runtime
