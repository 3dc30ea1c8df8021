// What others have written into a file, by hand: no worker may touch it.
#pragma once

#include <string>
#include <string_view>

#include "random.h"

namespace quorkit::soak {

/// An INI file with comments, odd lines, line ends of both kinds, in an encoding and of a size that
/// `random` chooses.
std::string foreignIni(Random& random);
/// What of it is not in the file any more, and lines that are no line of a worker or there twice;
/// "" when all is well.
std::string iniDamage(std::string_view before, std::string_view after);

/// Lines for the values of a registry key.
std::string foreignValues();
/// As above; a file of values.
std::string valuesDamage(std::string_view before, std::string_view after);

}  // namespace quorkit::soak
