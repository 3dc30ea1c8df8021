// The clipboard is the selection CLIPBOARD. New content goes to a program of its own, which owns
// it.
#include <quorkit/ports/clipboard_owner.h>

#include <algorithm>
#include <utility>

#include "base/picture_kind.h"
#include "base/unicode.h"
#include "linux/x11/owner_program.h"
#include "linux/x11/selection_owner.h"
#include "linux/x11/selection_reader.h"
#include "linux/x11/selection_types.h"
#include "native/native_desktop.h"

namespace quorkit::native {
namespace {

using x11::Connection;
using x11::Delivery;

/// The text of a delivery that is UTF-8, or of unstated encoding.
std::string textOf(std::string bytes, const std::string& target) {
    if (base::isUtf8(bytes)) return bytes;
    return target == "text/plain" ? x11::utf8OfLatin1(bytes) : base::toUtf8(base::fromUtf8(bytes));
}

/// Accepts a delivery if it is a content of the format, whatever its type; otherwise false.
bool accept(ClipboardFormat format, const std::string& target, Delivery delivery,
            std::string& data) {
    // Owners do not always deliver what they offer.
    if (delivery.format != 8 || !base::fits(format, delivery.bytes)) return false;
    if (format != ClipboardFormat::Text)
        data = std::move(delivery.bytes);
    else if (delivery.type == XCB_ATOM_STRING)
        data = x11::utf8OfLatin1(delivery.bytes);
    else
        data = textOf(std::move(delivery.bytes), target);
    return true;
}

bool read(Connection& connection, ClipboardFormat format, std::string& data) {
    const std::vector<std::string> types = x11::typesOf(format);
    connection.learn(types);
    x11::SelectionReader reader(connection);
    const auto offered = reader.offered();
    for (const std::string& type : types) {
        const xcb_atom_t target = connection.atom(type);
        if (offered && std::ranges::find(*offered, target) == offered->end()) continue;
        auto delivery = reader.ask(target);
        if (delivery && accept(format, type, std::move(*delivery), data)) return true;
    }
    return false;
}

}  // namespace

bool NativeClipboard::EmptyClipboard() {
    const Connection::Lease connection = Connection::borrow();
    if (connection == nullptr) return false;
    const xcb_atom_t selection = connection->atom("CLIPBOARD");
    xcb_set_selection_owner(connection->get(), XCB_NONE, selection, XCB_CURRENT_TIME);
    const auto cookie = xcb_get_selection_owner(connection->get(), selection);
    const auto owner = replyTo(*connection, cookie, xcb_get_selection_owner_reply);
    return owner != nullptr;
}

bool NativeClipboard::PutOnClipboard(ClipboardFormat format, const std::string& data) {
    return base::fits(format, data) && Connection::borrow() != nullptr &&
           x11::startOwner(format, data);
}

bool NativeClipboard::GetClipboardData(ClipboardFormat format, std::string& data) {
    const Connection::Lease connection = Connection::borrow();
    if (connection == nullptr) return false;
    const bool found = read(*connection, format, data);
    connection->forgetEvents();
    return found;
}

}  // namespace quorkit::native

namespace quorkit {

bool ports::ownClipboard(ClipboardFormat format, std::string content,
                         const std::function<bool()>& taken) {
    auto offers = x11::offersOf(format, std::move(content));
    const auto connection = x11::Connection::open();
    if (connection == nullptr || offers.empty()) return false;
    x11::SelectionOwner owner(*connection, std::move(offers));
    if (!owner.hasTaken()) return false;
    if (taken()) owner.serve();
    return true;
}

}  // namespace quorkit
