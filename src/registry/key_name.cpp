#include "registry/key_name.h"

#include <algorithm>

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

/// The name in front of the first "\", which is taken off with it.
StringView takeName(StringView& path) {
    const StringView name = path.substr(0, path.find(u'\\'));
    path.remove_prefix(std::min(path.size(), name.size() + 1));
    return name;
}

}  // namespace

String printKeyName(const RegPath& key) {
    String name(longName(key.root));
    if (!key.path.empty()) name += u'\\' + key.path;
    return name;
}

std::optional<RegPath> readKeyName(StringView name) {
    RegPath key = splitRegPath(String(takeName(name)) + u'\\');
    if (key.root == RegistryRoot::None || !key.path.empty() || name.starts_with(u'\\')) return {};
    for (std::size_t depth = 0; !name.empty();) {
        const StringView one = takeName(name);
        if (one.empty()) continue;
        if (one.size() > kLongestKeyName || one.find(u'\0') != String::npos) return {};
        if (++depth > kDeepestKey) return {};
        if (!key.path.empty()) key.path += u'\\';
        key.path += one;
    }
    return key;
}

}  // namespace quorkit
