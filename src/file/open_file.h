// A file that is open for reading.
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

    /// The result of opening the file, or of the last operation. After a failure operations do
    /// nothing.
    ErrorCode status() const { return status_; }

    /// Its size in bytes; 0 on failure.
    std::uint64_t size() {
        std::uint64_t size = 0;
        if (status_ == kSuccess) status_ = files_.GetFileSizeEx(handle_, size);
        return size;
    }
    /// Makes the next read begin `position` bytes behind the start.
    void seek(std::uint64_t position) {
        if (status_ == kSuccess) status_ = files_.SetFilePointerEx(handle_, position);
    }
    /// Reads up to `capacity` bytes and returns their number; 0 at the end and on a failure.
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
