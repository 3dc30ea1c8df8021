// The attempts and the findings.
#pragma once

#include <cstdint>
#include <deque>
#include <string>
#include <vector>

namespace quorkit::soak {

/// The sum of all rounds of one kind.
struct Tally {
    std::string what;
    std::uint64_t rounds = 0;
    std::uint64_t calls = 0;    ///< calls that returned
    std::uint64_t refused = 0;  ///< calls that returned a failure
    std::uint64_t kills = 0;
    std::uint64_t torn = 0;    ///< ends of log entries lost through kills or full disks
    std::uint64_t faults = 0;  ///< broken promises
    std::string skipped = {};  ///< the reason, if it could not be tried
};

/// A row of a table: one peer.
using Row = std::vector<std::string>;

class Report {
   public:
    /// The tally of the rounds named `what`.
    Tally& of(const std::string& what);
    void addPeers(const std::string& title, Row head) {
        tables_.push_back({title, std::move(head), {}});
    }
    void addPeer(Row row) { tables_.back().rows.push_back(std::move(row)); }

    bool foundFaults() const;
    /// Tables in Markdown.
    void print() const;

   private:
    struct Table {
        std::string title;
        Row head;
        std::vector<Row> rows;
    };

    std::deque<Tally> tallies_;  // their addresses do not change
    std::vector<Table> tables_;
};

}  // namespace quorkit::soak
