// What a window says of itself, by the conventions of X clients: ICCCM 2.0 and Extended Window
// Manager Hints 1.5.
#pragma once

#include <quorkit/values.h>

#include "linux/x11/connection.h"

namespace quorkit::x11 {

/// The 32-bit numbers that a property holds.
std::vector<std::uint32_t> numbersIn(const std::string& bytes);

/// Its requests are sent when it is made, and the answers are taken later, so that many windows
/// cost one round.
class AskedWindow {
   public:
    /// The names that it asks for, to be learnt at once.
    static const std::vector<std::string>& names();

    AskedWindow(Connection& connection, xcb_window_t window);

    /// Takes all answers. False when there is no such window any more.
    bool take();

    xcb_window_t window() const { return window_; }
    /// Whether a name is one of the two of its class.
    bool hasClass(const String& name) const;

    String title;
    String className;
    String instanceName;
    bool managed = false;  ///< the window of a program, not the frame around one
    bool visible = false;  ///< also when it is minimized, as on Windows

   private:
    xcb_get_property_cookie_t ask(const char* name) const;
    std::string answer(xcb_get_property_cookie_t cookie, xcb_atom_t type, int format) const;

    Connection* connection_;
    xcb_window_t window_;
    xcb_get_property_cookie_t netName_;
    xcb_get_property_cookie_t name_;
    xcb_get_property_cookie_t class_;
    xcb_get_property_cookie_t state_;
    xcb_get_window_attributes_cookie_t attributes_;
};

}  // namespace quorkit::x11
