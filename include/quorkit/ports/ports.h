// The operating system as a set of ports. Classes take them in the constructor, so that a test or a
// host chooses the system on which they act.
#pragma once

#include <string>
#include <type_traits>

namespace quorkit {

class Clipboard;
class Desktop;
class Drives;
class Files;
class Folders;
class Host;
class Keyboard;
class Processes;
class Registry;
class System;

/// A port of one of these kinds.
template <class Port, class... Kinds>
concept PortOf = (std::is_convertible_v<Port&, Kinds&> || ...);

struct Ports {
    Files& files;
    Folders& folders;
    Drives& drives;
    Registry& registry;
    System& system;
    Host& host;
    Processes& processes;
    Desktop& desktop;
    Keyboard& keyboard;
    Clipboard& clipboard;

    /// These ports, each of `own` replacing the port of its kind. Replace files and folders
    /// together.
    template <PortOf<Files, Folders, Drives, Registry, System, Host, Processes, Desktop, Keyboard,
                     Clipboard>... Own>
    Ports with(Own&... own) const {
        const auto chosen = [&]<class Kind>(Kind& port) -> Kind& {
            Kind* kind = &port;
            const auto choose = [&]<class One>(One& one) {
                if constexpr (std::is_convertible_v<One&, Kind&>) kind = &one;
            };
            (choose(own), ...);
            return *kind;
        };
        return {chosen(files),    chosen(folders),  chosen(drives),    chosen(registry),
                chosen(system),   chosen(host),     chosen(processes), chosen(desktop),
                chosen(keyboard), chosen(clipboard)};
    }
};

namespace ports {
/// The ports of the system on which this program runs: one object for the whole process.
Ports& native();
/// Why the calling thread was refused something since the last call of this function, such as a
/// missing display; "" when there is nothing that a person could mend. Members return their results
/// for failure in any case.
std::string takeReason();
/// Sets what takeReason tells the calling thread. Only for reasons that a person can do something
/// about.
void giveReason(std::string reason);
}  // namespace ports

}  // namespace quorkit
