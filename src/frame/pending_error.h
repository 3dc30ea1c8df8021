// The error that a client was given last, for those who report it later.
#pragma once

#include <quorkit/errors.h>

namespace quorkit::frame {

/// Number 0 and no text when there is none. The text is plain ASCII.
struct PendingError {
    Long number = 0;
    const char* text = "";
};

/// Of the calls by name on this thread. An error stays until the next one takes its place: whoever
/// handles it may call what he likes meanwhile.
const PendingError& pendingError();

/// `error` is on its way to the client.
void setPendingError(const AutomationError& error);
/// For a member that has dealt with an error itself: it is none of the client's.
void setPendingError(const PendingError& before);

/// Raises an error that goes straight to the client.
[[noreturn]] void raiseToClient(ErrorNumber number);

}  // namespace quorkit::frame
