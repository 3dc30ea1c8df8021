#include "frame/arguments.h"

#include <quorkit/errors.h>

#include <algorithm>
#include <utility>

#include "frame/conversion.h"

namespace quorkit::frame {

void Values::place(const MemberInfo& member, const Arguments& arguments,
                   bool variablesMayBeOmitted) {
    count_ = member.parameterCount;
    const std::size_t positional = arguments.positional.size();
    if (positional > count_) raise(ErrorNumber::WrongNumberOfArguments);
    bool allGiven = positional == count_;
    for (std::size_t i = 0; i < positional; ++i) {
        places_[i] = &arguments.positional[i];
        allGiven &= isGiven(i);
    }
    if (!allGiven || !arguments.named.empty()) {
        std::fill(places_.begin() + positional, places_.begin() + count_, nullptr);
        placeNamed(member, arguments.named);
        complete(member, variablesMayBeOmitted);
    }
    placed_ = true;
}

void Values::placeNamed(const MemberInfo& member, std::span<NamedArgument> named) {
    for (NamedArgument& one : named) {
        const auto position = findParameter(member, one.name);
        if (!position) raise(ErrorNumber::NamedArgumentNotFound);
        if (places_[*position] != nullptr) raise(ErrorNumber::WrongNumberOfArguments);
        places_[*position] = &one.value;
    }
}

void Values::complete(const MemberInfo& member, bool variablesMayBeOmitted) {
    for (std::size_t i = 0; i < count_; ++i) {
        const ParameterInfo& parameter = member.parameterRow[i];
        if (!isGiven(i) && !parameter.optional() && !(variablesMayBeOmitted && parameter.changed))
            raise(ErrorNumber::ArgumentNotOptional);
    }
    for (std::size_t i = 0; i < count_; ++i)
        if (!isGiven(i)) leaveOut(i, member.parameterRow[i]);
}

void Values::leaveOut(std::size_t position, const ParameterInfo& parameter) {
    Variant value =
        parameter.optional() ? parameter.defaultValue() : initialValue(parameter.type.type);
    if (places_[position] != nullptr)
        *places_[position] = std::move(value);
    else
        places_[position] = made_.add(std::move(value));
}

}  // namespace quorkit::frame
