// The system, other programs' windows, the screen and the positions of forms. No state.
//
// A form and a host application are any objects with the properties "Left", "Top", "Width" and
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
    // Nothing here raises an error.

    /// The name of the system, the number of its edition, and of its service pack. False, and the
    /// outputs empty, when it does not tell its version. Only systems up to 2003 have a name; later
    /// ones are "Neue, unbekannte Windows-Version" and eOSVersion_Future, and what is not Windows
    /// is "Unbekannte Version". A Windows 2000 server with both suites counts as an Advanced
    /// Server, a 2003 one as a Datacenter Server.
    Boolean GetOSVersion(Out<String> sName, Out<eOSVersion> OSVersion, Out<String> sServicePack);
    /// The language of the user's interface, or when that is not known the system's own;
    /// eLanguage_Unknown for one that has no constant. Never eLanguage_System.
    eLanguage GetOSLanguage();
    /// The dialling code of the system's country, such as 49; 0 when it is not known.
    Long GetSystemCountryCode();

    // --- Windows ---
    //
    // Handles are the system's numbers of windows; 0 is none. A window that vanishes is not there.

    /// Puts a window above all others, for good. Not 0 when that worked. With `Topmost` False the
    /// window goes back among the others, and the result is 0 whether that worked or not.
    Long SetTopMostWindow(Unchanged<Long> hwnd, Unchanged<Boolean> Topmost);
    /// The topmost window of a class, without regard to letter case; 0 when there is none.
    Long WinFindWindowByClassName(Unchanged<String> className);
    /// The topmost window with exactly this title, without regard to letter case; 0 when there is
    /// none.
    Long WinFindWindowByTitle(Unchanged<String> TitleName);
    /// The topmost window whose title, cut to 254 characters, holds a text, or begins with it when
    /// `bCompareFromLeft` is True; 0 when there is none. The empty text is in every title but the
    /// empty one. Error 13 for an option that is no Boolean, 94 for Null.
    Long WinFindWindowByPartOfTitle(const String& PartOfTitleName,
                                    const Optional<Variant, false>& bCompareFromLeft = {},
                                    const Optional<Variant, true>& bCaseSensitive = {},
                                    const Optional<Variant, false>& bOnlyVisibleWindow = {});
    /// The title of a window, at most 254 characters; "" when there is no such window. Errors 6, 13
    /// and 94 for what is no number of a window.
    Variant WinGetWindowTitle(Unchanged<Variant> hwnd);
    /// Asks the program of the topmost window of a class to close it. -1 when there is no such
    /// window; 0 when it takes no such message; otherwise not 0, whether the program ends or not.
    Long WinTerminateProgram(Unchanged<String> className);

    // --- The screen, and forms on it ---
    //
    // A pixel counts as 0.75 points and as 15 twips.

    /// The part of the screen that panels leave to windows, in a unit (eUnits; pixels for any other
    /// number). `iWidth` and `iHeight` are its right and lower edges. All are 0 without a screen.
    void getWorkingScreenSize(Long eUnits, Out<Double> iLeft, Out<Double> iTop, Out<Double> iWidth,
                              Out<Double> iHeight);
    /// To the nearest pixel, halves to the even one. Error 6 when out of range.
    Long ConvertPointsToPixels(Double Points);
    Double ConvertPixelsToPoints(Long Pixels);
    /// Puts a form where SaveVBAUserFormPosition has noted it, or in the middle of the host
    /// application when nothing is noted or the left edge is at -10 or less; with `bOnlyPosition`
    /// False gives it its size too. Then moves it into the working area, where it may stand out by
    /// 6 points; the right and lower edges come last, and without a screen there is nothing to move
    /// it into. A failure ends it at that step: what is set stays.
    void LoadVBAUserFormPosition(const String& sRegPath, const ObjectRef& frm,
                                 const ObjectRef& hostApp,
                                 Optional<Boolean, true> bOnlyPosition = {});
    /// Notes where a form is, and with `bOnlyPosition` False its size, in the registry: values
    /// "Left", "Top", "Width" and "Height" of the key `sRegPath` + "\" + its name + "_Position",
    /// rounded down; one that does not fit is not written. A failure ends it at that step: what is
    /// written stays.
    void SaveVBAUserFormPosition(const String& sRegPath, const ObjectRef& frm,
                                 Optional<Boolean, true> bOnlyPosition = {});
    /// Puts a form in the middle of the host application. Error 91 for Nothing, and what the
    /// objects raise.
    void CenterUserFormInApplication(const ObjectRef& frm, const ObjectRef& hostApp);

    // --- The library's own windows ---

    /// Shows a window that asks the user to wait, and the hourglass; or takes both away. English
    /// for any `language` but 1 to 4; German when it is left out. `parrentWindow` is the number of
    /// the window that it stands above. Never an error.
    void WinShowWaitForm(Boolean show, Optional<Long, eLanguage_German> language = {},
                         const Optional<Variant>& parrentWindow = {});
    /// Shows the name, the version and the build of the library.
    void ShowAboutDialog();

   private:
    Ports& ports_;
};

}  // namespace quorkit
