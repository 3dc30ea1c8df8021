#include "linux/x11/x11_connection.h"

#include <fcntl.h>
#include <poll.h>
#include <quorkit/ports/ports.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cstring>
#include <mutex>
#include <utility>

#include "linux/descriptor.h"

namespace quorkit::x11 {
namespace {

std::string displayName() {
    const char* const variable = std::getenv("DISPLAY");
    return variable == nullptr ? "" : variable;
}

/// Sets the reason why there is no server, and returns null.
std::nullptr_t noServer(const std::string& display) {
    ports::giveReason("there is no display here: " +
                      (display.empty() ? "DISPLAY is not set" : "nobody answers at " + display));
    return nullptr;
}

/// Connections that are not in use. If the mutex is taken, perhaps by a thread that a fork has left
/// behind, callers do without it; nobody waits.
struct Kept {
    std::mutex mutex;
    std::vector<std::unique_ptr<Connection>> connections;
};
constexpr std::size_t kMostKept = 4;

Kept& kept() {
    static auto& all = *new Kept;  // never destroyed: other threads may outlive static objects
    return all;
}

std::unique_ptr<Connection> takeKept() {
    const std::unique_lock lock(kept().mutex, std::try_to_lock);
    if (!lock || kept().connections.empty()) return nullptr;
    auto taken = std::move(kept().connections.back());
    kept().connections.pop_back();
    return taken;
}

/// Occupies the numbers of those standard streams that are closed. Otherwise a new connection could
/// get one of them, and any code may write to it.
class StandardStreams {
   public:
    StandardStreams() {
        for (native::Descriptor& one : held_) {
            one = native::Descriptor(::open("/dev/null", O_RDWR | O_CLOEXEC));
            if (one.get() > STDERR_FILENO) break;
        }
    }

   private:
    std::array<native::Descriptor, 3> held_;
};

}  // namespace

Connection::Lease Connection::borrow() {
    while (auto kept = takeKept())
        if (kept->isUsable()) {
            kept->forgetEvents();
            return Lease(kept.release());
        }
    return Lease(open().release());
}

void Connection::GiveBack::operator()(Connection* connection) const {
    std::unique_ptr<Connection> given(connection);
    const std::unique_lock lock(kept().mutex, std::try_to_lock);
    if (lock && kept().connections.size() < kMostKept)
        kept().connections.push_back(std::move(given));
}

std::unique_ptr<Connection> Connection::open() {
    const std::string display = displayName();
    if (display.empty()) return noServer(display);
    const StandardStreams held;
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
    // A child must not use the parent's connection; it only closes the descriptor.
    if (process_ == getpid())
        xcb_disconnect(connection_);
    else
        close(xcb_get_file_descriptor(connection_));
}

bool Connection::isUsable() const {
    if (display_ != displayName() || process_ != getpid() || isBroken()) return false;
    // A server that is gone may have a successor of the same name.
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
        constexpr milliseconds longest = std::chrono::hours(1);
        const auto wait = std::min(std::chrono::ceil<milliseconds>(deadline - now), longest);
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

std::vector<std::uint32_t> numbersIn(const std::string& bytes) {
    std::vector<std::uint32_t> numbers(bytes.size() / sizeof(std::uint32_t));
    if (!numbers.empty())
        std::memcpy(numbers.data(), bytes.data(), numbers.size() * sizeof(std::uint32_t));
    return numbers;
}

}  // namespace quorkit::x11
