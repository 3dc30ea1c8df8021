#include <quorkit/ports/ports.h>

#include <utility>

namespace quorkit::ports {
namespace {

thread_local std::string given;

}  // namespace

void giveReason(std::string reason) {
    given = std::move(reason);
}

std::string takeReason() {
    return given.empty() ? std::string() : std::exchange(given, {});
}

}  // namespace quorkit::ports
