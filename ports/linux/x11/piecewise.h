// Sends contents that are too large for one message, piece by piece. Source: ICCCM 2.7.2, INCR.
#pragma once

#include <cstddef>
#include <map>
#include <memory>
#include <string>
#include <utility>

#include "linux/x11/x11_connection.h"

namespace quorkit::x11 {

/// Any number of contents can be sent at the same time, each as fast as its program reads it. A
/// transfer is dropped when its program reads nothing for half a minute or its window is gone.
class Piecewise {
   public:
    explicit Piecewise(Connection& connection);

    /// The largest content that needs no pieces, in bytes.
    std::size_t mostAtOnce() const { return most_; }

    /// Announces a content in a property of a window. It replaces a content that is still being
    /// sent there.
    void begin(xcb_window_t window, xcb_atom_t property, xcb_atom_t type,
               std::shared_ptr<const std::string> bytes);
    /// Sends the next piece, after the window has read the property.
    void goOn(xcb_window_t window, xcb_atom_t property);
    void forget(xcb_window_t window);
    void forgetIdle();

    bool done() const { return transfers_.empty(); }
    /// The earliest time at which a transfer may have to be dropped.
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
