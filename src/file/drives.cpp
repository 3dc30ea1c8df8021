#include <quorkit/GQuorFile.h>
#include <quorkit/ports/drives.h>

#include <algorithm>
#include <vector>

#include "base/letter_case.h"
#include "file/hexadecimal.h"

namespace quorkit {
namespace {

using Connections = std::vector<NetworkConnection>;

/// The connections that the system gives in one answer; none when it gives no answer.
Connections connectionsIn(Drives& drives) {
    constexpr std::size_t most = 1024;
    Connections connections;
    if (drives.ListConnections(connections) != kSuccess) connections.clear();
    if (connections.size() > most) connections.resize(most);
    return connections;
}

String networkNameOf(StringView drive, const Connections& connections) {
    const String capitals = base::toUpper(drive);
    const auto found = std::ranges::find_if(connections, [&](const NetworkConnection& one) {
        return base::toUpper(one.localName) == capitals;
    });
    return found == connections.end() ? String() : found->remoteName;
}

}  // namespace

eDriveType GQuorFile::getDriveTypeEx(const String& sDriveLetter) {
    const bool letter = sDriveLetter.size() >= 2 && sDriveLetter[1] == u':';
    if (!letter && sDriveLetter.starts_with(u"\\\\")) return DRIVE_REMOTE;
    const int type = ports_.drives.GetDriveTypeA(letter ? sDriveLetter.substr(0, 2) : sDriveLetter);
    const bool known = type >= DRIVE_REMOVABLE && type <= DRIVE_RAMDISK;
    return known ? static_cast<eDriveType>(type) : DRIVE_UNKNOWN;
}

String GQuorFile::DriveType2DriveTypeName(eDriveType typ,
                                          Optional<eLanguage, eLanguage_German> language) {
    const bool english = *language == eLanguage_English;
    switch (typ) {
        case DRIVE_REMOVABLE:
            return english ? u"Removable Drive" : u"Wechsel-Datentr\u00E4ger";
        case DRIVE_FIXED:
            return english ? u"Fixed Drive" : u"Harddisk";
        case DRIVE_REMOTE:
            return english ? u"Network Drive" : u"Netzwerk-Disk";
        case DRIVE_CDROM:
            return u"CD-ROM";
        case DRIVE_RAMDISK:
            return u"RAM-Disk";
        default:
            return {};
    }
}

CollectionRef GQuorFile::GetAllLogicalDrives() {
    auto drives = Collection::make();
    for (const String& root : ports_.drives.GetLogicalDriveStringsA())
        drives->add(root.substr(0, 2));
    return drives;
}

String GQuorFile::getVolumeSerialNumber(const String& sRootName) {
    String root = sRootName;
    if (root.size() >= 2)
        root = PathAddBackSlash(root[1] == u':' ? root.substr(0, 2)
                                                : ExtractUNCServerAndShareName(root));
    std::uint32_t serialNumber = 0;
    if (ports_.drives.VolumeSerialNumber(root, serialNumber) != kSuccess) serialNumber = 0;
    return file::hexadecimal(serialNumber);
}

String GQuorFile::LetterToUNC(Unchanged<String> DriveLetter) {
    return networkNameOf(*DriveLetter, connectionsIn(ports_.drives));
}

String GQuorFile::UNCToLetter(const String& sUNCPath) {
    const String share = base::toLower(ExtractUNCServerAndShareName(sUNCPath));
    if (share.empty()) return {};
    const Connections connections = connectionsIn(ports_.drives);
    for (const String& root : ports_.drives.GetLogicalDriveStringsA()) {
        String drive = root.substr(0, 2);
        if (base::toLower(networkNameOf(drive, connections)) == share) return drive;
    }
    return {};
}

}  // namespace quorkit
