#include "registry/delete_tree.h"

#include "base/registry_names.h"
#include "registry/open_key.h"

namespace quorkit::registry {
namespace {

class Deletion {
   public:
    explicit Deletion(Registry& registry) : registry_(registry) {}

    RegResult first;  ///< the first failure

    /// Deletes the key at `place`, which is `name` beneath `parent`, with at most `levels` levels
    /// of keys beneath it. `place` is the same afterwards.
    void run(const OpenKey& parent, RegPath& place, const String& name, std::size_t levels) {
        if (levels > 0) deleteKeysBeneath(place, levels - 1);
        note(parent.deleteKey(name), place);
    }

    void note(ErrorCode code, const RegPath& place) {
        if (code != kSuccess && first.code == kSuccess) first = {code, place};
    }

   private:
    void deleteKeysBeneath(RegPath& place, std::size_t levels) {
        std::vector<String> names;
        OpenKey(registry_, place, RegistryAccess::Read).subKeys(names);
        if (names.empty()) return;
        const OpenKey key(registry_, place, RegistryAccess::Write);
        if (key.status() != kSuccess) return;
        const std::size_t length = place.path.size();
        for (const String& name : names) {
            if (!base::canNameKey(name)) continue;  // it would lead to another key
            place.path.append(u"\\").append(name);
            Deletion beneath(registry_);
            beneath.run(key, place, name, levels);
            if (beneath.first.code != kFileNotFound) note(beneath.first.code, beneath.first.key);
            place.path.resize(length);
        }
    }

    Registry& registry_;
};

}  // namespace

RegResult deleteTree(Registry& registry, const RegPath& key) {
    if (key.path.empty()) return {kInvalidParameter, key};
    const std::size_t last = key.path.rfind(u'\\');
    const bool isTop = last == String::npos;
    const OpenKey parent(registry, {key.root, isTop ? String() : key.path.substr(0, last)},
                         RegistryAccess::Write);
    if (parent.status() != kSuccess) return {parent.status(), key};
    Deletion deletion(registry);
    RegPath place = key;
    deletion.run(parent, place, isTop ? key.path : key.path.substr(last + 1), kDeepestKey);
    return deletion.first;
}

}  // namespace quorkit::registry
