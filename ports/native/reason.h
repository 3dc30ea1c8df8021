// Why the real system could not do something.
#pragma once

#include <string>

namespace quorkit {

/// Has ports::takeReason tell the calling thread this. For what a person can do something about.
void giveReason(std::string reason);

}  // namespace quorkit
