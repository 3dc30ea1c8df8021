#ifndef _WIN32
#include "support/x_server.h"

#include <fcntl.h>
#include <signal.h>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cctype>
#include <stdexcept>

namespace quorkit::test {
namespace {

[[noreturn]] void becomeServer(int answer) {
    prctl(PR_SET_PDEATHSIG, SIGKILL);  // the server must not outlive a test that crashes
    const int nothing = open("/dev/null", O_RDWR);
    for (const int stream : {0, 1, 2}) dup2(nothing, stream);
    const std::string number = std::to_string(dup(answer));  // the duplicate is inherited
    execlp("Xvfb", "Xvfb", "-displayfd", number.c_str(), "-screen", "0", "1280x1024x24", "-noreset",
           "-nolisten", "tcp", nullptr);
    _exit(127);
}

/// Reads the line with its number that the server writes when it is ready.
std::string numberFrom(int answer) {
    std::string number;
    for (char digit = 0; read(answer, &digit, 1) == 1 && std::isdigit(digit) != 0;) number += digit;
    return number;
}

}  // namespace

XServer::XServer()
    : process_(-1),
      variable_("DISPLAY", std::nullopt),
      helpers_("QUORKIT_LIBEXEC", QUORKIT_HELPERS) {
    int ends[2] = {};
    if (pipe2(ends, O_CLOEXEC) != 0) throw std::runtime_error("no pipe");
    process_ = fork();
    if (process_ == 0) becomeServer(ends[1]);
    close(ends[1]);
    const std::string number = numberFrom(ends[0]);
    close(ends[0]);
    if (number.empty()) {
        waitpid(process_, nullptr, 0);
        throw std::runtime_error("Xvfb does not start");
    }
    display_ = ":" + number;
    variable_.set(display_);
}

void XServer::end() {
    if (process_ == -1) return;
    kill(process_, SIGTERM);  // the server then removes its lock
    waitpid(process_, nullptr, 0);
    process_ = -1;
}

}  // namespace quorkit::test
#endif
