// A hive stored as a tree of folders; see key_folder.h. docs/registry.md describes it for people.
#pragma once

#include <quorkit/ports/hives.h>

#include <functional>
#include <string>

#include "linux/key_folder.h"

namespace quorkit::native {

inline constexpr Rights kForUser = {0700, 0600};
inline constexpr Rights kForEverybody = {0755, 0644};

class FolderHive final : public Hive {
   public:
    /// `root` returns the full path of the hive's folder, or "" for none; then the hive is empty.
    /// It is called at each use, and the folder is made when it is needed.
    FolderHive(std::function<std::string()> root, Rights rights)
        : root_(std::move(root)), rights_(rights) {}

    ErrorCode open(const Path& path, RegistryAccess access) override;
    ErrorCode create(const Path& path) override;
    ErrorCode value(const Path& path, const String& name, RegistryValue& value) override;
    ErrorCode values(const Path& path, std::vector<NamedValue>& values) override;
    ErrorCode setValues(const Path& path, std::span<const NamedValue> values) override;
    ErrorCode deleteValue(const Path& path, const String& name) override;
    ErrorCode subKeys(const Path& path, std::vector<String>& names) override;
    ErrorCode deleteKey(const Path& path) override;
    std::vector<RegistryDamage> check() override;

   private:
    /// The folder of the key that the first `depth` names lead to. A folder that cannot exist when
    /// there is no root or the path becomes too long.
    std::string folderOf(const Path& path, std::size_t depth = kDeepestKey) const;

    std::function<std::string()> root_;
    Rights rights_;
};

}  // namespace quorkit::native
