// An INI file on disk: read as a document, or changed under its lock.
#pragma once

#include <quorkit/ports/files.h>

#include <functional>

#include "inifile/document.h"

namespace quorkit {

/// The file as it is now; a file that cannot be read is empty.
IniDocument readIni(Files& files, const String& name);

/// Locks the file, reads it, lets `edit` change it and puts the result in place in one step.
/// `edit` answers whether its change is to be written. 1 when the file now holds the change (also
/// when it did before), else 0 and the file is as it was. A file that must not be written is shown
/// to `edit` all the same, for what it can tell about it. `edit` may run twice.
Long editIni(Files& files, const String& name, const std::function<bool(IniDocument&)>& edit);

}  // namespace quorkit
