// A file that is open to be read.
#pragma once

#include <quorkit/ports/files.h>

namespace quorkit::file {

/// Opens a file, and closes it on every way out.
class OpenFile {
   public:
    OpenFile(Files& files, const String& name)
        : files_(files), status_(files.Open(name, FileAccess::Read, handle_)) {}
    ~OpenFile() {
        if (handle_ != Handle::Invalid) files_.CloseHandle(handle_);
    }
    OpenFile(const OpenFile&) = delete;
    OpenFile& operator=(const OpenFile&) = delete;

    /// How opening it went, or the last operation. Each does nothing once one has failed.
    ErrorCode status() const { return status_; }

    /// Its size in bytes; 0 on failure.
    std::uint64_t size() {
        std::uint64_t size = 0;
        if (status_ == kSuccess) status_ = files_.GetFileSizeEx(handle_, size);
        return size;
    }
    /// The next read begins `position` bytes behind the start.
    void seek(std::uint64_t position) {
        if (status_ == kSuccess) status_ = files_.SetFilePointerEx(handle_, position);
    }
    /// Reads up to `capacity` bytes; how many. 0 at the end and on failure.
    std::size_t read(char* buffer, std::size_t capacity) {
        std::size_t count = 0;
        if (status_ == kSuccess) status_ = files_.ReadFile(handle_, buffer, capacity, count);
        return status_ == kSuccess ? count : 0;
    }

   private:
    Files& files_;
    Handle handle_ = Handle::Invalid;
    ErrorCode status_;
};

}  // namespace quorkit::file
