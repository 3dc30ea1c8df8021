// Another program that uses the clipboard of an X server.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "linux/x11/hidden_window.h"

namespace quorkit::test {

class XPeer {
    const std::unique_ptr<x11::Connection> own_ = x11::Connection::open();

   public:
    x11::Connection& connection = *own_;
    x11::HiddenWindow window{connection};

    xcb_atom_t atom(const char* name) { return connection.atom(name); }

    void own(const char* selection) {
        xcb_set_selection_owner(connection.get(), window.id(), atom(selection),
                                window.serverTime());
        xcb_flush(connection.get());
    }
    void put(xcb_window_t where, xcb_atom_t property, xcb_atom_t type, int format,
             const std::vector<std::uint32_t>& words) {
        xcb_change_property(connection.get(), XCB_PROP_MODE_REPLACE, where, property, type,
                            static_cast<std::uint8_t>(format),
                            static_cast<std::uint32_t>(words.size()) * (format == 8 ? 4 : 1),
                            words.data());
    }
    std::string property(const char* name) {
        return connection.property(window.id(), name, XCB_GET_PROPERTY_TYPE_ANY, 8) +
               connection.property(window.id(), name, XCB_GET_PROPERTY_TYPE_ANY, 32);
    }
    /// The next event of a type; nothing when none comes in ten seconds.
    template <class Event>
    std::optional<Event> next(int type) {
        while (const auto event = connection.nextEvent(x11::soon() + std::chrono::seconds(8)))
            if (const auto* found = x11::eventOf<Event>(event, type)) return *found;
        return {};
    }
    auto nextRequest() { return next<xcb_selection_request_event_t>(XCB_SELECTION_REQUEST); }
    void answer(const xcb_selection_request_event_t& request) {
        xcb_selection_notify_event_t event[2] = {};  // an event has 32 bytes, this type fewer
        event[0].response_type = XCB_SELECTION_NOTIFY;
        event[0].requestor = request.requestor;
        event[0].selection = request.selection;
        event[0].target = request.target;
        event[0].property = request.property;
        xcb_send_event(connection.get(), 0, request.requestor, 0,
                       reinterpret_cast<const char*>(event));
        xcb_flush(connection.get());
    }

    /// Asks the owner to put its content into the property `name`.
    bool ask(const char* target, const char* name) {
        xcb_convert_selection(connection.get(), window.id(), atom("CLIPBOARD"), atom(target),
                              atom(name), XCB_CURRENT_TIME);
        const auto answer = next<xcb_selection_notify_event_t>(XCB_SELECTION_NOTIFY);
        return answer && answer->property != XCB_NONE;
    }
    /// Receives a content in pieces; returns its size in bytes.
    std::size_t takePieces(const char* name) {
        std::size_t all = 0;
        for (std::size_t count = 1; count != 0; all += count) {
            xcb_delete_property(connection.get(), window.id(), atom(name));
            auto change = next<xcb_property_notify_event_t>(XCB_PROPERTY_NOTIFY);
            while (change && change->state != XCB_PROPERTY_NEW_VALUE)
                change = next<xcb_property_notify_event_t>(XCB_PROPERTY_NOTIFY);
            count = property(name).size();
        }
        return all;
    }
};

}  // namespace quorkit::test
