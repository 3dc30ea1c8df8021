// A program that this one has started.
#pragma once

#include <quorkit/ports/processes.h>
#include <sys/types.h>

#include <chrono>
#include <csignal>
#include <memory>
#include <optional>

#include "linux/descriptor.h"

namespace quorkit::native {

/// The process stays in the kernel's table until `forget` removes it, so that no other program gets
/// its number. If it ends while this program ignores SIGCHLD, or if somebody else waits for it, it
/// is lost: it has ended, but its exit code is unknown.
class Process {
   public:
    using Moment = std::chrono::steady_clock::time_point;

    Process(pid_t number, Processes::Ending ending);

    /// Whether it has ended. Checks at once, and waits for that until `deadline` at most.
    bool hasEndedBy(Moment deadline);
    void waitForItsEnd();
    /// See Processes::GetExitCodeProcess; nothing while it runs, and when it is lost.
    std::optional<Long> exitCode();
    /// See Processes::EndProcess. kAccessDenied when it belongs to another user.
    ErrorCode end();
    /// Removes it from the kernel's table; false while it runs.
    bool forget();

   private:
    enum State { Running, Ended, Gone };

    /// Whether it has ended; the flags are those of waitid.
    bool look(int flags);
    bool ask(int flags, siginfo_t& answer) const;
    int kill() const;

    pid_t number_;
    bool hasSession_;  // it has a session of its own
    Descriptor self_;  // of the process, if the kernel offers one
    State state_ = Running;
    std::optional<Long> exitCode_;
};

inline Process& processOf(Handle handle) {
    return *reinterpret_cast<Process*>(handle);
}
inline Handle toHandle(std::unique_ptr<Process> process) {
    return Handle(reinterpret_cast<std::intptr_t>(process.release()));
}

}  // namespace quorkit::native
