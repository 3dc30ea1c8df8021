#include <quorkit/ports/hives.h>

#include <memory>
#include <unordered_set>
#include <utility>

#include "base/letter_case.h"
#include "base/registry_names.h"

namespace quorkit {
namespace {

constexpr const char16_t* kClasses[] = {u"Software", u"Classes"};

using Names = std::unordered_set<String, base::TextHash, base::TextEqual>;

/// Combines the results of `list` for all places; an entry of an earlier place hides one of the
/// same name in a later place. At least one place must exist, unless it is a root.
template <class Places, class Entry, class List, class NameOf>
ErrorCode listAll(const Places& places, bool isRoot, std::vector<Entry>& found, List list,
                  NameOf nameOf) {
    ErrorCode result = isRoot ? kSuccess : kFileNotFound;
    std::vector<Entry> all;
    Names seen;
    for (const auto& place : places) {
        std::vector<Entry> here;
        const ErrorCode code = list(place, here);
        if (code == kFileNotFound) continue;
        if (code != kSuccess) return code;
        result = kSuccess;
        for (Entry& entry : here)
            if (places.size() == 1 || seen.insert(nameOf(entry)).second)
                all.push_back(std::move(entry));
    }
    if (result == kSuccess) found = std::move(all);
    return result;
}

/// The answer of `ask` for the first place that has what is asked for.
template <class Places, class Ask>
ErrorCode askFirst(Places& places, Ask ask) {
    ErrorCode code = kFileNotFound;
    for (auto& place : places) {
        code = ask(place);
        if (code != kFileNotFound) break;
    }
    return code;
}

}  // namespace

struct HiveRegistry::OpenKey {
    std::vector<Place> places;
    bool isRoot;
    bool reads;
    bool writes;

    static const OpenKey& of(Handle key) { return *reinterpret_cast<const OpenKey*>(key); }
    static Handle toHandle(OpenKey key) {
        return Handle(reinterpret_cast<std::intptr_t>(new OpenKey(std::move(key))));
    }
};

ErrorCode HiveRegistry::placesOf(RegistryRoot root, const String& path,
                                 std::vector<Place>& places) {
    Hive::Path names;
    if (root == RegistryRoot::ClassesRoot) names.assign(std::begin(kClasses), std::end(kClasses));
    const ErrorCode code = base::splitKeyPath(path, names);
    if (code != kSuccess) return code;
    if (root == RegistryRoot::None) return kInvalidHandle;
    if (root != RegistryRoot::LocalMachine) places.push_back({&user_, names});
    if (root != RegistryRoot::CurrentUser) places.push_back({&machine_, std::move(names)});
    return kSuccess;
}

ErrorCode HiveRegistry::RegOpenKeyExA(RegistryRoot root, const String& path, RegistryAccess access,
                                      Handle& key) {
    std::vector<Place> places;
    ErrorCode code = placesOf(root, path, places);
    if (code == kSuccess)
        code = askFirst(places,
                        [&](const Place& place) { return place.hive->open(place.path, access); });
    const bool reads = access == RegistryAccess::Read;
    const bool isRoot = path.empty();
    // The classes root exists even before anybody has put a class into it.
    if (code == kFileNotFound && isRoot && reads) code = kSuccess;
    if (code == kSuccess) key = OpenKey::toHandle({std::move(places), isRoot, reads, !reads});
    return code;
}

ErrorCode HiveRegistry::RegCreateKeyA(RegistryRoot root, const String& path, Handle& key) {
    std::vector<Place> places;
    ErrorCode code = placesOf(root, path, places);
    if (code != kSuccess) return code;
    code = askFirst(places, [](const Place& place) {
        return place.hive->open(place.path, RegistryAccess::Write);
    });
    if (code == kFileNotFound) code = places.back().hive->create(places.back().path);
    if (code == kSuccess) key = OpenKey::toHandle({std::move(places), path.empty(), true, true});
    return code;
}

void HiveRegistry::RegCloseKey(Handle key) {
    delete &OpenKey::of(key);
}

ErrorCode HiveRegistry::RegQueryValueExA(Handle key, const String& name, RegistryValue& value) {
    const OpenKey& open = OpenKey::of(key);
    if (!open.reads) return kAccessDenied;
    if (!base::canNameValue(name)) return kInvalidParameter;
    return askFirst(open.places,
                    [&](const Place& place) { return place.hive->value(place.path, name, value); });
}

ErrorCode HiveRegistry::SetValues(Handle key, std::span<const NamedValue> values) {
    const OpenKey& open = OpenKey::of(key);
    if (!open.writes) return kAccessDenied;
    for (const NamedValue& one : values)
        if (!base::canNameValue(one.name)) return kInvalidParameter;
    return askFirst(open.places,
                    [&](const Place& place) { return place.hive->setValues(place.path, values); });
}

ErrorCode HiveRegistry::RegDeleteValueA(Handle key, const String& name) {
    const OpenKey& open = OpenKey::of(key);
    if (!open.writes) return kAccessDenied;
    if (!base::canNameValue(name)) return kInvalidParameter;
    return askFirst(open.places,
                    [&](const Place& place) { return place.hive->deleteValue(place.path, name); });
}

ErrorCode HiveRegistry::ListValues(Handle key, std::vector<NamedValue>& values) {
    const OpenKey& open = OpenKey::of(key);
    if (!open.reads) return kAccessDenied;
    return listAll(
        open.places, open.isRoot, values,
        [](const Place& place, auto& here) { return place.hive->values(place.path, here); },
        [](const NamedValue& one) { return one.name; });
}

ErrorCode HiveRegistry::ListKeys(Handle key, std::vector<String>& names) {
    const OpenKey& open = OpenKey::of(key);
    if (!open.reads) return kAccessDenied;
    return listAll(
        open.places, open.isRoot, names,
        [](const Place& place, auto& here) { return place.hive->subKeys(place.path, here); },
        [](const String& name) { return name; });
}

ErrorCode HiveRegistry::RegDeleteKeyA(Handle parent, const String& name) {
    const OpenKey& open = OpenKey::of(parent);
    if (!open.writes) return kAccessDenied;
    if (!base::canNameKey(name)) return kInvalidParameter;
    return askFirst(open.places, [&](Place place) {
        place.path.push_back(name);
        return place.hive->deleteKey(place.path);
    });
}

std::vector<RegistryDamage> HiveRegistry::FindDamage() {
    std::vector<RegistryDamage> damage = user_.check();
    std::ranges::move(machine_.check(), std::back_inserter(damage));
    return damage;
}

}  // namespace quorkit
