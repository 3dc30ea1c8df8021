// What a person has to mend in a tree of folders.
#include "linux/folder_hive.h"
#include "linux/folder_names.h"
#include "linux/name_text.h"

namespace quorkit::disk {
namespace {

class Check {
   public:
    std::vector<RegistryDamage> found;
    std::vector<std::string> open;  // folders still to look at

    void say(const std::string& place, String what) {
        found.push_back({textOf(place), std::move(what)});
    }

    void lookAt(const std::string& folder) {
        std::vector<KeyEntry> entries;
        if (listKeyFolder(folder, entries) != kSuccess) return say(folder, u"cannot be read");
        for (const KeyEntry& entry : entries) {
            const std::string path = folder + '/' + entry.name;
            if (entry.name == kValues) {
                lookAtValues(folder, path);
            } else if (entry.name == kNewValues) {
                continue;  // the next write takes its place
            } else if (entry.link) {
                say(path, u"is a link, which is not listed");
            } else if (!entry.folder) {
                say(path, u"does not belong to the store");
            } else if (entry.forWork()) {
                say(path, u"is left of a program that died; it can be deleted");
            } else if (!isFolderName(entry.name)) {
                say(path, u"is looked for under the name " +
                              textOf(folderNameOf(nameOfSpelled(entry.name))));
            } else {
                lookAtName(folder, entry, path);
                open.push_back(path);
            }
        }
    }

   private:
    void lookAtName(const std::string& folder, const KeyEntry& entry, const std::string& path) {
        const auto name = keyNameOf(folder, entry);
        std::string text;
        if (!name)
            say(path, u"has lost its name, which is too long for a folder");
        else if (readKeyFile(path, text) == kSuccess) {
            const auto spelled = KeyFile(text).name();
            if (spelled && *spelled != *name)
                say(path + '/' + kValues, u"has the name of another key");
        }
    }

    void lookAtValues(const std::string& folder, const std::string& path) {
        std::string text;
        if (readKeyFile(folder, text) != kSuccess) return say(path, u"cannot be read");
        for (const KeyFile::Damage& damage : KeyFile(std::move(text)).damage())
            say(path + ':' + std::to_string(damage.line), damage.what);
    }
};

}  // namespace

std::vector<RegistryDamage> FolderHive::check() {
    Check check;
    const std::string root = root_();
    if (!root.empty() && openKeyFolder(root, false) != kFileNotFound) check.open.push_back(root);
    while (!check.open.empty()) {
        const std::string folder = std::move(check.open.back());
        check.open.pop_back();
        check.lookAt(folder);
    }
    return check.found;
}

}  // namespace quorkit::disk
