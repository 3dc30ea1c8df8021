#include <quorkit/GQuorClipboard.h>

#include "frame/member_row.h"

namespace quorkit {

using frame::method;

template <>
std::span<const MemberInfo> frame::memberRows<GQuorClipboard>() {
    using C = GQuorClipboard;
    static constexpr MemberInfo rows[] = {
        method<&C::LoadPictureToClipboard>(0x60030000, "LoadPictureToClipboard", {"sFileName"},
                                           "Puts the picture in a file on the clipboard."),
        method<&C::SavePictureFromClipboard>(0x60030001, "SavePictureFromClipboard", {"sFileName"},
                                             "Writes the picture on the clipboard to a file."),
        method<&C::GetPictureFromClipboard>(
            0x60030002, "GetPictureFromClipboard",
            "The picture on the clipboard; Nothing when there is none."),
        method<&C::SetPictureToClipboard>(0x60030003, "SetPictureToClipboard", {"myPicture"},
                                          "Puts a picture on the clipboard."),
        method<&C::SetTextToClipboard>(0x60030004, "SetTextToClipboard", {"sText"},
                                       "Puts a text on the clipboard."),
        method<&C::SetRTFTextToClipboard>(0x60030005, "SetRTFTextToClipboard", {"sRTFText"},
                                          "Puts a rich text on the clipboard."),
        method<&C::GetTextFromClipboard>(0x60030006, "GetTextFromClipboard",
                                         "The text on the clipboard; \"\" when there is none."),
        method<&C::GetRTFTextFromClipboard>(
            0x60030007, "GetRTFTextFromClipboard",
            "The rich text on the clipboard; \"\" when there is none."),
    };
    return rows;
}

}  // namespace quorkit
