#include "linux/x11/selection_owner.h"

#include <algorithm>
#include <utility>

namespace quorkit::x11 {
namespace {

constexpr std::uint32_t kLongestList = 1024;  // entries in a request for several types

}  // namespace

SelectionOwner::SelectionOwner(Connection& connection, std::vector<Offer> offers)
    : connection_(connection),
      window_(connection),
      pieces_(connection),
      selection_(connection.atom("CLIPBOARD")) {
    for (Offer& one : offers)
        targets_.push_back(
            {connection_.atom(one.target), connection_.atom(one.type), std::move(one.bytes)});
    since_ = window_.serverTime();
    xcb_set_selection_owner(connection_.get(), window_.id(), selection_, since_);
    const auto cookie = xcb_get_selection_owner(connection_.get(), selection_);
    const auto owner = replyTo(connection_, cookie, xcb_get_selection_owner_reply);
    owns_ = owner != nullptr && owner->owner == window_.id();
}

void SelectionOwner::serve() {
    if (owns_) handToManager();
    // Answer the requests that came before the next owner, too.
    while (const EventPtr event = connection_.nextEvent(Deadline::min())) handle(event);
    while ((owns_ || !pieces_.done()) && !connection_.isBroken()) {
        if (const EventPtr event = connection_.nextEvent(pieces_.nextCheck())) handle(event);
        pieces_.forgetIdle();
    }
    // A server loses what it has not read when its client closes the connection. An answer shows
    // that it has read everything.
    const auto cookie = xcb_get_input_focus(connection_.get());
    replyTo(connection_, cookie, xcb_get_input_focus_reply);
}

/// The manager then asks like any other program, and may take the clipboard over.
void SelectionOwner::handToManager() {
    const xcb_atom_t manager = connection_.atom("CLIPBOARD_MANAGER");
    const xcb_atom_t property = connection_.atom("QUORKIT_SELECTION");
    std::vector<std::uint32_t> targets;
    for (const Target& one : targets_) targets.push_back(one.target);
    putNumbers(window_.id(), property, XCB_ATOM_ATOM, targets);
    // Without a manager, the server answers that this selection has no owner.
    xcb_convert_selection(connection_.get(), window_.id(), manager,
                          connection_.atom("SAVE_TARGETS"), property, since_);
}

void SelectionOwner::handle(const EventPtr& event) {
    if (const auto* request =
            eventOf<xcb_selection_request_event_t>(event, XCB_SELECTION_REQUEST)) {
        answer(*request);
    } else if (const auto* loss =
                   eventOf<xcb_selection_clear_event_t>(event, XCB_SELECTION_CLEAR)) {
        if (loss->selection == selection_) owns_ = false;
    } else if (const auto* change =
                   eventOf<xcb_property_notify_event_t>(event, XCB_PROPERTY_NOTIFY)) {
        if (change->state == XCB_PROPERTY_DELETE) pieces_.goOn(change->window, change->atom);
    } else if (const auto* end = eventOf<xcb_destroy_notify_event_t>(event, XCB_DESTROY_NOTIFY)) {
        pieces_.forget(end->window);
    } else if (const auto* error = eventOf<xcb_generic_error_t>(event, 0)) {
        if (error->error_code == XCB_WINDOW) pieces_.forget(error->resource_id);
    }
}

void SelectionOwner::answer(const xcb_selection_request_event_t& request) {
    // Clients from before these rules name no property.
    const xcb_atom_t property = request.property == XCB_NONE ? request.target : request.property;
    const bool several = request.target == connection_.atom("MULTIPLE");
    const bool done = isOurs(request) &&
                      (several ? request.property != XCB_NONE && putAll(request.requestor, property)
                               : put(request.requestor, request.target, property));
    union {
        xcb_selection_notify_event_t event;
        char whole[32];  // every event has this size
    } answer = {};
    answer.event.response_type = XCB_SELECTION_NOTIFY;
    answer.event.time = request.time;
    answer.event.requestor = request.requestor;
    answer.event.selection = request.selection;
    answer.event.target = request.target;
    answer.event.property = done ? property : XCB_NONE;
    xcb_send_event(connection_.get(), 0, request.requestor, XCB_EVENT_MASK_NO_EVENT, answer.whole);
}

/// Whether the request is about this content; an earlier request is for the owner before.
bool SelectionOwner::isOurs(const xcb_selection_request_event_t& request) const {
    const auto since = static_cast<std::int32_t>(request.time - since_);  // time wraps around
    return request.selection == selection_ &&
           (request.time == XCB_CURRENT_TIME || since_ == XCB_CURRENT_TIME || since >= 0);
}

/// A request for several types: pairs of a target and a property. A target that is not available is
/// replaced by None.
bool SelectionOwner::putAll(xcb_window_t window, xcb_atom_t list) {
    const auto cookie = xcb_get_property(connection_.get(), 0, window, list,
                                         XCB_GET_PROPERTY_TYPE_ANY, 0, kLongestList);
    const auto reply = replyTo(connection_, cookie, xcb_get_property_reply);
    std::vector<std::uint32_t> pairs =
        numbersIn(bytesOf(reply.get(), XCB_GET_PROPERTY_TYPE_ANY, 32));
    if (pairs.empty() || pairs.size() % 2 != 0) return false;
    for (std::size_t i = 0; i < pairs.size(); i += 2)
        if (pairs[i + 1] == XCB_NONE || !put(window, pairs[i], pairs[i + 1]))
            pairs[i] = pairs[i + 1] = XCB_NONE;
    putNumbers(window, list, reply->type, pairs);
    return true;
}

bool SelectionOwner::put(xcb_window_t window, xcb_atom_t target, xcb_atom_t property) {
    if (target == connection_.atom("TARGETS")) {
        std::vector<std::uint32_t> names;
        for (const char* const name : {"TARGETS", "TIMESTAMP", "MULTIPLE", "SAVE_TARGETS"})
            names.push_back(connection_.atom(name));
        for (const Target& one : targets_) names.push_back(one.target);
        putNumbers(window, property, XCB_ATOM_ATOM, names);
        return true;
    }
    if (target == connection_.atom("TIMESTAMP")) {
        putNumbers(window, property, XCB_ATOM_INTEGER, {since_});
        return true;
    }
    if (target == connection_.atom("SAVE_TARGETS")) {
        putNumbers(window, property, connection_.atom("NULL"), {});
        return true;
    }
    const auto found = std::ranges::find(targets_, target, &Target::target);
    if (found == targets_.end()) return false;
    if (found->bytes->size() > pieces_.mostAtOnce())
        pieces_.begin(window, property, found->type, found->bytes);
    else
        xcb_change_property(connection_.get(), XCB_PROP_MODE_REPLACE, window, property, found->type,
                            8, static_cast<std::uint32_t>(found->bytes->size()),
                            found->bytes->data());
    return true;
}

void SelectionOwner::putNumbers(xcb_window_t window, xcb_atom_t property, xcb_atom_t type,
                                const std::vector<std::uint32_t>& numbers) {
    xcb_change_property(connection_.get(), XCB_PROP_MODE_REPLACE, window, property, type, 32,
                        static_cast<std::uint32_t>(numbers.size()), numbers.data());
}

}  // namespace quorkit::x11
