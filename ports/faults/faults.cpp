#include <quorkit/ports/decorators.h>
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

struct FaultyPorts::Decorators {
    FaultyFiles files;
    FaultyFolders folders;
    FaultyDrives drives;
    FaultyRegistry registry;
    FaultySystem system;
    FaultyHost host;
    FaultyProcesses processes;
    FaultyDesktop desktop;
    FaultyKeyboard keyboard;
    FaultyClipboard clipboard;
    Ports ports{files, folders,   drives,  registry, system,
                host,  processes, desktop, keyboard, clipboard};

    Decorators(const Ports& inner, const Faults& order)
        : files(inner.files, order),
          folders(inner.folders, order),
          drives(inner.drives, order),
          registry(inner.registry, order),
          system(inner.system, order),
          host(inner.host, order),
          processes(inner.processes, order),
          desktop(inner.desktop, order),
          keyboard(inner.keyboard, order),
          clipboard(inner.clipboard, order) {}
};

FaultyPorts::FaultyPorts(const Ports& inner)
    : decorators_(std::make_unique<Decorators>(inner, *this)) {}
FaultyPorts::~FaultyPorts() = default;

FaultyPorts::operator Ports&() {
    return decorators_->ports;
}

}  // namespace quorkit
