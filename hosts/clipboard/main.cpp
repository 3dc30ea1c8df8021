// quorkit-clipboard: owns the content of the clipboard until it is another's. The library starts
// it; see linux/x11/owner_program.h.
//
//     quorkit-clipboard FORMAT <CONTENT
//
// FORMAT is a number of ports/clipboard.h. It answers "+" on standard output when it owns the
// clipboard and goes on in the background; otherwise it ends within five seconds.
#include <fcntl.h>
#include <unistd.h>

#include <cstdio>
#include <cstdlib>
#include <exception>
#include <iterator>

#include "linux/calls.h"
#include "linux/x11/owner_program.h"
#include "linux/x11/selection_owner.h"

namespace {

using namespace quorkit;

/// Standard input to its end.
bool readAll(std::string& content) {
    char buffer[1 << 16];
    for (;;) {
        const ssize_t count =
            disk::unlessInterrupted([&] { return read(STDIN_FILENO, buffer, sizeof buffer); });
        if (count <= 0) return count == 0;
        content.append(buffer, static_cast<std::size_t>(count));
    }
}

/// Lets go of everything that the program that started this one may wait for.
void detach() {
    const int nothing = open("/dev/null", O_RDWR);
    for (const int stream : {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO}) dup2(nothing, stream);
    if (nothing > STDERR_FILENO) close(nothing);
    if (chdir("/") != 0) return;  // where it stays is then no matter
}

int own(ClipboardFormat format) {
    std::string content;
    const auto connection = x11::Connection::open();
    if (connection == nullptr || !readAll(content)) return 1;
    x11::SelectionOwner owner(*connection, format, std::move(content));
    if (!owner.owns() || write(STDOUT_FILENO, &x11::kOwns, 1) != 1) return 1;
    alarm(0);
    detach();
    owner.serve();
    return 0;
}

}  // namespace

int main(int count, char** words) try {
    if (count != 2) {
        std::fputs("usage: quorkit-clipboard FORMAT <CONTENT\n", stderr);
        return 2;
    }
    const auto format = static_cast<ClipboardFormat>(std::atoi(words[1]));
    // A child of a process that ends is nobody's child; in a session of its own it outlives those
    // of its user.
    if (const pid_t child = fork(); child != 0) return child < 0 ? 1 : 0;
    alarm(x11::kLongestStart);
    setsid();
    return own(format);
} catch (const std::exception&) {
    return 1;
}
