// Which files a listing takes, by their dates and attributes.
#pragma once

#include <quorkit/ports/folders.h>
#include <quorkit/ports/ports.h>
#include <quorkit/variant.h>

#include <array>
#include <optional>

namespace quorkit::file {

/// Two bounds, each of which may be missing. `upTo` alone takes files up to that moment, `from`
/// alone files from there on. Both take what lies between them when `from` is the earlier one,
/// otherwise what does not lie between them. Dates are local and compared by the second.
class DateFilter {
   public:
    /// Errors 13, 94 and 6 for what is no date; texts are read in the language of the user.
    DateFilter(const Variant& upTo, const Variant& from, Ports& ports);

    bool takesAll() const { return !upTo_ && !from_; }
    /// A time that is not known, 0, lies nowhere.
    bool takes(FileTime lastWrite) const;

   private:
    using Moment = std::array<int, 6>;  ///< from the year to the second: orders as time does

    static std::optional<Moment> momentOf(const Variant& date, Ports& ports);
    Moment momentOf(FileTime time) const;

    Ports& ports_;
    std::optional<Moment> upTo_;
    std::optional<Moment> from_;
};

/// Attributes that a file must have or must not have.
class AttributeFilter {
   public:
    /// `text` is pairs of a sign and a letter: "+" asks for the attribute, any other sign for its
    /// absence. R is read-only, H hidden, S system, A archive, small letters too. A later pair
    /// replaces an earlier one of the same letter; other letters, and half a pair, say nothing.
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
