#include <quorkit/GQuorWindows.h>

#include "frame/member_row.h"

namespace quorkit {

using frame::method;

template <>
std::span<const MemberInfo> frame::memberRows<GQuorWindows>() {
    using C = GQuorWindows;
    static constexpr MemberInfo rows[] = {
        method<&C::GetOSVersion>(0x60030000, "GetOSVersion", {"sName", "OSVersion", "sServicePack"},
                                 "The name, edition and service pack of the system."),
        method<&C::GetOSLanguage>(0x60030001, "GetOSLanguage",
                                  "The language of the user's interface."),
        method<&C::GetSystemCountryCode>(0x60030002, "GetSystemCountryCode",
                                         "The dialling code of the system's country."),
        method<&C::SetTopMostWindow>(0x60030003, "SetTopMostWindow", {"hwnd", "Topmost"},
                                     "Puts a window above all others, or back among them."),
        method<&C::WinFindWindowByClassName>(0x60030004, "WinFindWindowByClassName", {"className"},
                                             "The topmost window of a class."),
        method<&C::WinFindWindowByTitle>(0x60030005, "WinFindWindowByTitle", {"TitleName"},
                                         "The topmost window with a title."),
        method<&C::WinFindWindowByPartOfTitle>(
            0x60030006, "WinFindWindowByPartOfTitle",
            {"PartOfTitleName", "bCompareFromLeft", "bCaseSensitive", "bOnlyVisibleWindow"},
            "The topmost window whose title holds a text."),
        method<&C::WinGetWindowTitle>(0x60030007, "WinGetWindowTitle", {"hwnd"},
                                      "The title of a window."),
        method<&C::WinTerminateProgram>(
            0x60030008, "WinTerminateProgram", {"className"},
            "Asks the program that owns a window to close that window."),
        method<&C::getWorkingScreenSize>(
            0x60030009, "getWorkingScreenSize", {"eUnits", "iLeft", "iTop", "iWidth", "iHeight"},
            "The edges of the part of the screen that panels leave to windows."),
        method<&C::ConvertPointsToPixels>(0x6003000A, "ConvertPointsToPixels", {"Points"},
                                          "Points as pixels."),
        method<&C::ConvertPixelsToPoints>(0x6003000B, "ConvertPixelsToPoints", {"Pixels"},
                                          "Pixels as points."),
        method<&C::LoadVBAUserFormPosition>(
            0x6003000C, "LoadVBAUserFormPosition", {"sRegPath", "frm", "hostApp", "bOnlyPosition"},
            "Moves a form to the position that the registry has for it."),
        method<&C::SaveVBAUserFormPosition>(0x6003000D, "SaveVBAUserFormPosition",
                                            {"sRegPath", "frm", "bOnlyPosition"},
                                            "Writes the position of a form to the registry."),
        method<&C::CenterUserFormInApplication>(0x6003000E, "CenterUserFormInApplication",
                                                {"frm", "hostApp"},
                                                "Puts a form in the middle of an application."),
        method<&C::WinShowWaitForm>(0x6003000F, "WinShowWaitForm",
                                    {"show", "language", "parrentWindow"},
                                    "Shows or hides a window that asks the user to wait."),
        method<&C::ShowAboutDialog>(0x60030010, "ShowAboutDialog",
                                    "Shows the name, version and build of the library."),
    };
    return rows;
}

}  // namespace quorkit
