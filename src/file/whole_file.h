// Reads a file whole, and changes one without ever losing anything.
#pragma once

#include <quorkit/ports/files.h>

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace quorkit::file {

/// Reads a whole file. One of more than `most` bytes gives kFileTooLarge and is not read. On a
/// failure `content` is unspecified.
ErrorCode readWholeFile(Files& files, const String& name, std::string& content,
                        std::size_t most = std::string::npos);
/// Reads at most `most` bytes of a file from `start` on.
ErrorCode readPart(Files& files, const String& name, std::uint64_t start, std::size_t most,
                   std::string& content);

/// The sole right to change one file, for as long as this object lives.
class LockedFile {
   public:
    /// Follows links, then waits for the lock; `replace` waits as long where it must. `status`
    /// gives the outcome.
    LockedFile(Files& files, const String& name, Wait wait = Wait::Patiently);
    ~LockedFile();
    LockedFile(const LockedFile&) = delete;
    LockedFile& operator=(const LockedFile&) = delete;

    /// kSuccess when the file may be changed. Otherwise call no other member.
    ErrorCode status() const { return status_; }

    /// The name after all links were followed.
    const String& name() const { return name_; }

    /// Reads the current content; a file that does not exist yet is empty. See readWholeFile.
    ErrorCode read(std::string& content, std::size_t most = std::string::npos);

    /// Puts new content in place; may be called once. Usually this is one step: the content is
    /// written to another file in the same folder, brought to the disk and swapped. Where the
    /// folder or the system does not let this user do that, the file is overwritten, see
    /// `overwrite`. On a failure the file has its old content and the other file is gone.
    /// kFileReplaced means that somebody without the lock has changed the file: lock it again, read
    /// it and begin anew.
    ErrorCode replace(std::string_view content);
    /// The same; the caller names the other file, which must be in the same folder.
    ErrorCode replaceBy(const String& beside, std::string_view content);
    /// Overwrites the old content, and restores it when that fails. This is not one step: a reader
    /// at that moment, or the death of the process, may meet a part of the new content.
    ErrorCode overwrite(std::string_view content);

   private:
    ErrorCode swap(const String& beside, std::string_view content);

    Files& files_;
    Wait wait_;
    String name_;
    Handle lock_ = Handle::Invalid;
    ErrorCode status_;
};

/// Locks a file, replaces its content with `content` and gives the lock back, see LockedFile.
ErrorCode writeWholeFile(Files& files, const String& name, std::string_view content,
                         Wait wait = Wait::Patiently);

/// Attempts a change, and repeats it while the result is kFileReplaced. Others who change the file
/// do not ask for the lock, so this might never end; it gives up after a hundred attempts. Returns
/// the last result.
template <class Attempt>
ErrorCode untilNotReplaced(Attempt attempt) {
    ErrorCode code = kFileReplaced;
    for (int left = 100; code == kFileReplaced && left > 0; --left) code = attempt();
    return code;
}

}  // namespace quorkit::file
