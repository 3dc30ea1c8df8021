#include <algorithm>
#include <array>
#include <span>

#include "base/letter_case.h"
#include "linux/x11/asked_window.h"
#include "native/native_desktop.h"

namespace quorkit::native {
namespace {

using namespace x11;

Connection::Lease connected() {
    Connection::Lease connection = Connection::borrow();
    if (connection) connection->learn(AskedWindow::names());
    return connection;
}

std::vector<xcb_window_t> childrenIn(const Connection& connection, xcb_query_tree_cookie_t asked) {
    const auto tree = replyTo(connection, asked, xcb_query_tree_reply);
    if (!tree) return {};
    const std::span children(xcb_query_tree_children(tree.get()),
                             static_cast<std::size_t>(xcb_query_tree_children_length(tree.get())));
    return {children.begin(), children.end()};
}

/// In the given order, without windows that have disappeared.
std::vector<AskedWindow> askAll(Connection& connection, const std::vector<xcb_window_t>& windows,
                                AskedWindow::Asked asked) {
    std::vector<AskedWindow> all;
    all.reserve(windows.size());
    for (const xcb_window_t window : windows) all.emplace_back(connection, window, asked);
    std::vector<AskedWindow> found;
    for (AskedWindow& one : all)
        if (one.take()) found.push_back(std::move(one));
    for (AskedWindow& one : found) one.takeRest();
    return found;
}

/// Whether a property that is a list of names contains this one.
bool lists(Connection& connection, xcb_window_t window, const char* property, const char* name) {
    const auto names = numbersIn(connection.property(window, property, XCB_ATOM_ATOM, 32));
    return std::ranges::find(names, connection.atom(name)) != names.end();
}

/// Replaces nameless frames by the programs' windows in them.
void lookIntoFrames(Connection& connection, std::vector<AskedWindow>& windows) {
    std::vector<std::pair<AskedWindow*, xcb_query_tree_cookie_t>> frames;
    for (AskedWindow& one : windows)
        if (!one.managed && one.className.empty() && one.title.empty())
            frames.emplace_back(&one, xcb_query_tree(connection.get(), one.window()));
    std::vector<xcb_window_t> inner;
    std::map<xcb_window_t, AskedWindow*> frameOf;
    for (const auto& [frame, asked] : frames)
        for (const xcb_window_t child : childrenIn(connection, asked)) {
            inner.push_back(child);
            frameOf[child] = frame;
        }
    for (AskedWindow& one : askAll(connection, inner, AskedWindow::Everything)) {
        AskedWindow& frame = *frameOf.at(one.window());
        if (one.managed && !frame.managed) frame = std::move(one);
    }
}

/// Whether a window manager that follows these conventions is running. Its entry on the root window
/// alone is no proof, because that stays when the manager dies.
bool hasManager(Connection& connection) {
    const char* const name = "_NET_SUPPORTING_WM_CHECK";
    const auto check = [&](xcb_window_t window) {
        const auto numbers = numbersIn(connection.property(window, name, XCB_ATOM_WINDOW, 32));
        return numbers.empty() ? xcb_window_t{XCB_NONE} : numbers.front();
    };
    const xcb_window_t window = check(connection.root());
    return window != XCB_NONE && check(window) == window;
}

/// All top-level windows, the topmost first.
std::vector<AskedWindow> topLevelWindows(Connection& connection, AskedWindow::Asked asked) {
    std::vector<std::uint32_t> listed = numbersIn(
        connection.property(connection.root(), "_NET_CLIENT_LIST_STACKING", XCB_ATOM_WINDOW, 32));
    std::ranges::reverse(listed);
    if (hasManager(connection) &&
        (!listed.empty() ||
         lists(connection, connection.root(), "_NET_SUPPORTED", "_NET_CLIENT_LIST_STACKING")))
        return askAll(connection, listed, asked);
    // No window manager keeps a list. The windows are children of the root, or of frames that are.
    listed = childrenIn(connection, xcb_query_tree(connection.get(), connection.root()));
    std::ranges::reverse(listed);
    std::vector<AskedWindow> found = askAll(connection, listed, AskedWindow::Everything);
    lookIntoFrames(connection, found);
    return found;
}

WindowHandle handleOf(xcb_window_t window) {
    return static_cast<WindowHandle>(window);
}
xcb_window_t windowOf(WindowHandle handle) {
    return static_cast<xcb_window_t>(handle);
}

bool exists(Connection& connection, WindowHandle window) {
    return replyTo(connection, xcb_get_window_attributes(connection.get(), windowOf(window)),
                   xcb_get_window_attributes_reply) != nullptr;
}

/// Sends a message about a window to `to`, and returns when the server has it.
void send(Connection& connection, xcb_window_t to, std::uint32_t mask, xcb_window_t about,
          const char* type, const std::array<std::uint32_t, 5>& data) {
    xcb_client_message_event_t event = {};
    event.response_type = XCB_CLIENT_MESSAGE;
    event.format = 32;
    event.window = about;
    event.type = connection.atom(type);
    std::ranges::copy(data, event.data.data32);
    xcb_send_event(connection.get(), 0, to, mask, reinterpret_cast<const char*>(&event));
    replyTo(connection, xcb_get_input_focus(connection.get()), xcb_get_input_focus_reply);
}

}  // namespace

std::vector<WindowInfo> NativeDesktop::EnumWindows() {
    const Connection::Lease connection = connected();
    if (connection == nullptr) return {};
    std::vector<WindowInfo> windows;
    for (AskedWindow& one : topLevelWindows(*connection, AskedWindow::Title))
        windows.push_back({handleOf(one.window()), std::move(one.title), one.visible});
    return windows;
}

WindowHandle NativeDesktop::FindWindowA(const std::optional<String>& className,
                                        const std::optional<String>& title) {
    const Connection::Lease connection = connected();
    if (connection == nullptr) return 0;
    const auto asked = className ? AskedWindow::Everything : AskedWindow::Title;
    for (const AskedWindow& one : topLevelWindows(*connection, asked))
        if ((!className || one.hasClass(*className)) &&
            (!title || base::sameText(*title, one.title)))
            return handleOf(one.window());
    return 0;
}

bool NativeDesktop::IsWindow(WindowHandle window) {
    const Connection::Lease connection = connected();
    return connection != nullptr && exists(*connection, window);
}

String NativeDesktop::GetWindowTextA(WindowHandle window) {
    const Connection::Lease connection = connected();
    if (connection == nullptr) return {};
    const auto found = askAll(*connection, {windowOf(window)}, AskedWindow::Title);
    return found.empty() ? String() : found.front().title;
}

bool NativeDesktop::SetTopmost(WindowHandle window, bool topmost) {
    const Connection::Lease connection = connected();
    if (connection == nullptr || !exists(*connection, window) || !hasManager(*connection) ||
        !lists(*connection, connection->root(), "_NET_SUPPORTED", "_NET_WM_STATE_ABOVE"))
        return false;
    constexpr std::uint32_t byApplication = 1;
    send(*connection, connection->root(),
         XCB_EVENT_MASK_SUBSTRUCTURE_REDIRECT | XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY,
         windowOf(window), "_NET_WM_STATE",
         {topmost ? 1u : 0u, connection->atom("_NET_WM_STATE_ABOVE"), 0, byApplication, 0});
    return true;
}

bool NativeDesktop::PostMessageA(WindowHandle window, WindowMessage message) {
    const Connection::Lease connection = connected();
    if (connection == nullptr || !exists(*connection, window)) return false;
    if (message != WindowMessage::Close) return true;
    if (!lists(*connection, windowOf(window), "WM_PROTOCOLS", "WM_DELETE_WINDOW")) return false;
    send(*connection, windowOf(window), XCB_EVENT_MASK_NO_EVENT, windowOf(window), "WM_PROTOCOLS",
         {connection->atom("WM_DELETE_WINDOW"), XCB_CURRENT_TIME, 0, 0, 0});
    return true;
}

bool NativeDesktop::WorkArea(ScreenArea& workArea) {
    const Connection::Lease connection = connected();
    if (connection == nullptr) return false;
    const auto current = numbersIn(
        connection->property(connection->root(), "_NET_CURRENT_DESKTOP", XCB_ATOM_CARDINAL, 32));
    const auto areas =
        numbersIn(connection->property(connection->root(), "_NET_WORKAREA", XCB_ATOM_CARDINAL, 32));
    const std::size_t first = current.empty() ? 0 : std::size_t{4} * current.front();
    constexpr std::uint32_t farthest = 0x7FFF;  // coordinate on an X screen
    if (areas.size() >= first + 4 &&
        std::ranges::all_of(std::span(areas).subspan(first, 4),
                            [](std::uint32_t place) { return place <= farthest; })) {
        const auto at = [&](std::size_t i) { return static_cast<Long>(areas[first + i]); };
        workArea = {at(0), at(1), at(0) + at(2), at(1) + at(3)};
        return true;
    }
    const auto whole = replyTo(*connection, xcb_get_geometry(connection->get(), connection->root()),
                               xcb_get_geometry_reply);
    if (whole) workArea = {0, 0, whole->width, whole->height};
    return whole != nullptr;
}

}  // namespace quorkit::native
