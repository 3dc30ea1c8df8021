// Requests the content of the clipboard from its owner. Source: ICCCM 2.
#pragma once

#include <optional>
#include <vector>

#include "linux/x11/hidden_window.h"

namespace quorkit::x11 {

/// The delivery of an owner, whose type may be any.
struct Delivery {
    xcb_atom_t type = XCB_NONE;
    int format = 0;  ///< bits of an element
    std::string bytes;
};

/// Requests are abandoned, and the owner is not asked again, in three cases: it does nothing for
/// two seconds; it has taken more than ten seconds in all, plus one for each MB delivered; it
/// delivers more than 1 GB at once.
class SelectionReader {
   public:
    explicit SelectionReader(Connection& connection);

    /// The types that the owner offers; nothing when it does not tell.
    std::optional<std::vector<xcb_atom_t>> offered();
    /// The content as that type; nothing when the owner refuses or was abandoned.
    std::optional<Delivery> ask(xcb_atom_t target);

   private:
    /// The next event within the owner's time, which has run since `since`.
    EventPtr nextEvent(Deadline since);
    bool answered();
    std::optional<Delivery> take();
    std::optional<Delivery> takePieces();

    Connection& connection_;
    HiddenWindow window_;
    xcb_atom_t selection_;
    xcb_atom_t property_;
    Deadline start_;
    std::size_t taken_ = 0;
    bool givenUp_;
};

}  // namespace quorkit::x11
