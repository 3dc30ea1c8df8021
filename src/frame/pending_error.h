// The last error that a client received, for members that report it later.
#pragma once

#include <quorkit/errors.h>

namespace quorkit::frame {

/// Number 0 and no text when there is none. The text is plain ASCII.
struct PendingError {
    Long number = 0;
    const char* text = "";
};

/// The last error of a call by name on this thread. It stays until the next error replaces it, so
/// an error handler may call other members meanwhile.
const PendingError& pendingError();

/// Called for every error that is about to reach the client.
void setPendingError(const AutomationError& error);
/// Restores the error before a call; for a member that has handled an error itself, which therefore
/// does not concern the client.
void setPendingError(const PendingError& before);

/// Raises an error that reaches the client as it is, and records it.
[[noreturn]] void raiseToClient(ErrorNumber number);

}  // namespace quorkit::frame
