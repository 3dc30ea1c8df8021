// The kinds of rounds.
#pragma once

#include <string>

#include "board.h"
#include "report.h"
#include "round.h"

namespace quorkit::soak {

/// What disturbs the writers.
enum class Trouble {
    None,
    Kills,     ///< kill -9, repeatedly
    Forks,     ///< one writer makes children that sleep
    Stops,     ///< one writer is stopped
    FullDisk,  ///< the disk is full now and then
    Users,     ///< kills, and some writers are not the superuser
    // Only for logs:
    Limits,     ///< kills, and writers that shorten the log
    SmallDisk,  ///< the disk is hardly larger than the limit
    Emptying,   ///< a writer that empties the file
    Replacing,  ///< another program puts an empty file in its place
    Rotating,   ///< another program moves the file away
};

/// The user for writers that are not the superuser: "nobody".
inline constexpr uid_t kOrdinaryUser = 65534;

/// Rounds on INI files and the registry.
void runStoreRound(Round& round, Role role, Trouble trouble);
/// New INI files, with kills.
void runNewFilesRound(Round& round);
void runLogRound(Round& round, Trouble trouble);
/// The peers and this library at the same work.
void runPeers(Report& report, std::uint64_t seed);

}  // namespace quorkit::soak
