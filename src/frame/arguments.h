// Turns the arguments of a call into one value for each parameter.
#pragma once

#include <quorkit/catalogue.h>
#include <quorkit/object.h>

#include <array>
#include <cstddef>

namespace quorkit::frame {

/// A member's values in the order of its parameters.
using Values = std::array<Variant, MemberInfo::kMaxParameters>;

/// The source of each parameter's value; null for one that is left out. Error 448 for a name that
/// no parameter has, 450 for too many arguments and for one given twice.
using Sources = std::array<Variant*, MemberInfo::kMaxParameters>;
Sources sourcesOf(const MemberInfo& member, const Arguments& arguments);

/// Moves the values out of their sources; one left out becomes `missing`. Error 449 when a required
/// argument is left out; then nothing was moved. With `variablesMayBeOmitted` an argument that the
/// member may change is not required.
Values arrange(const MemberInfo& member, const Sources& sources,
               bool variablesMayBeOmitted = false);

/// The value of a variable of this type before it is set.
Variant initialValue(Type type);

}  // namespace quorkit::frame
