// Memory that a worker and its controller share: the worker's orders, and its progress. The worker
// records each step before it begins and after its call has returned. So when the controller kills
// it, the controller knows which calls had succeeded and which one was under way.
#pragma once

#include <sys/types.h>

#include <atomic>
#include <cstdint>
#include <string>

namespace quorkit::soak {

enum class Role : std::uint32_t {
    Ini,
    Registry,
    NewFiles,  ///< a new INI file at every step
    Log,
    IniKeys,  ///< new keys of one INI file, for comparison with the peers
    GKeyFile,
    Configparser,
    Spdlog,
};

/// A worker's orders. What it writes at a step depends only on this and the step.
struct Job {
    Role role = Role::Ini;
    std::uint32_t worker = 0;
    std::uint32_t incarnation = 0;  ///< number of its predecessors, which were killed or have ended
    std::uint32_t first = 0;        ///< its first step
    std::uint32_t steps = 0;        ///< the step behind its last one
    std::uint64_t seed = 0;
    uid_t user = 0;             ///< the user it runs as; 0 for no change
    bool forks = false;         ///< it makes children that sleep while it writes
    bool autoOpenClose = true;  // for a log, as the properties of the class
    bool append = true;
    bool marked = false;    ///< the log has the byte-order mark of UTF-8
    bool prefixes = false;  ///< entries have date, time and level
    bool flush = true;      ///< a peer passes on each entry at once
    std::int32_t limit = 0;
    std::uint32_t longOneIn = 0;  ///< one entry in so many is long; 0: none
    char file[512] = {};          ///< for the registry: the folder of the store
};

enum class Outcome : std::uint32_t {
    NotBegun,
    UnderWay,
    Done,
    DoneWithReason,   ///< the result does not tell whether it succeeded, but there is a reason
    Refused,          ///< refused with a reason
    RefusedSilently,  ///< refused without a reason
};

/// Times are nanoseconds of one clock for all processes; 0 means never.
struct Step {
    std::atomic<std::uint64_t> begun;
    std::atomic<std::uint64_t> ended;
    std::atomic<Outcome> outcome;
};

std::uint64_t now();

class Board {
   public:
    static constexpr std::uint32_t kMostSteps = 1 << 14;

    /// For the controller.
    explicit Board(const Job& job);
    /// For the worker, which gets the descriptor.
    explicit Board(int descriptor) { map(descriptor); }
    ~Board();
    Board(const Board&) = delete;
    Board& operator=(const Board&) = delete;

    /// No longer valid after `closeDescriptor`, but the memory stays.
    int descriptor() const { return descriptor_; }
    void closeDescriptor();

    const Job& job() const { return page_->job; }
    Step& step(std::uint32_t number) const { return page_->steps[number]; }
    /// The step behind the last one that was begun.
    std::uint32_t reached() const { return page_->reached.load(); }
    bool shallEnd() const { return page_->shallEnd.load() != 0; }
    void haveEnd() { page_->shallEnd = 1; }
    /// The last reason that the worker received.
    std::string reason() const { return page_->reason; }

    // Only for the worker.

    void begin(std::uint32_t step);
    void end(std::uint32_t step, Outcome outcome, const std::string& reason);

   private:
    /// The first part is at fixed places, for workers in other languages.
    struct Page {
        std::atomic<std::uint32_t> shallEnd;
        std::atomic<std::uint32_t> reached;
        char reason[256];
        Job job;
        alignas(2048) Step steps[kMostSteps];
    };

    void map(int descriptor);

    int descriptor_ = -1;
    Page* page_ = nullptr;
};

}  // namespace quorkit::soak
