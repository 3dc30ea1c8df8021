#include <quorkit/errors.h>
#include <quorkit/picture.h>

#include <utility>

#include "base/picture_kind.h"

namespace quorkit {

Picture::Picture(std::string file) : file_(std::move(file)) {
    const auto kind = base::pictureKindOf(file_);
    if (!kind) raise(ErrorNumber::InvalidPicture);
    isMetafile_ = base::isMetafile(*kind);
}

}  // namespace quorkit
