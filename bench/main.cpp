// Runs the benchmarks, then prints their ratios to the peers of the same run.
#include <benchmark/benchmark.h>

#include <cstdio>
#include <map>

#include "ratios.h"

namespace quorkit::bench {

std::vector<Ratio>& ratios() {
    static std::vector<Ratio> all;
    return all;
}

namespace {

class Collecting : public benchmark::ConsoleReporter {
   public:
    void ReportRuns(const std::vector<Run>& runs) override {
        ConsoleReporter::ReportRuns(runs);
        for (const Run& run : runs)
            if (run.aggregate_name.empty() || run.aggregate_name == "median")
                nanoseconds[run.run_name.function_name] =
                    run.GetAdjustedRealTime() / benchmark::GetTimeUnitMultiplier(run.time_unit) *
                    1e9;
    }
    std::map<std::string, double> nanoseconds;
};

}  // namespace
}  // namespace quorkit::bench

int main(int argc, char** argv) {
    benchmark::Initialize(&argc, argv);
    quorkit::bench::Collecting reporter;
    benchmark::RunSpecifiedBenchmarks(&reporter);
    std::printf("\n%-34s %-34s %12s %12s %8s %10s  %s\n", "ours", "peer", "ours ns", "peer ns",
                "ratio", "diff ns", "goal");
    for (const auto& [ours, peer, goal] : quorkit::bench::ratios()) {
        const auto a = reporter.nanoseconds.find(ours);
        const auto b = reporter.nanoseconds.find(peer);
        if (a == reporter.nanoseconds.end() || b == reporter.nanoseconds.end()) continue;
        std::printf("%-34s %-34s %12.0f %12.0f %8.3f %10.0f  %s\n", ours.c_str(), peer.c_str(),
                    a->second, b->second, a->second / b->second, a->second - b->second,
                    goal.c_str());
    }
    return 0;
}
