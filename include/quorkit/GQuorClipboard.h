// Texts, rich texts and pictures on the clipboard. No state.
//
// No member raises an error. When a step fails (another program holds the clipboard, a file is
// missing, there is no clipboard at all), the member skips it and goes on with the next one.
//
// New content replaces everything on the clipboard, and is there in one form only: a rich text
// brings no plain text with it. If the new content cannot be put there, the old content is lost all
// the same, unless another program puts it back. The new content stays when the program ends.
#pragma once

#include <quorkit/parameters.h>
#include <quorkit/picture.h>
#include <quorkit/ports/ports.h>
#include <quorkit/values.h>

namespace quorkit {

class GQuorClipboard {
   public:
    explicit GQuorClipboard(Ports& ports = ports::native()) : ports_(ports) {}

    // --- Pictures ---
    //
    // A picture is the bytes of its file. The clipboard keeps them unchanged, except that Windows
    // returns a WMF as an EMF. The bytes decide what kind of picture it is; the file's extension
    // and what another program declares do not count. If a picture is there in several forms, a
    // bitmap is preferred to a metafile.

    /// Puts the picture in a file on the clipboard. When that fails, the clipboard is emptied.
    void LoadPictureToClipboard(const String& sFileName);
    /// Writes the picture on the clipboard to a file, byte by byte, whatever the extension says.
    /// The new content replaces the old one in one step, so a failure leaves the old file. A file
    /// that may not be written is deleted first, if its folder allows that. Without a picture
    /// nothing happens.
    void SavePictureFromClipboard(const String& sFileName);
    /// The picture on the clipboard; Nothing when there is none.
    PictureRef GetPictureFromClipboard();
    /// Puts a picture on the clipboard; Nothing empties it.
    void SetPictureToClipboard(Unchanged<PictureRef> myPicture);

    // --- Texts ---
    //
    // Line ends stay as they are. A surrogate without its partner becomes U+FFFD. Windows ends a
    // text and a rich text at its first U+0000. Linux keeps the whole text, but the program that
    // reads it may not.
    //
    // The clipboard holds a rich text as bytes: code page 1252, or UTF-8 when the code page lacks a
    // character or when the bytes would be read back as other characters. On reading, bytes that
    // are valid UTF-8 are UTF-8, all others code page 1252. Nothing checks that the text is rich
    // text.

    void SetTextToClipboard(const String& sText);
    void SetRTFTextToClipboard(const String& sRTFText);
    /// "" when there is no text.
    String GetTextFromClipboard();
    /// "" when there is no rich text, even if there is a plain text.
    String GetRTFTextFromClipboard();

   private:
    Ports& ports_;
};

}  // namespace quorkit
