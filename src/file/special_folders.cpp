#include <quorkit/GQuorFile.h>
#include <quorkit/ports/system.h>

namespace quorkit {

String GQuorFile::GetSpecialFolderPath(spfSpecialFolderConstants FolderID) {
    return GetSpecialFolder(static_cast<CSIDLS>(FolderID), false, true);
}

String GQuorFile::GetSpecialFolder(CSIDLS CSIDL, const Optional<Boolean, false>& Create,
                                   const Optional<Boolean, false>& Verify) {
    String path;
    if (CSIDL == CSIDL_NONE || !ports_.system.SHGetFolderPathA(CSIDL, path)) return {};
    if ((*Create || *Verify) && !PathExists(path) && !(*Create && mkDirEx(path))) return {};
    return path;
}

}  // namespace quorkit
