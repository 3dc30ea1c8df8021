// Running a program that does nothing against the system's own calls.
#include <benchmark/benchmark.h>
#include <quorkit/GQuorProgram.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include "ratios.h"

namespace quorkit::bench {
namespace {

const Report kReport({{"RunProgram", "RunProgram_posix_spawn", "ratio <= 1.5"}});

void RunProgram(benchmark::State& state) {
    GQuorProgram program;
    for (auto _ : state) program.ExecuteAndWait(u"true");
}
BENCHMARK(RunProgram)->Unit(benchmark::kMicrosecond)->UseRealTime();

void RunProgram_posix_spawn(benchmark::State& state) {
    char name[] = "true";
    char* const words[] = {name, nullptr};
    for (auto _ : state) {
        pid_t process = 0;
        int status = 0;
        if (posix_spawnp(&process, name, nullptr, nullptr, words, environ) != 0 ||
            waitpid(process, &status, 0) != process || status != 0)
            state.SkipWithError("wrong");
    }
}
BENCHMARK(RunProgram_posix_spawn)->Unit(benchmark::kMicrosecond)->UseRealTime();

}  // namespace
}  // namespace quorkit::bench
