// Patterns of file names.
#pragma once

#include <quorkit/values.h>

#include <cstddef>
#include <span>
#include <vector>

namespace quorkit::file {

/// A pattern, matched the way Windows matches long names, without regard to letter case:
/// - "*" is any run of characters, none included; in front of a full stop one that does not have
///   the last full stop of the name; "*.*" is every name;
/// - "?" is one character that is no full stop, or nothing in front of a full stop and at the end;
/// - a full stop in front of "*" or "?" may be missing at the end of a name: "a.*" matches "a";
/// - full stops and blanks at the end do not count: "*.txt. " is "*.txt", "a?." is "a?", "*. " is
///   "*"; but behind "*" a full stop that is the last character means no extension: "*.", "a*..",
///   "* .".
/// A name takes time in proportion to its length, times that of the pattern at worst. Sources:
/// FsRtlIsNameInExpression in the Windows driver documentation, and what FindFirstFile makes of
/// patterns before it asks that.
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
        char16_t letter = 0;  ///< folded
    };
    struct Spot;  ///< where in a name

    static bool standsForNothing(const Element& element, const Spot& spot);
    static bool takes(const Element& element, const Spot& spot);
    static bool takesMore(const Element& element, const Spot& spot);
    bool matchesFrom(std::size_t element, StringView text) const;
    bool matchesAnyway(StringView name) const;

    std::vector<Element> elements_;
    /// Where the only element stands that is no letter; behind the end when all are letters, and
    /// nowhere when there are more.
    std::size_t only_ = 0;
};

/// Whether a text has a character that makes it a pattern.
bool isPattern(StringView text);

}  // namespace quorkit::file
