// quorkit doctor: what a user needs to know when something does not work.
#pragma once

#include <quorkit/ports/ports.h>
#include <quorkit/values.h>

#include <chrono>
#include <ostream>
#include <span>
#include <string>
#include <vector>

namespace quorkit::cli {

enum class State {
    Ok,
    Note,    ///< something works in another way than some people expect
    Problem  ///< something does not work
};

struct Finding {
    State state = State::Ok;
    std::string topic;
    std::string sentence;
    std::string advice = {};  ///< what to do; "" for a state that needs nothing
    bool late = false;        ///< the check still runs
};
using Findings = std::vector<Finding>;

/// A look at one matter, which changes nothing.
struct Check {
    const char* topic;
    Findings (*look)(Ports& ports);
};
/// The checks of this system, in the order in which they are reported.
std::span<const Check> checks();

/// Ends this program without giving anything in it the time to hang.
[[noreturn]] void endAtOnce(int status);

/// The findings of all checks. A check that throws is a problem. So is one that takes longer than
/// `limit`; it then goes on by itself, until the program ends.
Findings examine(std::span<const Check> checks, Ports& ports, std::chrono::milliseconds limit);

/// Runs the command with the arguments behind "doctor". Raises Failure when there is a problem,
/// and UsageError. When a check hangs, so might the end of the program, which then ends here.
void doctor(std::span<const String> arguments, std::ostream& out, Ports& ports);

}  // namespace quorkit::cli
