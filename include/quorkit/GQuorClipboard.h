// Texts, rich texts and pictures on the clipboard. No state.
//
// Nothing raises an error. A step that fails is skipped and the member goes on with the next one:
// another program keeps the clipboard to itself, a file is not there, there is no clipboard at all.
//
// What is put on the clipboard takes the place of all that was there, in its one form: beside a
// rich text there is no plain one. The old content is gone even where the new one cannot be put
// there, unless another program puts it back. The new one stays when the program ends.
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
    // A picture is its file, byte by byte, where the clipboard allows it: on Windows a WMF comes
    // back as an EMF. What counts is what the bytes are, not the file's name, nor what another
    // program says they are. Of a picture in several forms a bitmap goes before a metafile.

    /// Puts the picture in a file on the clipboard, or empties it when that cannot be done.
    void LoadPictureToClipboard(const String& sFileName);
    /// Writes the picture on the clipboard to a file as it is, whatever the extension says, in
    /// place of its old content in one step: a failure leaves that. A file that may not be written
    /// is deleted first, where its folder allows that. Nothing happens when there is no picture.
    void SavePictureFromClipboard(const String& sFileName);
    /// The picture on the clipboard; Nothing when there is none.
    PictureRef GetPictureFromClipboard();
    /// Puts a picture on the clipboard; Nothing empties it.
    void SetPictureToClipboard(Unchanged<PictureRef> myPicture);

    // --- Texts ---
    //
    // Line ends stay as they are. A surrogate without its partner becomes U+FFFD. Windows ends a
    // text and a rich text at its first U+0000; Linux keeps them whole, but the program that reads
    // them may not.
    //
    // Of a rich text the clipboard holds bytes. They are those of code page 1252, or UTF-8 where a
    // character has no place in that or would be read as another: bytes that are UTF-8 are read so,
    // all others as code page 1252. Whether it is rich text nobody checks.

    void SetTextToClipboard(const String& sText);
    void SetRTFTextToClipboard(const String& sRTFText);
    /// "" when there is no text.
    String GetTextFromClipboard();
    /// "" when there is no rich text; a plain text is none.
    String GetRTFTextFromClipboard();

   private:
    Ports& ports_;
};

}  // namespace quorkit
