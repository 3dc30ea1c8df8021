// Files that are opened for adding at their end.
#pragma once

#include <string_view>

#include "linux/linux_opened.h"

namespace quorkit::native {

ErrorCode openToAdd(Opened& file);
/// See Files::Append and Files::EmptyFile.
ErrorCode add(Opened& file, std::string_view bytes, std::string_view lineBreak);
ErrorCode empty(Opened& file);
/// Call this before closing the file.
void finishAdding(Opened& file);

}  // namespace quorkit::native
