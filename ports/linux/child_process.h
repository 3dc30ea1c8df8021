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

/// It stays in the kernel's table until `forget` takes it out, so that its number is not given to
/// another program. It is lost there when it ends while this program ignores SIGCHLD, or when
/// somebody else waits for it; then it has ended, and nobody learns how.
class Process {
   public:
    using Moment = std::chrono::steady_clock::time_point;

    Process(pid_t number, Processes::Ending ending);

    /// Whether it has ended; looks at once, and no later than `deadline`.
    bool hasEndedBy(Moment deadline);
    void waitForItsEnd();
    /// See Processes::GetExitCodeProcess; nothing when it runs or is lost.
    std::optional<Long> exitCode();
    /// See Processes::EndProcess. kAccessDenied when it belongs to another user.
    ErrorCode end();
    /// Takes it out of the kernel's table; false while it runs.
    bool forget();

   private:
    enum State { Running, Ended, Gone };

    /// Whether it has ended, with flags for waitid.
    bool look(int flags);
    bool ask(int flags, siginfo_t& answer) const;
    int kill() const;

    pid_t number_;
    bool hasSession_;  // of its own
    Descriptor self_;  // of the process, where the kernel gives one
    State state_ = Running;
    std::optional<Long> exitCode_;
};

inline Process& processOf(Handle handle) {
    return *reinterpret_cast<Process*>(handle);
}
inline Handle handOut(std::unique_ptr<Process> process) {
    return Handle(reinterpret_cast<std::intptr_t>(process.release()));
}

}  // namespace quorkit::native
