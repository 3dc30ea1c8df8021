// Checks that a log has the entries that its writers believe to be in it.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "board.h"

namespace quorkit::soak {

/// What the round permits.
struct LogRules {
    bool limited = false;       ///< old entries may have been cut off
    std::uint64_t calm = 0;     ///< an entry begun before may be missing if there was a reason
    std::uint64_t cleared = 0;  ///< when the file was emptied; an entry begun before may be gone
};

struct LogFindings {
    std::uint64_t acknowledged = 0;
    std::uint64_t dropped = 0;      ///< missing, but with a reason
    std::uint64_t lost = 0;         ///< missing
    std::uint64_t torn = 0;         ///< in part; the calls never returned, failed or tried again
    std::uint64_t broken = 0;       ///< in part, although the calls had returned
    std::uint64_t continued = 0;    ///< entries in the line of a torn one
    std::uint64_t wrong = 0;        ///< twice, in the wrong order, or nobody's
    std::vector<std::string> told;  ///< the first findings, for a person

    std::uint64_t faults() const { return lost + broken + continued + wrong; }
};

/// `files` are the file and, in front of it, the older ones that were moved away. `writers` are all
/// workers that have ever written to them.
LogFindings checkLog(const std::vector<std::string>& files,
                     const std::vector<const Board*>& writers, const LogRules& rules);

}  // namespace quorkit::soak
