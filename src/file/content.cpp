// Files as arrays of bytes.
#include <quorkit/GQuorFile.h>

#include <limits>
#include <utility>
#include <vector>

#include "file/file_error.h"
#include "file/open_file.h"
#include "file/whole_file.h"

namespace quorkit {
namespace {

constexpr Long kFirstIndex = 1;

void require(ErrorCode code) {
    if (code != kSuccess) file::raiseFileError(code);
}

}  // namespace

void GQuorFile::LoadFileToByteArray(const String& vsFileName, Out<Array<Byte>> rbaArray) {
    file::OpenFile file(ports_.files, vsFileName);
    const std::uint64_t size = file.size();
    require(file.status());
    if (size > std::numeric_limits<Long>::max()) raise(ErrorNumber::Overflow);

    std::vector<Byte> bytes(static_cast<std::size_t>(size));
    std::size_t used = 0;
    for (std::size_t got = 1; got != 0 && used < bytes.size(); used += got)
        got = file.read(reinterpret_cast<char*>(bytes.data()) + used, bytes.size() - used);
    require(file.status());
    if (used == 0) raise(ErrorNumber::SubscriptOutOfRange);
    bytes.resize(used);
    rbaArray = Array<Byte>(std::move(bytes), kFirstIndex);
}

void GQuorFile::SaveByteArrayToFile(Unchanged<Array<Byte>> rbaArray, const String& vsFileName) {
    if (rbaArray->dimensions() != 1) raise(ErrorNumber::SubscriptOutOfRange);
    const std::vector<Byte>& bytes = rbaArray->elements();
    require(file::writeWholeFile(ports_.files, vsFileName,
                                 {reinterpret_cast<const char*>(bytes.data()), bytes.size()},
                                 Wait::Briefly));
}

}  // namespace quorkit
