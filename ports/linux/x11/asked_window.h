// What a window says of itself, by the conventions of X clients: ICCCM 2.0 and Extended Window
// Manager Hints 1.5.
#pragma once

#include <quorkit/values.h>

#include <optional>

#include "linux/x11/x11_connection.h"

namespace quorkit::x11 {

/// Its requests are sent when it is made, and the answers are taken later, so that many windows
/// cost one round; those cost a second one that have an old title or are not on the screen.
class AskedWindow {
   public:
    /// The names that it asks for, to be learnt at once.
    static const std::vector<std::string>& names();

    enum Asked { Title, Everything };
    AskedWindow(Connection& connection, xcb_window_t window, Asked asked);

    /// Takes the answers, and asks for what they leave open. False when there is no such window any
    /// more.
    bool take();
    void takeRest();

    xcb_window_t window() const { return window_; }
    String title;
    bool visible = false;  ///< also when it is minimized, as on Windows

    // These are known when everything is asked for.

    String className;
    String instanceName;
    bool managed = false;  ///< the window of a program, not the frame around one

    /// Whether a name is one of the two of its class.
    bool hasClass(const String& name) const;

   private:
    using Property = std::optional<xcb_get_property_cookie_t>;

    xcb_get_property_cookie_t ask(const char* name) const;
    /// Null for what was not asked for; each answer comes once.
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
