#include <quorkit/GQuorFile.h>
#include <quorkit/GQuorStrings.h>
#include <quorkit/ports/drives.h>
#include <quorkit/ports/folders.h>

#include <algorithm>

#include "base/name_parts.h"
#include "file/shell_link.h"
#include "file/whole_file.h"
#include "frame/error_patterns.h"

namespace quorkit {
namespace {

/// What is known of the target.
file::ShellLink linkTo(const String& target, const String& drive, Ports& ports) {
    file::ShellLink link;
    link.target = target;
    ports.folders.GetFileAttributesA(target, link.targetAttributes);
    if (drive.size() == 2 && drive[1] == u':') {
        link.driveType = static_cast<std::uint32_t>(ports.drives.GetDriveTypeA(drive + u'\\'));
        ports.drives.VolumeSerialNumber(drive + u'\\', link.serialNumber);
    }
    return link;
}

/// Whether a name, appended to a folder, would lead out of it.
bool leadsOut(const String& name) {
    const base::NameParts parts = base::partsOf(name);
    return std::ranges::find(parts.components, u"..") != parts.components.end();
}

}  // namespace

Boolean GQuorFile::MakeShortCut(Boolean bInstall, CSIDLS SpecialFolder, const String& sSubFolder,
                                const String& sTargetPath, const String& sDescription,
                                const String& sQuickInfo) {
    return frame::onErrorReturn(Boolean(false), [&] {
        if (leadsOut(sDescription)) return Boolean(false);
        String folder = sSubFolder;
        if (SpecialFolder != CSIDL_NONE) {
            folder = GetSpecialFolder(SpecialFolder, true, true);
            if (folder.empty()) return Boolean(false);
            if (!sSubFolder.empty())
                folder = PathAddBackSlash(folder) +
                         sSubFolder.substr(sSubFolder.starts_with(u'\\') ? 1 : 0);
        }
        GQuorStrings strings(ports_);
        folder = strings.ExpandEnvironmentString(folder);
        const String target = strings.ExpandEnvironmentString(sTargetPath);
        if (folder.ends_with(u'\\')) folder.pop_back();
        const String name = folder + u'\\' + sDescription + u".lnk";

        if (!bInstall) {
            ports_.files.DeleteFileA(name);
            return Boolean(!FileExists(name));
        }
        if (!mkDirEx(folder)) return Boolean(false);
        frame::resumeNext([&] {
            file::ShellLink link = linkTo(target, ExtractDrive(target), ports_);
            link.description = sQuickInfo;
            file::writeWholeFile(ports_.files, name, file::shellLinkFile(link), Wait::Briefly);
        });
        return FileExists(name);
    });
}

}  // namespace quorkit
