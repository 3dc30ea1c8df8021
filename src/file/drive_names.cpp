#include <quorkit/GQuorFile.h>

namespace quorkit {

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

}  // namespace quorkit
