#include "registry/delete_tree.h"
#include "registry/open_key.h"
#include "registry/reg_file.h"

namespace quorkit {
namespace {

/// In the classes root there may be two of what is deleted, the user's and the machine's.
int countOf(RegistryRoot root) {
    return root == RegistryRoot::ClassesRoot ? 2 : 1;
}

RegResult deleteKey(Registry& registry, const RegPath& key) {
    for (int i = 0; i < countOf(key.root); ++i) {
        RegResult result = deleteTree(registry, key);
        if (result.code == kFileNotFound) break;
        if (result.code != kSuccess) return result;
    }
    return {};
}

ErrorCode deleteValue(const OpenKey& key, RegistryRoot root, const String& name) {
    ErrorCode code = kSuccess;
    for (int i = 0; i < countOf(root) && code == kSuccess; ++i) code = key.deleteValue(name);
    return code == kFileNotFound ? kSuccess : code;
}

/// Makes the key and changes its values, with one call for all that are set in a row.
ErrorCode changeKey(Registry& registry, RegChange& change) {
    const OpenKey key(registry, change.key, RegistryAccess::Write, Unopened::IsMade);
    ErrorCode code = key.status();
    std::vector<NamedValue> run;
    const auto setRun = [&] {
        if (code == kSuccess && !run.empty()) code = key.setValues(run);
        run.clear();
    };
    for (base::ValueLine& line : change.values) {
        if (!line.deletes) {
            run.push_back({std::move(line.name), std::move(*line.value)});
            continue;
        }
        setRun();
        if (code == kSuccess) code = deleteValue(key, change.key.root, line.name);
    }
    setRun();
    return code;
}

}  // namespace

RegResult applyRegChanges(Registry& registry, std::vector<RegChange> changes) {
    for (RegChange& change : changes) {
        RegResult result = change.deletes ? deleteKey(registry, change.key)
                                          : RegResult{changeKey(registry, change), change.key};
        if (result.code != kSuccess) return result;
    }
    return {};
}

}  // namespace quorkit
