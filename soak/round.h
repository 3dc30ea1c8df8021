// One round: a folder of its own, a seed, and a time limit.
#pragma once

#include <sys/types.h>

#include <cstdint>
#include <string>

#include "board.h"
#include "random.h"
#include "report.h"

namespace quorkit::soak {

class Round {
   public:
    /// `length` is in nanoseconds.
    Round(Tally& tally, std::uint64_t seed, std::uint64_t length);
    /// Removes the folder, unless faults were found in it.
    ~Round();
    Round(const Round&) = delete;
    Round& operator=(const Round&) = delete;

    std::uint64_t seed() const { return seed_; }
    Random& random() { return random_; }
    Tally& tally() { return tally_; }
    bool over() const;
    /// Sleeps for a random time.
    void sleep(std::uint32_t mostMicroseconds);

    /// Orders for a worker on the file `name` of this round.
    Job job(Role role, const std::string& name) const;
    const std::string& folder() const { return folder_; }
    std::string file(const std::string& name) const { return folder_ + "/" + name; }
    /// Makes the folder a memory file system of `size` bytes; false when that is not allowed.
    bool mountDisk(std::uint32_t size);
    /// Fills the disk of the folder, or frees it again.
    void fillDisk(bool full);
    /// Gives the folder and all in it to a user.
    void giveTo(uid_t user);

    /// Reports a broken promise.
    void fault(const std::string& what);
    bool faulty() const { return faults_ != 0; }

   private:
    Tally& tally_;
    std::uint64_t seed_;
    Random random_;
    std::uint64_t end_;
    std::string folder_;
    bool mounted_ = false;
    int faults_ = 0;
};

/// All bytes of a file; none when it does not exist.
std::string contentOf(const std::string& file);

}  // namespace quorkit::soak
