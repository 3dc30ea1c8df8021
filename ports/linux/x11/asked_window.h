// The facts of a window, by the conventions of X clients: ICCCM 2.0 and Extended Window Manager
// Hints 1.5.
#pragma once

#include <quorkit/values.h>

#include <optional>

#include "linux/x11/x11_connection.h"

namespace quorkit::x11 {

/// The constructor sends the requests and `take` reads the answers, so asking many windows costs
/// one round trip. Windows with a title of the old kind, or not on the screen, need a second one.
class AskedWindow {
   public:
    /// The names that the requests use; learn them all at once.
    static const std::vector<std::string>& names();

    enum Asked { Title, Everything };
    AskedWindow(Connection& connection, xcb_window_t window, Asked asked);

    /// Reads the answers and sends the requests that are still needed. False when the window no
    /// longer exists.
    bool take();
    void takeRest();

    xcb_window_t window() const { return window_; }
    String title;
    bool visible = false;  ///< true for a minimized window too, as on Windows

    // These are set when everything is asked for.

    String className;
    String instanceName;
    bool managed = false;  ///< a program's window, not the frame around one

    /// Whether `name` is one of the window's two class names.
    bool hasClass(const String& name) const;

   private:
    using Property = std::optional<xcb_get_property_cookie_t>;

    xcb_get_property_cookie_t ask(const char* name) const;
    /// Null when it was not asked for; each answer can be taken once.
    ReplyPtr<xcb_get_property_reply_t> answer(Property& property);

    Connection* connection_;
    xcb_window_t window_;
    Property netName_;
    Property name_;
    Property class_;
    Property state_;
    xcb_get_window_attributes_cookie_t attributes_;
};

}  // namespace quorkit::x11
