// An X server for tests, without a window manager.
#pragma once

#include <string>

#include "support/environment.h"

namespace quorkit::test {

/// Xvfb on a free display. While the object lives, DISPLAY names this display, and QUORKIT_LIBEXEC
/// the folder of the program that keeps the clipboard.
class XServer {
   public:
    /// Throws std::runtime_error when no server starts.
    XServer();
    /// Ends the server at once, even if it is still in use.
    ~XServer() { end(); }
    void end();
    XServer(const XServer&) = delete;
    XServer& operator=(const XServer&) = delete;

    const std::string& display() const { return display_; }

   private:
    int process_;
    std::string display_;
    Variable variable_;
    Variable helpers_;
};

}  // namespace quorkit::test
