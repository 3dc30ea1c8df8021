// Contents too large for one message, on their way to other programs piece by piece. Source: ICCCM
// 2.7.2, INCR.
#pragma once

#include <cstddef>
#include <map>
#include <memory>
#include <string>
#include <utility>

#include "linux/x11/x11_connection.h"

namespace quorkit::x11 {

/// Any number may be on their way at once, each at the speed of the program that takes it. One
/// that takes nothing for half a minute, or whose window is gone, is forgotten.
class Piecewise {
   public:
    explicit Piecewise(Connection& connection);

    /// The largest content that needs no pieces, in bytes.
    std::size_t mostAtOnce() const { return most_; }

    /// Announces a content to a window, in a property of it. A content that is still on its way
    /// there gives way.
    void begin(xcb_window_t window, xcb_atom_t property, xcb_atom_t type,
               std::shared_ptr<const std::string> bytes);
    /// Sends the next piece: the window has taken what was in the property.
    void goOn(xcb_window_t window, xcb_atom_t property);
    void forget(xcb_window_t window);
    void forgetIdle();

    bool done() const { return transfers_.empty(); }
    /// When one may have to be forgotten.
    Deadline nextCheck() const;

   private:
    struct Transfer {
        xcb_atom_t type;
        std::shared_ptr<const std::string> bytes;
        std::size_t sent;
        Deadline deadline;
    };
    using Transfers = std::map<std::pair<xcb_window_t, xcb_atom_t>, Transfer>;

    Transfers::iterator end(Transfers::iterator transfer);

    Connection& connection_;
    std::size_t most_;
    Transfers transfers_;
};

}  // namespace quorkit::x11
