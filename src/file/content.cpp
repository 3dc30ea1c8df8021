// Files as arrays of bytes.
#include <quorkit/GQuorFile.h>

#include <limits>
#include <utility>
#include <vector>

#include "file/file_error.h"
#include "file/whole_file.h"

namespace quorkit {
namespace {

constexpr Long kFirstIndex = 1;

/// A file that is closed on every way out.
class OpenFile {
   public:
    OpenFile(Files& files, const String& name)
        : files_(files), status_(files.CreateFileA(name, FileAccess::Read, handle_)) {}
    ~OpenFile() {
        if (status_ == kSuccess) files_.CloseHandle(handle_);
    }
    OpenFile(const OpenFile&) = delete;
    OpenFile& operator=(const OpenFile&) = delete;

    ErrorCode status() const { return status_; }
    Handle handle() const { return handle_; }

   private:
    Files& files_;
    Handle handle_ = Handle::Invalid;
    ErrorCode status_;
};

void require(ErrorCode code) {
    if (code != kSuccess) raiseFileError(code);
}

}  // namespace

void GQuorFile::LoadFileToByteArray(const String& vsFileName, Array<Byte>& rbaArray) {
    const OpenFile file(ports_.files, vsFileName);
    require(file.status());
    std::uint64_t size = 0;
    require(ports_.files.GetFileSizeEx(file.handle(), size));
    if (size > std::numeric_limits<Long>::max()) raise(ErrorNumber::Overflow);

    std::vector<Byte> bytes(static_cast<std::size_t>(size));
    std::size_t used = 0;
    for (std::size_t got = 1; got != 0 && used < bytes.size(); used += got)
        require(ports_.files.ReadFile(file.handle(), reinterpret_cast<char*>(bytes.data()) + used,
                                      bytes.size() - used, got));
    if (used == 0) raise(ErrorNumber::SubscriptOutOfRange);
    bytes.resize(used);
    rbaArray = Array<Byte>(std::move(bytes), kFirstIndex);
}

void GQuorFile::SaveByteArrayToFile(Unchanged<Array<Byte>> rbaArray, const String& vsFileName) {
    if (rbaArray->dimensions() != 1) raise(ErrorNumber::SubscriptOutOfRange);
    const std::vector<Byte>& bytes = rbaArray->elements();
    LockedFile file(ports_.files, vsFileName, Wait::Briefly);
    require(file.status());
    require(file.replace({reinterpret_cast<const char*>(bytes.data()), bytes.size()}));
}

}  // namespace quorkit
