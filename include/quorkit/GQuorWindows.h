// The system, other programs' windows, the screen and the positions of forms. No state.
//
// A form, and a host application, is any object with the properties "Left", "Top", "Width" and
// "Height", in points; a form also has a "Name".
#pragma once

#include <quorkit/enumerations.h>
#include <quorkit/object.h>
#include <quorkit/parameters.h>
#include <quorkit/ports/ports.h>
#include <quorkit/variant.h>

namespace quorkit {

class GQuorWindows {
   public:
    explicit GQuorWindows(Ports& ports = ports::native()) : ports_(ports) {}

    // --- The system ---
    //
    // No member of this group raises an error.

    /// The name of the system, the number of its edition and its service pack. When the system does
    /// not tell its version the result is False and the outputs are empty. Only systems up to 2003
    /// have a name. Later ones are "Neue, unbekannte Windows-Version" and eOSVersion_Future;
    /// anything but Windows is "Unbekannte Version". With both suites a Windows 2000 server is an
    /// Advanced Server, a 2003 server a Datacenter Server.
    Boolean GetOSVersion(Out<String> sName, Out<eOSVersion> OSVersion, Out<String> sServicePack);
    /// The language of the user's interface, or the system's own when that is not known. A language
    /// that has no constant is eLanguage_Unknown. Never eLanguage_System.
    eLanguage GetOSLanguage();
    /// The dialling code of the system's country, such as 49; 0 when it is not known.
    Long GetSystemCountryCode();

    // --- Windows ---
    //
    // Handles are the system's numbers of windows; 0 is no window. A window that disappears counts
    // as missing.

    /// Keeps a window above all others from now on; the result is not 0 when that worked. With
    /// `Topmost` False the window goes back among the others, and the result is always 0.
    Long SetTopMostWindow(Unchanged<Long> hwnd, Unchanged<Boolean> Topmost);
    /// The topmost window of a class, without regard to letter case; 0 when there is none.
    Long WinFindWindowByClassName(Unchanged<String> className);
    /// The topmost window with exactly this title, without regard to letter case; 0 when there is
    /// none.
    Long WinFindWindowByTitle(Unchanged<String> TitleName);
    /// The topmost window whose title, cut to 254 characters, contains a text, or begins with it
    /// when `bCompareFromLeft` is True; 0 when there is none. The empty text is found in every
    /// title that is not empty. Error 13 for an option that is no Boolean, 94 for Null.
    Long WinFindWindowByPartOfTitle(const String& PartOfTitleName,
                                    const Optional<Variant, false>& bCompareFromLeft = {},
                                    const Optional<Variant, true>& bCaseSensitive = {},
                                    const Optional<Variant, false>& bOnlyVisibleWindow = {});
    /// The title of a window, at most 254 characters; "" when there is no such window. Error 6, 13
    /// or 94 when `hwnd` is no number of a window.
    Variant WinGetWindowTitle(Unchanged<Variant> hwnd);
    /// Asks the program of the topmost window of a class to close that window. -1 when there is no
    /// such window, 0 when the window does not take the message, otherwise another number, whether
    /// the program ends or not.
    Long WinTerminateProgram(Unchanged<String> className);

    // --- The screen, and forms on it ---
    //
    // A pixel counts as 0.75 points and as 15 twips.

    /// The part of the screen that panels leave to windows, in a unit of eUnits; any other number
    /// means pixels. `iWidth` and `iHeight` receive its right and lower edges. All are 0 without a
    /// screen.
    void getWorkingScreenSize(Long eUnits, Out<Double> iLeft, Out<Double> iTop, Out<Double> iWidth,
                              Out<Double> iHeight);
    /// Rounds to the nearest pixel, halves to the even one. Error 6 when out of range.
    Long ConvertPointsToPixels(Double Points);
    Double ConvertPixelsToPoints(Long Pixels);
    /// Puts a form where SaveVBAUserFormPosition has stored it. When nothing is stored, or the
    /// stored left edge is at -10 or less, the form goes to the middle of the host application.
    /// With `bOnlyPosition` False the form gets its stored size too. Then the form is moved into
    /// the working area, beyond which it may stand out by 6 points; the right and lower edges are
    /// adjusted last. Without a screen this second step is left out. A failure ends the work at
    /// that step; what is already set stays.
    void LoadVBAUserFormPosition(const String& sRegPath, const ObjectRef& frm,
                                 const ObjectRef& hostApp,
                                 Optional<Boolean, true> bOnlyPosition = {});
    /// Stores the position of a form in the registry, and with `bOnlyPosition` False its size. The
    /// values are "Left", "Top", "Width" and "Height" of the key `sRegPath` + "\" + the form's name
    /// + "_Position", rounded down; a value that does not fit is not written. A failure ends the
    /// work at that step; what is already written stays.
    void SaveVBAUserFormPosition(const String& sRegPath, const ObjectRef& frm,
                                 Optional<Boolean, true> bOnlyPosition = {});
    /// Puts a form in the middle of the host application. Error 91 for Nothing; errors of the
    /// objects reach the caller.
    void CenterUserFormInApplication(const ObjectRef& frm, const ObjectRef& hostApp);

    // --- The library's own windows ---

    /// Shows a window that asks the user to wait, together with the hourglass pointer, or removes
    /// both. The text is English for any `language` but 1 to 4, and German when `language` is left
    /// out. The window stands above the one whose number is `parrentWindow`. Never an error.
    void WinShowWaitForm(Boolean show, Optional<Long, eLanguage_German> language = {},
                         const Optional<Variant>& parrentWindow = {});
    /// Shows the name, the version and the build of the library.
    void ShowAboutDialog();

   private:
    Ports& ports_;
};

}  // namespace quorkit
