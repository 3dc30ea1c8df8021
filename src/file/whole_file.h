// Reading a file whole, and changing one so that nothing is ever lost.
#pragma once

#include <quorkit/ports/files.h>

#include <cstdint>
#include <string>
#include <string_view>

namespace quorkit {

/// Reads a whole file. On failure `content` is unspecified.
ErrorCode readWholeFile(Files& files, const String& name, std::string& content);
/// Reads at most `most` bytes of a file from `start` on.
ErrorCode readPart(Files& files, const String& name, std::uint64_t start, std::size_t most,
                   std::string& content);

/// The sole right to change one file, for as long as this object lives.
class LockedFile {
   public:
    /// Follows links, then waits for the lock, as `replace` does where it must. See `status` for
    /// how it went.
    LockedFile(Files& files, const String& name, Wait wait = Wait::Forever);
    ~LockedFile();
    LockedFile(const LockedFile&) = delete;
    LockedFile& operator=(const LockedFile&) = delete;

    /// kSuccess when the file may be changed. Else do not call the other members.
    ErrorCode status() const { return status_; }

    /// The name behind all links.
    const String& name() const { return name_; }

    /// The content as it is now; a file that does not exist yet is empty.
    ErrorCode read(std::string& content);

    /// Puts new content in place in one step: writes it beside the file, brings it to the disk and
    /// swaps. On failure the file has its old content and nothing is left beside it. A process
    /// killed meanwhile may leave one file ".quorkit-<number>", which the next change clears away.
    ErrorCode replace(std::string_view content);
    /// The same by way of a file of the caller's own name, which must be in the same folder.
    ErrorCode replaceBy(const String& beside, std::string_view content);

   private:
    ErrorCode writeBeside(const String& beside, std::string_view content);

    Files& files_;
    Wait wait_;
    String name_;
    Handle lock_ = Handle::Invalid;
    ErrorCode status_;
};

}  // namespace quorkit
