// Names of the interface and their paths on disk.
#pragma once

#include <quorkit/ports/files.h>

#include <string>
#include <string_view>

namespace quorkit::disk {

/// The path that a name stands for. kInvalidName for a name that no file can have.
ErrorCode pathOf(const String& name, std::string& path);

/// The name that stands for a path.
String nameOf(const std::string& path);
/// The name of one entry of a folder, from its bytes on disk.
String entryNameOf(std::string_view bytes);

/// The folder that a path stands in; "." when it names none.
std::string folderOf(const std::string& path);

}  // namespace quorkit::disk
