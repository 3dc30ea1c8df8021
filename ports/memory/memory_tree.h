// The files and folders in memory, by name. The caller makes sure that only one thread at a time
// uses them.
#pragma once

#include <quorkit/ports/folders.h>

#include <cstddef>
#include <cstdint>
#include <map>
#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace quorkit::memory {

/// Grows with each entry made. 0 is the parent of all drives and shares.
using Id = std::uint64_t;
/// The place of an entry: the folder that contains it, and its name, folded.
using Key = std::pair<Id, String>;

/// The time of the last write unless another is set: 1 January 1970.
constexpr FileTime kStart = 116'444'736'000'000'000;

/// The part of an entry that an open handle keeps when the name is gone. Folders and links have no
/// content.
struct Item {
    std::string content;
    std::uint32_t attributes = 0;  ///< only those that can be set
    FileTime lastWrite = kStart;
};

struct Entry {
    enum Kind { File, Folder, Link };
    Kind kind = File;
    String name;    ///< in the first spelling
    String target;  ///< of a link
    std::shared_ptr<Item> item = std::make_shared<Item>();
    Id id = 0;

    bool readOnly() const { return (item->attributes & kReadOnly) != 0; }
};

/// The root, such as "C:" or "\\server\share", followed by the components.
using Path = std::vector<String>;

/// The place that a name leads to.
struct Place {
    Key key;
    Entry* around = nullptr;  ///< the folder that contains it; null for the root of a drive
    Entry* entry = nullptr;   ///< the entry; null when there is none
    String name;              ///< full name in its spelling, without links
    bool folder = false;      ///< the name ended in a separator
};

/// A flat table, so that no function recurses as deep as the folders.
class Tree {
   public:
    Tree();

    struct Links {
        bool followLast = true;
        bool makeFolders = false;  ///< makes the missing folders above the name
    };
    /// kSuccess also when only the last component is missing. kPathNotFound when a folder above it
    /// is missing, kInvalidName for an invalid name and for links in a circle.
    ErrorCode find(const String& name, Place& place) { return find(name, place, Links()); }
    ErrorCode find(const String& name, Place& place, Links links);

    /// Makes an entry at a free place, and stores it in the place.
    Entry& add(Place& place, Entry::Kind kind);
    /// Null when there is none.
    Entry* at(const Key& key);
    void remove(const Key& key) { entries_.erase(key); }
    /// The entries of a folder, in the order of creation.
    std::vector<const Entry*> entriesOf(Id folder) const;

   private:
    /// Follows `path` to its end, or to a link that is to be followed, and replaces the names by
    /// their spelling here.
    ErrorCode walk(Path& path, Links links, Place& place, std::size_t& reached);
    Entry& add(const Key& key, const String& name, Entry::Kind kind);

    std::map<Key, Entry> entries_;
    Id last_ = 0;
};

}  // namespace quorkit::memory
