// Listing folders against the standard library doing the same work, and against find.
#include <benchmark/benchmark.h>
#include <quorkit/GQuorFile.h>
#include <unistd.h>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <string>
#include <vector>

#include "ratios.h"

namespace quorkit::bench {
namespace {

namespace fs = std::filesystem;

const Report kReport({
    {"ListByPattern", "ListByPattern_iterator", "ratio <= 1.5"},
    {"ListByDate", "ListByDate_iterator", "ratio <= 1.5"},
    {"ListByAttribute", "ListByAttribute_iterator", "ratio <= 1.5"},
    {"ListTree", "ListTree_iterator", "ratio <= 1.5"},
    {"ListTree", "ListTree_find", "ratio <= 1"},
});

constexpr int kFiles = 100'000;
constexpr int kFolders = 1'000;
constexpr Long kListed = kFiles / 2;

/// A flat folder and a tree with equally many files, half of them texts; deleted at the end.
struct Disk {
    Disk() {
        std::string pattern = (fs::temp_directory_path() / "quorkit-bench-XXXXXX").string();
        top = mkdtemp(pattern.data());
        fs::create_directory(top / "flat");
        for (int folder = 0; folder < kFolders; ++folder) fs::create_directories(folderOf(folder));
        for (int i = 0; i < kFiles; ++i) {
            const std::string name =
                "file number " + std::to_string(i) + (i % 2 == 0 ? ".txt" : ".data");
            const fs::path file = top / "flat" / name;
            std::ofstream(file) << "";
            std::ofstream(folderOf(i % kFolders) / name) << "";
            if (i % 2 != 0) continue;
            fs::last_write_time(file, kLongAgo);
            fs::permissions(file, fs::perms::owner_read);
        }
    }
    ~Disk() { fs::remove_all(top); }

    /// Ten folders at the top, ten in each, ten in each of those.
    fs::path folderOf(int number) const {
        return top / "tree" / ("folder " + std::to_string(number / 100)) /
               ("folder " + std::to_string(number / 10 % 10)) /
               ("folder " + std::to_string(number % 10));
    }

    static inline const fs::file_time_type kLongAgo = std::chrono::file_clock::from_sys(
        std::chrono::sys_seconds(std::chrono::sys_days(std::chrono::January / 1 / 2001)));
    fs::path top;
};

const Disk& disk() {
    static const Disk made;
    return made;
}

void list(benchmark::State& state, const Optional<String, Text(u"*.*")>& filter,
          const Optional<Variant>& upTo = {}, const Optional<String>& attributes = {}) {
    const String folder = (disk().top / "flat").u16string();
    GQuorFile file;
    for (auto _ : state) {
        Array<String> names;
        if (file.getFilesFromDirectoryEx(folder, names, filter, false, upTo, {}, attributes) !=
            kListed)
            state.SkipWithError("wrong");
    }
}

template <class Takes>
void iterate(benchmark::State& state, Takes takes) {
    const fs::path folder = disk().top / "flat";
    for (auto _ : state) {
        std::vector<std::u16string> names;
        for (const fs::directory_entry& entry : fs::directory_iterator(folder))
            if (!entry.is_directory() && takes(entry))
                names.push_back(entry.path().filename().u16string());
        if (names.size() != kListed) state.SkipWithError("wrong");
    }
}

bool isText(const fs::directory_entry& entry) {
    return entry.path().extension() == ".txt";
}

void ListByPattern(benchmark::State& state) {
    list(state, u"*.txt");
}
BENCHMARK(ListByPattern)->Unit(benchmark::kMillisecond);

void ListByPattern_iterator(benchmark::State& state) {
    iterate(state, isText);
}
BENCHMARK(ListByPattern_iterator)->Unit(benchmark::kMillisecond);

void ListByDate(benchmark::State& state) {
    list(state, {}, u"2001-12-31");
}
BENCHMARK(ListByDate)->Unit(benchmark::kMillisecond);

void ListByDate_iterator(benchmark::State& state) {
    iterate(state, [](const fs::directory_entry& entry) {
        return entry.last_write_time() <= Disk::kLongAgo;
    });
}
BENCHMARK(ListByDate_iterator)->Unit(benchmark::kMillisecond);

void ListByAttribute(benchmark::State& state) {
    list(state, {}, {}, u"+R");
}
BENCHMARK(ListByAttribute)->Unit(benchmark::kMillisecond);

void ListByAttribute_iterator(benchmark::State& state) {
    iterate(state, [](const fs::directory_entry& entry) {
        constexpr auto writable =
            fs::perms::owner_write | fs::perms::group_write | fs::perms::others_write;
        return (entry.status().permissions() & writable) == fs::perms::none ||
               access(entry.path().c_str(), W_OK) != 0;
    });
}
BENCHMARK(ListByAttribute_iterator)->Unit(benchmark::kMillisecond);

void ListTree(benchmark::State& state) {
    const String folder = (disk().top / "tree").u16string();
    GQuorFile file;
    for (auto _ : state) {
        Array<String> names;
        if (file.GetFilesFromDirectory3(folder, u"*.txt", true, true, names) != kListed)
            state.SkipWithError("wrong");
    }
}
BENCHMARK(ListTree)->Unit(benchmark::kMillisecond);

void ListTree_iterator(benchmark::State& state) {
    for (auto _ : state) {
        std::vector<std::u16string> names;
        for (const fs::directory_entry& entry :
             fs::recursive_directory_iterator(disk().top / "tree"))
            if (!entry.is_directory() && isText(entry)) names.push_back(entry.path().u16string());
        if (names.size() != kListed) state.SkipWithError("wrong");
    }
}
BENCHMARK(ListTree_iterator)->Unit(benchmark::kMillisecond);

void ListTree_find(benchmark::State& state) {
    const std::string command = "find '" + (disk().top / "tree").string() + "' -name '*.txt'";
    for (auto _ : state) {
        std::string output;
        FILE* const pipe = popen(command.c_str(), "r");
        char block[65536];
        for (std::size_t got = 1; got != 0; output.append(block, got))
            got = fread(block, 1, sizeof block, pipe);
        pclose(pipe);
        if (std::count(output.begin(), output.end(), '\n') != kListed) state.SkipWithError("wrong");
    }
}
BENCHMARK(ListTree_find)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace quorkit::bench
