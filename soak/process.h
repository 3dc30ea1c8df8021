// The process of a worker, as its controller uses it.
#pragma once

#include <sys/types.h>

#include <memory>
#include <optional>

#include "board.h"

namespace quorkit::soak {

class Process {
   public:
    /// Starts the worker. It ends when this object or its controller does, at the latest.
    explicit Process(const Job& job);
    ~Process();
    Process(const Process&) = delete;
    Process& operator=(const Process&) = delete;

    Board& board() const { return *board_; }
    const Job& job() const { return board_->job(); }

    /// Returns when the worker has begun.
    void awaitStart();
    /// Kills the worker (kill -9), whatever it is doing. False when it had ended before.
    bool kill();
    void stop();
    void resume();
    /// Whether the worker is still running.
    bool runs();
    /// Whether the worker has ended without being told to.
    bool failed() const { return failed_; }
    /// Returns when the worker waits for nobody; false when it would wait for ever.
    bool moves();
    enum Steps { kThisOne, kAll };
    /// Waits until the worker has ended this step or all its steps; false when it does not end.
    bool end(Steps steps = kThisOne);

   private:
    void reap(bool wait);
    /// The nanoseconds since the worker began its present step; 0 when it has ended.
    std::uint64_t busy();

    std::unique_ptr<Board> board_;
    pid_t process_ = -1;
    bool ended_ = false;
    bool killed_ = false;
    bool failed_ = false;
};

}  // namespace quorkit::soak
