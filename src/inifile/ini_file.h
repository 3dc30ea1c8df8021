// An INI file on disk: read as a document, or changed under its lock.
#pragma once

#include <quorkit/ports/files.h>

#include <cstddef>
#include <functional>
#include <string>

#include "inifile/document.h"

namespace quorkit::inifile {

/// The largest file that is read and written, in bytes: 256 MB, because all of it is held in
/// memory.
constexpr std::size_t kLargestIniFile = std::size_t{256} << 20;

/// Reads the file; one that cannot be read is empty. A file that is too large, or in an encoding
/// that is not supported, is refused, and ports::takeReason says so.
IniDocument readIni(Files& files, const String& name);

/// Locks the file, reads it, lets `edit` change it and puts the result in place in one step. `edit`
/// returns whether to write its change. The result is 1 when the file holds the change, also when
/// it did before; otherwise 0, and the file is unchanged. A file that may not be written is passed
/// to `edit` too, because its result may be of interest; a refused file is not. `edit` may run
/// several times, each time on a document read anew.
Long editIni(Files& files, const String& name, const std::function<bool(IniDocument&)>& edit);

}  // namespace quorkit::inifile
