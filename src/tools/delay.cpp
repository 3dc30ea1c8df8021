#include <quorkit/GQuorTools.h>
#include <quorkit/ports/host.h>

#include <algorithm>
#include <chrono>

namespace quorkit {

void GQuorTools::delay(Long countSeconds) {
    using std::chrono::steady_clock;
    const auto end = steady_clock::now() + std::chrono::seconds(std::max<Long>(countSeconds, 0));
    bool more = true;
    while (more) {
        more = ports_.host.WaitForEvents(end) && steady_clock::now() < end;
        ports_.host.DoEvents();
    }
}

}  // namespace quorkit
