// Finds the damages in a tree of folders that a person has to mend.
#include <algorithm>

#include "linux/folder_hive.h"
#include "linux/folder_names.h"
#include "linux/name_text.h"

namespace quorkit::native {
namespace {

class Check {
   public:
    explicit Check(const std::string& root) : open_{{root, 0}} {}

    std::vector<RegistryDamage> run() {
        while (!open_.empty()) {
            const Folder folder = std::move(open_.back());
            open_.pop_back();
            lookAt(folder);
        }
        return std::move(found_);
    }

   private:
    struct Folder {
        std::string path;
        std::size_t depth;  ///< the root is at 0
    };

    /// Each report is one line, whatever the names hold.
    void say(const std::string& place, String what) {
        String text = textOf(place);
        std::ranges::replace_if(
            text, [](char16_t unit) { return unit < u' '; }, u'?');
        found_.push_back({std::move(text), std::move(what)});
    }

    void lookAt(const Folder& folder) {
        std::vector<KeyEntry> entries;
        const ErrorCode code = listKeyFolder(folder.path, folder.depth == 0, entries);
        if (code == kFileNotFound) return;  // deleted meanwhile, or never used
        if (code != kSuccess) return say(folder.path, u"cannot be read");
        for (const KeyEntry& entry : entries) lookAt(folder, entry);
    }

    void lookAt(const Folder& folder, const KeyEntry& entry) {
        const std::string path = beneath(folder.path, entry.name);
        if (entry.name == kValues) return lookAtValues(folder.path, path);
        if (entry.folder ? entry.forWork() : entry.name == kNewValues || entry.name == kLock)
            return;  // the next change removes it
        if (entry.link) return say(path, u"is a link, which is not listed");
        if (!entry.folder) return say(path, u"does not belong to the store");
        if (!isFolderName(entry.name)) {
            const String sought = textOf(folderNameOf(nameOfSpelled(entry.name)));
            return say(path, isFolderName(folderNameOf(nameOfSpelled(entry.name)))
                                 ? u"is looked for under the name " + sought
                                 : String(u"has a name that no key can have"));
        }
        if (folder.depth == kDeepestKey) return say(path, u"lies too deep");
        lookAtName(folder.path, entry, path);
        open_.push_back({path, folder.depth + 1});
    }

    void lookAtName(const std::string& folder, const KeyEntry& entry, const std::string& path) {
        std::string text;
        const ErrorCode code = readKeyFile(path, text);
        if (!keyNameOf(folder, entry) && code == kSuccess)
            return say(path, u"has lost its name, which is too long for a folder");
        const auto spelled = KeyFile(std::move(text)).name();
        if (spelled && folderNameOf(*spelled) != entry.name)
            say(beneath(path, kValues), u"has the name of another key");
    }

    void lookAtValues(const std::string& folder, const std::string& path) {
        std::string text;
        const ErrorCode code = readKeyFile(folder, text);
        if (code == kFileNotFound) return;
        if (code != kSuccess) return say(path, u"cannot be read");
        for (const KeyFile::Damage& damage : KeyFile(std::move(text)).damage())
            say(path + ':' + std::to_string(damage.line), damage.what);
    }

    std::vector<Folder> open_;
    std::vector<RegistryDamage> found_;
};

}  // namespace

std::vector<RegistryDamage> FolderHive::check() {
    return Check(folderOf({})).run();
}

}  // namespace quorkit::native
