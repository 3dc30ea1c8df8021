// A published class with no members: it can be created, and that is all.
#pragma once

#include <quorkit/ports/ports.h>

namespace quorkit {

class GQuorLanguage {
   public:
    explicit GQuorLanguage(Ports& = ports::native()) {}
};

}  // namespace quorkit
