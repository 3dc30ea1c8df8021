// The user's keys are in the user's data folder; the machine's are where programs keep their state
// (Filesystem Hierarchy Standard 3.0, /var/lib).
#include "linux/folder_hive.h"
#include "linux/surroundings.h"
#include "linux/user_folders.h"
#include "native/native_registry.h"

namespace quorkit::native {
namespace {

constexpr const char* kFolder = "quorkit/registry";

}  // namespace

std::string userRegistryFolder() {
    return inFolder(baseFolder("XDG_DATA_HOME", ".local/share"), kFolder);
}

std::string machineRegistryFolder() {
    return inFolder("/var/lib", kFolder);
}

Registry& nativeRegistry() {
    static FolderHive user(userRegistryFolder, kForUser);
    static FolderHive machine(machineRegistryFolder, kForEverybody);
    static HiveRegistry registry(user, machine);
    return registry;
}

}  // namespace quorkit::native
