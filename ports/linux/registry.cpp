// The user's keys stand in the user's data folder, the machine's where programs keep their state
// (Filesystem Hierarchy Standard 3.0, /var/lib).
#include "native/registry.h"

#include "linux/folder_hive.h"
#include "linux/user_folders.h"

namespace quorkit {
namespace {

constexpr const char* kFolder = "quorkit/registry";

std::string userFolder() {
    return disk::inFolder(disk::baseFolder("XDG_DATA_HOME", ".local/share"), kFolder);
}

std::string machineFolder() {
    return disk::inFolder("/var/lib", kFolder);
}

}  // namespace

Registry& nativeRegistry() {
    static disk::FolderHive user(userFolder, disk::kForUser);
    static disk::FolderHive machine(machineFolder, disk::kForEverybody);
    static HiveRegistry registry(user, machine);
    return registry;
}

}  // namespace quorkit
