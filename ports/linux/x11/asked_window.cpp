#include "linux/x11/asked_window.h"

#include <algorithm>
#include <string_view>
#include <utility>

#include "base/letter_case.h"
#include "base/unicode.h"

namespace quorkit::x11 {
namespace {

constexpr std::uint32_t kLongestText = 1024;  // of a title or class, in units of four bytes

/// The type STRING means Latin-1, but many programs use it for UTF-8.
String textOf(std::string_view bytes) {
    // A long text may be cut within a character.
    const std::size_t mostCut = bytes.size() < std::size_t{4} * kLongestText ? 0 : 3;
    for (std::size_t cut = 0; cut <= mostCut; ++cut)
        if (const auto whole = bytes.substr(0, bytes.size() - cut); base::isUtf8(whole))
            return base::fromUtf8(whole);
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

/// Compound text (X Consortium Standard, version 1.1): Latin-1; Latin-9 behind one escape sequence;
/// UTF-8 between two others. Text behind any other sequence is read as Latin-1.
String fromCompoundText(std::string_view bytes) {
    constexpr std::string_view utf8 = "\x1B%G";
    constexpr std::string_view back = "\x1B%@";
    String text;
    bool isLatin9 = false;
    while (!bytes.empty()) {
        if (bytes.starts_with(utf8)) {
            bytes.remove_prefix(utf8.size());
            const std::string_view part = bytes.substr(0, bytes.find(back));
            text += base::fromUtf8(part);
            bytes.remove_prefix(std::min(bytes.size(), part.size() + back.size()));
        } else if (bytes.front() == '\x1B') {
            // A sequence has intermediate characters and a final one.
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

const std::vector<std::string>& AskedWindow::names() {
    static const std::vector<std::string> all = {"COMPOUND_TEXT", "UTF8_STRING", "WM_CLASS",
                                                 "WM_NAME",       "WM_STATE",    "_NET_WM_NAME"};
    return all;
}

AskedWindow::AskedWindow(Connection& connection, xcb_window_t window, Asked asked)
    : connection_(&connection),
      window_(window),
      netName_(ask("_NET_WM_NAME")),
      attributes_(xcb_get_window_attributes(connection.get(), window)) {
    if (asked != Everything) return;
    name_ = ask("WM_NAME");
    class_ = ask("WM_CLASS");
    state_ = ask("WM_STATE");
}

xcb_get_property_cookie_t AskedWindow::ask(const char* name) const {
    return xcb_get_property(connection_->get(), 0, window_, connection_->atom(name),
                            XCB_GET_PROPERTY_TYPE_ANY, 0, kLongestText);
}

ReplyPtr<xcb_get_property_reply_t> AskedWindow::answer(Property& property) {
    if (!property) return nullptr;
    return replyTo(*connection_, *std::exchange(property, {}), xcb_get_property_reply);
}

bool AskedWindow::take() {
    title = textOf(bytesOf(answer(netName_).get(), connection_->atom("UTF8_STRING"), 8));
    const auto attributes = replyTo(*connection_, attributes_, xcb_get_window_attributes_reply);
    if (!attributes) {
        takeRest();
        return false;
    }
    visible = attributes->map_state == XCB_MAP_STATE_VIEWABLE;
    if (title.empty() && !name_) name_ = ask("WM_NAME");
    if (!visible && !state_) state_ = ask("WM_STATE");
    return true;
}

void AskedWindow::takeRest() {
    const auto name = answer(name_);
    if (title.empty()) {
        const std::string bytes = bytesOf(name.get(), XCB_GET_PROPERTY_TYPE_ANY, 8);
        const bool compound = name && name->type == connection_->atom("COMPOUND_TEXT");
        title = compound ? fromCompoundText(bytes) : textOf(bytes);
    }
    const std::string classes = bytesOf(answer(class_).get(), XCB_ATOM_STRING, 8);
    const std::size_t end = classes.find('\0');  // one behind each of the two names
    instanceName = textOf(classes.substr(0, end));
    className = end == std::string::npos ? String() : textOf(classes.substr(end + 1).c_str());

    const auto state = numbersIn(bytesOf(answer(state_).get(), connection_->atom("WM_STATE"), 32));
    constexpr std::uint32_t iconic = 3;
    managed = !state.empty();
    visible = visible || (managed && state.front() == iconic);
}

bool AskedWindow::hasClass(const String& name) const {
    return !name.empty() && (base::sameText(name, className) || base::sameText(name, instanceName));
}

}  // namespace quorkit::x11
