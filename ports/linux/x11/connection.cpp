#include "linux/x11/connection.h"

#include <poll.h>
#include <unistd.h>

#include <algorithm>
#include <utility>

#include "native/reason.h"

namespace quorkit::x11 {
namespace {

constexpr std::uint32_t kWholeProperty = 0x1FFFFFFF;  // in units of four bytes

std::string displayName() {
    const char* const variable = std::getenv("DISPLAY");
    return variable == nullptr ? "" : variable;
}

/// Has a person told why there is no server, and returns nothing.
std::nullptr_t noServer(const std::string& display) {
    giveReason("there is no display here: " +
               (display.empty() ? "DISPLAY is not set" : "nobody answers at " + display));
    return nullptr;
}

}  // namespace

Connection* Connection::ofThread() {
    thread_local std::unique_ptr<Connection> connection;
    // What has come of requests that nobody checks is forgotten; this also tells of the server's
    // end.
    if (connection && connection->isUsable()) connection->forgetEvents();
    if (!connection || !connection->isUsable()) connection = open();
    return connection.get();
}

std::unique_ptr<Connection> Connection::open() {
    const std::string display = displayName();
    if (display.empty()) return noServer(display);
    int number = 0;
    xcb_connection_t* const opened = xcb_connect(display.c_str(), &number);
    xcb_screen_iterator_t screen = {};
    if (xcb_connection_has_error(opened) == 0)
        screen = xcb_setup_roots_iterator(xcb_get_setup(opened));
    for (; screen.rem > 1 && number > 0; --number) xcb_screen_next(&screen);
    if (screen.rem != 0)
        return std::unique_ptr<Connection>(new Connection(opened, screen.data, display));
    xcb_disconnect(opened);
    return noServer(display);
}

Connection::Connection(xcb_connection_t* connection, xcb_screen_t* screen, std::string display)
    : connection_(connection), screen_(screen), display_(std::move(display)), process_(getpid()) {}

Connection::~Connection() {
    // A child must leave the parent's connection alone; its descriptor is closed all the same.
    if (process_ == getpid())
        xcb_disconnect(connection_);
    else
        close(xcb_get_file_descriptor(connection_));
}

bool Connection::isUsable() const {
    if (display_ != displayName() || process_ != getpid() || isBroken()) return false;
    // A server that has gone may have a successor of the same name.
    pollfd socket = {xcb_get_file_descriptor(connection_), POLLRDHUP, 0};
    return poll(&socket, 1, 0) == 0;
}

xcb_atom_t Connection::atom(const std::string& name) {
    const auto known = atoms_.find(name);
    if (known != atoms_.end()) return known->second;
    learn({name});
    return atoms_[name];
}

void Connection::learn(const std::vector<std::string>& names) {
    std::vector<std::pair<const std::string*, xcb_intern_atom_cookie_t>> asked;
    for (const std::string& name : names)
        if (!atoms_.contains(name))
            asked.emplace_back(
                &name, xcb_intern_atom(connection_, 0, static_cast<std::uint16_t>(name.size()),
                                       name.c_str()));
    for (const auto& [name, cookie] : asked)
        if (const auto reply = replyTo(*this, cookie, xcb_intern_atom_reply))
            atoms_[*name] = reply->atom;
}

std::string Connection::property(xcb_window_t window, const std::string& name, xcb_atom_t type,
                                 int format) {
    const auto cookie =
        xcb_get_property(connection_, 0, window, atom(name), type, 0, kWholeProperty);
    return bytesOf(replyTo(*this, cookie, xcb_get_property_reply).get(), type, format);
}

EventPtr Connection::nextEvent(Deadline deadline) {
    using std::chrono::milliseconds;
    xcb_flush(connection_);
    for (;;) {
        EventPtr event(xcb_poll_for_event(connection_));
        const auto now = std::chrono::steady_clock::now();
        if (event || isBroken() || now >= deadline) return event;
        constexpr milliseconds kLongest = std::chrono::hours(1);
        const auto wait = std::min(std::chrono::ceil<milliseconds>(deadline - now), kLongest);
        pollfd socket = {xcb_get_file_descriptor(connection_), POLLIN, 0};
        poll(&socket, 1, static_cast<int>(wait.count()));
    }
}

void Connection::forgetEvents() {
    while (xcb_generic_event_t* const event = xcb_poll_for_event(connection_)) std::free(event);
}

std::string bytesOf(const xcb_get_property_reply_t* reply, xcb_atom_t type, int format) {
    if (reply == nullptr || reply->format != format ||
        (type != XCB_GET_PROPERTY_TYPE_ANY && reply->type != type))
        return {};
    return {static_cast<const char*>(xcb_get_property_value(reply)),
            static_cast<std::size_t>(xcb_get_property_value_length(reply))};
}

}  // namespace quorkit::x11
