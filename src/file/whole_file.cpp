#include "file/whole_file.h"

#include <algorithm>
#include <cstdint>

#include "base/hash.h"
#include "file/open_file.h"

namespace quorkit::file {
namespace {

/// A name in the folder of `name` that only the holder of the lock uses.
String besideOf(const String& name) {
    const auto end = name.find_last_of(u"/\\");
    const std::size_t start = end == String::npos ? 0 : end + 1;
    const std::uint64_t hash = base::hashOf(StringView(name).substr(start));
    String result = name.substr(0, start) + u".quorkit-";
    for (int shift = 60; shift >= 0; shift -= 4)
        result += u"0123456789abcdef"[(hash >> shift) & 15];
    return result;
}

/// Reads on, up to the end or `most` bytes. `rest`, the number of bytes expected, is only a hint:
/// one more byte is read to see the end, and a file that grows is read further.
void readOn(OpenFile& file, std::uint64_t rest, std::size_t most, std::string& content) {
    std::size_t used = 0;
    content.clear();
    for (std::size_t got = 1; got != 0 && used < most; used += got) {
        if (used == content.size())
            content.resize(static_cast<std::size_t>(
                std::min<std::uint64_t>(most, used == 0 ? rest + 1 : std::uint64_t{used} * 2)));
        got = file.read(content.data() + used, content.size() - used);
    }
    content.resize(used);
}

}  // namespace

ErrorCode readWholeFile(Files& files, const String& name, std::string& content, std::size_t most) {
    OpenFile file(files, name);
    const std::uint64_t size = file.size();
    if (size <= most) readOn(file, size, most == std::string::npos ? most : most + 1, content);
    if (file.status() != kSuccess) return file.status();
    return size > most || content.size() > most ? kFileTooLarge : kSuccess;
}

ErrorCode readPart(Files& files, const String& name, std::uint64_t start, std::size_t most,
                   std::string& content) {
    OpenFile file(files, name);
    const std::uint64_t size = file.size();
    if (start != 0) file.seek(start);
    readOn(file, size > start ? size - start : 0, most, content);
    return file.status();
}

LockedFile::LockedFile(Files& files, const String& name, Wait wait) : files_(files), wait_(wait) {
    status_ = files_.FinalName(name, name_);
    if (status_ == kSuccess) status_ = files_.LockForChange(name_, lock_, wait);
}

LockedFile::~LockedFile() {
    if (status_ == kSuccess) files_.CloseHandle(lock_);
}

ErrorCode LockedFile::read(std::string& content, std::size_t most) {
    const ErrorCode code = readWholeFile(files_, name_, content, most);
    if (code != kFileNotFound) return code;
    content.clear();
    return kSuccess;
}

ErrorCode LockedFile::swap(const String& beside, std::string_view content) {
    Handle file = Handle::Invalid;
    if (const ErrorCode code = files_.CreateReplacement(lock_, beside, file)) return code;
    ErrorCode code = files_.WriteFile(file, content);
    if (code == kSuccess) code = files_.FlushFileBuffers(file);
    if (code == kSuccess) code = files_.Replace(lock_, file, wait_);
    files_.CloseHandle(file);
    return code;
}

ErrorCode LockedFile::replace(std::string_view content) {
    return replaceBy(besideOf(name_), content);
}

ErrorCode LockedFile::replaceBy(const String& beside, std::string_view content) {
    const ErrorCode code = swap(beside, content);
    if (code == kAccessDenied) {
        const ErrorCode inPlace = overwrite(content);
        return inPlace == kFileNotFound ? code : inPlace;
    }
    // The new content is in place; this stays true even if the folder does not reach the disk.
    if (code == kSuccess) files_.FlushFolderOf(name_);
    return code;
}

ErrorCode LockedFile::overwrite(std::string_view content) {
    std::string old;
    if (const ErrorCode code = readWholeFile(files_, name_, old)) return code;
    const ErrorCode code = files_.WriteInPlace(lock_, content);
    if (code != kSuccess && code != kFileReplaced) files_.WriteInPlace(lock_, old);
    return code;
}

ErrorCode writeWholeFile(Files& files, const String& name, std::string_view content, Wait wait) {
    return untilNotReplaced([&] {
        LockedFile file(files, name, wait);
        return file.status() == kSuccess ? file.replace(content) : file.status();
    });
}

}  // namespace quorkit::file
