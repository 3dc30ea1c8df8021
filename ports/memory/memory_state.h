// The state behind files in memory.
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

/// `mutex` guards all of it. `released` is notified whenever a lock or a file for adding is given
/// back.
struct MemoryFiles::State {
    /// The object behind a handle: a file, or a lock with the item and the size of its file when it
    /// was locked.
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
    std::set<memory::Key> givenUp;      ///< files whose lock was waited for in vain before adding
    std::intptr_t nextHandle = 1;
    std::size_t freeSpace = static_cast<std::size_t>(-1);

    /// Null when the handle is no open file.
    Opened* find(Handle handle);
    /// Null when the handle is no lock.
    Opened* findLock(Handle handle);
    /// Finds the locked file; kFileReplaced when it has changed since.
    ErrorCode findLocked(const Opened& lock, memory::Place& place);
    Handle toHandle(Opened file);
    /// Follows links to the place of a file, which need not exist; kAccessDenied for a folder.
    ErrorCode findFile(const String& name, memory::Place& place);
    /// Waits until no lock keeps others from adding to the file, see Files.
    void waitToAdd(std::unique_lock<std::mutex>& guard, const memory::Key& key);
    /// Whether a handle may add now; waits for a lock that prevents it.
    ErrorCode mayChange(std::unique_lock<std::mutex>& guard, const Opened& file);
    /// Finds an entry for a test; throws when it does not exist.
    memory::Place mustFind(const String& name, memory::Tree::Links links = {});
};

}  // namespace quorkit
