#include "registry/open_key.h"
#include "registry/reg_file.h"

namespace quorkit {
namespace {

/// Deletes something from every place that shows it: the classes root has two.
template <class Delete>
ErrorCode deleteEverywhere(RegistryRoot root, Delete deleteOne) {
    ErrorCode code = deleteOne();
    if (code == kSuccess && root == RegistryRoot::ClassesRoot) code = deleteOne();
    return code == kFileNotFound ? kSuccess : code;
}

ErrorCode deleteKey(Registry& registry, const RegPath& key) {
    const std::size_t mark = key.path.rfind(u'\\');
    const bool atRoot = mark == String::npos;
    const OpenKey parent(registry, {key.root, atRoot ? String() : key.path.substr(0, mark)},
                         RegistryAccess::Write);
    if (parent.status() != kSuccess) return parent.status();
    const String name = key.path.substr(atRoot ? 0 : mark + 1);
    return deleteEverywhere(key.root,
                            [&] { return registry.RegDeleteKeyA(parent.handle(), name); });
}

ErrorCode namesBeneath(Registry& registry, const RegPath& key, std::vector<String>& names) {
    const OpenKey open(registry, key, RegistryAccess::Read);
    return open.status() == kSuccess ? registry.RegEnumKeyExA(open.handle(), names) : open.status();
}

RegResult deleteTree(Registry& registry, const RegPath& key) {
    std::vector<String> names;
    ErrorCode code = namesBeneath(registry, key, names);
    if (code == kFileNotFound) return {};
    if (code != kSuccess) return {code, key};
    for (const String& name : names) {
        RegResult result = deleteTree(registry, {key.root, key.path + u'\\' + name});
        if (result.code != kSuccess) return result;
    }
    code = deleteKey(registry, key);
    return {code == kFileNotFound ? kSuccess : code, key};
}

/// Makes the key and changes its values, with one call for all that are set in a row.
ErrorCode changeKey(Registry& registry, RegChange& change) {
    OpenKey open(registry);
    ErrorCode code = open.create(change.key);
    std::vector<NamedValue> run;
    const auto setRun = [&] {
        if (code == kSuccess && !run.empty()) code = registry.RegSetValueExA(open.handle(), run);
        run.clear();
    };
    for (ValueLine& line : change.values) {
        if (!line.deletes) {
            run.push_back({std::move(line.name), std::move(*line.value)});
            continue;
        }
        setRun();
        if (code != kSuccess) return code;
        code = deleteEverywhere(change.key.root,
                                [&] { return registry.RegDeleteValueA(open.handle(), line.name); });
    }
    setRun();
    return code;
}

}  // namespace

RegResult applyRegChanges(Registry& registry, std::vector<RegChange> changes) {
    for (RegChange& change : changes) {
        RegResult result = change.deletes ? deleteTree(registry, change.key)
                                          : RegResult{changeKey(registry, change), change.key};
        if (result.code != kSuccess) return result;
    }
    return {};
}

}  // namespace quorkit
