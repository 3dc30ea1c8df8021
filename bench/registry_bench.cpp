// The registry against plain files, against SQLite, and against Wine's registry, which the Windows
// build of the library uses.
#include <benchmark/benchmark.h>
#include <fcntl.h>
#include <sqlite3.h>
#include <unistd.h>

#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <map>

#include "ratios.h"
#include "registry_cases.h"

namespace quorkit::bench {
namespace {

namespace fs = std::filesystem;

const Report kReport({
    {"RegistryReadDWord", "RegistryReadDWord_file", "ratio <= 5"},
    {"RegistryReadDWord", "RegistryReadDWord_sqlite", ""},
    {"RegistryReadDWord", "RegistryReadDWord_wine", ""},
    {"RegistryWriteDWord", "RegistryWriteDWord_file", "ratio <= 3"},
    {"RegistryWriteDWord", "RegistryWriteDWord_flushed", ""},
    {"RegistryWriteDWord", "RegistryWriteDWord_sqlite", ""},
    {"RegistryWriteDWord", "RegistryWriteDWord_wine", ""},
    {"RegistryWriteThousand", "RegistryWriteDWord", "far below 1000"},
    {"RegistryWriteThousand", "RegistryWriteThousand_sqlite", ""},
    {"RegistryWriteThousand", "RegistryWriteThousand_wine", ""},
    {"RegistryListValues", "RegistryListThousand", "ratio about 10"},
    {"RegistryListValues", "RegistryListValues_sqlite", ""},
    {"RegistryListValues", "RegistryListValues_wine", ""},
    {"RegistryListKeys", "RegistryListKeys_wine", ""},
});

/// A store of its own on this disk, deleted at the end.
struct Disk {
    Disk() {
        std::string pattern = (fs::temp_directory_path() / "quorkit-bench-XXXXXX").string();
        top = mkdtemp(pattern.data());
        setenv("XDG_DATA_HOME", top.c_str(), 1);
        cases = std::make_unique<RegistryCases>();
    }
    ~Disk() {
        cases.reset();
        fs::remove_all(top);
    }
    fs::path top;
    std::unique_ptr<RegistryCases> cases;
};

Disk& disk() {
    static Disk made;
    return made;
}

template <bool (RegistryCases::*Run)()>
void measure(benchmark::State& state) {
    RegistryCases& cases = *disk().cases;
    for (auto _ : state)
        if (!(cases.*Run)()) state.SkipWithError("wrong");
}
BENCHMARK(measure<&RegistryCases::readDWord>)->Name("RegistryReadDWord");
BENCHMARK(measure<&RegistryCases::writeDWord>)->Name("RegistryWriteDWord")->UseRealTime();
BENCHMARK(measure<&RegistryCases::writeBulk>)->Name("RegistryWriteThousand")->UseRealTime();
BENCHMARK(measure<&RegistryCases::listBulk>)->Name("RegistryListThousand");
BENCHMARK(measure<&RegistryCases::listValues>)->Name("RegistryListValues");
BENCHMARK(measure<&RegistryCases::listKeys>)->Name("RegistryListKeys");

// --- Plain files ---

constexpr std::string_view kText =
    "[Main]\n\"Left\"=dword:0000000c\n\"Name\"=\"a text beside it\"\n";

void put(const std::string& path, bool flush) {
    const int file = open(path.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, 0600);
    if (write(file, kText.data(), kText.size()) < 0) std::abort();
    if (flush) fdatasync(file);
    close(file);
}

void RegistryReadDWord_file(benchmark::State& state) {
    const std::string path = disk().top / "plain";
    put(path, false);
    char buffer[4096];
    for (auto _ : state) {
        const int file = open(path.c_str(), O_RDONLY | O_CLOEXEC);
        if (read(file, buffer, sizeof buffer) <= 0) state.SkipWithError("wrong");
        close(file);
    }
}
BENCHMARK(RegistryReadDWord_file);

void replace(benchmark::State& state, bool flush) {
    const std::string path = disk().top / "plain";
    for (auto _ : state) {
        put(path + ".new", flush);
        if (rename((path + ".new").c_str(), path.c_str()) != 0) state.SkipWithError("wrong");
    }
}
void RegistryWriteDWord_file(benchmark::State& state) {
    replace(state, false);
}
BENCHMARK(RegistryWriteDWord_file)->UseRealTime();
void RegistryWriteDWord_flushed(benchmark::State& state) {
    replace(state, true);
}
BENCHMARK(RegistryWriteDWord_flushed)->UseRealTime();

// --- SQLite: one table, write-ahead log, otherwise the default settings ---

class Table {
   public:
    Table() {
        sqlite3_open((disk().top / "store.db").c_str(), &database_);
        run("PRAGMA journal_mode=WAL");
        run("CREATE TABLE IF NOT EXISTS r(path TEXT, name TEXT COLLATE NOCASE, type INT, data BLOB,"
            " PRIMARY KEY(path, name)) WITHOUT ROWID");
        prepare("SELECT data FROM r WHERE path=?1 AND name=?2", read_);
        prepare("INSERT OR REPLACE INTO r VALUES(?1, ?2, 4, ?3)", write_);
        prepare("SELECT name, data FROM r WHERE path=?1", list_);
        fill("HKCU\\Software\\Many", RegistryCases::kMany);
        set("HKCU\\Software\\Quorkit bench\\Tool\\Forms\\Main", "Left", 12);
    }
    ~Table() {
        for (sqlite3_stmt* one : {read_, write_, list_}) sqlite3_finalize(one);
        sqlite3_close(database_);
    }
    Table(const Table&) = delete;
    Table& operator=(const Table&) = delete;

    bool readDWord() {
        bind(read_, "HKCU\\Software\\Quorkit bench\\Tool\\Forms\\Main", "Left");
        const bool found = sqlite3_step(read_) == SQLITE_ROW && sqlite3_column_bytes(read_, 0) == 4;
        sqlite3_reset(read_);
        return found;
    }
    bool writeDWord() {
        return set("HKCU\\Software\\Quorkit bench\\Tool\\Forms\\Main", "Left", ++count_);
    }
    bool writeBulk() { return fill("HKCU\\Software\\Bulk", RegistryCases::kBulk); }
    bool listValues() {
        const std::string path = "HKCU\\Software\\Many";
        sqlite3_bind_text(list_, 1, path.data(), static_cast<int>(path.size()), SQLITE_STATIC);
        const DictionaryRef all = Dictionary::make();
        while (sqlite3_step(list_) == SQLITE_ROW) {
            const auto* name = static_cast<const char16_t*>(sqlite3_column_text16(list_, 0));
            all->add(String(name), sqlite3_column_bytes(list_, 1));
        }
        sqlite3_reset(list_);
        return all->count() == RegistryCases::kMany;
    }

   private:
    bool run(const char* sql) {
        return sqlite3_exec(database_, sql, nullptr, nullptr, nullptr) == SQLITE_OK;
    }
    void prepare(const char* sql, sqlite3_stmt*& statement) {
        if (sqlite3_prepare_v2(database_, sql, -1, &statement, nullptr) != SQLITE_OK) std::abort();
    }
    static void bind(sqlite3_stmt* statement, const char* path, const char* name) {
        sqlite3_bind_text(statement, 1, path, -1, SQLITE_TRANSIENT);
        sqlite3_bind_text(statement, 2, name, -1, SQLITE_TRANSIENT);
    }
    bool set(const char* path, const char* name, int value) {
        bind(write_, path, name);
        sqlite3_bind_blob(write_, 3, &value, sizeof value, SQLITE_TRANSIENT);
        const bool done = sqlite3_step(write_) == SQLITE_DONE;
        sqlite3_reset(write_);
        return done;
    }
    bool fill(const char* path, Long count) {
        bool done = run("BEGIN");
        for (Long i = 0; i < count; ++i)
            done = set(path, ("Value number " + std::to_string(i)).c_str(), i) && done;
        return run("COMMIT") && done;
    }

    sqlite3* database_ = nullptr;
    sqlite3_stmt* read_ = nullptr;
    sqlite3_stmt* write_ = nullptr;
    sqlite3_stmt* list_ = nullptr;
    int count_ = 0;
};

Table& table() {
    static Table made;
    return made;
}

template <bool (Table::*Run)()>
void measureTable(benchmark::State& state) {
    Table& one = table();
    for (auto _ : state)
        if (!(one.*Run)()) state.SkipWithError("wrong");
}
BENCHMARK(measureTable<&Table::readDWord>)->Name("RegistryReadDWord_sqlite");
BENCHMARK(measureTable<&Table::writeDWord>)->Name("RegistryWriteDWord_sqlite")->UseRealTime();
BENCHMARK(measureTable<&Table::writeBulk>)->Name("RegistryWriteThousand_sqlite")->UseRealTime();
BENCHMARK(measureTable<&Table::listValues>)->Name("RegistryListValues_sqlite");

// --- Wine ---

/// The output of registry_probe under Wine: nanoseconds by case. QUORKIT_REGISTRY_PROBE is the
/// command that runs it.
const std::map<std::string, double>& probed() {
    static const std::map<std::string, double> all = [] {
        std::map<std::string, double> found;
        const char* const command = std::getenv("QUORKIT_REGISTRY_PROBE");
        if (command == nullptr) return found;
        FILE* const pipe = popen(command, "r");
        char name[64];
        double nanoseconds = 0;
        while (std::fscanf(pipe, "%63s %lf", name, &nanoseconds) == 2) found[name] = nanoseconds;
        pclose(pipe);
        return found;
    }();
    return all;
}

void measureProbe(benchmark::State& state, const char* name) {
    const auto found = probed().find(name);
    if (found == probed().end()) state.SkipWithError("QUORKIT_REGISTRY_PROBE tells nothing");
    for (auto _ : state) state.SetIterationTime(found->second * 1e-9);
}
#define PROBE(name)                              \
    BENCHMARK_CAPTURE(measureProbe, name, #name) \
        ->Name(#name "_wine")                    \
        ->Iterations(1)                          \
        ->UseManualTime()
PROBE(RegistryReadDWord);
PROBE(RegistryWriteDWord);
PROBE(RegistryWriteThousand);
PROBE(RegistryListValues);
PROBE(RegistryListKeys);
#undef PROBE

}  // namespace
}  // namespace quorkit::bench
