#include <quorkit/errors.h>
#include <quorkit/picture.h>

#include <utility>

#include "base/picture_kind.h"
#include "frame/conversion.h"
#include "frame/foreign_object.h"
#include "frame/instance.h"

namespace quorkit {

Picture::Picture(std::string file) : file_(std::move(file)) {
    const auto kind = base::pictureKindOf(file_);
    if (!kind) raise(ErrorNumber::InvalidPicture);
    isMetafile_ = base::isMetafile(*kind);
}

PictureRef Picture::of(const ObjectRef& object) {
    return frame::ForeignObject::adapted<Picture>(
        object, u"File", [](const ObjectRef&, Variant file) {
            if (const auto failure = frame::convert(file, {Type::ByteArray}, nullptr))
                raise(*failure);
            const std::vector<Byte>& bytes = file.get<Array<Byte>>().elements();
            return std::make_shared<Picture>(std::string(bytes.begin(), bytes.end()));
        });
}

const ClassInfo& Picture::info() const {
    return frame::classInfo<Picture>();
}

Array<Byte> Picture::File() const {
    return Array<Byte>(std::vector<Byte>(file_.begin(), file_.end()));
}

}  // namespace quorkit
