// An INI file on disk: read as a document, or changed under its lock.
#pragma once

#include <quorkit/ports/files.h>

#include <cstddef>
#include <functional>
#include <string>

#include "inifile/document.h"

namespace quorkit::inifile {

/// The bytes of the largest file that is read and written: 256 MB. It is held in memory whole.
constexpr std::size_t kLargestIniFile = std::size_t{256} << 20;

/// The file as it is now; a file that cannot be read is empty. One that is too large, or in an
/// encoding that is not read, is refused, and ports::takeReason says so.
IniDocument readIni(Files& files, const String& name);

/// Locks the file, reads it, lets `edit` change it and puts the result in place in one step.
/// `edit` answers whether its change is to be written. 1 when the file now holds the change (also
/// when it did before), else 0 and the file is as it was. A file that must not be written is shown
/// to `edit` all the same, for what it can tell about it; one that is refused is not. `edit`
/// may run more than once, each time on a document read anew.
Long editIni(Files& files, const String& name, const std::function<bool(IniDocument&)>& edit);

}  // namespace quorkit::inifile
