// Other programs, and documents that they open.
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
        /// EndProcess ends the process and everything that it has started, on Linux except what has
        /// left for a session of its own. On Linux the process has no terminal, and Ctrl-C at this
        /// program's terminal does not reach it.
        WithItsGroup
    };
    enum class Waited { Ended, TimedOut, Failed };

    /// Starts the program at the beginning of the command line. The other words are its arguments,
    /// split as Win32 programs split them. A program without a folder is looked for where the
    /// system keeps programs. It has this program's current folder, environment and three standard
    /// streams, and inherits no other handle. `title` is the title of its console window, if it
    /// gets one, or "". kFileNotFound when there is no such program; kAccessDenied when the file is
    /// no program; kInvalidName for U+0000 in the line. On success CloseHandle must follow.
    virtual ErrorCode CreateProcessA(const String& commandLine, const String& title, Ending ending,
                                     Handle& process) = 0;
    /// Waits until the process has ended, at most for `longest`; without it there is no limit.
    virtual Waited WaitForSingleObject(
        Handle process, std::optional<std::chrono::milliseconds> longest = std::nullopt) = 0;
    /// The exit code of a process that has ended; on Linux, as in a shell, 128 + the signal's
    /// number when a signal ended it. kGeneralFailure when the code is lost: on Linux because this
    /// program ignores SIGCHLD or waits for any child.
    virtual ErrorCode GetExitCodeProcess(Handle process, Long& code) = 0;
    /// Ends a process that still runs, and what is left of its group; both are gone when this
    /// returns. kAccessDenied when it may not be ended, such as another user's process on Linux.
    virtual ErrorCode EndProcess(Handle process) = 0;
    /// Closes the handle. A running process goes on.
    virtual void CloseHandle(Handle process) = 0;

    /// Opens an address or a document with the program that the desktop has for it, without waiting
    /// for that program. No shell reads the address. kFileNotFound when there is no such document
    /// or nothing to open it with; kInvalidName for U+0000 in it. On Linux xdg-open receives it,
    /// and its outcome is not known.
    virtual ErrorCode HandToDesktop(const String& target) = 0;
};

}  // namespace quorkit
