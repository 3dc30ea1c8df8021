#include <quorkit/GQuorFile.h>
#include <quorkit/GQuorStrings.h>
#include <quorkit/QuorLogFile.h>

#include "file/whole_file.h"
#include "frame/error_patterns.h"
#include "logfile/log_text.h"
#include "logfile/reason.h"

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
    if (!isFileOpen()) openName_ = name_;
    const bool opened = frame::onErrorReturn(false, [&] { return open(Opening::AsSet); });
    keptOpen_ = isFileOpen() && !autoOpenClose_;
    return opened;
}

bool QuorLogFile::open(Opening opening) {
    if (openName_.empty() || isFileOpen()) return true;
    GQuorFile names(ports_);
    const String folder = names.ExtractPath(openName_);
    if (folder.size() < 2) {  // PathExists rejects it, and it cannot be made
        logfile::sayThatFolderIsMissing(openName_);
        return false;
    }
    const bool empty = opening == Opening::AsSet && !append_ && (!autoOpenClose_ || firstOpening_);
    const auto attempt = [&] { return openFile(empty); };
    ErrorCode code = file::untilNotReplaced(attempt);
    if (code == kPathNotFound && names.mkDirEx(folder)) code = file::untilNotReplaced(attempt);
    if (code != kSuccess) {
        logfile::sayWhyNot(openName_, code);
        return false;
    }
    firstOpening_ = false;
    return true;
}

ErrorCode QuorLogFile::openFile(bool empty) {
    const FileAccess access =
        maxFileSize_ > 0 && !autoOpenClose_ ? FileAccess::AppendYielding : FileAccess::Append;
    if (const ErrorCode code = ports_.files.Open(openName_, access, file_)) return code;
    mark_ = {};
    const ErrorCode code = empty ? ports_.files.EmptyFile(file_) : readMark();
    if (code != kSuccess) close();
    return code;
}

ErrorCode QuorLogFile::readMark() {
    char start[logfile::kLongestMark + 1];  // one more byte shows whether anything follows a mark
    std::size_t length = 0;
    for (std::size_t got = 1; got != 0 && length < sizeof start; length += got) {
        const ErrorCode code =
            ports_.files.ReadFile(file_, start + length, sizeof start - length, got);
        if (code == kInvalidHandle) return kSuccess;  // may be written, but not read
        if (code != kSuccess) return code;
    }
    mark_ = logfile::markOf({start, length});
    if (!mark_.empty() && length == mark_.size()) unfinishedAt_ = length;  // there is no line yet
    return kSuccess;
}

void QuorLogFile::CloseLogfile() {
    close();
    keptOpen_ = false;
}

void QuorLogFile::close() {
    if (isFileOpen()) ports_.files.CloseHandle(file_);
    file_ = Handle::Invalid;
}

Variant QuorLogFile::writeLogfileEntry(String& s, Unchanged<eLogEntryType> level) {
    const eLogEntryType type = level;
    if (type > logLevel_) return true;
    if (maxFileSize_ > 0) keepWithinLimit();
    if (!isFileOpen() && autoOpenClose_) OpenLogfile();
    if (!isFileOpen() && keptOpen_) reopen();
    if (!isFileOpen()) return true;
    if (type != eLogEntryType_HeaderFooter && type != eLogEntryType_BlankLine) addPrefixes(s, type);
    ErrorCode code = write(s);
    if (code == kDiskFull && maxFileSize_ > 0) {  // shortening makes room
        entries_ = 0;
        keepWithinLimit();
        code = write(s);
    }
    if (code != kSuccess && isFileOpen()) logfile::sayWhyNot(openName_, code);
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
    close();
    limitFileSize(name_, maxFileSize_);
    if (wasOpen) {
        openName_ = name_;
        reopen();
    }
    entries_ = 1;
}

/// Opens the file again without emptying it. If that fails, the next entry tries again.
void QuorLogFile::reopen() {
    frame::resumeNext([&] { open(Opening::Continue); });
}

bool QuorLogFile::continuesLine() {
    std::uint64_t size = 0;
    return unfinishedAt_ && ports_.files.GetFileSizeEx(file_, size) == kSuccess &&
           size == *unfinishedAt_;
}

ErrorCode QuorLogFile::write(const String& line) {
    const ErrorCode code = file::untilNotReplaced([&] {
        if (!isFileOpen()) return kInvalidHandle;
        logfile::encodeLine(line, mark_, line_);
        const auto lineBreak = continuesLine() ? std::string_view() : logfile::lineBreakOf(mark_);
        const ErrorCode written = ports_.files.Append(file_, line_, lineBreak);
        if (written == kFileReplaced) {  // shortened by another, or deleted and made anew
            close();
            reopen();
        }
        return written;
    });
    if (code == kSuccess) unfinishedAt_.reset();
    return code;
}

}  // namespace quorkit
