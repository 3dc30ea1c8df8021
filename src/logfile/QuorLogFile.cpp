#include <quorkit/GQuorFile.h>
#include <quorkit/GQuorStrings.h>
#include <quorkit/QuorLogFile.h>

#include "frame/error_patterns.h"
#include "logfile/log_text.h"

namespace quorkit {

void QuorLogFile::setLogFileName(const String& name) {
    name_ = GQuorStrings(ports_).ExpandEnvironmentString(name);
}

void QuorLogFile::setAppend(Boolean append) {
    append_ = append;
    firstOpening_ = true;
}

void QuorLogFile::setAutoOpenClose(Boolean autoOpenClose) {
    autoOpenClose_ = autoOpenClose;
    firstOpening_ = true;
}

Boolean QuorLogFile::OpenLogfile() {
    return onErrorReturn(Boolean(false), [&] { return Boolean(open(Opening::AsSet)); });
}

bool QuorLogFile::open(Opening opening) {
    if (name_.empty() || isFileOpen()) return true;
    GQuorFile names(ports_);
    const String folder = names.ExtractPath(name_);
    if (folder.size() < 2) return false;  // no folder for PathExists, and none that can be made

    const FileAccess access =
        maxFileSize_ > 0 && !autoOpenClose_ ? FileAccess::AppendYielding : FileAccess::Append;
    Handle file = Handle::Invalid;
    ErrorCode code = ports_.files.CreateFileA(name_, access, file);
    if (code == kPathNotFound && names.mkDirEx(folder))
        code = ports_.files.CreateFileA(name_, access, file);
    if (code != kSuccess) return false;
    const bool empty = opening == Opening::AsSet && !append_ && (!autoOpenClose_ || firstOpening_);
    if (empty && ports_.files.SetEndOfFile(file) != kSuccess) {
        ports_.files.CloseHandle(file);
        return false;
    }
    mark_ = empty ? std::string() : readMark(ports_.files, file);
    file_ = file;
    firstOpening_ = false;
    return true;
}

void QuorLogFile::CloseLogfile() {
    if (isFileOpen()) ports_.files.CloseHandle(file_);
    file_ = Handle::Invalid;
}

Variant QuorLogFile::writeLogfileEntry(String& s, Unchanged<eLogEntryType> level) {
    const eLogEntryType type = level;
    if (type > logLevel_) return true;
    if (maxFileSize_ > 0) keepWithinLimit();
    if (!isFileOpen() && autoOpenClose_) OpenLogfile();
    if (!isFileOpen()) return true;
    if (type != eLogEntryType_HeaderFooter && type != eLogEntryType_BlankLine) addPrefixes(s, type);
    write(s);
    if (autoOpenClose_) CloseLogfile();
    return true;
}

void QuorLogFile::keepWithinLimit() {
    constexpr Long entriesBetweenChecks = 50;
    if (entries_ % entriesBetweenChecks != 0) {
        ++entries_;
        return;
    }
    const bool wasOpen = isFileOpen();
    CloseLogfile();
    limitFileSize(name_, maxFileSize_);
    if (wasOpen) resumeNext([&] { open(Opening::Continue); });
    entries_ = 1;
}

void QuorLogFile::write(const String& line) {
    // Another program may put a shortened file in the place of this one, even several times.
    constexpr int mostTries = 100;
    for (int tries = 0; tries < mostTries && isFileOpen(); ++tries) {
        encodeLine(line, mark_, line_);
        if (ports_.files.WriteFile(file_, line_) != kFileReplaced) return;
        CloseLogfile();
        resumeNext([&] { open(Opening::Continue); });
    }
}

}  // namespace quorkit
