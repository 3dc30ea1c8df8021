// The picture object of the interface.
#pragma once

#include <quorkit/object.h>

#include <memory>
#include <string>

namespace quorkit {

/// A picture, as the bytes of its file: BMP, PNG, JPEG, GIF, WMF with a placeable header, or EMF.
class Picture final : public Object {
   public:
    /// Error 481 when the bytes do not begin as such a file does; nothing looks further.
    explicit Picture(std::string file);

    const char* className() const override { return "Picture"; }
    const std::string& file() const { return file_; }
    /// Whether it is a WMF or EMF.
    bool isMetafile() const { return isMetafile_; }

   private:
    std::string file_;
    bool isMetafile_;
};

using PictureRef = std::shared_ptr<Picture>;

}  // namespace quorkit
