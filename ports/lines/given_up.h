// A process that adds to a file waits for its lock only once in vain; see Files.
#pragma once

#include <atomic>
#include <cstddef>
#include <mutex>
#include <set>

namespace quorkit::lines {

/// The files whose lock this process has waited for in vain, and not held since; shared by all
/// threads.
template <class File>
class GivenUp {
   public:
    bool contains(const File& file) {
        if (count_ == 0) return false;
        const std::lock_guard guard(mutex_);
        return files_.contains(file);
    }
    void set(const File& file, bool givenUp) {
        if (!givenUp && count_ == 0) return;
        const std::lock_guard guard(mutex_);
        if (givenUp)
            files_.insert(file);
        else
            files_.erase(file);
        count_ = files_.size();
    }

   private:
    std::mutex mutex_;
    std::set<File> files_;
    std::atomic<std::size_t> count_ = 0;  ///< number of these files, readable without the mutex
};

}  // namespace quorkit::lines
