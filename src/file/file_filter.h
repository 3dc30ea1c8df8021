// Selects files for a listing by their dates and attributes.
#pragma once

#include <quorkit/ports/folders.h>
#include <quorkit/ports/ports.h>
#include <quorkit/variant.h>

#include <array>
#include <optional>

namespace quorkit::file {

/// Two bounds, each of which may be missing. `upTo` alone selects files up to that moment, `from`
/// alone files from that moment on. If both are given and `from` is earlier, files between them are
/// selected; otherwise files that are not between them. Dates are local and compared by the second.
class DateFilter {
   public:
    /// Errors 13, 94 and 6 for an argument that is no date. Texts are read in the user's language.
    DateFilter(const Variant& upTo, const Variant& from, Ports& ports);

    bool takesAll() const { return !upTo_ && !from_; }
    /// False for a time that is not known (0).
    bool takes(FileTime lastWrite) const;

   private:
    using Moment = std::array<int, 6>;  ///< from the year to the second: compares like time

    static std::optional<Moment> momentOf(const Variant& date, Ports& ports);
    Moment momentOf(FileTime time) const;

    Ports& ports_;
    std::optional<Moment> upTo_;
    std::optional<Moment> from_;
};

/// Attributes that a file must have or must not have.
class AttributeFilter {
   public:
    /// `text` is a list of pairs of a sign and a letter: "+" requires the attribute, any other sign
    /// excludes it. R is read-only, H hidden, S system, A archive, also as small letters. A later
    /// pair replaces an earlier one of the same letter. Other letters and an incomplete pair are
    /// ignored.
    explicit AttributeFilter(StringView text);

    bool takesAll() const { return present_ == 0 && absent_ == 0; }
    bool takes(std::uint32_t attributes) const {
        return (attributes & present_) == present_ && (attributes & absent_) == 0;
    }

   private:
    std::uint32_t present_ = 0;
    std::uint32_t absent_ = 0;
};

}  // namespace quorkit::file
