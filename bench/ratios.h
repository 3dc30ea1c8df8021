// Pairs of benchmarks of one run, reported as ratios at the end.
#pragma once

#include <string>
#include <vector>

namespace quorkit::bench {

/// The names of two benchmarks, "ours" and "peer", and the ratio wanted.
struct Ratio {
    std::string ours;
    std::string peer;
    std::string goal;
};

std::vector<Ratio>& ratios();

/// Registers ratios; used in static initializers.
struct Report {
    Report(std::initializer_list<Ratio> more) {
        ratios().insert(ratios().end(), more.begin(), more.end());
    }
};

}  // namespace quorkit::bench
