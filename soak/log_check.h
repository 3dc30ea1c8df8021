// Whether a log has what its writers were told is in it.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "board.h"

namespace quorkit::soak {

/// What the round allows.
struct LogRules {
    bool limited = false;       ///< old entries may have been cut off
    std::uint64_t calm = 0;     ///< what began before may be missing if there was a reason
    std::uint64_t cleared = 0;  ///< when the file was emptied; what began before may be gone
};

struct LogFindings {
    std::uint64_t acknowledged = 0;
    std::uint64_t dropped = 0;    ///< missing, but for a reason
    std::uint64_t lost = 0;       ///< missing
    std::uint64_t torn = 0;       ///< in part, of calls that never returned, failed or tried again
    std::uint64_t broken = 0;     ///< in part only, of calls that had returned
    std::uint64_t continued = 0;  ///< an entry in the line of one that was torn
    std::uint64_t wrong = 0;      ///< there twice, in the wrong order, or nobody's
    std::vector<std::string> told;  ///< the first ones for a person

    std::uint64_t faults() const { return lost + broken + continued + wrong; }
};

/// `files`: the file, and before it the older ones that were put aside; `writers` are all that have
/// written to them.
LogFindings checkLog(const std::vector<std::string>& files,
                     const std::vector<const Board*>& writers, const LogRules& rules);

}  // namespace quorkit::soak
