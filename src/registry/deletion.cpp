#include <quorkit/GQuorRegistry.h>

#include "registry/delete_tree.h"
#include "registry/open_key.h"

namespace quorkit {
void GQuorRegistry::Reg_DeleteKey(const String& sPath, const String& sKey) {
    registry::OpenKey(ports_.registry, registry::splitRegPath(sPath), RegistryAccess::Write)
        .deleteValue(sKey);
}

void GQuorRegistry::Reg_DeletePath(const String& sPath) {
    const String text = sPath.substr(0, sPath.find_last_not_of(u'\\') + 1);
    const registry::RegPath key = registry::splitRegPath(text);
    // A root stays, unless a separator and a name follow it.
    if (text.find(u'\\') == String::npos || key.path.starts_with(u'\\')) return;
    registry::deleteTree(ports_.registry, key);
}

}  // namespace quorkit
