// Patterns of file names.
#pragma once

#include <quorkit/values.h>

#include <cstddef>
#include <span>
#include <vector>

namespace quorkit::file {

/// A pattern, matched as Windows matches long names, without regard to letter case:
/// - "*" is any run of characters, also an empty one; in front of a full stop it does not take the
///   last full stop of the name; "*.*" is every name;
/// - "?" is one character other than a full stop; in front of a full stop and at the end it may be
///   nothing;
/// - a full stop in front of "*" or "?" may be missing at the end of a name: "a.*" matches "a";
/// - full stops and blanks at the end are ignored: "*.txt. " is "*.txt", "a?." is "a?", "*. " is
///   "*". But a full stop that is the last character behind "*" means no extension: "*.", "a*..",
///   "* .".
/// Matching takes time in proportion to the length of the name, at worst times that of the pattern.
/// Sources: FsRtlIsNameInExpression in the Windows driver documentation, and the changes that
/// FindFirstFile makes to patterns before.
class Wildcard {
   public:
    explicit Wildcard(StringView asked);

    bool matches(StringView name) const;

   private:
    enum class Step : char {
        Letter,      ///< `letter` itself
        Run,         ///< any characters
        RunInFront,  ///< any characters but the last full stop of the name
        OneOrNone,   ///< a character that is no full stop; nothing where there is none
        StopOrEnd,   ///< a full stop, or nothing at the end of the name
    };
    struct Element {
        Step step = Step::Letter;
        char16_t letter = 0;  ///< folded, see base::folded
    };
    struct Spot;  ///< where in a name

    static bool standsForNothing(const Element& element, const Spot& spot);
    static bool takes(const Element& element, const Spot& spot);
    static bool takesMore(const Element& element, const Spot& spot);
    bool matchesFrom(std::size_t element, StringView text) const;
    bool matchesAnyway(StringView name) const;

    std::vector<Element> elements_;
    /// The position of the only element that is no letter. It is behind the end when all are
    /// letters, and kNowhere when there are several.
    std::size_t only_ = 0;
};

/// Whether a text has a character that makes it a pattern.
bool isPattern(StringView text);

}  // namespace quorkit::file
