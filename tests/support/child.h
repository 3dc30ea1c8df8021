// Real processes for tests: this program is started again to play a part.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace quorkit::test {

/// A part for a child; it gets the arguments that follow the part's name.
using Part = int (*)(const std::vector<std::string>& arguments);
/// Names a part; a test file does so in a static initializer.
struct PartName {
    PartName(const char* name, Part part);
};

/// The command line that starts this program in the named part. No argument may contain a quotation
/// mark or end in a backslash.
std::string lineOf(const std::string& part, const std::vector<std::string>& arguments);

class Child {
   public:
    /// Starts this program in the named part.
    Child(const std::string& part, const std::vector<std::string>& arguments);
    ~Child();
    Child(const Child&) = delete;
    Child& operator=(const Child&) = delete;

    /// Ends the process at once, whatever it does.
    void kill();
    /// Waits for the end. Returns the exit status, or -1 when the process was killed.
    int wait();

   private:
    std::intptr_t process_ = -1;
};

/// Plays the part that the command line names; false when there is none.
bool playPart(int argc, char** argv, int& status);

}  // namespace quorkit::test
