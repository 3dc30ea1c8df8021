#include "registry/key_name.h"

#include <algorithm>

#include "base/registry_names.h"

namespace quorkit {
namespace {

constexpr StringView longName(RegistryRoot root) {
    switch (root) {
        case RegistryRoot::ClassesRoot:
            return u"HKEY_CLASSES_ROOT";
        case RegistryRoot::CurrentUser:
            return u"HKEY_CURRENT_USER";
        case RegistryRoot::LocalMachine:
            return u"HKEY_LOCAL_MACHINE";
        case RegistryRoot::None:
            break;
    }
    return {};
}

}  // namespace

String printKeyName(const RegPath& key) {
    String name(longName(key.root));
    if (!key.path.empty()) name += u'\\' + key.path;
    return name;
}

std::optional<RegPath> readKeyName(StringView name) {
    const std::size_t end = std::min(name.find(u'\\'), name.size());
    RegPath key = splitRegPath(String(name.substr(0, end)) + u'\\');
    if (key.root == RegistryRoot::None || !key.path.empty()) return {};
    std::vector<String> names;
    name.remove_prefix(std::min(name.size(), end + 1));
    if (base::splitKeyPath(name, names) != kSuccess) return {};
    for (const String& one : names) key.path.append(key.path.empty() ? u"" : u"\\").append(one);
    return key;
}

}  // namespace quorkit
