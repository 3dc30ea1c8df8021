// Connections to an X server.
#pragma once

#include <xcb/xcb.h>

#include <chrono>
#include <cstdint>
#include <cstdlib>
#include <map>
#include <memory>
#include <string>
#include <vector>

namespace quorkit::x11 {

/// Frees memory from malloc.
struct Free {
    void operator()(void* memory) const { std::free(memory); }
};
/// The server's answer; null when the request failed.
template <class Reply>
using ReplyPtr = std::unique_ptr<Reply, Free>;
using EventPtr = std::unique_ptr<xcb_generic_event_t, Free>;
using Deadline = std::chrono::steady_clock::time_point;

/// A length that includes all of a property, in units of four bytes.
inline constexpr std::uint32_t kWholeProperty = 0x1FFFFFFF;

class Connection {
   public:
    /// Keeps a connection for the next borrower.
    struct GiveBack {
        void operator()(Connection* connection) const;
    };
    using Lease = std::unique_ptr<Connection, GiveBack>;

    /// A connection to the server that DISPLAY names, a kept one or a new one. Nobody else uses it
    /// until the caller gives it back, and no events are pending in it. Null without a server.
    static Lease borrow();
    /// A new connection, which is not kept.
    static std::unique_ptr<Connection> open();

    Connection(const Connection&) = delete;
    Connection& operator=(const Connection&) = delete;
    ~Connection();

    /// Whether it leads to the server that DISPLAY names now, and belongs to this process.
    bool isUsable() const;

    xcb_connection_t* get() const { return connection_; }
    xcb_window_t root() const { return screen_->root; }
    const xcb_screen_t& screen() const { return *screen_; }

    /// The number of a name; the server is asked only once.
    xcb_atom_t atom(const std::string& name);
    /// Asks for several names at once, in the time that one takes.
    void learn(const std::vector<std::string>& names);

    /// The value of a property; empty when it has none, or another type or format. AnyPropertyType
    /// accepts every type.
    std::string property(xcb_window_t window, const std::string& name, xcb_atom_t type, int format);

    /// The next event, or the error of a request that nobody checks. Waits until `deadline`; null
    /// when nothing comes by then, or when the connection breaks.
    EventPtr nextEvent(Deadline deadline);
    bool isBroken() const { return xcb_connection_has_error(connection_) != 0; }
    /// Drops the events and errors that have come for requests that nobody checks.
    void forgetEvents();

   private:
    Connection(xcb_connection_t* connection, xcb_screen_t* screen, std::string display);

    xcb_connection_t* connection_;
    xcb_screen_t* screen_;
    std::string display_;
    int process_;
    std::map<std::string, xcb_atom_t> atoms_;
};

/// The reply to a request: reply(connection, xcb_get_property, xcb_get_property_reply, ...).
template <class Reply, class Cookie>
ReplyPtr<Reply> replyTo(const Connection& connection, Cookie cookie,
                        Reply* (*take)(xcb_connection_t*, Cookie, xcb_generic_error_t**)) {
    xcb_generic_error_t* error = nullptr;
    ReplyPtr<Reply> reply(take(connection.get(), cookie, &error));
    std::free(error);
    return reply;
}

/// The bytes of a property's reply; empty unless they have the type and the format.
std::string bytesOf(const xcb_get_property_reply_t* reply, xcb_atom_t type, int format);
/// The 32-bit numbers in the bytes of a property.
std::vector<std::uint32_t> numbersIn(const std::string& bytes);

}  // namespace quorkit::x11
