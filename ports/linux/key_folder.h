// The folder of one key: its file of values, and the keys beneath.
//
// A key comes and goes in one step, under a name of its own for work ("@new-...", "@old-..."), and
// so does the content of "@values", which is written as "@values.new" first. Who changes it holds a
// lock on it that the kernel takes back when the process dies; only who may write the file can take
// it. Links are followed by those who name them, but they are not among the keys beneath a key, so
// that no walk goes in circles.
#pragma once

#include <dirent.h>
#include <quorkit/ports/files.h>
#include <sys/types.h>

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "linux/descriptor.h"
#include "linux/key_file.h"

namespace quorkit::disk {

inline constexpr const char* kValues = "@values";
inline constexpr const char* kNewValues = "@values.new";

/// The rights of what is made.
struct Rights {
    mode_t folder;
    mode_t file;
};

/// kFileNotFound when there is no such folder, kAccessDenied when it is not for this user; without
/// any write permission it cannot be changed even by the superuser.
ErrorCode openKeyFolder(const std::string& folder, bool forWriting);
/// The text of a file of values; kFileNotFound when there is none, kGeneralFailure when it is too
/// large to be one.
ErrorCode readKeyFile(const std::string& folder, std::string& text);
/// Reads, changes and replaces the file of a key under its lock. What `edit` answers but kSuccess
/// ends it; then, and on any failure, the file is as before.
ErrorCode changeKeyFile(const std::string& folder, Rights rights,
                        const std::function<ErrorCode(KeyFile&)>& edit);

/// The folders around a folder and the folder itself, as far as they are missing.
ErrorCode makeFolders(const std::string& folder, mode_t rights);
/// Makes the key `name` in a folder. A key that is there stays as it is.
ErrorCode makeKeyFolder(const std::string& parent, const String& name, Rights rights);
/// Deletes a key. kAccessDenied, and nothing done, when there are keys beneath or anything else
/// that is not the store's.
ErrorCode removeKeyFolder(const std::string& parent, const String& name);

/// One entry of a key's folder.
struct KeyEntry {
    std::string name;
    bool folder = false;
    bool link = false;

    /// The store's own, for work.
    bool forWork() const { return name.starts_with("@new-") || name.starts_with("@old-"); }
};
ErrorCode listKeyFolder(const std::string& folder, std::vector<KeyEntry>& entries);

/// The name of the key whose folder is `entry` in `parent`, as it is spelled: the one in its file
/// if it belongs to that folder. Nothing for a folder that is none of a key.
std::optional<String> keyNameOf(const std::string& parent, const KeyEntry& entry);

}  // namespace quorkit::disk
