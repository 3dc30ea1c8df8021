#include "linux/x11/asked_window.h"

#include <cstring>
#include <string_view>

#include "runtime/code_page.h"
#include "runtime/letter_case.h"

namespace quorkit::x11 {
namespace {

constexpr std::uint32_t kLongestText = 1024;  // of a title or class, in units of four bytes

/// The type STRING is Latin-1, though many programs write UTF-8 under its name.
String textOf(const std::string& bytes) {
    if (runtime::isUtf8(bytes)) return runtime::fromUtf8(bytes);
    String text;
    for (const char byte : bytes) text += static_cast<unsigned char>(byte);
    return text;
}

}  // namespace

std::vector<std::uint32_t> numbersIn(const std::string& bytes) {
    std::vector<std::uint32_t> numbers(bytes.size() / sizeof(std::uint32_t));
    std::memcpy(numbers.data(), bytes.data(), numbers.size() * sizeof(std::uint32_t));
    return numbers;
}

const std::vector<std::string>& AskedWindow::names() {
    static const std::vector<std::string> all = {"UTF8_STRING", "WM_CLASS", "WM_NAME", "WM_STATE",
                                                 "_NET_WM_NAME"};
    return all;
}

AskedWindow::AskedWindow(Connection& connection, xcb_window_t window)
    : connection_(&connection),
      window_(window),
      netName_(ask("_NET_WM_NAME")),
      name_(ask("WM_NAME")),
      class_(ask("WM_CLASS")),
      state_(ask("WM_STATE")),
      attributes_(xcb_get_window_attributes(connection.get(), window)) {}

xcb_get_property_cookie_t AskedWindow::ask(const char* name) const {
    return xcb_get_property(connection_->get(), 0, window_, connection_->atom(name),
                            XCB_GET_PROPERTY_TYPE_ANY, 0, kLongestText);
}

std::string AskedWindow::answer(xcb_get_property_cookie_t cookie, xcb_atom_t type,
                                int format) const {
    return bytesOf(replyTo(*connection_, cookie, xcb_get_property_reply).get(), type, format);
}

bool AskedWindow::take() {
    const std::string netName = answer(netName_, connection_->atom("UTF8_STRING"), 8);
    const std::string name = answer(name_, XCB_GET_PROPERTY_TYPE_ANY, 8);
    const std::string classes = answer(class_, XCB_ATOM_STRING, 8);
    const auto state = numbersIn(answer(state_, connection_->atom("WM_STATE"), 32));
    const auto attributes = replyTo(*connection_, attributes_, xcb_get_window_attributes_reply);
    if (!attributes) return false;

    title = textOf(netName.empty() ? name : netName);
    const std::size_t end = classes.find('\0');  // one behind each of the two
    instanceName = textOf(classes.substr(0, end));
    className = end == std::string::npos ? String() : textOf(classes.substr(end + 1).c_str());
    constexpr std::uint32_t iconic = 3;
    managed = !state.empty();
    visible =
        attributes->map_state == XCB_MAP_STATE_VIEWABLE || (managed && state.front() == iconic);
    return true;
}

bool AskedWindow::hasClass(const String& name) const {
    return runtime::sameText(name, className) || runtime::sameText(name, instanceName);
}

}  // namespace quorkit::x11
