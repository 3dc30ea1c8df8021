#include "linux/x11/hidden_window.h"

namespace quorkit::x11 {

HiddenWindow::HiddenWindow(Connection& connection)
    : connection_(connection), id_(xcb_generate_id(connection.get())) {
    const std::uint32_t events = XCB_EVENT_MASK_PROPERTY_CHANGE;
    xcb_create_window(connection_.get(), XCB_COPY_FROM_PARENT, id_, connection_.root(), -1, -1, 1,
                      1, 0, XCB_WINDOW_CLASS_INPUT_ONLY, XCB_COPY_FROM_PARENT, XCB_CW_EVENT_MASK,
                      &events);
}

HiddenWindow::~HiddenWindow() {
    xcb_destroy_window(connection_.get(), id_);
    xcb_flush(connection_.get());
}

xcb_timestamp_t HiddenWindow::serverTime() {
    // Appending nothing to a property is a change; the server reports it with its time.
    const xcb_atom_t property = connection_.atom("QUORKIT_TIME");
    xcb_change_property(connection_.get(), XCB_PROP_MODE_APPEND, id_, property, XCB_ATOM_INTEGER,
                        32, 0, nullptr);
    const Deadline deadline = soon();
    while (const EventPtr event = connection_.nextEvent(deadline)) {
        const auto* change = eventOf<xcb_property_notify_event_t>(event, XCB_PROPERTY_NOTIFY);
        if (change != nullptr && change->window == id_ && change->atom == property)
            return change->time;
    }
    return XCB_CURRENT_TIME;
}

}  // namespace quorkit::x11
