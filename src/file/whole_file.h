// Reading a file whole, and changing one so that nothing is ever lost.
#pragma once

#include <quorkit/ports/files.h>

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace quorkit::file {

/// Reads a whole file; kFileTooLarge, without reading it, for one of more than `most` bytes. On
/// failure `content` is unspecified.
ErrorCode readWholeFile(Files& files, const String& name, std::string& content,
                        std::size_t most = std::string::npos);
/// Reads at most `most` bytes of a file from `start` on.
ErrorCode readPart(Files& files, const String& name, std::uint64_t start, std::size_t most,
                   std::string& content);

/// The sole right to change one file, for as long as this object lives.
class LockedFile {
   public:
    /// Follows links, then waits for the lock, as `replace` does where it must. See `status` for
    /// how it went.
    LockedFile(Files& files, const String& name, Wait wait = Wait::Patiently);
    ~LockedFile();
    LockedFile(const LockedFile&) = delete;
    LockedFile& operator=(const LockedFile&) = delete;

    /// kSuccess when the file may be changed. Else do not call the other members.
    ErrorCode status() const { return status_; }

    /// The name behind all links.
    const String& name() const { return name_; }

    /// The content as it is now; a file that does not exist yet is empty. See readWholeFile.
    ErrorCode read(std::string& content, std::size_t most = std::string::npos);

    /// Puts new content in place, and may be called once. Mostly in one step: writes it beside the
    /// file, brings it to the disk and swaps. Where the folder or the system does not let this user
    /// put a file there, it is written in place, see `overwrite`. On failure the file has its old
    /// content and nothing is left beside it. kFileReplaced: somebody who did not ask for the lock
    /// has changed the file; lock it again, read it and begin anew.
    ErrorCode replace(std::string_view content);
    /// The same by way of a file of the caller's own name, which must be in the same folder.
    ErrorCode replaceBy(const String& beside, std::string_view content);
    /// Writes new content over the old in place, and that one back when it fails. Not one step: a
    /// reader at that moment, or the death of the process, may see a part of it.
    ErrorCode overwrite(std::string_view content);

   private:
    ErrorCode swap(const String& beside, std::string_view content);

    Files& files_;
    Wait wait_;
    String name_;
    Handle lock_ = Handle::Invalid;
    ErrorCode status_;
};

/// Locks a file, makes `content` its whole content and gives the lock back, see LockedFile.
ErrorCode writeWholeFile(Files& files, const String& name, std::string_view content,
                         Wait wait = Wait::Patiently);

/// Makes an attempt at a change, and another while it gives kFileReplaced. Those who get in between
/// do not ask for the lock, so that there could be no end: after a hundred it gives up. Returns the
/// last result.
template <class Attempt>
ErrorCode untilNotReplaced(Attempt attempt) {
    ErrorCode code = kFileReplaced;
    for (int left = 100; code == kFileReplaced && left > 0; --left) code = attempt();
    return code;
}

}  // namespace quorkit::file
