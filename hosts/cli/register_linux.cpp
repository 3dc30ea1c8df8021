#include "cli/failure.h"
#include "cli/register_command.h"

namespace quorkit::cli {

void registerServer(const RegisterLine&, std::ostream&) {
    throw Failure(
        "there is nothing to register on Linux: only Windows keeps a list of automation servers; "
        "programs here use the C++ library, quorkit call or quorkit rpc");
}

}  // namespace quorkit::cli
