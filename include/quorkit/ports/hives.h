// A registry made of two trees of keys (hives), the user's and the machine's, wherever they are
// stored.
#pragma once

#include <quorkit/ports/registry.h>

#include <vector>

namespace quorkit {

/// One tree of keys. A path is the list of names from the root on; each is a valid name of a key.
/// The root always exists. Apart from that the promises are those of Registry.
class Hive {
   public:
    using Path = std::vector<String>;

    virtual ~Hive() = default;

    /// Whether the key can be opened.
    virtual ErrorCode open(const Path& path, RegistryAccess access) = 0;
    virtual ErrorCode create(const Path& path) = 0;
    virtual ErrorCode value(const Path& path, const String& name, RegistryValue& value) = 0;
    /// Appends the values of the key.
    virtual ErrorCode values(const Path& path, std::vector<NamedValue>& values) = 0;
    virtual ErrorCode setValues(const Path& path, std::span<const NamedValue> values) = 0;
    virtual ErrorCode deleteValue(const Path& path, const String& name) = 0;
    /// Appends the names of the keys beneath.
    virtual ErrorCode subKeys(const Path& path, std::vector<String>& names) = 0;
    /// For any key but the root.
    virtual ErrorCode deleteKey(const Path& path) = 0;
    virtual std::vector<RegistryDamage> check() = 0;
};

/// The rules of names and roots over two hives, which must outlive this.
class HiveRegistry : public Registry {
   public:
    HiveRegistry(Hive& user, Hive& machine) : user_(user), machine_(machine) {}

    ErrorCode RegOpenKeyExA(RegistryRoot root, const String& path, RegistryAccess access,
                            Handle& key) override;
    ErrorCode RegCreateKeyA(RegistryRoot root, const String& path, Handle& key) override;
    void RegCloseKey(Handle key) override;
    ErrorCode RegQueryValueExA(Handle key, const String& name, RegistryValue& value) override;
    ErrorCode SetValues(Handle key, std::span<const NamedValue> values) override;
    ErrorCode RegDeleteValueA(Handle key, const String& name) override;
    ErrorCode ListValues(Handle key, std::vector<NamedValue>& values) override;
    ErrorCode ListKeys(Handle key, std::vector<String>& names) override;
    ErrorCode RegDeleteKeyA(Handle parent, const String& name) override;
    std::vector<RegistryDamage> FindDamage() override;

   private:
    /// A key in one of the hives.
    struct Place {
        Hive* hive;
        Hive::Path path;
    };
    /// An open key: the places that it shows. Earlier places cover later ones.
    struct OpenKey;

    ErrorCode placesOf(RegistryRoot root, const String& path, std::vector<Place>& places);

    Hive& user_;
    Hive& machine_;
};

}  // namespace quorkit
