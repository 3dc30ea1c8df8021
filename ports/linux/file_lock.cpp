#include "linux/file_lock.h"

#include <quorkit/ports/ports.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <optional>
#include <sstream>
#include <thread>

#include "linux/linux_calls.h"

namespace quorkit::native {
namespace {

/// The process that holds a lock on the file with this number, from /proc/locks; 0 when that does
/// not tell, as for a process in another container. A line looks like "1: FLOCK  ADVISORY  WRITE
/// 714 fe:00:4202 0 EOF"; one that waits has "->" behind the number.
pid_t holderOf(ino_t number) {
    std::ifstream locks("/proc/locks");
    const std::string ending = ":" + std::to_string(number);
    for (std::string line; std::getline(locks, line);) {
        std::istringstream words(line);
        std::string order, family, kind, access, place;
        pid_t process = 0;
        if (words >> order >> family >> kind >> access >> process >> place && family == "FLOCK" &&
            place.ends_with(ending))
            return process;
    }
    return 0;
}

/// "process 714 (backup)", and whether it is stopped.
std::string nameOf(pid_t process) {
    if (process <= 0) return "another program";
    if (process == getpid()) return "this program itself";
    const std::string folder = "/proc/" + std::to_string(process);
    std::string name;
    std::getline(std::ifstream(folder + "/comm"), name);
    std::string line;
    std::getline(std::ifstream(folder + "/stat"), line);
    const std::size_t end = line.rfind(") ");
    const bool stopped = end != std::string::npos && line.substr(end + 2, 1) == "T";
    return "process " + std::to_string(process) + (name.empty() ? "" : " (" + name + ")") +
           (stopped ? ", which is stopped" : "");
}

/// Sets the reason that a person needs to end the wait.
void sayWhoIsInTheWay(int descriptor) {
    struct stat about = {};
    if (fstat(descriptor, &about) != 0) return;
    std::error_code unknown;
    const std::string path =
        std::filesystem::read_symlink("/proc/self/fd/" + std::to_string(descriptor), unknown);
    ports::giveReason((unknown ? std::string("the file") : path) + " is locked by " +
                      nameOf(holderOf(about.st_ino)));
}

}  // namespace

ErrorCode lock(int descriptor, int kind, Wait wait) {
    // A wait by the kernel has no time limit.
    constexpr auto shortest = std::chrono::microseconds(50);
    constexpr auto most = std::chrono::microseconds(500);
    std::chrono::microseconds pause = shortest;
    std::optional<std::chrono::steady_clock::time_point> end;
    while (flock(descriptor, kind | LOCK_NB) != 0) {
        if (errno == EINTR) continue;
        if (errno != EWOULDBLOCK) return lastError();
        const auto now = std::chrono::steady_clock::now();
        if (!end) end = now + longest(wait);
        if (now > *end) {
            sayWhoIsInTheWay(descriptor);
            return kLockViolation;
        }
        std::this_thread::sleep_for(pause);
        pause = std::min(pause + pause / 8, most);
    }
    return kSuccess;
}

void unlock(int descriptor) {
    flock(descriptor, LOCK_UN);
}

}  // namespace quorkit::native
