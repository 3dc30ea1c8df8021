// The picture object of the interface.
#pragma once

#include <quorkit/array.h>
#include <quorkit/catalogue_object.h>

#include <memory>
#include <string>

namespace quorkit {

class Picture;
using PictureRef = std::shared_ptr<Picture>;

/// A picture, as the bytes of its file: BMP, PNG, JPEG, GIF, WMF with a placeable header, or EMF.
class Picture final : public CatalogueObject {
   public:
    /// Error 481 when the bytes do not begin like such a file; the rest is not checked.
    explicit Picture(std::string file);
    /// The object as a picture. For an object that is not the library's the picture is made from
    /// the bytes of its property File. Error 13 when it has none; Nothing stays Nothing.
    static PictureRef of(const ObjectRef& object);

    const ClassInfo& info() const override;

    const std::string& file() const { return file_; }
    /// Whether it is a WMF or EMF.
    bool isMetafile() const { return isMetafile_; }

    /// The bytes of the file as an array counted from 0, for late-bound clients.
    Array<Byte> File() const;

   private:
    void* self() override { return this; }

    std::string file_;
    bool isMetafile_;
};

}  // namespace quorkit
