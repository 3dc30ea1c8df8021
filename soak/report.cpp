#include "report.h"

#include <algorithm>
#include <cstdio>

namespace quorkit::soak {
namespace {

/// With commas between thousands.
std::string grouped(std::uint64_t number) {
    std::string digits = std::to_string(number);
    for (std::size_t at = digits.size(); at > 3;) digits.insert(at -= 3, ",");
    return digits;
}

void printRow(const Row& row) {
    std::string line = "|";
    for (const std::string& cell : row) line += " " + cell + " |";
    std::puts(line.c_str());
}

void printHead(const Row& head) {
    printRow(head);
    std::puts(("|" +
               [&] {
                   std::string rule;
                   for (std::size_t i = 0; i < head.size(); ++i) rule += "---|";
                   return rule;
               }())
                  .c_str());
}

}  // namespace

Tally& Report::of(const std::string& what) {
    const auto found = std::ranges::find(tallies_, what, &Tally::what);
    return found != tallies_.end() ? *found : tallies_.emplace_back(Tally{.what = what});
}

bool Report::foundFaults() const {
    return std::ranges::any_of(tallies_, [](const Tally& one) { return one.faults != 0; });
}

void Report::print() const {
    std::puts("");
    printHead({"What", "Rounds", "Calls", "Refused", "Kills", "Torn", "Lost"});
    for (const Tally& one : tallies_) {
        if (one.skipped.empty())
            printRow({one.what, grouped(one.rounds), grouped(one.calls), grouped(one.refused),
                      grouped(one.kills), grouped(one.torn), grouped(one.faults)});
        else
            printRow({one.what + " (skipped: " + one.skipped + ")", "", "", "", "", "", ""});
    }
    for (const Table& table : tables_) {
        std::printf("\n%s\n\n", table.title.c_str());
        printHead(table.head);
        for (const Row& row : table.rows) printRow(row);
    }
}

}  // namespace quorkit::soak
