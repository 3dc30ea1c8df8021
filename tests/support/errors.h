// The number of the error that a body raises; 0 when it raises none.
#pragma once

#include <quorkit/errors.h>

namespace quorkit::test {

template <class Body>
Long errorOf(Body body) {
    try {
        body();
        return 0;
    } catch (const AutomationError& error) {
        return error.number();
    }
}

}  // namespace quorkit::test
