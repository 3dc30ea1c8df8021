// Asking the owner of the clipboard for its content. Source: ICCCM 2.
#pragma once

#include <optional>
#include <vector>

#include "linux/x11/hidden_window.h"

namespace quorkit::x11 {

/// What an owner has delivered, of whatever type it likes.
struct Delivery {
    xcb_atom_t type = XCB_NONE;
    int format = 0;  ///< bits of an element
    std::string bytes;
};

/// An owner that lets two seconds pass without doing what it should is given up: it is not asked
/// again. So is one that has taken ten seconds in all and another for each MB that it has
/// delivered, and one that delivers more than 1 GB at once.
class SelectionReader {
   public:
    explicit SelectionReader(Connection& connection);

    /// The types that the owner says it has; nothing when it does not say.
    std::optional<std::vector<xcb_atom_t>> offered();
    /// The content as that type; nothing when the owner refuses or is given up.
    std::optional<Delivery> ask(xcb_atom_t target);

   private:
    /// The next event within an owner's time, which began at `since`.
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
