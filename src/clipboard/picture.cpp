#include <quorkit/errors.h>
#include <quorkit/picture.h>

#include <utility>

#include "clipboard/picture_kind.h"

namespace quorkit {

Picture::Picture(std::string file) : file_(std::move(file)) {
    const auto kind = pictureKindOf(file_);
    if (!kind) raise(ErrorNumber::InvalidPicture);
    isMetafile_ = quorkit::isMetafile(*kind);
}

}  // namespace quorkit
