// From what a client hands in to one value for each parameter.
#pragma once

#include <quorkit/catalogue.h>
#include <quorkit/object.h>

#include <array>
#include <cstddef>

namespace quorkit::frame {

/// A member's values in the order of its parameters.
using Values = std::array<Variant, MemberInfo::kMaxParameters>;

/// Where the value of each parameter comes from; null for one that is left out. Errors 448 (no
/// parameter of that name), 450 (too many arguments, or one given twice).
using Sources = std::array<Variant*, MemberInfo::kMaxParameters>;
Sources sourcesOf(const MemberInfo& member, const Arguments& arguments);

/// The values from there, `missing` for each one left out. Error 449 for a required argument left
/// out; else the sources are moved from. With `variablesMayBeOmitted` what the member may change is
/// no required argument.
Values arrange(const MemberInfo& member, const Sources& sources,
               bool variablesMayBeOmitted = false);

/// What a variable of the type is before anybody sets it.
Variant initialValue(Type type);

}  // namespace quorkit::frame
