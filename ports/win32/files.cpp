// The content of files on Windows, by their UTF-16 names.
#include "native/files.h"

#include <algorithm>

#include "win32/calls.h"
#include "win32/names.h"
#include "win32/opened.h"

namespace quorkit {

using namespace win32;

ErrorCode win32::cutAt(HANDLE file, std::uint64_t size) {
    FILE_END_OF_FILE_INFO end = {};
    end.EndOfFile.QuadPart = static_cast<LONGLONG>(size);
    return resultOf(::SetFileInformationByHandle(file, FileEndOfFileInfo, &end, sizeof end));
}

ErrorCode win32::writeAll(HANDLE file, std::string_view bytes, OVERLAPPED* place) {
    while (!bytes.empty()) {
        const auto wanted = static_cast<DWORD>(std::min<std::size_t>(bytes.size(), 1u << 30));
        DWORD written = 0;
        if (!::WriteFile(file, bytes.data(), wanted, &written, place)) return lastError();
        if (written == 0) return kDiskFull;
        bytes.remove_prefix(written);
    }
    return kSuccess;
}

namespace {

ErrorCode open(const String& name, DWORD access, DWORD how, HANDLE& file) {
    file =
        ::CreateFileW(wide(name), access, kShareAll, nullptr, how, FILE_ATTRIBUTE_NORMAL, nullptr);
    if (file == INVALID_HANDLE_VALUE) return lastError();
    if (::GetFileType(file) == FILE_TYPE_DISK) return kSuccess;
    ::CloseHandle(file);  // NUL, CON and their like
    return kAccessDenied;
}

ErrorCode openToChange(const String& name, DWORD how, HANDLE& file) {
    const ErrorCode code = open(name, GENERIC_READ | GENERIC_WRITE, how, file);
    return code == kAccessDenied ? open(name, GENERIC_WRITE, how, file) : code;
}

/// The number of a file on its disk; 0 when it is deleted or replaced.
std::uint64_t numberOf(HANDLE file) {
    BY_HANDLE_FILE_INFORMATION about = {};
    FILE_STANDARD_INFO more = {};
    if (!::GetFileInformationByHandle(file, &about) ||
        !::GetFileInformationByHandleEx(file, FileStandardInfo, &more, sizeof more) ||
        more.NumberOfLinks == 0 || more.DeletePending)
        return 0;
    return (std::uint64_t{about.nFileIndexHigh} << 32) | about.nFileIndexLow;
}

ErrorCode openToAdd(const String& name, Opened& made) {
    made.name = finalName(name);
    made.gate = std::make_unique<Gate>(made.name);
    ErrorCode code = made.gate->status();
    if (code == kSuccess) code = made.gate->enter();
    if (code != kSuccess) return code;
    code = mayBeWritten(made.name);
    if (code == kSuccess && made.access == FileAccess::Append) code = made.gate->mark();
    if (code == kSuccess) code = openToChange(made.name, OPEN_ALWAYS, made.file);
    if (code == kSuccess) made.number = numberOf(made.file);
    if (code == kSuccess && made.access == FileAccess::AppendYielding) {
        ::CloseHandle(made.file);
        made.file = nullptr;
    }
    made.gate->leave();
    return code;
}

/// Runs `use` on an open file.
template <class Use>
ErrorCode with(const Opened& opened, Use use) {
    if (opened.file != nullptr) return use(opened.file);
    HANDLE file = nullptr;
    ErrorCode code = openToChange(opened.name, OPEN_EXISTING, file);
    if (code == kFileNotFound || code == kPathNotFound) return kFileReplaced;
    if (code != kSuccess) return code;
    code = numberOf(file) == opened.number ? use(file) : kFileReplaced;
    ::CloseHandle(file);
    return code;
}

/// Runs `change` on a file for adding while nobody else changes it.
template <class Change>
ErrorCode inTheGate(const Opened& opened, Change change) {
    if (const ErrorCode code = opened.gate->enter()) return code;
    const ErrorCode code = with(opened, [&](HANDLE file) {
        return numberOf(file) == opened.number ? change(file) : kFileReplaced;
    });
    opened.gate->leave();
    return code;
}

ErrorCode sizeOf(HANDLE file, std::uint64_t& size) {
    LARGE_INTEGER result = {};
    if (!::GetFileSizeEx(file, &result)) return lastError();
    size = static_cast<std::uint64_t>(result.QuadPart);
    return kSuccess;
}

/// Adds `bytes` in one piece, or takes back what a full disk has taken of them.
ErrorCode add(HANDLE file, std::string_view bytes) {
    std::uint64_t size = 0;
    if (const ErrorCode code = sizeOf(file, size)) return code;
    OVERLAPPED end = {};
    end.Offset = end.OffsetHigh = 0xFFFFFFFF;
    const ErrorCode code = writeAll(file, bytes, &end);
    if (code != kSuccess) cutAt(file, size);
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
    return with(opened(handle), [&](HANDLE file) { return sizeOf(file, size); });
}

ErrorCode NativeFiles::SetFilePointerEx(Handle handle, std::uint64_t position) {
    opened(handle).position = position;
    return kSuccess;
}

ErrorCode NativeFiles::ReadFile(Handle handle, char* buffer, std::size_t capacity,
                                std::size_t& count) {
    std::uint64_t& position = opened(handle).position;
    return with(opened(handle), [&](HANDLE file) {
        const auto wanted = static_cast<DWORD>(std::min<std::size_t>(capacity, 1u << 30));
        DWORD got = 0;
        OVERLAPPED place = {};
        place.Offset = static_cast<DWORD>(position);
        place.OffsetHigh = static_cast<DWORD>(position >> 32);
        if (!::ReadFile(file, buffer, wanted, &got, &place) && ::GetLastError() != ERROR_HANDLE_EOF)
            return lastError();
        count = got;
        position += got;
        return kSuccess;
    });
}

ErrorCode NativeFiles::WriteFile(Handle handle, std::string_view bytes) {
    const Opened& file = opened(handle);
    if (!isForAdding(file.access)) return writeAll(file.file, bytes, nullptr);
    return inTheGate(file, [&](HANDLE changed) { return add(changed, bytes); });
}

ErrorCode NativeFiles::SetEndOfFile(Handle handle) {
    const Opened& file = opened(handle);
    if (!isForAdding(file.access)) return kAccessDenied;
    return inTheGate(file, [](HANDLE changed) { return cutAt(changed, 0); });
}

ErrorCode NativeFiles::FlushFileBuffers(Handle handle) {
    return with(opened(handle), [](HANDLE file) { return resultOf(::FlushFileBuffers(file)); });
}

ErrorCode NativeFiles::CloseHandle(Handle handle) {
    const std::unique_ptr<Opened> closing(&opened(handle));
    if (closing->lock) {
        closing->gate->unmark();
        closing->gate->leave();
    }
    ErrorCode code = kSuccess;
    if (closing->file != nullptr) code = resultOf(::CloseHandle(closing->file));
    if (closing->forWork) ::DeleteFileW(wide(closing->name));
    return code;
}

}  // namespace quorkit
