// Who may change a file. Two kernel objects stand for its name: a mutex, the gate, which is passed
// for each change, and a mark, which exists for as long as somebody holds a lock or keeps the file
// from being locked. The kernel takes both back when their process dies, and neither stands in the
// way of replacing the file.
#pragma once

#include <quorkit/ports/files.h>
#include <windows.h>

#include <string>

namespace quorkit::native {

class Gate {
   public:
    /// For a final name; see `status` for how it went.
    explicit Gate(const String& name);
    ~Gate();
    Gate(const Gate&) = delete;
    Gate& operator=(const Gate&) = delete;

    ErrorCode status() const { return status_; }

    /// Waits for at most so long; kLockViolation and a reason when that was too short.
    ErrorCode enter(std::chrono::milliseconds most = longest(Wait::Patiently));
    /// For the thread that has entered.
    void leave();

    /// Called inside.
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
