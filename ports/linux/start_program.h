// The one way in which programs are started. They get the signals of a fresh program, and of this
// program's open files the three standard streams at most.
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
    int inputFrom = -1;  ///< a descriptor that is the input instead
    int outputTo = -1;   ///< and one that is the output
};

enum class Session {
    Ours,
    Own  ///< a group of its own too, of the process's number; no terminal belongs to it
};

class Start {
   public:
    explicit Start(const Streams& streams, Session session = Session::Ours);
    ~Start();
    Start(const Start&) = delete;
    Start& operator=(const Start&) = delete;

    /// Starts the program that the first word names, found on PATH when there is no "/" in it; all
    /// words reach it as they are. Where this program has other rights than its caller (setuid),
    /// PATH is not the caller's but that of the system, for the program that is started too.
    /// kFileNotFound when there is none, kAccessDenied when the file is no program.
    ErrorCode run(std::span<const std::string> words, pid_t& process) const;
    /// The same for a program that is no child of this one, so that nobody need wait for it.
    ErrorCode runDetached(std::span<const std::string> words) const;

   private:
    class Line;

    /// The error, or 0. For a forked process too.
    int spawn(const Line& line, pid_t& process) const;
    /// What goes wrong before a program is started: the first error counts.
    void note(int error);
    void open(int stream, int flags);

    int failure_ = 0;
    Descriptor input_;
    posix_spawn_file_actions_t files_{};
    posix_spawnattr_t attributes_{};
};

}  // namespace quorkit::native
