#include <quorkit/ports/memory.h>

#include "base/letter_case.h"
#include "memory/memory_hive.h"

namespace quorkit::memory {

void MemoryHive::setReadOnly(bool readOnly) {
    const std::lock_guard guard(mutex_);
    readOnly_ = readOnly;
}

MemoryHive::Key* MemoryHive::find(const Path& path) {
    Key* key = &root_;
    for (const String& name : path) {
        const auto found = key->keys.find(base::folded(name));
        if (found == key->keys.end()) return nullptr;
        key = &found->second;
    }
    return key;
}

ErrorCode MemoryHive::find(const Path& path, Key*& key) {
    key = find(path);
    if (key == nullptr) return kFileNotFound;
    return readOnly_ ? kAccessDenied : kSuccess;
}

ErrorCode MemoryHive::open(const Path& path, RegistryAccess access) {
    const std::lock_guard guard(mutex_);
    if (find(path) == nullptr) return kFileNotFound;
    return readOnly_ && access == RegistryAccess::Write ? kAccessDenied : kSuccess;
}

ErrorCode MemoryHive::create(const Path& path) {
    const std::lock_guard guard(mutex_);
    if (readOnly_) return kAccessDenied;
    Key* key = &root_;
    for (const String& name : path)
        key = &key->keys.try_emplace(base::folded(name), Key{name, {}, {}}).first->second;
    return kSuccess;
}

ErrorCode MemoryHive::value(const Path& path, const String& name, RegistryValue& value) {
    const std::lock_guard guard(mutex_);
    const Key* key = find(path);
    if (key == nullptr) return kFileNotFound;
    const auto found = key->values.find(base::folded(name));
    if (found == key->values.end()) return kFileNotFound;
    value = found->second.value;
    return kSuccess;
}

ErrorCode MemoryHive::values(const Path& path, std::vector<NamedValue>& values) {
    const std::lock_guard guard(mutex_);
    const Key* key = find(path);
    if (key == nullptr) return kFileNotFound;
    for (const auto& [folded, one] : key->values) values.push_back(one);
    return kSuccess;
}

ErrorCode MemoryHive::setValues(const Path& path, std::span<const NamedValue> values) {
    const std::lock_guard guard(mutex_);
    Key* key = nullptr;
    const ErrorCode code = find(path, key);
    if (code != kSuccess) return code;
    for (const NamedValue& one : values)
        key->values.try_emplace(base::folded(one.name), one).first->second.value = one.value;
    return kSuccess;
}

ErrorCode MemoryHive::deleteValue(const Path& path, const String& name) {
    const std::lock_guard guard(mutex_);
    Key* key = nullptr;
    const ErrorCode code = find(path, key);
    if (code != kSuccess) return code;
    return key->values.erase(base::folded(name)) == 1 ? kSuccess : kFileNotFound;
}

ErrorCode MemoryHive::subKeys(const Path& path, std::vector<String>& names) {
    const std::lock_guard guard(mutex_);
    const Key* key = find(path);
    if (key == nullptr) return kFileNotFound;
    for (const auto& [folded, one] : key->keys) names.push_back(one.name);
    return kSuccess;
}

ErrorCode MemoryHive::deleteKey(const Path& path) {
    const std::lock_guard guard(mutex_);
    Key* key = nullptr;
    const ErrorCode code = find(path, key);
    if (code != kSuccess) return code;
    if (!key->keys.empty()) return kAccessDenied;
    find({path.begin(), path.end() - 1})->keys.erase(base::folded(path.back()));
    return kSuccess;
}

}  // namespace quorkit::memory

namespace quorkit {

struct MemoryRegistry::Hives {
    memory::MemoryHive user;
    memory::MemoryHive machine;
};

MemoryRegistry::MemoryRegistry() : MemoryRegistry(std::make_unique<Hives>()) {}
MemoryRegistry::MemoryRegistry(std::unique_ptr<Hives> hives)
    : HiveRegistry(hives->user, hives->machine), hives_(std::move(hives)) {}
MemoryRegistry::~MemoryRegistry() = default;

void MemoryRegistry::setMachineReadOnly(bool readOnly) {
    hives_->machine.setReadOnly(readOnly);
}

}  // namespace quorkit
