#include <quorkit/ports/faults.h>

namespace quorkit {

void Faults::answer(std::size_t call, ErrorCode code, std::string_view operation) {
    *order_ = {call, code, operation};
}

bool Faults::due(std::string_view operation) {
    if (!operation.starts_with(order_->operation)) return false;
    ++order_->calls;
    return order_->call == 0 || order_->calls == order_->call;
}

FaultyPorts::FaultyPorts(Ports& inner)
    : files_(inner.files, *this),
      drives_(inner.drives, *this),
      registry_(inner.registry, *this),
      system_(inner.system, *this),
      host_(inner.host, *this),
      processes_(inner.processes, *this),
      desktop_(inner.desktop, *this),
      keyboard_(inner.keyboard, *this),
      clipboard_(inner.clipboard, *this),
      ports_{files_,     drives_,  registry_, system_,   host_,
             processes_, desktop_, keyboard_, clipboard_} {}

}  // namespace quorkit
