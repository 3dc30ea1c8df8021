// A worker's process, as its controller sees it.
#pragma once

#include <sys/types.h>

#include <memory>
#include <optional>

#include "board.h"

namespace quorkit::soak {

class Process {
   public:
    /// Starts the worker; it ends with this object at the latest, and with its controller.
    explicit Process(const Job& job);
    ~Process();
    Process(const Process&) = delete;
    Process& operator=(const Process&) = delete;

    Board& board() const { return *board_; }
    const Job& job() const { return board_->job(); }

    /// Returns when it has begun to work.
    void awaitStart();
    /// kill -9, at whatever it is just doing. False when it had ended before.
    bool kill();
    void stop();
    void resume();
    /// Whether it has not ended.
    bool runs();
    /// Whether it has ended otherwise than by what was asked of it.
    bool failed() const { return failed_; }
    /// Returns when it is not waiting for anybody; false when it would wait without end.
    bool moves();
    enum Steps { kThisOne, kAll };
    /// Waits until it has taken this step or all its steps; false when it would not end.
    bool end(Steps steps = kThisOne);

   private:
    void reap(bool wait);
    /// For how many nanoseconds it has been at the same step; 0 for one that has ended.
    std::uint64_t busy();

    std::unique_ptr<Board> board_;
    pid_t process_ = -1;
    bool ended_ = false;
    bool killed_ = false;
    bool failed_ = false;
};

}  // namespace quorkit::soak
