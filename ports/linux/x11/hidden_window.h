// An invisible window, through which programs exchange data and messages.
#pragma once

#include "linux/x11/x11_connection.h"

namespace quorkit::x11 {

/// The longest wait for another program that should answer at once.
inline constexpr std::chrono::seconds kPatience{2};

inline Deadline soon() {
    return std::chrono::steady_clock::now() + kPatience;
}

/// Changes of its properties arrive as events.
class HiddenWindow {
   public:
    explicit HiddenWindow(Connection& connection);
    ~HiddenWindow();
    HiddenWindow(const HiddenWindow&) = delete;
    HiddenWindow& operator=(const HiddenWindow&) = delete;

    xcb_window_t id() const { return id_; }

    /// The server's time. Events that come before the answer are dropped. 0, which means any time,
    /// when there is no answer.
    xcb_timestamp_t serverTime();

   private:
    Connection& connection_;
    xcb_window_t id_;
};

/// The event if it is of that type, otherwise null.
template <class Event>
const Event* eventOf(const EventPtr& event, int type) {
    return (event->response_type & 0x7F) == type ? reinterpret_cast<const Event*>(event.get())
                                                 : nullptr;
}

}  // namespace quorkit::x11
