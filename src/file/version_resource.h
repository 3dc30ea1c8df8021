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

/// The file version of a 32-bit or 64-bit image, from the first of its version resources. Nothing
/// when it has none, when the file cannot be read or is no image, and when it is damaged on the way
/// to the resource. However large the file, only the headers and the resource are read: at most 4
/// MB, whatever the headers claim.
std::optional<FileVersion> readFileVersion(Files& files, const String& name);

}  // namespace quorkit::file
