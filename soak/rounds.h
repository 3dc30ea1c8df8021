// The kinds of rounds.
#pragma once

#include <string>

#include "board.h"
#include "report.h"
#include "round.h"

namespace quorkit::soak {

/// What goes on besides.
enum class Trouble {
    None,
    Kills,     ///< kill -9, again and again
    Forks,     ///< one writer makes children that sleep
    Stops,     ///< one writer is stopped
    FullDisk,  ///< the disk is full now and then
    Users,     ///< some writers are no superuser, and kills
    // Of logs alone:
    Limits,     ///< kills, and writers that shorten
    SmallDisk,  ///< the disk has hardly more room than the limit
    Emptying,   ///< a writer that empties the file
    Replacing,  ///< another program puts an empty file in its place
    Rotating,   ///< another program moves the file away
};

/// Whom the writers are that are no superuser: "nobody".
inline constexpr uid_t kOrdinaryUser = 65534;

/// INI files and the registry.
void runStoreRound(Round& round, Role role, Trouble trouble);
/// New INI files, with kills.
void runNewFilesRound(Round& round);
void runLogRound(Round& round, Trouble trouble);
/// The peers and this library on the same work.
void runPeers(Report& report, std::uint64_t seed);

}  // namespace quorkit::soak
