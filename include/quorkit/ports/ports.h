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

    /// This world with each of `own` in the place of its own port of that kind. Files and folders
    /// belong together.
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
