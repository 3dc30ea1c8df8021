// Runs processes that write, kills them at random and checks the result against a model, until the
// time is up. The tables at the end are for docs/reliability.md.
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <exception>
#include <random>
#include <string>
#include <vector>

#include "limits.h"
#include "report.h"
#include "rounds.h"
#include "worker.h"

namespace {

using namespace quorkit::soak;

constexpr const char* kUsage =
    "quorkit_soak [MINUTES] [--seed NUMBER] [--only WORD]\n"
    "  MINUTES  how long; 2 unless given, every kind of round is tried once at least;\n"
    "           from 1 on the peers are tried too, which takes a minute more\n"
    "  --seed   that of a round that failed; what is random is chosen as it was, but for the "
    "times\n"
    "           at which the system lets processes run\n"
    "  --only   the rounds with this word in their names; \"peers\" for these alone\n";

struct Options {
    double minutes = 2;
    std::uint64_t seed = 0;
    bool seedGiven = false;
    std::string only;
};

struct Kind {
    const char* what;
    void (*run)(Round&);
};

template <Role role, Trouble trouble>
void store(Round& round) {
    runStoreRound(round, role, trouble);
}
template <Trouble trouble>
void log(Round& round) {
    runLogRound(round, trouble);
}

constexpr Kind kKinds[] = {
    {"INI file, writers killed", store<Role::Ini, Trouble::Kills>},
    {"INI file, killed while it is made", runNewFilesRound},
    {"INI file, a writer forks", store<Role::Ini, Trouble::Forks>},
    {"INI file, a writer is stopped", store<Role::Ini, Trouble::Stops>},
    {"INI file, disk full now and then", store<Role::Ini, Trouble::FullDisk>},
    {"INI file, superuser and ordinary user", store<Role::Ini, Trouble::Users>},
    {"registry, writers killed", store<Role::Registry, Trouble::Kills>},
    {"registry, a writer forks", store<Role::Registry, Trouble::Forks>},
    {"registry, a writer is stopped", store<Role::Registry, Trouble::Stops>},
    {"registry, disk full now and then", store<Role::Registry, Trouble::FullDisk>},
    {"registry, superuser and ordinary user", store<Role::Registry, Trouble::Users>},
    {"log, writers undisturbed", log<Trouble::None>},
    {"log, writers killed", log<Trouble::Kills>},
    {"log with a limit, writers killed", log<Trouble::Limits>},
    {"log, a writer forks", log<Trouble::Forks>},
    {"log, a writer is stopped", log<Trouble::Stops>},
    {"log, disk full now and then", log<Trouble::FullDisk>},
    {"log, limit of 50 KB on a disk of 64 KB", log<Trouble::SmallDisk>},
    {"log, superuser and ordinary user", log<Trouble::Users>},
    {"log, emptied by a writer", log<Trouble::Emptying>},
    {"log, replaced by another program", log<Trouble::Replacing>},
    {"log, moved by another program", log<Trouble::Rotating>},
};

bool readOptions(int count, char** arguments, Options& options) {
    for (int i = 1; i < count; ++i) {
        const std::string word = arguments[i];
        const bool more = i + 1 < count;
        char* end = nullptr;
        if (word == "--seed" && more) {
            options.seed = std::strtoull(arguments[++i], &end, 10);
            options.seedGiven = true;
        } else if (word == "--only" && more) {
            options.only = arguments[++i];
            end = arguments[i] + options.only.size();
        } else {
            options.minutes = std::strtod(word.c_str(), &end);
            if (end == word.c_str()) return false;
        }
        if (*end != '\0') return false;
    }
    return true;
}

int soak(const Options& options) {
    constexpr double nanosecondsPerMinute = 60e9;
    const auto length = static_cast<std::uint64_t>(options.minutes * nanosecondsPerMinute);
    const std::uint64_t end = now() + length;
    const std::uint64_t forRound =
        std::min(2000 * kMillisecond, length / std::size(kKinds) / 2 + 200 * kMillisecond);
    Report report;
    Random random{options.seed};
    std::printf("seed %llu\n", static_cast<unsigned long long>(options.seed));
    std::vector<const Kind*> kinds;
    for (const Kind& kind : kKinds)
        if (std::strstr(kind.what, options.only.c_str()) != nullptr) kinds.push_back(&kind);
    for (std::size_t number = 0; !kinds.empty() && (number < kinds.size() || now() < end);
         ++number) {
        const Kind& kind = *kinds[number % kinds.size()];
        // A failing round prints its seed, which repeats the round when it is given as an option.
        const std::uint64_t seed = options.seedGiven ? options.seed : random.next() >> 32;
        Round round(report.of(kind.what), seed, forRound);
        kind.run(round);
    }
    const bool longEnough = options.only.empty() && options.minutes >= 1;
    if (longEnough || options.only == "peers") runPeers(report, options.seed);
    report.print();
    std::puts(report.foundFaults() ? "\nThere are faults." : "\nNothing was lost.");
    return report.foundFaults() ? 1 : 0;
}

}  // namespace

int main(int count, char** arguments) try {
    std::setvbuf(stdout, nullptr, _IOLBF, 0);
    if (count == 3 && std::strcmp(arguments[1], "--worker") == 0)
        return work(std::atoi(arguments[2]));
    Options options;
    if (!readOptions(count, arguments, options)) {
        std::fputs(kUsage, stderr);
        return 2;
    }
    if (!options.seedGiven) options.seed = std::random_device()();
    return soak(options);
} catch (const std::exception& error) {
    std::fprintf(stderr, "quorkit_soak: %s\n", error.what());
    return 1;
}
