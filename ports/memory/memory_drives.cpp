#include <quorkit/ports/memory.h>

#include "base/letter_case.h"

namespace quorkit {

int MemoryDrives::GetDriveTypeA(const String& root) {
    for (const auto& [name, drive] : drives)
        if (base::sameText(name, root) || base::sameText(name + u'\\', root)) return drive.type;
    constexpr int noRootDirectory = 1;
    return noRootDirectory;
}

std::vector<String> MemoryDrives::GetLogicalDriveStringsA() {
    std::vector<String> roots;
    for (const auto& [name, drive] : drives) roots.push_back(name + u'\\');
    return roots;
}

ErrorCode MemoryDrives::VolumeSerialNumber(const String& root, std::uint32_t& serialNumber) {
    for (const auto& [name, drive] : drives)
        for (const String& mine : {name, drive.remoteName})
            if (!mine.empty() && base::sameText(mine + u'\\', root)) {
                serialNumber = drive.serialNumber;
                return kSuccess;
            }
    return kPathNotFound;
}

ErrorCode MemoryDrives::ListConnections(std::vector<NetworkConnection>& connections) {
    if (networkAnswer != kSuccess) return networkAnswer;
    connections.clear();
    for (const auto& [name, drive] : drives)
        if (!drive.remoteName.empty()) connections.push_back({name, drive.remoteName});
    return kSuccess;
}

}  // namespace quorkit
