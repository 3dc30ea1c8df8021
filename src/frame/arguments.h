// Turns the arguments of a call into one value for each parameter.
#pragma once

#include <quorkit/catalogue.h>
#include <quorkit/object.h>

#include <array>
#include <cstddef>
#include <memory>
#include <span>
#include <utility>

namespace quorkit::frame {

/// Room for values, of which only those are made that are needed: to make and destroy all of them
/// would cost more than the rest of a call.
class Made {
   public:
    Made() = default;
    Made(const Made&) = delete;
    Made& operator=(const Made&) = delete;
    ~Made() { std::destroy_n(values(), count_); }  // NOLINT(bugprone-exception-escape): as Variant

    Variant* add(Variant value) { return std::construct_at(values() + count_++, std::move(value)); }

   private:
    Variant* values() { return reinterpret_cast<Variant*>(room_); }

    std::size_t count_ = 0;
    alignas(Variant) std::byte room_[MemberInfo::kMaxParameters * sizeof(Variant)];
};

/// The values of one call in the order of the parameters. They stay in the caller's storage; what
/// the caller left out has its default.
class Values {
   public:
    Values() = default;
    Values(const Values&) = delete;
    Values& operator=(const Values&) = delete;

    /// Puts the arguments in their parameters' places. Error 448 for a name that no parameter has,
    /// 450 for too many arguments and for one given twice, 449 when a required one is left out;
    /// then no argument has changed. With `variablesMayBeOmitted` an argument that the member may
    /// change is not required, and is then the initial value of its type.
    void place(const MemberInfo& member, const Arguments& arguments,
               bool variablesMayBeOmitted = false);
    bool placed() const { return placed_; }

    /// One for each parameter.
    std::span<Variant* const> all() const { return {places_.data(), count_}; }

   private:
    bool isGiven(std::size_t position) const {
        return places_[position] != nullptr && !places_[position]->isMissing();
    }
    void placeNamed(const MemberInfo& member, std::span<NamedArgument> named);
    void complete(const MemberInfo& member, bool variablesMayBeOmitted);
    void leaveOut(std::size_t position, const ParameterInfo& parameter);

    bool placed_ = false;
    std::size_t count_ = 0;
    std::array<Variant*, MemberInfo::kMaxParameters> places_;
    Made made_;
};

}  // namespace quorkit::frame
