#pragma once

#include <filesystem>

namespace quorkit::automation {

/// Mends what Wine 8 writes wrong into the file of a type library: a default of True, of which it
/// keeps half the bits, and the sizes of enumerations (a pointer's) and of records (0). A file that
/// the system wrote right stays as it is. Throws std::runtime_error.
void mendTypeLibrary(const std::filesystem::path& path);

}  // namespace quorkit::automation
