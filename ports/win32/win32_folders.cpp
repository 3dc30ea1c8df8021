// Attributes, folders and their entries on Windows. A link counts as its target.
#include <memory>

#include "native/native_files.h"
#include "win32/win32_calls.h"
#include "win32/win32_names.h"

namespace quorkit::native {
namespace {

/// The object behind the Handle of a listing.
struct Search {
    HANDLE handle;
    FindDetail detail;
    String folder;  ///< with a separator at its end
};

Search& searchOf(Handle handle) {
    return *reinterpret_cast<Search*>(handle);
}

void describe(const Search& search, const WIN32_FIND_DATAW& found, FindData& entry) {
    entry.name = textOf(found.cFileName);
    entry.attributes = found.dwFileAttributes & ~DWORD{kReparsePoint};
    entry.lastWrite = timeOf(found.ftLastWriteTime);
    if ((found.dwFileAttributes & kReparsePoint) != 0 && isLinkTag(found.dwReserved0)) {
        if (search.detail != FindDetail::Names)
            describeTarget(search.folder + entry.name, entry.attributes, entry.lastWrite);
        entry.attributes |= kReparsePoint;
    }
    if (search.detail != FindDetail::Attributes) entry.attributes &= kDirectory | kReparsePoint;
}

}  // namespace

ErrorCode NativeFolders::GetFileAttributesA(const String& name, std::uint32_t& attributes) {
    if (!validName(name)) return kInvalidName;
    const DWORD found = ::GetFileAttributesW(wide(name));
    if (found == INVALID_FILE_ATTRIBUTES) return lastError();
    attributes = found & ~DWORD{kReparsePoint};
    if ((found & kReparsePoint) == 0 || !isLink(name)) return kSuccess;
    FileTime ignored = 0;
    std::uint32_t target = 0;
    if (!describeTarget(name, target, ignored)) return lastError();
    attributes = target | kReparsePoint;
    return kSuccess;
}

ErrorCode NativeFolders::CreateDirectoryA(const String& name) {
    if (!validName(name)) return kInvalidName;
    return resultOf(::CreateDirectoryW(wide(name), nullptr));
}

ErrorCode NativeFolders::FirstEntry(const String& folder, FindDetail detail, Handle& search,
                                    FindData& entry) {
    if (!validName(folder)) return kInvalidName;
    auto begun = std::make_unique<Search>(Search{nullptr, detail, folder});
    // Behind "C:" a separator would turn the current folder into the root.
    if (String(u"\\/:").find(folder.back()) == String::npos) begun->folder += u'\\';
    WIN32_FIND_DATAW first = {};
    begun->handle = ::FindFirstFileW(wide(begun->folder + u'*'), &first);
    if (begun->handle == INVALID_HANDLE_VALUE) {
        const ErrorCode code = lastError();
        const DWORD found = ::GetFileAttributesW(wide(folder));
        const bool file = found != INVALID_FILE_ATTRIBUTES && (found & kDirectory) == 0;
        return file ? kPathNotFound : code;
    }
    describe(*begun, first, entry);
    search = Handle(reinterpret_cast<std::intptr_t>(begun.release()));
    return kSuccess;
}

ErrorCode NativeFolders::NextEntry(Handle search, FindData& entry) {
    WIN32_FIND_DATAW found = {};
    if (!::FindNextFileW(searchOf(search).handle, &found)) return lastError();
    describe(searchOf(search), found, entry);
    return kSuccess;
}

void NativeFolders::EndListing(Handle search) {
    ::FindClose(searchOf(search).handle);
    delete &searchOf(search);
}

}  // namespace quorkit::native
