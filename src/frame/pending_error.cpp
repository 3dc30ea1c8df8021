#include "frame/pending_error.h"

namespace quorkit::frame {
namespace {

thread_local PendingError pending;

}  // namespace

const PendingError& pendingError() {
    return pending;
}

void setPendingError(const AutomationError& error) {
    pending = {error.number(), error.what()};
}

void setPendingError(const PendingError& before) {
    pending = before;
}

void raiseToClient(ErrorNumber number) {
    setPendingError(AutomationError(number));
    raise(number);
}

}  // namespace quorkit::frame
