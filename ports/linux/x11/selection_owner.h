// Owns the clipboard and answers requests for its content. Source: ICCCM 2, and the
// ClipboardManager of freedesktop.org.
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "linux/x11/hidden_window.h"
#include "linux/x11/piecewise.h"
#include "linux/x11/selection_types.h"

namespace quorkit::x11 {

class SelectionOwner {
   public:
    /// Takes the clipboard; `hasTaken` gives the outcome.
    SelectionOwner(Connection& connection, std::vector<Offer> offers);

    /// True even if another program has taken it since: the last one owns it.
    bool hasTaken() const { return !connection_.isBroken(); }

    /// Gives a copy to the clipboard manager, if one runs. Then answers requests until another
    /// program takes the clipboard and all transfers have ended, or until the server is gone.
    void serve();

   private:
    struct Target {
        xcb_atom_t target;
        xcb_atom_t type;
        std::shared_ptr<const std::string> bytes;
    };

    void handToManager();
    void handle(const EventPtr& event);
    void answer(const xcb_selection_request_event_t& request);
    bool isOurs(const xcb_selection_request_event_t& request) const;
    bool putAll(xcb_window_t window, xcb_atom_t list);
    bool put(xcb_window_t window, xcb_atom_t target, xcb_atom_t property);
    void putNumbers(xcb_window_t window, xcb_atom_t property, xcb_atom_t type,
                    const std::vector<std::uint32_t>& numbers);

    Connection& connection_;
    HiddenWindow window_;
    Piecewise pieces_;
    std::vector<Target> targets_;
    xcb_atom_t selection_;
    xcb_timestamp_t since_;
    bool owns_ = false;
};

}  // namespace quorkit::x11
