#include <quorkit/ports/faults.h>

namespace quorkit {

ErrorCode FaultyRegistry::RegOpenKeyExA(RegistryRoot root, const String& path,
                                        RegistryAccess access, Handle& key) {
    return due("RegOpenKeyExA") ? code() : inner_.RegOpenKeyExA(root, path, access, key);
}
ErrorCode FaultyRegistry::RegCreateKeyA(RegistryRoot root, const String& path, Handle& key) {
    return due("RegCreateKeyA") ? code() : inner_.RegCreateKeyA(root, path, key);
}
void FaultyRegistry::RegCloseKey(Handle key) {
    inner_.RegCloseKey(key);
}
ErrorCode FaultyRegistry::RegQueryValueExA(Handle key, const String& name, RegistryValue& value) {
    return due("RegQueryValueExA") ? code() : inner_.RegQueryValueExA(key, name, value);
}
ErrorCode FaultyRegistry::RegSetValueExA(Handle key, std::span<const NamedValue> values) {
    return due("RegSetValueExA") ? code() : inner_.RegSetValueExA(key, values);
}
ErrorCode FaultyRegistry::RegDeleteValueA(Handle key, const String& name) {
    return due("RegDeleteValueA") ? code() : inner_.RegDeleteValueA(key, name);
}
ErrorCode FaultyRegistry::RegEnumValueA(Handle key, std::vector<NamedValue>& values) {
    return due("RegEnumValueA") ? code() : inner_.RegEnumValueA(key, values);
}
ErrorCode FaultyRegistry::RegEnumKeyExA(Handle key, std::vector<String>& names) {
    return due("RegEnumKeyExA") ? code() : inner_.RegEnumKeyExA(key, names);
}
ErrorCode FaultyRegistry::RegDeleteKeyA(Handle parent, const String& name) {
    return due("RegDeleteKeyA") ? code() : inner_.RegDeleteKeyA(parent, name);
}
std::vector<RegistryDamage> FaultyRegistry::check() {
    return due("check") ? std::vector<RegistryDamage>() : inner_.check();
}

}  // namespace quorkit
