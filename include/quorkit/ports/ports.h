// The operating system as operations. Classes take their ports in the constructor, so that a test
// or a host chooses the world they act on.
#pragma once

namespace quorkit {

class Drives;
class Files;
class Host;
class System;

struct Ports {
    Files& files;
    Drives& drives;
    System& system;
    Host& host;
};

namespace ports {
/// The system this program runs on. The same object for the whole process.
Ports& native();
}  // namespace ports

}  // namespace quorkit
