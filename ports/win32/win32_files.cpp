// The content of files on Windows, by their UTF-16 names.
#include <algorithm>

#include "lines/given_up.h"
#include "lines/torn_line.h"
#include "native/native_files.h"
#include "win32/win32_calls.h"
#include "win32/win32_names.h"
#include "win32/win32_opened.h"

namespace quorkit::native {

ErrorCode cutAt(HANDLE file, std::uint64_t size) {
    FILE_END_OF_FILE_INFO end = {};
    end.EndOfFile.QuadPart = static_cast<LONGLONG>(size);
    return resultOf(::SetFileInformationByHandle(file, FileEndOfFileInfo, &end, sizeof end));
}

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

namespace {

ErrorCode open(const String& name, DWORD access, DWORD how, HANDLE& file) {
    file =
        ::CreateFileW(wide(name), access, kShareAll, nullptr, how, FILE_ATTRIBUTE_NORMAL, nullptr);
    if (file == INVALID_HANDLE_VALUE) return lastError();
    if (::GetFileType(file) == FILE_TYPE_DISK) return kSuccess;
    ::CloseHandle(file);  // NUL, CON and similar names
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

/// Enters the mutex of a file for adding. A process that holds it for ever stops no log: once the
/// wait was in vain, this process adds without it, and tries it again each time without waiting.
ErrorCode enterToAdd(const Opened& file, bool& inside) {
    static lines::GivenUp<String> givenUp;
    const auto most = longest(Wait::Patiently);
    const ErrorCode code =
        file.mutex->enter(givenUp.contains(file.name) ? std::chrono::milliseconds(0) : most);
    inside = code == kSuccess;
    givenUp.set(file.name, code == kLockViolation);
    return code == kLockViolation ? kSuccess : code;
}

ErrorCode openToAdd(const String& name, Opened& made) {
    made.name = finalName(name);
    made.mutex = std::make_unique<FileMutex>(made.name);
    ErrorCode code = made.mutex->status();
    bool inside = false;
    if (code == kSuccess) code = enterToAdd(made, inside);
    if (code != kSuccess) return code;
    code = mayBeWritten(made.name);
    if (code == kSuccess && made.access == FileAccess::Append) code = made.mutex->mark();
    if (code == kSuccess) code = openToChange(made.name, OPEN_ALWAYS, made.file);
    if (code == kSuccess) made.number = numberOf(made.file);
    if (code == kSuccess && made.access == FileAccess::AppendYielding) {
        ::CloseHandle(made.file);
        made.file = nullptr;
    }
    if (inside) made.mutex->leave();
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

/// Runs `change` on a file for adding, and tells it whether others are kept from changing the file.
template <class Change>
ErrorCode whileNamed(const Opened& opened, Change change) {
    bool inside = false;
    if (const ErrorCode code = enterToAdd(opened, inside)) return code;
    const ErrorCode code = with(opened, [&](HANDLE file) {
        const auto leadsHere = [&] { return numberOf(file) == opened.number; };
        const ErrorCode changed = leadsHere() ? change(file, inside) : kFileReplaced;
        return changed != kSuccess || inside || leadsHere() ? changed : kFileReplaced;
    });
    if (inside) opened.mutex->leave();
    return code;
}

ErrorCode sizeOf(HANDLE file, std::uint64_t& size) {
    LARGE_INTEGER result = {};
    if (!::GetFileSizeEx(file, &result)) return lastError();
    size = static_cast<std::uint64_t>(result.QuadPart);
    return kSuccess;
}

ErrorCode readAt(HANDLE file, std::uint64_t position, char* buffer, std::size_t capacity,
                 std::size_t& count) {
    DWORD got = 0;
    OVERLAPPED place = {};
    place.Offset = static_cast<DWORD>(position);
    place.OffsetHigh = static_cast<DWORD>(position >> 32);
    const auto wanted = static_cast<DWORD>(std::min<std::size_t>(capacity, 1u << 30));
    if (!::ReadFile(file, buffer, wanted, &got, &place) && ::GetLastError() != ERROR_HANDLE_EOF)
        return lastError();
    count = got;
    return kSuccess;
}

/// Whether a file ends in a line without an end, as far as it can be read.
bool isTorn(HANDLE file, std::uint64_t size, std::string_view feed) {
    char end[2] = {};
    const auto wanted = static_cast<std::size_t>(std::min<std::uint64_t>(feed.size(), size));
    std::size_t count = 0;
    return readAt(file, size - wanted, end, wanted, count) == kSuccess && count == wanted &&
           !lines::endAt(size, {end, wanted}, feed);
}

/// Adds `bytes` in one piece. When a full disk has taken only a part, that part is removed again,
/// if nobody else can have added behind it.
ErrorCode add(HANDLE file, std::string_view bytes, std::string_view lineBreak, bool alone) {
    std::uint64_t size = 0;
    if (const ErrorCode code = sizeOf(file, size)) return code;
    std::string begun;
    if (!lineBreak.empty() && isTorn(file, size, lines::feedOf(lineBreak)))
        bytes = begun = lines::parting(size, lineBreak).append(bytes);
    OVERLAPPED end = {};
    end.Offset = end.OffsetHigh = 0xFFFFFFFF;
    const ErrorCode code = writeAll(file, bytes, &end);
    if (code != kSuccess && alone) cutAt(file, size);
    return code;
}

}  // namespace

ErrorCode NativeFiles::Open(const String& name, FileAccess access, Handle& handle) {
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
    if (code == kSuccess) handle = toHandle(std::move(made));
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
        const ErrorCode code = readAt(file, position, buffer, capacity, count);
        if (code == kSuccess) position += count;
        const bool notForReading = code == kAccessDenied && isForAdding(opened(handle).access);
        return notForReading ? kInvalidHandle : code;
    });
}

ErrorCode NativeFiles::WriteFile(Handle handle, std::string_view bytes) {
    const Opened& file = opened(handle);
    if (file.access != FileAccess::CreateNew) return kAccessDenied;
    return writeAll(file.file, bytes, nullptr);
}

ErrorCode NativeFiles::Append(Handle handle, std::string_view bytes, std::string_view lineBreak) {
    const Opened& file = opened(handle);
    if (!isForAdding(file.access)) return kAccessDenied;
    return whileNamed(
        file, [&](HANDLE changed, bool alone) { return add(changed, bytes, lineBreak, alone); });
}

ErrorCode NativeFiles::EmptyFile(Handle handle) {
    const Opened& file = opened(handle);
    if (!isForAdding(file.access)) return kAccessDenied;
    return whileNamed(file, [](HANDLE changed, bool) { return cutAt(changed, 0); });
}

ErrorCode NativeFiles::FlushFileBuffers(Handle handle) {
    return with(opened(handle), [](HANDLE file) { return resultOf(::FlushFileBuffers(file)); });
}

ErrorCode NativeFiles::CloseHandle(Handle handle) {
    const std::unique_ptr<Opened> closing(&opened(handle));
    if (closing->lock) {
        closing->mutex->unmark();
        closing->mutex->leave();
    }
    ErrorCode code = kSuccess;
    if (closing->file != nullptr) code = resultOf(::CloseHandle(closing->file));
    if (closing->forWork) ::DeleteFileW(wide(closing->name));
    return code;
}

}  // namespace quorkit::native
