#include "linux/x11/selection_reader.h"

#include <algorithm>
#include <utility>

namespace quorkit::x11 {
namespace {

using std::chrono::seconds;
using std::chrono::steady_clock;

constexpr std::size_t kMost = std::size_t{1} << 30;
constexpr seconds kLongest{10};
constexpr std::size_t kBytesASecond = std::size_t{1} << 20;

}  // namespace

SelectionReader::SelectionReader(Connection& connection)
    : connection_(connection),
      window_(connection),
      selection_(connection.atom("CLIPBOARD")),
      property_(connection.atom("QUORKIT_SELECTION")),
      start_(steady_clock::now()) {
    const auto cookie = xcb_get_selection_owner(connection_.get(), selection_);
    const auto owner = replyTo(connection_, cookie, xcb_get_selection_owner_reply);
    givenUp_ = owner == nullptr || owner->owner == XCB_NONE;
}

std::optional<std::vector<xcb_atom_t>> SelectionReader::offered() {
    const auto list = ask(connection_.atom("TARGETS"));
    if (!list || list->format != 32) return {};
    return numbersIn(list->bytes);
}

std::optional<Delivery> SelectionReader::ask(xcb_atom_t target) {
    if (givenUp_) return {};
    // The request gives no time, because a program that became owner later than that would refuse.
    xcb_convert_selection(connection_.get(), window_.id(), selection_, target, property_,
                          XCB_CURRENT_TIME);
    if (!answered()) return {};
    auto delivery = take();
    if (!delivery || delivery->type != connection_.atom("INCR")) return delivery;
    delivery = takePieces();
    givenUp_ = !delivery;  // later pieces could be taken for those of another request
    return delivery;
}

EventPtr SelectionReader::nextEvent(Deadline since) {
    const Deadline last = start_ + kLongest + seconds(taken_ / kBytesASecond);
    // A steady stream of events does not extend the time.
    if (steady_clock::now() >= last) return nullptr;
    return connection_.nextEvent(std::min(since + kPatience, last));
}

bool SelectionReader::answered() {
    const Deadline asked = steady_clock::now();
    while (const EventPtr event = nextEvent(asked)) {
        const auto* answer = eventOf<xcb_selection_notify_event_t>(event, XCB_SELECTION_NOTIFY);
        if (answer != nullptr && answer->requestor == window_.id())
            return answer->property == property_;
    }
    givenUp_ = true;
    return false;
}

/// The content of the property. Deleting it tells the owner that it has arrived.
std::optional<Delivery> SelectionReader::take() {
    const auto cookie = xcb_get_property(connection_.get(), 1, window_.id(), property_,
                                         XCB_GET_PROPERTY_TYPE_ANY, 0, kWholeProperty);
    const auto reply = replyTo(connection_, cookie, xcb_get_property_reply);
    if (reply == nullptr || reply->type == XCB_NONE) return {};
    Delivery delivery{reply->type, reply->format, bytesOf(reply.get(), reply->type, reply->format)};
    taken_ += delivery.bytes.size();
    return delivery;
}

std::optional<Delivery> SelectionReader::takePieces() {
    std::optional<Delivery> all;
    Deadline asked = steady_clock::now();
    while (const EventPtr event = nextEvent(asked)) {
        const auto* change = eventOf<xcb_property_notify_event_t>(event, XCB_PROPERTY_NOTIFY);
        if (change == nullptr || change->window != window_.id() || change->atom != property_ ||
            change->state != XCB_PROPERTY_NEW_VALUE)
            continue;
        auto piece = take();
        if (!piece) continue;  // this piece was taken before the event came
        if (piece->format != 8 || piece->type == connection_.atom("INCR")) return {};
        const bool last = piece->bytes.empty();
        if (!all) {
            all = std::move(piece);
        } else if (!last) {
            if (piece->type != all->type) return {};
            all->bytes += piece->bytes;
        }
        if (last) return all;
        if (all->bytes.size() > kMost) return {};
        asked = steady_clock::now();
    }
    return {};
}

}  // namespace quorkit::x11
