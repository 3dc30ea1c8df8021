// The operating system as operations. Classes take their ports in the constructor, so that a test
// or a host chooses the world they act on.
#pragma once

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

    /// This world with other files.
    Ports with(Files& others) const {
        return {others, drives, registry, system, host, processes, desktop, keyboard, clipboard};
    }
};

namespace ports {
/// The system this program runs on. The same object for the whole process.
Ports& native();
}  // namespace ports

}  // namespace quorkit
