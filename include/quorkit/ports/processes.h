// Other programs, and documents that other programs open.
#pragma once

#include <quorkit/ports/files.h>
#include <quorkit/values.h>

#include <chrono>
#include <optional>

namespace quorkit {

class Processes {
   public:
    virtual ~Processes() = default;

    enum class Ending {
        WithItself,  ///< EndProcess ends the process
        /// And everything that it has started; on Linux unless that has left for a session of its
        /// own. There the process has no terminal, and Ctrl-C at this program's does not reach it.
        WithItsGroup
    };
    enum class Waited { Ended, TimedOut, Failed };

    /// Starts the program that the command line begins with, with the other words as its arguments,
    /// split as Win32 programs split them. A program without a folder is sought where the system
    /// seeks programs. It has this program's current folder, environment and three standard
    /// streams, and inherits no other handle. `title` is for its console window, where it gets one;
    /// "" for none. kFileNotFound when there is no such program; kAccessDenied when it is none;
    /// kInvalidName for U+0000 in the line. On success CloseHandle must follow.
    virtual ErrorCode CreateProcessA(const String& commandLine, const String& title, Ending ending,
                                     Handle& process) = 0;
    /// Waits until the process has ended, but no longer than so; without a limit however long it
    /// takes.
    virtual Waited WaitForSingleObject(
        Handle process, std::optional<std::chrono::milliseconds> longest = std::nullopt) = 0;
    /// How a process that has ended did so: its exit code; on Linux 128 and the signal's number
    /// when a signal ended it, as a shell has it. kGeneralFailure when nobody can tell: on Linux a
    /// program that ignores SIGCHLD, or waits for just any child, takes the answer away.
    virtual ErrorCode GetExitCodeProcess(Handle process, Long& code) = 0;
    /// Ends a process, unless it has ended, and what is left of its group. It is gone when this
    /// returns. kAccessDenied when it may not be ended, as on Linux another user's.
    virtual ErrorCode EndProcess(Handle process) = 0;
    /// Gives back what the handle holds. A process that runs goes on.
    virtual void CloseHandle(Handle process) = 0;

    /// Opens an address or a document with the program that the desktop has for it, and does not
    /// wait for that. No shell reads the address. kFileNotFound when there is nobody to hand it to,
    /// or no such document; kInvalidName for U+0000 in it. On Linux xdg-open gets it; nobody learns
    /// what becomes of it there.
    virtual ErrorCode HandToDesktop(const String& target) = 0;
};

}  // namespace quorkit
