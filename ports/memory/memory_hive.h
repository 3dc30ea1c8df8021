// A tree of keys in memory.
#pragma once

#include <quorkit/ports/hives.h>

#include <map>
#include <mutex>

namespace quorkit::memory {

class MemoryHive final : public Hive {
   public:
    /// A read-only hive cannot be changed.
    void setReadOnly(bool readOnly);

    ErrorCode open(const Path& path, RegistryAccess access) override;
    ErrorCode create(const Path& path) override;
    ErrorCode value(const Path& path, const String& name, RegistryValue& value) override;
    ErrorCode values(const Path& path, std::vector<NamedValue>& values) override;
    ErrorCode setValues(const Path& path, std::span<const NamedValue> values) override;
    ErrorCode deleteValue(const Path& path, const String& name) override;
    ErrorCode subKeys(const Path& path, std::vector<String>& names) override;
    ErrorCode deleteKey(const Path& path) override;
    std::vector<RegistryDamage> check() override { return {}; }

   private:
    struct Key {
        String name;
        std::map<String, Key> keys;           // by folded name
        std::map<String, NamedValue> values;  // by folded name
    };
    Key* find(const Path& path);
    /// Finds a key that is to be changed.
    ErrorCode find(const Path& path, Key*& key);

    std::mutex mutex_;  // guards everything here
    bool readOnly_ = false;
    Key root_;
};

}  // namespace quorkit::memory
