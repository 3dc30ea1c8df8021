// The content of files on Windows, by their UTF-16 names.
#include "native/files.h"

#include <algorithm>

#include "win32/calls.h"
#include "win32/names.h"
#include "win32/opened.h"

namespace quorkit {

using namespace win32;

namespace {

ErrorCode open(const String& name, DWORD access, DWORD how, HANDLE& file) {
    file =
        ::CreateFileW(wide(name), access, kShareAll, nullptr, how, FILE_ATTRIBUTE_NORMAL, nullptr);
    if (file == INVALID_HANDLE_VALUE) return lastError();
    if (::GetFileType(file) == FILE_TYPE_DISK) return kSuccess;
    ::CloseHandle(file);  // NUL, CON and their like
    return kAccessDenied;
}

ErrorCode openToAdd(const String& name, Opened& made) {
    const String target = finalName(name);
    made.gate = std::make_unique<Gate>(target);
    ErrorCode code = made.gate->status();
    if (code == kSuccess) code = made.gate->enter();
    if (code != kSuccess) return code;
    code = mayBeWritten(target);
    if (code == kSuccess && made.access == FileAccess::Append) code = made.gate->mark();
    if (code == kSuccess) {
        code = open(target, GENERIC_READ | GENERIC_WRITE, OPEN_ALWAYS, made.file);
        if (code == kAccessDenied) code = open(target, GENERIC_WRITE, OPEN_ALWAYS, made.file);
    }
    made.gate->leave();
    return code;
}

/// The file loses its name when it is replaced or deleted.
bool hasItsName(HANDLE file) {
    FILE_STANDARD_INFO about = {};
    return ::GetFileInformationByHandleEx(file, FileStandardInfo, &about, sizeof about) &&
           about.NumberOfLinks != 0 && !about.DeletePending;
}

ErrorCode cutAt(HANDLE file, std::uint64_t size) {
    FILE_END_OF_FILE_INFO end = {};
    end.EndOfFile.QuadPart = static_cast<LONGLONG>(size);
    return resultOf(::SetFileInformationByHandle(file, FileEndOfFileInfo, &end, sizeof end));
}

/// Writes at `place`, or where the last write ended when it is null.
ErrorCode writeAll(HANDLE file, std::string_view bytes, OVERLAPPED* place) {
    while (!bytes.empty()) {
        const auto wanted = static_cast<DWORD>(std::min<std::size_t>(bytes.size(), 1u << 30));
        DWORD written = 0;
        if (!::WriteFile(file, bytes.data(), wanted, &written, place)) return lastError();
        if (written == 0) return kDiskFull;
        bytes.remove_prefix(written);
    }
    return kSuccess;
}

/// Runs `change` on a file for adding while nobody else changes it.
template <class Change>
ErrorCode inTheGate(const Opened& file, Change change) {
    if (const ErrorCode code = file.gate->enter()) return code;
    const ErrorCode code = hasItsName(file.file) ? change() : kFileReplaced;
    file.gate->leave();
    return code;
}

}  // namespace

ErrorCode NativeFiles::CreateFileA(const String& name, FileAccess access, Handle& handle) {
    if (!validName(name)) return kInvalidName;
    auto made = std::make_unique<Opened>();
    made->access = access;
    ErrorCode code = kSuccess;
    if (isForAdding(access))
        code = openToAdd(name, *made);
    else if (access == FileAccess::Read)
        code = open(name, GENERIC_READ, OPEN_EXISTING, made->file);
    else
        code = open(name, GENERIC_WRITE, CREATE_NEW, made->file);
    if (code == kSuccess) handle = handOut(std::move(made));
    return code;
}

ErrorCode NativeFiles::GetFileSizeEx(Handle handle, std::uint64_t& size) {
    LARGE_INTEGER result = {};
    if (!::GetFileSizeEx(opened(handle).file, &result)) return lastError();
    size = static_cast<std::uint64_t>(result.QuadPart);
    return kSuccess;
}

ErrorCode NativeFiles::SetFilePointerEx(Handle handle, std::uint64_t position) {
    opened(handle).position = position;
    return kSuccess;
}

ErrorCode NativeFiles::ReadFile(Handle handle, char* buffer, std::size_t capacity,
                                std::size_t& count) {
    Opened& file = opened(handle);
    const auto wanted = static_cast<DWORD>(std::min<std::size_t>(capacity, 1u << 30));
    DWORD got = 0;
    OVERLAPPED place = {};
    place.Offset = static_cast<DWORD>(file.position);
    place.OffsetHigh = static_cast<DWORD>(file.position >> 32);
    if (!::ReadFile(file.file, buffer, wanted, &got, &place) &&
        ::GetLastError() != ERROR_HANDLE_EOF)
        return lastError();
    count = got;
    file.position += got;
    return kSuccess;
}

ErrorCode NativeFiles::WriteFile(Handle handle, std::string_view bytes) {
    const Opened& file = opened(handle);
    if (!isForAdding(file.access)) return writeAll(file.file, bytes, nullptr);
    return inTheGate(file, [&] {
        LARGE_INTEGER size = {};
        if (!::GetFileSizeEx(file.file, &size)) return lastError();
        OVERLAPPED end = {};
        end.Offset = end.OffsetHigh = 0xFFFFFFFF;
        const ErrorCode code = writeAll(file.file, bytes, &end);
        if (code != kSuccess) cutAt(file.file, static_cast<std::uint64_t>(size.QuadPart));
        return code;
    });
}

ErrorCode NativeFiles::SetEndOfFile(Handle handle) {
    const Opened& file = opened(handle);
    if (!isForAdding(file.access)) return kAccessDenied;
    return inTheGate(file, [&] { return cutAt(file.file, 0); });
}

ErrorCode NativeFiles::FlushFileBuffers(Handle handle) {
    return resultOf(::FlushFileBuffers(opened(handle).file));
}

ErrorCode NativeFiles::CloseHandle(Handle handle) {
    const std::unique_ptr<Opened> closing(&opened(handle));
    if (closing->file != nullptr) return resultOf(::CloseHandle(closing->file));
    closing->gate->unmark();
    closing->gate->leave();
    return kSuccess;
}

}  // namespace quorkit
