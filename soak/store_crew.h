// The writers of a store of keys and values, and the model of what must be in it.
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

    /// Ends a worker at whatever it does, checks what it has left, and starts it again.
    void killAndCheck(std::uint32_t worker);
    /// Waits until none but `stopped` has been at one step for long; a fault when that does not
    /// come true.
    void settle(const Process* stopped = nullptr);
    /// From now on nothing stands in the way of the writers.
    void calmDown() { calm_ = now(); }
    /// Ends all and checks.
    void end();

   private:
    struct Member {
        Job job;
        std::unique_ptr<Process> process;
        State state;
    };

    void start(Member& member);
    void check(Member& member);
    /// Brings the model up to what has been told. The change under way, if there is one.
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
