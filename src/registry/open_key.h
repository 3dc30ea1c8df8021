// An open key.
#pragma once

#include <quorkit/ports/registry.h>

#include "registry/reg_path.h"

namespace quorkit::registry {

/// What happens to a key that cannot be opened.
enum class Unopened {
    Stays,
    IsMade,  ///< it is made, with all missing keys above it
};

/// Opens a key, and closes it on every way out. While the key is not open, every operation returns
/// the failure of opening it.
class OpenKey {
   public:
    OpenKey(Registry& registry, const RegPath& place, RegistryAccess access,
            Unopened unopened = Unopened::Stays)
        : registry_(registry),
          status_(registry.RegOpenKeyExA(place.root, place.path, access, key_)) {
        if (status_ != kSuccess && unopened == Unopened::IsMade)
            status_ = registry.RegCreateKeyA(place.root, place.path, key_);
    }
    ~OpenKey() {
        if (status_ == kSuccess) registry_.RegCloseKey(key_);
    }
    OpenKey(const OpenKey&) = delete;
    OpenKey& operator=(const OpenKey&) = delete;

    ErrorCode status() const { return status_; }

    ErrorCode value(const String& name, RegistryValue& value) const {
        return status_ ? status_ : registry_.RegQueryValueExA(key_, name, value);
    }
    ErrorCode setValues(std::span<const NamedValue> values) const {
        return status_ ? status_ : registry_.SetValues(key_, values);
    }
    ErrorCode deleteValue(const String& name) const {
        return status_ ? status_ : registry_.RegDeleteValueA(key_, name);
    }
    ErrorCode values(std::vector<NamedValue>& values) const {
        return status_ ? status_ : registry_.ListValues(key_, values);
    }
    ErrorCode subKeys(std::vector<String>& names) const {
        return status_ ? status_ : registry_.ListKeys(key_, names);
    }
    ErrorCode deleteKey(const String& name) const {
        return status_ ? status_ : registry_.RegDeleteKeyA(key_, name);
    }

   private:
    Registry& registry_;
    Handle key_ = Handle::Invalid;
    ErrorCode status_;
};

}  // namespace quorkit::registry
