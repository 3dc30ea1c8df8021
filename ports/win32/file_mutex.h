// The right to change a file. Two kernel objects belong to its name. The mutex is entered for each
// change. The mark exists while somebody holds a lock, or keeps the file from being locked. The
// kernel removes both when their process dies, and neither prevents the file from being replaced.
#pragma once

#include <quorkit/ports/files.h>
#include <windows.h>

#include <string>

namespace quorkit::native {

class FileMutex {
   public:
    /// For a final name; `status` gives the outcome.
    explicit FileMutex(const String& name);
    ~FileMutex();
    FileMutex(const FileMutex&) = delete;
    FileMutex& operator=(const FileMutex&) = delete;

    ErrorCode status() const { return status_; }

    /// Waits up to `most`; kLockViolation and a reason when that was too short.
    ErrorCode enter(std::chrono::milliseconds most = longest(Wait::Patiently));
    /// Only for the thread that has entered.
    void leave();

    /// Only after entering.
    bool marked() const;
    ErrorCode mark();
    void unmark();

   private:
    String file_;
    std::wstring name_;
    HANDLE mutex_ = nullptr;
    HANDLE mark_ = nullptr;
    ErrorCode status_ = kSuccess;
};

}  // namespace quorkit::native
