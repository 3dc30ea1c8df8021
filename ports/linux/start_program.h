// The one way in which programs are started. A program gets the signal settings of a fresh program,
// and at most the three standard streams of this program's open files.
#pragma once

#include <quorkit/ports/files.h>
#include <spawn.h>
#include <sys/types.h>

#include <span>
#include <string>

#include "linux/descriptor.h"

namespace quorkit::native {

struct Streams {
    enum Source { Ours, Nothing };
    Source input = Ours;
    Source output = Ours;
    Source error = Ours;
    int inputFrom = -1;  ///< a descriptor to use as input
    int outputTo = -1;   ///< a descriptor to use as output
};

enum class Session {
    Ours,
    Own  ///< also a group with the process's number; it has no terminal
};

class Start {
   public:
    explicit Start(const Streams& streams, Session session = Session::Ours);
    ~Start();
    Start(const Start&) = delete;
    Start& operator=(const Start&) = delete;

    /// Starts the program that the first word names, found on PATH when there is no "/" in it; the
    /// words reach it as they are. If this program has other rights than its caller (setuid), it
    /// uses the system's PATH in place of the caller's, and so does the started program.
    /// kFileNotFound when there is no such program, kAccessDenied when the file is no program.
    ErrorCode run(std::span<const std::string> words, pid_t& process) const;
    /// The same for a program that does not become a child of this one, so nobody need wait for it.
    ErrorCode runDetached(std::span<const std::string> words) const;

   private:
    class Line;

    /// The error, or 0. A forked process may call it.
    int spawn(const Line& line, pid_t& process) const;
    /// Records what goes wrong before a program is started; the first error counts.
    void note(int error);
    void open(int stream, int flags);

    int failure_ = 0;
    Descriptor input_;
    posix_spawn_file_actions_t files_{};
    posix_spawnattr_t attributes_{};
};

}  // namespace quorkit::native
