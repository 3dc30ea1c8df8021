// The folder of one key: its file of values, and the keys beneath.
//
// Whoever changes something in a store holds its one lock, so that nothing else changes meanwhile.
// It lies on the file "@lock", which only its owner can open; the kernel takes it back when its
// process dies, and nobody waits for it longer than for any other lock. Readers need none: a key
// comes and goes in one step, under the names
// "@new" and "@old", and so does the content of "@values", which is written as "@values.new" first.
// What a dying process leaves under those names the next one puts away.
//
// Links are followed by those who name them, but they are not among the keys beneath a key, so that
// no walk goes in circles or out of the store.
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

/// The rights of what is made. What the superuser makes belongs to the owner of the folder around.
struct Rights {
    mode_t folder;
    mode_t file;
};

/// The lock of a store, in its root.
class StoreLock {
   public:
    /// Waits for it; see `status` for how that went.
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
/// The code for `errno` where a key is looked for.
ErrorCode keyError();
/// The content of an open file of values, see readKeyFile.
ErrorCode readValues(int file, std::string& text);
inline constexpr std::size_t kLargestKeyFile = 256 << 20;

// --- Looking ---

/// kFileNotFound when there is no such folder, kAccessDenied when it is not for this user; without
/// any write permission it cannot be changed even by the superuser.
ErrorCode openKeyFolder(const std::string& folder, bool forWriting);
/// The text of a file of values; kFileNotFound when there is none, kGeneralFailure when it is too
/// large to be one.
ErrorCode readKeyFile(const std::string& folder, std::string& text);

/// One entry of a key's folder.
struct KeyEntry {
    std::string name;
    bool folder = false;
    bool link = false;

    /// The store's own, for work.
    bool forWork() const;
};
/// Only the root of a store may be a link to a folder; another one is kAccessDenied.
ErrorCode listKeyFolder(const std::string& folder, bool isRoot, std::vector<KeyEntry>& entries);

/// The name of the key whose folder is `entry` in `parent`, as it is spelled: the one in its file
/// if it belongs to that folder. Nothing for a folder that is none of a key.
std::optional<String> keyNameOf(const std::string& parent, const KeyEntry& entry);
/// Whether the folder of `name` in `parent`, which is there, is that of another key: of two names
/// that are too long for a folder.
bool isOfAnotherKey(const std::string& parent, const String& name);

// --- Changing, under the lock ---

/// Reads, changes and replaces the file of a key. What `edit` answers but kSuccess ends it; then,
/// and on any failure, the file is as before.
ErrorCode changeKeyFile(const std::string& folder, Rights rights,
                        const std::function<ErrorCode(KeyFile&)>& edit);
/// Makes the key `name` in a folder. A key that is there stays as it is.
ErrorCode makeKeyFolder(const std::string& parent, const String& name, Rights rights);
/// Deletes a key. kAccessDenied, and nothing done, when it is a link or read-only, and when there
/// are keys beneath or anything else that is not the store's.
ErrorCode removeKeyFolder(const std::string& parent, const String& name);

/// The root of a store and the folders around it, as far as they are missing; without the lock.
ErrorCode makeRoot(const std::string& folder, Rights rights);

}  // namespace quorkit::native
