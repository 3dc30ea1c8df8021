#include <quorkit/ports/ports.h>

#include <utility>

namespace quorkit {
namespace {

thread_local std::string given;

}  // namespace

void ports::giveReason(std::string reason) {
    given = std::move(reason);
}

std::string ports::takeReason() {
    return std::exchange(given, {});
}

}  // namespace quorkit
