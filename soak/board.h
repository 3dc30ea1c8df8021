// Memory that a worker and its controller share: what the worker shall do, and how far it is. The
// worker notes each step before it begins and after its call has returned, so that the controller
// knows at a kill at any moment which calls had succeeded and which one was under way.
#pragma once

#include <sys/types.h>

#include <atomic>
#include <cstdint>
#include <string>

namespace quorkit::soak {

enum class Role : std::uint32_t {
    Ini,
    Registry,
    NewFiles,  ///< a new INI file with every step
    Log,
    IniKeys,  ///< new keys of one INI file, what the peers are asked for
    GKeyFile,
    Configparser,
    Spdlog,
};

/// What a worker shall do. What it writes at a step depends on this and the step alone.
struct Job {
    Role role = Role::Ini;
    std::uint32_t worker = 0;
    std::uint32_t incarnation = 0;  ///< how often this worker was killed or has ended before
    std::uint32_t first = 0;        ///< its first step
    std::uint32_t steps = 0;        ///< the one behind its last
    std::uint64_t seed = 0;
    uid_t user = 0;             ///< whom it runs as; 0 for no change
    bool forks = false;         ///< whether it makes children that sleep while it writes
    bool autoOpenClose = true;  // of a log, as the members of the class
    bool append = true;
    bool marked = false;    ///< whether the log has the byte-order mark of UTF-8
    bool prefixes = false;  ///< whether entries bear date, time and level
    bool flush = true;      ///< whether a peer hands over each entry at once
    std::int32_t limit = 0;
    std::uint32_t longOneIn = 0;  ///< how rare long entries are; 0 for none
    char file[512] = {};          ///< of the registry: the folder that it lies in
};

enum class Outcome : std::uint32_t {
    NotBegun,
    UnderWay,
    Done,
    DoneWithReason,   ///< the call does not say whether it succeeded, but there is a reason
    Refused,          ///< with a reason
    RefusedSilently,  ///< the call said no, and nothing why
};

/// Times are nanoseconds of one clock for all processes; 0 for never.
struct Step {
    std::atomic<std::uint64_t> begun;
    std::atomic<std::uint64_t> ended;
    std::atomic<Outcome> outcome;
};

std::uint64_t now();

class Board {
   public:
    static constexpr std::uint32_t kMostSteps = 1 << 14;

    /// For the controller, which makes it.
    explicit Board(const Job& job);
    /// For the worker, which is handed its descriptor.
    explicit Board(int descriptor) { map(descriptor); }
    ~Board();
    Board(const Board&) = delete;
    Board& operator=(const Board&) = delete;

    /// Gone after `closeDescriptor`; the memory stays.
    int descriptor() const { return descriptor_; }
    void closeDescriptor();

    const Job& job() const { return page_->job; }
    Step& step(std::uint32_t number) const { return page_->steps[number]; }
    /// The step behind the last one that has begun.
    std::uint32_t reached() const { return page_->reached.load(); }
    bool shallEnd() const { return page_->shallEnd.load() != 0; }
    void haveEnd() { page_->shallEnd = 1; }
    /// The last reason that the worker was given.
    std::string reason() const { return page_->reason; }

    // For the worker.

    void begin(std::uint32_t step);
    void end(std::uint32_t step, Outcome outcome, const std::string& reason);

   private:
    /// Begins with what workers of other languages use; they know the places.
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
