// A window that nobody sees, for what programs tell each other by way of windows.
#pragma once

#include "linux/x11/x11_connection.h"

namespace quorkit::x11 {

/// How long to wait for what another program should answer at once.
inline constexpr std::chrono::seconds kPatience{2};

inline Deadline soon() {
    return std::chrono::steady_clock::now() + kPatience;
}

/// Changes of its properties come as events.
class HiddenWindow {
   public:
    explicit HiddenWindow(Connection& connection);
    ~HiddenWindow();
    HiddenWindow(const HiddenWindow&) = delete;
    HiddenWindow& operator=(const HiddenWindow&) = delete;

    xcb_window_t id() const { return id_; }

    /// The server's time; forgets the events that come before it is told. 0, which stands for any
    /// time, when it is not told.
    xcb_timestamp_t serverTime();

   private:
    Connection& connection_;
    xcb_window_t id_;
};

/// The event, when it is one of that type.
template <class Event>
const Event* eventOf(const EventPtr& event, int type) {
    return (event->response_type & 0x7F) == type ? reinterpret_cast<const Event*>(event.get())
                                                 : nullptr;
}

}  // namespace quorkit::x11
