// The writers of a store of keys and values, and the model of its expected content.
#pragma once

#include <memory>
#include <vector>

#include "changes.h"
#include "process.h"
#include "rounds.h"

namespace quorkit::soak {

class StoreCrew {
   public:
    StoreCrew(Round& round, Job job, Trouble trouble, std::uint32_t workers);

    std::uint32_t size() const { return static_cast<std::uint32_t>(members_.size()); }
    Process& process(std::uint32_t worker) { return *members_[worker].process; }

    /// Kills a worker at whatever it does, checks the store, and starts the worker again.
    void killAndCheck(std::uint32_t worker);
    /// Waits until no worker except `stopped` is at one step for long; if that never happens, it is
    /// a fault.
    void settle(const Process* stopped = nullptr);
    /// Tells that from now on nothing hinders the writers.
    void calmDown() { calm_ = now(); }
    /// Ends all workers and checks the store.
    void end();

   private:
    struct Member {
        Job job;
        std::unique_ptr<Process> process;
        State state;
    };

    void start(Member& member);
    void check(Member& member);
    /// Updates the model from what the worker has recorded. Returns the change under way, if there
    /// is one.
    std::optional<Change> replay(Member& member);
    void compare(Member& member, const std::optional<Change>& underWay);
    bool expected(const Step& step) const;
    std::string nameOf(const Process& process) const;

    Round& round_;
    Trouble trouble_;
    std::unique_ptr<Store> store_;
    std::vector<Member> members_;
    std::uint64_t calm_ = UINT64_MAX;
};

}  // namespace quorkit::soak
