// The operating system as operations. Classes take their ports in the constructor, so that a test
// or a host chooses the world they act on.
#pragma once

namespace quorkit {

class Files;
class System;

struct Ports {
    Files& files;
    System& system;
};

namespace ports {
/// The system this program runs on. The same object for the whole process.
Ports& native();
}  // namespace ports

}  // namespace quorkit
