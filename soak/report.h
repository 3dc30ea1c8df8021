// What was tried and what was found.
#pragma once

#include <cstdint>
#include <deque>
#include <string>
#include <vector>

namespace quorkit::soak {

/// Of all rounds of one kind.
struct Tally {
    std::string what;
    std::uint64_t rounds = 0;
    std::uint64_t calls = 0;    ///< that returned
    std::uint64_t refused = 0;  ///< of these, as failed
    std::uint64_t kills = 0;
    std::uint64_t torn = 0;    ///< ends of log entries that kills or full disks cost
    std::uint64_t faults = 0;  ///< anything that was promised and did not come true
    std::string skipped = {};  ///< why it could not be tried
};

/// One peer on the work of a table.
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

    std::deque<Tally> tallies_;  // which keep their address
    std::vector<Table> tables_;
};

}  // namespace quorkit::soak
