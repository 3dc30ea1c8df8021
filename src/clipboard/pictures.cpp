#include <quorkit/GQuorClipboard.h>
#include <quorkit/ports/clipboard.h>

#include <utility>

#include "clipboard/replace.h"
#include "file/file_error.h"
#include "file/whole_file.h"
#include "frame/error_patterns.h"

namespace quorkit {
namespace {

void require(ErrorCode code) {
    if (code != kSuccess) file::raiseFileError(code);
}

PictureRef pictureIn(Files& files, const String& name) {
    std::string content;
    require(file::readWholeFile(files, name, content));
    return std::make_shared<Picture>(std::move(content));
}

PictureRef pictureOn(Clipboard& clipboard) {
    std::string file;
    for (const auto format : {ClipboardFormat::Bitmap, ClipboardFormat::Metafile})
        if (clipboard.GetClipboardData(format, file))
            return std::make_shared<Picture>(std::move(file));
    return nullptr;
}

bool put(Clipboard& clipboard, const PictureRef& picture) {
    return picture != nullptr &&
           clipboard.PutOnClipboard(
               picture->isMetafile() ? ClipboardFormat::Metafile : ClipboardFormat::Bitmap,
               picture->file());
}

ErrorCode save(Files& files, const Picture& picture, const String& name) {
    return file::writeWholeFile(files, name, picture.file(), Wait::Briefly);
}

}  // namespace

void GQuorClipboard::LoadPictureToClipboard(const String& sFileName) {
    clipboard::replaceContent(ports_.clipboard, [&] {
        return put(ports_.clipboard, pictureIn(ports_.files, sFileName));
    });
}

void GQuorClipboard::SavePictureFromClipboard(const String& sFileName) {
    const PictureRef picture = GetPictureFromClipboard();
    if (picture == nullptr) return;
    Files& files = ports_.files;
    frame::resumeNext([&] {
        if (save(files, *picture, sFileName) != kAccessDenied) return;
        // A file that may not be written may be replaced if its folder allows that.
        if (files.DeleteFileA(sFileName) == kSuccess) save(files, *picture, sFileName);
    });
}

PictureRef GQuorClipboard::GetPictureFromClipboard() {
    return frame::onErrorReturn(PictureRef(), [&] { return pictureOn(ports_.clipboard); });
}

void GQuorClipboard::SetPictureToClipboard(Unchanged<PictureRef> myPicture) {
    clipboard::replaceContent(ports_.clipboard, [&] { return put(ports_.clipboard, *myPicture); });
}

}  // namespace quorkit
