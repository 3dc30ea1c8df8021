// The version that a Windows program or DLL carries as a resource. Sources: Microsoft's "PE Format"
// (headers, section table, resource directory) and its documentation of the structures
// VS_VERSIONINFO and VS_FIXEDFILEINFO.
#pragma once

#include <quorkit/ports/files.h>

#include <array>
#include <optional>

namespace quorkit::file {

/// Major, minor, revision and build.
using FileVersion = std::array<std::uint16_t, 4>;

/// The file version of a 32-bit or 64-bit image: the first of its version resources when it has
/// several. Nothing when it has none, when the file cannot be read or is no image, and for one that
/// is damaged on the way there. Reads the headers and the resource alone, whatever the size of the
/// file; what the headers claim can make that 4 MB at most.
std::optional<FileVersion> readFileVersion(Files& files, const String& name);

}  // namespace quorkit::file
