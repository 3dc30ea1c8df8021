#include <quorkit/GQuorFile.h>
#include <quorkit/ports/files.h>

#include <vector>

#include "frame/error_patterns.h"

namespace quorkit {
namespace {

/// Whether listing a folder gives any entry, be it ".".
bool canBeListed(Files& files, const String& folder) {
    Handle search = Handle::Invalid;
    FindData entry;
    if (files.FindFirstFileA(folder, FindDetail::Names, search, entry) != kSuccess) return false;
    files.FindClose(search);
    return true;
}

}  // namespace

Boolean GQuorFile::FileExists(const String& vsFileName) {
    std::uint32_t attributes = 0;
    return ports_.files.GetFileAttributesA(vsFileName, attributes) == kSuccess;
}

Boolean GQuorFile::PathExists(const String& vsPath) {
    if (vsPath.size() < 2) return false;
    const String name = vsPath.substr(0, vsPath.size() - (vsPath.ends_with(u'\\') ? 1 : 0));
    std::uint32_t attributes = 0;
    if (ports_.files.GetFileAttributesA(name, attributes) == kSuccess)
        return (attributes & kDirectory) != 0;
    return canBeListed(ports_.files, name + u'\\');  // the root of a drive or of a share
}

Boolean GQuorFile::IsDirectoryEmpty(const String& sDir) {
    if (sDir.size() < 2) return false;
    Handle search = Handle::Invalid;
    FindData entry;
    ErrorCode code =
        ports_.files.FindFirstFileA(PathAddBackSlash(sDir), FindDetail::Names, search, entry);
    if (code != kSuccess) return false;
    while (code == kSuccess && (entry.name == u"." || entry.name == u".."))
        code = ports_.files.FindNextFileA(search, entry);
    ports_.files.FindClose(search);
    return code != kSuccess;
}

Boolean GQuorFile::mkDirEx(const String& sDir) {
    return onErrorReturn(Boolean(false), [&] {
        std::vector<String> missing;
        for (String folder = sDir; !PathExists(folder); folder = getParentDirectory(folder)) {
            missing.push_back(folder);
            if (folder.empty()) break;  // there is no folder around it
        }
        ErrorCode code = kSuccess;
        for (; !missing.empty(); missing.pop_back())
            code = ports_.files.CreateDirectoryA(missing.back());
        return Boolean(code == kSuccess);
    });
}

}  // namespace quorkit
