// The files and folders of a world in memory, by name. Its user sees to it that one thread at a
// time is here.
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

/// Counts up in the order of creation. 0 is what all drives and shares stand in.
using Id = std::uint64_t;
/// Where a name stands: the folder around it, and the name without letter case.
using Key = std::pair<Id, String>;

/// The last write of what nobody has set another for: 1 January 1970.
constexpr FileTime kStart = 116'444'736'000'000'000;

/// What an open handle keeps when the name is gone. Of a folder and a link the content is unused.
struct Item {
    std::string content;
    std::uint32_t attributes = 0;  ///< those that can be set
    FileTime lastWrite = kStart;
};

struct Entry {
    enum Kind { File, Folder, Link };
    Kind kind = File;
    String name;    ///< as it was spelled first
    String target;  ///< of a link
    std::shared_ptr<Item> item = std::make_shared<Item>();
    Id id = 0;

    bool readOnly() const { return (item->attributes & kReadOnly) != 0; }
};

/// The root, such as "C:" or "\\server\share", and what leads on from it.
using Path = std::vector<String>;

/// Where a name leads to.
struct Place {
    Key key;
    Entry* around = nullptr;  ///< the folder that it stands in; null for the root of a drive
    Entry* entry = nullptr;   ///< what stands there; null for nothing
    String name;              ///< in full, as spelled, every link followed
    bool folder = false;      ///< whether the name ended in a separator
};

/// Flat, so that nothing here recurses as deep as folders are.
class Tree {
   public:
    Tree();

    struct Links {
        bool followLast = true;
        bool makeFolders = false;  ///< makes what is missing around the name
    };
    /// kSuccess also when nothing but the last component is missing. kPathNotFound when a folder
    /// around it is, kInvalidName for what is no name or a link that leads back to itself.
    ErrorCode find(const String& name, Place& place) { return find(name, place, Links()); }
    ErrorCode find(const String& name, Place& place, Links links);

    /// Puts an entry at a place where none is. The place has it then.
    Entry& add(Place& place, Entry::Kind kind);
    /// Null when nothing stands there.
    Entry* at(const Key& key);
    void remove(const Key& key) { entries_.erase(key); }
    /// What stands in a folder, in the order of creation.
    std::vector<const Entry*> entriesOf(Id folder) const;

   private:
    /// Goes along `path`, and spells it as it stands here, up to its end or to a link that is to be
    /// followed.
    ErrorCode walk(Path& path, Links links, Place& place, std::size_t& reached);
    Entry& add(const Key& key, const String& name, Entry::Kind kind);

    std::map<Key, Entry> entries_;
    Id last_ = 0;
};

}  // namespace quorkit::memory
