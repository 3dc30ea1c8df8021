// Pairs of benchmarks of one run, reported as ratios at its end.
#pragma once

#include <string>
#include <vector>

namespace quorkit::bench {

/// "ours" against "peer", both by benchmark name, and what we want of them.
struct Ratio {
    std::string ours;
    std::string peer;
    std::string goal;
};

std::vector<Ratio>& ratios();

/// Announces ratios; used in static initializers.
struct Report {
    Report(std::initializer_list<Ratio> more) {
        ratios().insert(ratios().end(), more.begin(), more.end());
    }
};

}  // namespace quorkit::bench
