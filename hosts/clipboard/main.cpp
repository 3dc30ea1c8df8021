// quorkit-clipboard: owns the content of the clipboard until it is another's. The library starts
// it; see quorkit/ports/clipboard_owner.h.
//
//     quorkit-clipboard FORMAT <CONTENT
//
// FORMAT is a number of ports/clipboard.h. It answers "+" on standard output and ends when it has
// put the content on the clipboard; a child of it goes on in the background. Otherwise it ends
// within five seconds of having read the content.
#include <fcntl.h>
#include <quorkit/ports/clipboard_owner.h>
#include <unistd.h>

#include <cstdio>
#include <cstdlib>
#include <exception>
#include <iostream>
#include <sstream>
#include <utility>

namespace {

using namespace quorkit;

int openNothing() {
    return open("/dev/null", O_RDWR);
}

/// Lets go of everything that others may wait for.
void detach() {
    const int nothing = openNothing();
    for (const int stream : {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO}) dup2(nothing, stream);
    if (nothing > STDERR_FILENO) close(nothing);
    if (chdir("/") != 0) return;  // where it stays is then no matter
}

/// Owns the clipboard to the end; tells `parent` when it does.
int own(ClipboardFormat format, int parent) {
    constexpr unsigned longestStart = 5;  // seconds
    std::ios::sync_with_stdio(false);     // else it is read character by character
    std::ostringstream content;
    if (std::cin.peek() != EOF) content << std::cin.rdbuf();
    if (std::cin.bad() || !content) return 1;
    alarm(longestStart);
    const bool owned = ports::ownClipboard(format, std::move(content).str(), [parent] {
        if (write(parent, &ports::kOwnsClipboard, 1) != 1) return false;
        close(parent);
        alarm(0);
        detach();
        return true;
    });
    return owned ? 0 : 1;
}

}  // namespace

int main(int count, char** words) try {
    // What is opened from here on is no standard stream.
    int nothing = openNothing();
    while (nothing >= 0 && nothing <= STDERR_FILENO) nothing = openNothing();
    close(nothing);
    if (count != 2) {
        std::fputs("usage: quorkit-clipboard FORMAT <CONTENT\n", stderr);
        return 2;
    }
    int ends[2] = {};
    if (pipe(ends) != 0) return 1;
    // A child of a process that ends is nobody's child; in a session of its own it outlives those
    // of its user.
    const pid_t child = fork();
    if (child == 0) {
        close(ends[0]);
        setsid();
        return own(static_cast<ClipboardFormat>(std::atoi(words[1])), ends[1]);
    }
    close(ends[1]);
    char answer = 0;
    const bool owns = child > 0 && read(ends[0], &answer, 1) == 1;
    return owns && write(STDOUT_FILENO, &answer, 1) == 1 ? 0 : 1;
} catch (const std::exception&) {
    return 1;
}
