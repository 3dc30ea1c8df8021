#include <quorkit/GQuorStrings.h>

#include "base/letter_case.h"
#include "frame/error_patterns.h"
#include "runtime/convert.h"
#include "runtime/search.h"

namespace quorkit {
namespace {

using runtime::Search;

/// Finds a pattern in a text, with or without regard to letter case. Folding does not move
/// positions.
class Occurrences {
   public:
    Occurrences(const String& text, const String& pattern, bool ignoreCase)
        : foldedText_(ignoreCase ? base::toLower(text) : String()),
          foldedPattern_(ignoreCase ? base::toLower(pattern) : String()),
          text_(ignoreCase ? foldedText_ : text),
          search_(ignoreCase ? foldedPattern_ : pattern) {}
    Occurrences(const Occurrences&) = delete;
    Occurrences& operator=(const Occurrences&) = delete;

    std::size_t next(std::size_t from) const { return search_.in(text_, from); }

   private:
    String foldedText_;
    String foldedPattern_;
    StringView text_;
    Search search_;
};

}  // namespace

String GQuorStrings::StringReplace(const String& vsString, const String& vsOldPattern,
                                   const String& vsNewPattern,
                                   const Optional<Variant>& vbReplaceAll,
                                   const Optional<Variant>& vbIgnoreCase) {
    const bool ignoreCase = !vbIgnoreCase->isMissing() && runtime::CBool(*vbIgnoreCase);
    const bool replaceAll = vbReplaceAll->isMissing() || runtime::CBool(*vbReplaceAll);
    const Occurrences occurrences(vsString, vsOldPattern, ignoreCase);

    String result;
    result.reserve(vsString.size());
    std::size_t start = 0;
    std::size_t hit = occurrences.next(start);
    while (hit != Search::kNotFound) {
        result.append(vsString, start, hit - start).append(vsNewPattern);
        start = hit + vsOldPattern.size();
        hit = replaceAll ? occurrences.next(start) : Search::kNotFound;
    }
    return result.append(vsString, start);
}

Long GQuorStrings::GetCountSearchPatternInString(const String& s, const String& searchpattern,
                                                 const Optional<Unchanged<Variant>>& compareType) {
    const bool ignoreCase = !compareType->isMissing() && frame::onErrorReturn(false, [&] {
        return runtime::CDbl(*compareType) == 1;
    });
    const Occurrences occurrences(s, searchpattern, ignoreCase);

    std::size_t count = 0;
    std::size_t hit = occurrences.next(0);
    for (; hit != Search::kNotFound; ++count) hit = occurrences.next(hit + searchpattern.size());
    return runtime::roundToLong(static_cast<Double>(count));
}

}  // namespace quorkit
