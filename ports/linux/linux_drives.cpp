// Drives on Linux: C: is the root file system, D: to Z: are the other mounts that users see.
#include <filesystem>

#include "base/name_parts.h"
#include "linux/drive_table.h"
#include "linux/linux_names.h"
#include "linux/volumes.h"
#include "native/native_drives.h"

namespace quorkit::native {
namespace {

/// The drive of a name: the one that it names or that holds it. Null when there is none, and for
/// relative names.
const Drive* driveOf(const String& name, const DriveTable& drives) {
    const base::NameParts parts = base::partsOf(name);
    std::size_t used = 0;
    if (parts.start == base::NameParts::Here) return nullptr;
    if (parts.start == base::NameParts::Network) return drives.findShare(parts.components, used);
    if (parts.drive != 0 && parts.components.empty()) return drives.find(parts.drive);
    std::string path;
    if (pathOf(name, path) != kSuccess) return nullptr;
    std::error_code error;
    path = std::filesystem::canonical(path, error);
    return error ? nullptr : &drives.around(path);
}

/// "X:"; "" for a drive without a letter.
String lettersOf(const Drive& drive) {
    return drive.letter == 0 ? String() : String{drive.letter, u':'};
}

}  // namespace

int NativeDrives::GetDriveTypeA(const String& root) {
    constexpr int noSuchDrive = 1;
    const DriveTable drives = DriveTable::ofThisSystem();
    const Drive* drive = driveOf(root, drives);
    if (drive == nullptr) return noSuchDrive;
    return driveTypeOf(drive->kind, isRemovable(drive->mount));
}

std::vector<String> NativeDrives::GetLogicalDriveStringsA() {
    const DriveTable drives = DriveTable::ofThisSystem();
    std::vector<String> roots;
    for (const Drive& drive : drives.all())
        if (drive.letter != 0) roots.push_back(lettersOf(drive) + u'\\');
    return roots;
}

ErrorCode NativeDrives::VolumeSerialNumber(const String& root, std::uint32_t& serialNumber) {
    const DriveTable drives = DriveTable::ofThisSystem();
    const Drive* drive = driveOf(root, drives);
    return drive == nullptr ? kPathNotFound : serialNumberOf(drive->mount, serialNumber);
}

ErrorCode NativeDrives::ListConnections(std::vector<NetworkConnection>& connections) {
    const DriveTable drives = DriveTable::ofThisSystem();
    connections.clear();
    for (const Drive& drive : drives.all())
        if (!drive.remote.empty()) connections.push_back({lettersOf(drive), drive.remote});
    return kSuccess;
}

}  // namespace quorkit::native
