// A key that is open.
#pragma once

#include "registry/reg_path.h"

namespace quorkit {

/// Closes the key that it has opened on every way out.
class OpenKey {
   public:
    explicit OpenKey(Registry& registry) : registry_(registry) {}
    OpenKey(Registry& registry, const RegPath& key, RegistryAccess access) : registry_(registry) {
        status_ = registry_.RegOpenKeyExA(key.root, key.path, access, handle_);
    }
    ~OpenKey() {
        if (status_ == kSuccess) registry_.RegCloseKey(handle_);
    }
    OpenKey(const OpenKey&) = delete;
    OpenKey& operator=(const OpenKey&) = delete;

    /// Makes the key where it is missing; once, and only on an object that has opened none.
    ErrorCode create(const RegPath& key) {
        return status_ = registry_.RegCreateKeyA(key.root, key.path, handle_);
    }

    /// How opening it went.
    ErrorCode status() const { return status_; }
    Handle handle() const { return handle_; }

   private:
    Registry& registry_;
    Handle handle_ = Handle::Invalid;
    ErrorCode status_ = kInvalidHandle;
};

}  // namespace quorkit
