// What is behind files in memory.
#pragma once

#include <quorkit/ports/memory_files.h>

#include <condition_variable>
#include <cstdint>
#include <map>
#include <memory>
#include <mutex>
#include <set>
#include <vector>

#include "memory/memory_tree.h"

namespace quorkit {

/// `mutex` guards all of it; `released` is told whenever a lock or a file open for adding is given
/// back.
struct MemoryFiles::State {
    /// Behind a handle: a file, or the lock on one, of which it has the item and the size that it
    /// had then.
    struct Opened {
        std::shared_ptr<memory::Item> item;
        FileAccess access = FileAccess::Read;
        memory::Key key;
        std::uint64_t position = 0;
        bool lock = false;
        String name = {};  ///< of a lock
        std::size_t size = 0;
    };
    struct Search {
        std::vector<FindData> entries;
        std::size_t next = 0;
    };

    std::mutex mutex;
    std::condition_variable released;
    memory::Tree tree;
    std::map<std::intptr_t, Opened> opened;
    std::map<std::intptr_t, Search> searches;
    std::set<memory::Key> locked;
    std::multiset<memory::Key> adding;  ///< files that are open for FileAccess::Append
    std::set<memory::Key> givenUp;      ///< files whose lock was waited for in vain, to add to them
    std::intptr_t nextHandle = 1;
    std::size_t freeSpace = static_cast<std::size_t>(-1);

    /// Null for what is no open file.
    Opened* find(Handle handle);
    /// Null for what is no lock.
    Opened* findLock(Handle handle);
    /// Finds the file that is locked; kFileReplaced when it is not the same as it was then.
    ErrorCode findLocked(const Opened& lock, memory::Place& place);
    Handle handOut(Opened file);
    /// Follows links to where a file stands or could stand; kAccessDenied for a folder.
    ErrorCode findFile(const String& name, memory::Place& place);
    /// Waits for a lock that keeps a file from being added to, see Files.
    void waitToAdd(std::unique_lock<std::mutex>& guard, const memory::Key& key);
    /// Whether a handle may add now. Waits for a lock that keeps it from that.
    ErrorCode mayChange(std::unique_lock<std::mutex>& guard, const Opened& file);
    /// Finds what a test sets up, and throws when it is not there.
    memory::Place mustFind(const String& name, memory::Tree::Links links = {});
};

}  // namespace quorkit
