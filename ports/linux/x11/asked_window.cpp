#include "linux/x11/asked_window.h"

#include <algorithm>
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

/// The eight characters in which ISO 8859-15 differs from Latin-1.
char16_t latin9(unsigned char byte) {
    constexpr std::string_view bytes = "\xA4\xA6\xA8\xB4\xB8\xBC\xBD\xBE";
    constexpr StringView characters = u"\u20AC\u0160\u0161\u017D\u017E\u0152\u0153\u0178";
    const std::size_t found = bytes.find(static_cast<char>(byte));
    return found == std::string_view::npos ? char16_t{byte} : characters[found];
}

/// Compound text (X Consortium Standard, version 1.1): Latin-1, or Latin-9 behind one escape
/// sequence, and UTF-8 between two. What other sequences announce is taken as Latin-1.
String fromCompoundText(std::string_view bytes) {
    constexpr std::string_view utf8 = "\x1B%G";
    constexpr std::string_view back = "\x1B%@";
    String text;
    bool isLatin9 = false;
    while (!bytes.empty()) {
        if (bytes.starts_with(utf8)) {
            bytes.remove_prefix(utf8.size());
            const std::string_view part = bytes.substr(0, bytes.find(back));
            text += runtime::fromUtf8(part);
            bytes.remove_prefix(std::min(bytes.size(), part.size() + back.size()));
        } else if (bytes.front() == '\x1B') {
            // Intermediate characters, and a final one.
            const std::size_t end = bytes.find_first_not_of(" !\"#$%&'()*+,-./", 1);
            const std::string_view sequence = bytes.substr(0, std::min(end, bytes.size()) + 1);
            if (sequence.starts_with("\x1B-")) isLatin9 = sequence == "\x1B-b";
            bytes.remove_prefix(sequence.size());
        } else {
            const auto byte = static_cast<unsigned char>(bytes.front());
            text += isLatin9 ? latin9(byte) : byte;
            bytes.remove_prefix(1);
        }
    }
    return text;
}

}  // namespace

std::vector<std::uint32_t> numbersIn(const std::string& bytes) {
    std::vector<std::uint32_t> numbers(bytes.size() / sizeof(std::uint32_t));
    std::memcpy(numbers.data(), bytes.data(), numbers.size() * sizeof(std::uint32_t));
    return numbers;
}

const std::vector<std::string>& AskedWindow::names() {
    static const std::vector<std::string> all = {"COMPOUND_TEXT", "UTF8_STRING", "WM_CLASS",
                                                 "WM_NAME",       "WM_STATE",    "_NET_WM_NAME"};
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
    const auto name = replyTo(*connection_, name_, xcb_get_property_reply);
    const std::string nameBytes = bytesOf(name.get(), XCB_GET_PROPERTY_TYPE_ANY, 8);
    const std::string classes = answer(class_, XCB_ATOM_STRING, 8);
    const auto state = numbersIn(answer(state_, connection_->atom("WM_STATE"), 32));
    const auto attributes = replyTo(*connection_, attributes_, xcb_get_window_attributes_reply);
    if (!attributes) return false;

    const bool compound = name && name->type == connection_->atom("COMPOUND_TEXT");
    title = !netName.empty() ? textOf(netName)
            : compound       ? fromCompoundText(nameBytes)
                             : textOf(nameBytes);
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
