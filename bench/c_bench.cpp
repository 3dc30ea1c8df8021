// A call through the C interface over the direct one, beside a function called through SQLite.
#include <benchmark/benchmark.h>
#include <c/quorkit.h>
#include <quorkit/GQuorStrings.h>
#include <sqlite3.h>

#include <cstdlib>
#include <string>

#include "ratios.h"

namespace quorkit::bench {
namespace {

const Report kReport({
    {"CallInC", "CallDirectlyInC", "diff <= 60 ns"},
    {"CallInC_arguments", "CallDirectlyInC", ""},
    {"CallInC_arguments", "CallInSqlite", ""},
});

const String kPad = u"0";
const String kText = u"7";

void CallDirectlyInC(benchmark::State& state) {
    GQuorStrings strings;
    for (auto _ : state) benchmark::DoNotOptimize(strings.LPad(kPad, kText, 3));
}
BENCHMARK(CallDirectlyInC);

void require(bool holds) {
    if (!holds) std::abort();
}

struct Client {
    quorkit_library library = nullptr;
    quorkit_object strings = nullptr;
    quorkit_values values = nullptr;
    int member = 0;

    Client() {
        require(quorkit_open(&library) == QUORKIT_OK);
        require(quorkit_new(library, "GQuorStrings", &strings) == QUORKIT_OK);
        require(quorkit_new_values(library, &values) == QUORKIT_OK);
        require(quorkit_identifier(library, strings, "LPad", &member) == QUORKIT_OK);
    }
    Client(const Client&) = delete;
    Client& operator=(const Client&) = delete;
    ~Client() { quorkit_close(library); }

    void set() const {
        quorkit_set_utf8(library, values, 1, "0", 1);
        quorkit_set_utf8(library, values, 2, "7", 1);
        quorkit_set_long(library, values, 3, 3);
    }
    void call() const {
        require(quorkit_call(library, strings, member, QUORKIT_CALL, values) == QUORKIT_OK);
    }
};

/// The arguments stay from call to call.
void CallInC(benchmark::State& state) {
    const Client client;
    client.set();
    for (auto _ : state) client.call();
}
BENCHMARK(CallInC);

/// The arguments are handed in and the result is read, all in UTF-8.
void CallInC_arguments(benchmark::State& state) {
    const Client client;
    for (auto _ : state) {
        client.set();
        client.call();
        const char* text = nullptr;
        std::size_t length = 0;
        require(quorkit_get_utf8(client.library, client.values, 0, &text, &length) == QUORKIT_OK);
        benchmark::DoNotOptimize(text);
    }
}
BENCHMARK(CallInC_arguments);

void padded(sqlite3_context* context, int, sqlite3_value** values) {
    std::string text = reinterpret_cast<const char*>(sqlite3_value_text(values[1]));
    const auto length = static_cast<std::size_t>(sqlite3_value_int(values[2]));
    if (text.size() < length)
        text.insert(0, length - text.size(),
                    *reinterpret_cast<const char*>(sqlite3_value_text(values[0])));
    sqlite3_result_text(context, text.data(), static_cast<int>(text.size()), SQLITE_TRANSIENT);
}

void CallInSqlite(benchmark::State& state) {
    sqlite3* base = nullptr;
    sqlite3_stmt* call = nullptr;
    require(sqlite3_open(":memory:", &base) == SQLITE_OK);
    sqlite3_create_function(base, "lpad", 3, SQLITE_UTF8 | SQLITE_DETERMINISTIC, nullptr, padded,
                            nullptr, nullptr);
    require(sqlite3_prepare_v2(base, "SELECT lpad(?, ?, ?)", -1, &call, nullptr) == SQLITE_OK);
    for (auto _ : state) {
        sqlite3_bind_text(call, 1, "0", 1, SQLITE_STATIC);
        sqlite3_bind_text(call, 2, "7", 1, SQLITE_STATIC);
        sqlite3_bind_int(call, 3, 3);
        require(sqlite3_step(call) == SQLITE_ROW);
        benchmark::DoNotOptimize(sqlite3_column_text(call, 0));
        sqlite3_reset(call);
    }
    sqlite3_finalize(call);
    sqlite3_close(base);
}
BENCHMARK(CallInSqlite);

}  // namespace
}  // namespace quorkit::bench
