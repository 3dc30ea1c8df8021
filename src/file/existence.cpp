#include <quorkit/GQuorFile.h>
#include <quorkit/ports/folders.h>

#include <vector>

#include "file/search.h"
#include "frame/error_patterns.h"

namespace quorkit {
namespace {

bool isFolder(std::uint32_t attributes) {
    return (attributes & kDirectory) != 0;
}

/// Whether the first entry that a pattern finds is a folder.
bool findsFolder(Folders& folders, const String& pattern) {
    file::NameSearch search(folders, pattern, FindDetail::Names);
    FindData entry;
    if (!search.next(entry)) return false;
    const bool folder = isFolder(entry.attributes);
    // Windows sorts the entries, so the folder itself comes first if the pattern matches it.
    while (!file::isSelfOrParent(entry.name))
        if (!search.next(entry)) return folder;
    return true;
}

/// Whether listing a folder gives any entry, even if only ".".
bool canBeListed(Folders& folders, const String& folder) {
    FindData entry;
    return file::FolderEntries(folders, folder, FindDetail::Names).next(entry);
}

}  // namespace

Boolean GQuorFile::FileExists(const String& vsFileName) {
    std::uint32_t attributes = 0;
    return ports_.folders.GetFileAttributesA(vsFileName, attributes) == kSuccess;
}

Boolean GQuorFile::PathExists(const String& vsPath) {
    if (vsPath.size() < 2) return false;
    const String name = vsPath.substr(0, vsPath.size() - (vsPath.ends_with(u'\\') ? 1 : 0));
    std::uint32_t attributes = 0;
    if (ports_.folders.GetFileAttributesA(name, attributes) == kSuccess)
        return isFolder(attributes);
    if (file::isPattern(name)) return findsFolder(ports_.folders, name);
    return canBeListed(ports_.folders, name + u'\\');  // for the root of a drive or a share
}

Boolean GQuorFile::IsDirectoryEmpty(const String& sDir) {
    if (sDir.size() < 2) return false;
    file::FolderEntries entries(ports_.folders, PathAddBackSlash(sDir), FindDetail::Names);
    for (FindData entry; entries.next(entry);)
        if (!file::isSelfOrParent(entry.name)) return false;
    return entries.status() == kNoMoreFiles;
}

Boolean GQuorFile::mkDirEx(const String& sDir) {
    return frame::onErrorReturn(Boolean(false), [&] {
        // A longer name would have more folders above it than memory can hold.
        std::uint32_t attributes = 0;
        if (ports_.folders.GetFileAttributesA(sDir, attributes) == kInvalidName)
            return Boolean(false);
        std::vector<String> missing;
        for (String folder = sDir; !PathExists(folder); folder = getParentDirectory(folder)) {
            missing.push_back(folder);
            if (folder.empty()) break;  // no folder above it
        }
        ErrorCode code = kSuccess;
        for (; !missing.empty(); missing.pop_back())
            code = ports_.folders.CreateDirectoryA(missing.back());
        // Another process may have made it first. And "a\\." exists as soon as "a" is made.
        return Boolean(code == kSuccess || PathExists(sDir));
    });
}

}  // namespace quorkit
