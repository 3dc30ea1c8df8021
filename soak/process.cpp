#include "process.h"

#include <fcntl.h>
#include <grp.h>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <chrono>
#include <csignal>
#include <string>
#include <system_error>
#include <thread>

#include "limits.h"

namespace quorkit::soak {
namespace {

/// As `setpriv --reuid USER --regid USER --clear-groups` does.
bool become(uid_t user) {
    return setgroups(0, nullptr) == 0 && setresgid(user, user, user) == 0 &&
           setresuid(user, user, user) == 0;
}

[[noreturn]] void run(const Job& job, int board) {
    setpgid(0, 0);
    if (job.user != 0 && !become(job.user)) _exit(126);
    prctl(PR_SET_PDEATHSIG, SIGKILL);
    fcntl(board, F_SETFD, 0);
    const std::string number = std::to_string(board);
    if (job.role == Role::Configparser)
        execlp("python3", "python3", QUORKIT_SOAK_SOURCES "/configparser_worker.py", number.c_str(),
               job.file, std::to_string(job.worker).c_str(), std::to_string(job.first).c_str(),
               std::to_string(job.steps).c_str(), nullptr);
    else
        execl("/proc/self/exe", "quorkit_soak", "--worker", number.c_str(), nullptr);
    _exit(127);
}

}  // namespace

Process::Process(const Job& job) : board_(std::make_unique<Board>(job)), process_(fork()) {
    if (process_ == -1) throw std::system_error(errno, std::generic_category(), "fork");
    if (process_ == 0) run(job, board_->descriptor());
    setpgid(process_, process_);  // parent and child both do this; the first one succeeds
    board_->closeDescriptor();
}

Process::~Process() {
    kill();
    // Its children would outlive it.
    if (job().forks) ::kill(-process_, SIGKILL);
}

void Process::reap(bool wait) {
    if (ended_) return;
    int status = 0;
    const pid_t got = waitpid(process_, &status, wait ? 0 : WNOHANG);
    if (got != process_) return;
    ended_ = true;
    failed_ = !(WIFEXITED(status) && WEXITSTATUS(status) == 0) &&
              !(killed_ && WIFSIGNALED(status) && WTERMSIG(status) == SIGKILL);
}

void Process::awaitStart() {
    while (board_->reached() == job().first && runs())
        std::this_thread::sleep_for(std::chrono::microseconds(200));
}

bool Process::kill() {
    reap(false);
    if (ended_) return false;
    killed_ = true;
    ::kill(process_, SIGKILL);
    reap(true);
    return true;
}

void Process::stop() {
    ::kill(process_, SIGSTOP);
}

void Process::resume() {
    ::kill(process_, SIGCONT);
}

bool Process::runs() {
    reap(false);
    return !ended_;
}

std::uint64_t Process::busy() {
    const std::uint32_t reached = board_->reached();
    if (reached == job().first || !runs()) return 0;
    const Step& step = board_->step(reached - 1);
    const std::uint64_t begun = step.begun;
    const std::uint64_t time = now();
    return step.outcome == Outcome::UnderWay && time > begun ? time - begun : 0;
}

bool Process::moves() {
    for (std::uint64_t time = 0; (time = busy()) > kNoticeable;) {
        if (time > kLongestWait) return false;
        std::this_thread::sleep_for(std::chrono::milliseconds(10));
    }
    return true;
}

bool Process::end(Steps steps) {
    if (steps == kThisOne) board_->haveEnd();
    const std::uint64_t patience = now() + (steps == kThisOne ? 1 : 10) * kLongestWait;
    while (runs()) {
        if (now() > patience) return false;
        std::this_thread::sleep_for(std::chrono::microseconds(200));
    }
    return true;
}

}  // namespace quorkit::soak
