// The folder of one key: its file of values, and the folders of the keys beneath.
//
// Every change in a store needs its one lock, so that only one process changes it at a time. The
// lock is on the file "@lock", which only its owner can open. The kernel takes it back when its
// process dies, and the wait for it is as limited as for any other lock. Readers need no lock: a
// key appears and disappears in one step, under the names "@new" and "@old", and the content of
// "@values" is replaced in one step too, from "@values.new". The next process that changes the
// store removes what a dying one has left under these names.
//
// A path may lead through links. But a link is not listed among the keys beneath a key, so that no
// walk goes in circles or leaves the store.
#pragma once

#include <quorkit/ports/files.h>
#include <sys/types.h>

#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "linux/descriptor.h"
#include "linux/key_file.h"

namespace quorkit::native {

inline constexpr const char* kValues = "@values";
inline constexpr const char* kNewValues = "@values.new";
inline constexpr const char* kLock = "@lock";
inline constexpr const char* kNewFolder = "@new";
inline constexpr const char* kOldFolder = "@old";

/// The rights of new files. What the superuser makes belongs to the owner of the folder around it.
struct Rights {
    mode_t folder;
    mode_t file;
};

/// The lock of a store, in its root.
class StoreLock {
   public:
    /// Waits for the lock; `status` gives the outcome.
    explicit StoreLock(const std::string& root);
    ~StoreLock();
    StoreLock(const StoreLock&) = delete;
    StoreLock& operator=(const StoreLock&) = delete;

    ErrorCode status() const { return status_; }

   private:
    Descriptor file_;
    ErrorCode status_ = kSuccess;
};

inline std::string beneath(const std::string& folder, std::string_view name) {
    return std::string(folder).append("/").append(name);
}
/// The code for `errno` after looking for a key.
ErrorCode keyError();
/// The content of an open file of values, see readKeyFile.
ErrorCode readValues(int file, std::string& text);
inline constexpr std::size_t kLargestKeyFile = 256 << 20;

// --- Looking ---

/// kFileNotFound when there is no such folder, kAccessDenied when this user may not use it. Without
/// any write permission it cannot be changed even by the superuser.
ErrorCode openKeyFolder(const std::string& folder, bool forWriting);
/// The text of a file of values; kFileNotFound when there is none, kGeneralFailure when it is too
/// large.
ErrorCode readKeyFile(const std::string& folder, std::string& text);

/// One entry of a key's folder.
struct KeyEntry {
    std::string name;
    bool folder = false;
    bool link = false;

    /// It is one of the store's own work files.
    bool forWork() const;
};
/// Lists a folder. If that is a link, it gives kAccessDenied, except for the root of a store.
ErrorCode listKeyFolder(const std::string& folder, bool isRoot, std::vector<KeyEntry>& entries);

/// The name, in its spelling, of the key whose folder is `entry` in `parent`. It is the name in the
/// key's file if that belongs to this folder. Nothing for a folder that is not a key's.
std::optional<String> keyNameOf(const std::string& parent, const KeyEntry& entry);
/// Whether the existing folder for `name` in `parent` belongs to another key; this happens with
/// names that are too long for a folder.
bool isOfAnotherKey(const std::string& parent, const String& name);

// --- Changing, under the lock ---

/// Reads, changes and replaces the file of a key. If `edit` returns anything but kSuccess, that is
/// the result; then, and on any failure, the file is as before.
ErrorCode changeKeyFile(const std::string& folder, Rights rights,
                        const std::function<ErrorCode(KeyFile&)>& edit);
/// Makes the key `name` in a folder. An existing key stays as it is.
ErrorCode makeKeyFolder(const std::string& parent, const String& name, Rights rights);
/// Deletes a key. kAccessDenied, with nothing deleted, when it is a link or read-only, or when its
/// folder holds keys or files that are not the store's.
ErrorCode removeKeyFolder(const std::string& parent, const String& name);

/// Makes the root of a store and the missing folders above it; does not need the lock.
ErrorCode makeRoot(const std::string& folder, Rights rights);

}  // namespace quorkit::native
