#include "win32/win32_names.h"

#include "win32/win32_calls.h"

namespace quorkit::native {
namespace {

/// Opens the file or folder that a name leads to, only to examine it.
HANDLE openToAsk(const String& name, DWORD flags = 0) {
    return ::CreateFileW(wide(name), 0, kShareAll, nullptr, OPEN_EXISTING,
                         FILE_FLAG_BACKUP_SEMANTICS | flags, nullptr);
}

/// The final name of a file or folder that exists.
String finalNameOfExisting(const String& name) {
    const HANDLE file = openToAsk(name);
    if (file == INVALID_HANDLE_VALUE) return {};
    String target = askForText([&](wchar_t* buffer, DWORD size) {
        return ::GetFinalPathNameByHandleW(file, buffer, size, FILE_NAME_NORMALIZED);
    });
    ::CloseHandle(file);
    return target;
}

}  // namespace

bool validName(const String& name) {
    return !name.empty() && name.find(u'\0') == String::npos;
}

String fullName(const String& name) {
    return askForText([&](wchar_t* buffer, DWORD size) {
        return ::GetFullPathNameW(wide(name), size, buffer, nullptr);
    });
}

String finalName(const String& name) {
    String target = finalNameOfExisting(name);
    if (!target.empty()) return target;
    target = fullName(name);
    const std::size_t last = target.find_last_of(u'\\') + 1;
    String folder = last == 0 ? String() : finalNameOfExisting(target.substr(0, last));
    if (folder.empty()) return target;
    if (!folder.ends_with(u'\\')) folder += u'\\';
    return folder + target.substr(last);
}

bool isLink(const String& name) {
    const HANDLE file = openToAsk(name, FILE_FLAG_OPEN_REPARSE_POINT);
    if (file == INVALID_HANDLE_VALUE) return false;
    FILE_ATTRIBUTE_TAG_INFO about = {};
    const BOOL told =
        ::GetFileInformationByHandleEx(file, FileAttributeTagInfo, &about, sizeof about);
    ::CloseHandle(file);
    return told && isLinkTag(about.ReparseTag);
}

ErrorCode mayBeWritten(const String& name) {
    const DWORD attributes = ::GetFileAttributesW(wide(name));
    if (attributes == INVALID_FILE_ATTRIBUTES)
        return lastError() == kPathNotFound ? kPathNotFound : kSuccess;
    constexpr DWORD kNotWritable = FILE_ATTRIBUTE_DIRECTORY | FILE_ATTRIBUTE_READONLY;
    return (attributes & kNotWritable) != 0 ? kAccessDenied : kSuccess;
}

bool describeTarget(const String& name, std::uint32_t& attributes, FileTime& lastWrite) {
    const HANDLE file = openToAsk(name);
    if (file == INVALID_HANDLE_VALUE) return false;
    BY_HANDLE_FILE_INFORMATION about = {};
    const BOOL told = ::GetFileInformationByHandle(file, &about);
    const DWORD error = ::GetLastError();
    ::CloseHandle(file);
    ::SetLastError(error);
    attributes = about.dwFileAttributes;
    lastWrite = timeOf(about.ftLastWriteTime);
    return told != FALSE;
}

}  // namespace quorkit::native
