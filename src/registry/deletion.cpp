#include <quorkit/GQuorRegistry.h>

#include "registry/open_key.h"

namespace quorkit {
namespace {

/// Deletes the key at `place`, which is `name` beneath `parent`, with the keys beneath it, the
/// deepest first. `levels` is how many levels it may have beneath it. `place` is the same
/// afterwards.
void deleteTree(Registry& registry, const OpenKey& parent, RegPath& place, const String& name,
                int levels) {
    std::vector<String> names;
    OpenKey(registry, place, RegistryAccess::Read).subKeys(names);
    if (levels == 0) names.clear();
    if (!names.empty()) {
        const OpenKey key(registry, place, RegistryAccess::Write);
        if (key.status() != kSuccess) names.clear();
        const std::size_t length = place.path.size();
        for (const String& beneath : names) {
            // Such a name would lead to the key itself or to another one.
            if (beneath.empty() || beneath.find(u'\\') != String::npos) continue;
            place.path.append(u"\\").append(beneath);
            deleteTree(registry, key, place, beneath, levels - 1);
            place.path.resize(length);
        }
    }
    parent.deleteKey(name);
}

}  // namespace

void GQuorRegistry::Reg_DeleteKey(const String& sPath, const String& sKey) {
    OpenKey(ports_.registry, splitRegPath(sPath), RegistryAccess::Write).deleteValue(sKey);
}

void GQuorRegistry::Reg_DeletePath(const String& sPath) {
    constexpr int mostLevels = 512;
    const String text = sPath.substr(0, sPath.find_last_not_of(u'\\') + 1);
    RegPath place = splitRegPath(text);
    // The root alone, with anything behind it but a separator and a name.
    if (text.find(u'\\') == String::npos || place.path.empty() || place.path.starts_with(u'\\'))
        return;
    const std::size_t last = place.path.rfind(u'\\');
    const bool isTop = last == String::npos;
    const OpenKey parent(ports_.registry,
                         {place.root, isTop ? String() : place.path.substr(0, last)},
                         RegistryAccess::Write);
    if (parent.status() != kSuccess) return;
    const String name = isTop ? place.path : place.path.substr(last + 1);
    deleteTree(ports_.registry, parent, place, name, mostLevels);
}

}  // namespace quorkit
