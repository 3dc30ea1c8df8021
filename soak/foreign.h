// Content that others have written into a file by hand; no worker may change it.
#pragma once

#include <string>
#include <string_view>

#include "random.h"

namespace quorkit::soak {

/// An INI file with comments, odd lines and both kinds of line ends; `random` chooses its encoding
/// and its size.
std::string foreignIni(Random& random);
/// Reports foreign content that is missing, and lines that are no worker's or are there twice; ""
/// when all is well.
std::string iniDamage(std::string_view before, std::string_view after);

/// Lines for the values of a registry key.
std::string foreignValues();
/// The same for a file of values.
std::string valuesDamage(std::string_view before, std::string_view after);

}  // namespace quorkit::soak
