// The content of files on Linux.
#include <fcntl.h>
#include <unistd.h>

#include "linux/file_adding.h"
#include "linux/linux_calls.h"
#include "linux/linux_names.h"
#include "linux/linux_opened.h"
#include "native/native_files.h"

namespace quorkit::native {
namespace {

ErrorCode openNew(Opened& file) {
    constexpr int flags = O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC;
    file.descriptor = unlessInterrupted([&] { return open(file.path.c_str(), flags, 0600); });
    return file.descriptor == -1 ? lastErrorAt(file.path) : kSuccess;
}

}  // namespace

ErrorCode NativeFiles::Open(const String& name, FileAccess access, Handle& handle) {
    auto file = std::make_unique<Opened>();
    if (const ErrorCode code = pathOf(name, file->path)) return code;
    file->access = access;
    ErrorCode code = kSuccess;
    switch (access) {
        case FileAccess::Read:
            code = file->openRegular(O_RDONLY);
            break;
        case FileAccess::CreateNew:
            code = openNew(*file);
            break;
        case FileAccess::Append:
        case FileAccess::AppendYielding:
            code = openToAdd(*file);
            break;
    }
    if (code == kSuccess) handle = toHandle(std::move(file));
    return code;
}

ErrorCode NativeFiles::GetFileSizeEx(Handle handle, std::uint64_t& size) {
    struct stat about = {};
    if (fstat(openedOf(handle).descriptor, &about) != 0) return lastError();
    size = static_cast<std::uint64_t>(about.st_size);
    return kSuccess;
}

ErrorCode NativeFiles::SetFilePointerEx(Handle handle, std::uint64_t position) {
    if (position > static_cast<std::uint64_t>(INT64_MAX)) return kInvalidHandle;
    const auto offset = static_cast<off_t>(position);
    openedOf(handle).adding.end = -1;  // the end of the last line is no longer known
    return lseek(openedOf(handle).descriptor, offset, SEEK_SET) == -1 ? lastError() : kSuccess;
}

ErrorCode NativeFiles::ReadFile(Handle handle, char* buffer, std::size_t capacity,
                                std::size_t& count) {
    openedOf(handle).adding.end = -1;
    const ssize_t result =
        unlessInterrupted([&] { return read(openedOf(handle).descriptor, buffer, capacity); });
    if (result == -1) return lastError();
    count = static_cast<std::size_t>(result);
    return kSuccess;
}

ErrorCode NativeFiles::WriteFile(Handle handle, std::string_view bytes) {
    const Opened& file = openedOf(handle);
    if (file.access != FileAccess::CreateNew) return kAccessDenied;
    while (!bytes.empty()) {
        const ssize_t result =
            unlessInterrupted([&] { return write(file.descriptor, bytes.data(), bytes.size()); });
        if (result == -1) return lastError();
        bytes.remove_prefix(static_cast<std::size_t>(result));
    }
    return kSuccess;
}

ErrorCode NativeFiles::Append(Handle handle, std::string_view bytes, std::string_view lineBreak) {
    Opened& file = openedOf(handle);
    return isForAdding(file.access) ? add(file, bytes, lineBreak) : kAccessDenied;
}

ErrorCode NativeFiles::EmptyFile(Handle handle) {
    Opened& file = openedOf(handle);
    return isForAdding(file.access) ? empty(file) : kAccessDenied;
}

ErrorCode NativeFiles::FlushFileBuffers(Handle handle) {
    return resultOf(fsync(openedOf(handle).descriptor));
}

ErrorCode NativeFiles::CloseHandle(Handle handle) {
    const std::unique_ptr<Opened> file(&openedOf(handle));
    if (isForAdding(file->access)) finishAdding(*file);
    if (file->forWork && file->keepsItsName()) unlink(file->path.c_str());
    return file->close();
}

}  // namespace quorkit::native
