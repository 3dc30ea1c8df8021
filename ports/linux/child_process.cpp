#include "linux/child_process.h"

#include <poll.h>
#include <sys/syscall.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <csignal>
#include <cstdlib>
#include <filesystem>
#include <limits>
#include <thread>

#include "linux/linux_calls.h"

namespace quorkit::native {
namespace {

using std::chrono::milliseconds;
using std::chrono::steady_clock;

constexpr int kSignalled = 128;
constexpr milliseconds kBetweenLooks(5);
constexpr int kLooks = 100;
constexpr milliseconds kBetweenLooksForOthers(1);

/// Ends all processes of a session but the first; false when there are no others. They are found by
/// session, because a shell may have put them into groups of their own.
bool killOthers(pid_t session) {
    bool any = false;
    std::error_code error;
    for (const auto& entry : std::filesystem::directory_iterator("/proc", error)) {
        const pid_t number = std::atoi(entry.path().filename().c_str());
        if (number == 0 || number == session || getsid(number) != session) continue;
        any = true;
        ::kill(number, SIGKILL);
    }
    return any;
}

}  // namespace

Process::Process(pid_t number, Processes::Ending ending)
    : number_(number),
      hasSession_(ending == Processes::Ending::WithItsGroup),
      self_(static_cast<int>(syscall(SYS_pidfd_open, number, 0))) {}

bool Process::ask(int flags, siginfo_t& answer) const {
    answer.si_pid = 0;
    return unlessInterrupted([&] {
               return self_ ? waitid(P_PIDFD, static_cast<id_t>(self_.get()), &answer, flags)
                            : waitid(P_PID, static_cast<id_t>(number_), &answer, flags);
           }) == 0;
}

bool Process::look(int flags) {
    if (state_ != Running) return true;
    siginfo_t answer = {};
    bool known = ask(WEXITED | WNOWAIT | flags, answer);
    if (!known && self_ && errno == EINVAL) {  // the kernel cannot wait for the descriptor it gave
        self_ = Descriptor();
        known = ask(WEXITED | WNOWAIT | flags, answer);
    }
    if (known && answer.si_pid == 0) return false;
    state_ = known ? Ended : Gone;
    if (known) exitCode_ = answer.si_status + (answer.si_code == CLD_EXITED ? 0 : kSignalled);
    return true;
}

bool Process::hasEndedBy(Moment deadline) {
    while (!look(WNOHANG)) {
        const auto left = std::chrono::ceil<milliseconds>(deadline - steady_clock::now()).count();
        if (left <= 0) return false;
        if (self_) {
            pollfd end = {self_.get(), POLLIN, 0};
            poll(&end, 1,
                 static_cast<int>(std::min<decltype(left)>(left, std::numeric_limits<int>::max())));
        } else {
            std::this_thread::sleep_for(std::min(milliseconds(left), kBetweenLooks));
        }
    }
    return true;
}

void Process::waitForItsEnd() {
    look(0);
}

std::optional<Long> Process::exitCode() {
    look(WNOHANG);
    return exitCode_;
}

int Process::kill() const {
    if (!self_) return ::kill(number_, SIGKILL);
    return static_cast<int>(syscall(SYS_pidfd_send_signal, self_.get(), SIGKILL, nullptr, 0));
}

ErrorCode Process::end() {
    const bool ended = look(WNOHANG);
    if (state_ == Gone) return kSuccess;  // its number may belong to another process by now
    if (!ended) {
        if (kill() != 0 && errno != ESRCH) return lastError();
        waitForItsEnd();
    }
    // The number is free for another session only when the others are gone too. They end at once,
    // but the system's first process has to remove them, which may take a while.
    for (int i = 0; hasSession_ && killOthers(number_) && i < kLooks; ++i)
        std::this_thread::sleep_for(kBetweenLooksForOthers);
    forget();
    return kSuccess;
}

bool Process::forget() {
    if (!look(WNOHANG)) return false;
    siginfo_t answer = {};
    if (state_ == Ended) ask(WEXITED | WNOHANG, answer);
    state_ = Gone;
    return true;
}

}  // namespace quorkit::native
