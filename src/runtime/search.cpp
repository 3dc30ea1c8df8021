#include "runtime/search.h"

namespace quorkit::runtime {

Search::Search(StringView pattern) : pattern_(pattern), shorter_(pattern.size() + 1) {
    std::size_t matched = 0;
    for (std::size_t i = 1; i < pattern.size(); ++i) {
        while (matched > 0 && pattern[i] != pattern[matched]) matched = shorter_[matched];
        if (pattern[i] == pattern[matched]) ++matched;
        shorter_[i + 1] = matched;
    }
}

std::size_t Search::in(StringView text, std::size_t from) const {
    if (pattern_.empty()) return kNotFound;
    std::size_t matched = 0;
    for (std::size_t i = from; i < text.size(); ++i) {
        while (matched > 0 && text[i] != pattern_[matched]) matched = shorter_[matched];
        if (matched == 0) {
            i = text.find(pattern_[0], i);
            if (i == StringView::npos) return kNotFound;
        }
        if (++matched == pattern_.size()) return i + 1 - matched;
    }
    return kNotFound;
}

}  // namespace quorkit::runtime
