#include <quorkit/GQuorRegistry.h>

#include "registry/open_key.h"
#include "registry/value_conversion.h"

namespace quorkit {
namespace {

constexpr std::size_t kListRoom = 2000;

/// Passes the name and the text of every value within the size limits to `take`.
template <class Take>
void eachValue(Registry& registry, const String& path, Take take) {
    std::vector<NamedValue> values;
    if (registry::OpenKey(registry, registry::splitRegPath(path), RegistryAccess::Read)
            .values(values) != kSuccess)
        return;
    for (const auto& [name, value] : values)
        if (name.size() < kListRoom && registry::roomOf(value) <= kListRoom)
            take(name, registry::convertRegValue(value));
}

}  // namespace

CollectionRef GQuorRegistry::Reg_EnumKeyValues(const String& sPath) {
    auto texts = Collection::make();
    eachValue(ports_.registry, sPath, [&](const String& name, const String& text) {
        // Two names that the system tells apart may be the same key of a collection.
        texts->add(text, texts->contains(name) ? String() : name);
    });
    return texts;
}

DictionaryRef GQuorRegistry::Reg_EnumKeyValuesEx(const String& sPath) {
    auto texts = Dictionary::make();
    eachValue(ports_.registry, sPath,
              [&](const String& name, const String& text) { texts->set(name, text); });
    return texts;
}

Long GQuorRegistry::Reg_EnumSubPaths(const String& sPath, Out<Array<String>> saSubPaths) {
    std::vector<String> names;
    registry::OpenKey(ports_.registry, registry::splitRegPath(sPath), RegistryAccess::Read)
        .subKeys(names);
    if (names.empty()) return 0;
    const auto count = static_cast<Long>(names.size());
    saSubPaths = Array<String>(std::move(names), 1);
    return count;
}

}  // namespace quorkit
