#include "linux/x11/piecewise.h"

#include <algorithm>

namespace quorkit::x11 {
namespace {

constexpr std::chrono::seconds kLongestPause{30};
constexpr std::size_t kLargestPiece = std::size_t{1} << 18;
constexpr std::size_t kRequestHeader = 24;

void watch(Connection& connection, xcb_window_t window, std::uint32_t events) {
    xcb_change_window_attributes(connection.get(), window, XCB_CW_EVENT_MASK, &events);
}

}  // namespace

Piecewise::Piecewise(Connection& connection) : connection_(connection) {
    const std::size_t request = xcb_get_maximum_request_length(connection_.get());  // in words
    most_ = std::min(kLargestPiece, 4 * request - kRequestHeader);
}

void Piecewise::begin(xcb_window_t window, xcb_atom_t property, xcb_atom_t type,
                      std::shared_ptr<const std::string> bytes) {
    // Watch first, because the window may react to the announcement at once.
    watch(connection_, window, XCB_EVENT_MASK_PROPERTY_CHANGE | XCB_EVENT_MASK_STRUCTURE_NOTIFY);
    const auto size = static_cast<std::uint32_t>(bytes->size());
    xcb_change_property(connection_.get(), XCB_PROP_MODE_REPLACE, window, property,
                        connection_.atom("INCR"), 32, 1, &size);
    transfers_[{window, property}] = {type, std::move(bytes), 0,
                                      std::chrono::steady_clock::now() + kLongestPause};
}

void Piecewise::goOn(xcb_window_t window, xcb_atom_t property) {
    const auto found = transfers_.find({window, property});
    if (found == transfers_.end()) return;
    Transfer& transfer = found->second;
    // An empty piece means the end.
    const std::size_t count = std::min(most_, transfer.bytes->size() - transfer.sent);
    xcb_change_property(connection_.get(), XCB_PROP_MODE_REPLACE, window, property, transfer.type,
                        8, static_cast<std::uint32_t>(count),
                        transfer.bytes->data() + transfer.sent);
    transfer.sent += count;
    transfer.deadline = std::chrono::steady_clock::now() + kLongestPause;
    if (count == 0) end(found);
}

void Piecewise::forget(xcb_window_t window) {
    for (auto one = transfers_.lower_bound({window, 0});
         one != transfers_.end() && one->first.first == window;)
        one = transfers_.erase(one);
}

void Piecewise::forgetIdle() {
    const auto now = std::chrono::steady_clock::now();
    for (auto one = transfers_.begin(); one != transfers_.end();)
        one = one->second.deadline <= now ? end(one) : std::next(one);
}

Deadline Piecewise::nextCheck() const {
    Deadline first = Deadline::max();
    for (const auto& [where, transfer] : transfers_) first = std::min(first, transfer.deadline);
    return first;
}

Piecewise::Transfers::iterator Piecewise::end(Transfers::iterator transfer) {
    const xcb_window_t window = transfer->first.first;
    const auto next = transfers_.erase(transfer);
    const auto other = transfers_.lower_bound({window, 0});
    if (other == transfers_.end() || other->first.first != window)
        watch(connection_, window, XCB_EVENT_MASK_NO_EVENT);
    return next;
}

}  // namespace quorkit::x11
