// An X server of the tests' own, without any window manager.
#pragma once

#include <string>

#include "support/environment.h"

namespace quorkit::test {

/// Xvfb on a free display, which DISPLAY names for as long as the object lives. So long
/// QUORKIT_LIBEXEC names the folder of the program that keeps its clipboard.
class XServer {
   public:
    /// Throws std::runtime_error when no server starts.
    XServer();
    /// Ends it at once, whoever still uses it.
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
