// The operating system as operations. Classes take their ports in the constructor, so that a test
// or a host chooses the world they act on.
#pragma once

#include <string>
#include <type_traits>

namespace quorkit {

class Clipboard;
class Desktop;
class Drives;
class Files;
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
    Drives& drives;
    Registry& registry;
    System& system;
    Host& host;
    Processes& processes;
    Desktop& desktop;
    Keyboard& keyboard;
    Clipboard& clipboard;

    /// This world with `port` in the place of its own port of that kind.
    template <
        PortOf<Files, Drives, Registry, System, Host, Processes, Desktop, Keyboard, Clipboard> Port>
    Ports with(Port& port) const {
        const auto other = [&]<class Kind>(Kind& own) -> Kind& {
            if constexpr (std::is_convertible_v<Port&, Kind&>)
                return port;
            else
                return own;
        };
        return {other(files),     other(drives),  other(registry), other(system),   other(host),
                other(processes), other(desktop), other(keyboard), other(clipboard)};
    }
};

namespace ports {
/// The system this program runs on. The same object for the whole process.
Ports& native();
/// Why the calling thread was refused something since this was last called, such as for want of a
/// display; "" when there is nothing that a person could mend. Members give their results for
/// failure all the same.
std::string takeReason();
/// Has takeReason tell the calling thread this. For what a person can do something about.
void giveReason(std::string reason);
}  // namespace ports

}  // namespace quorkit
