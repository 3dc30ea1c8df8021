// The log file against spdlog, both passing each line to the system before they return; and against
// opening, writing and closing by hand.
#include <benchmark/benchmark.h>
#include <fcntl.h>
#include <quorkit/QuorLogFile.h>
#include <spdlog/sinks/basic_file_sink.h>
#include <spdlog/spdlog.h>
#include <unistd.h>

#include <filesystem>
#include <string>

#include "ratios.h"

namespace quorkit::bench {
namespace {

const Report kReport({
    {"LogEntry", "LogEntry_spdlog", "ratio <= 1"},
    {"LogEntry_limited", "LogEntry_spdlog", ""},
    {"LogEntry_opened", "LogEntry_openWriteClose", ""},
});

constexpr const char* kMessage = "Invoice 4711 has been sent to the customer's branch in Bern.";
constexpr const char16_t* kWideMessage =
    u"Invoice 4711 has been sent to the customer's branch in Bern.";

std::string newFile() {
    const std::string name = std::filesystem::temp_directory_path() /
                             ("quorkit-bench-" + std::to_string(getpid()) + ".log");
    std::filesystem::remove(name);
    return name;
}

void logWith(benchmark::State& state, QuorLogFile& log) {
    const std::string name = newFile();
    log.setLogFileName(std::filesystem::path(name).u16string());
    log.setAppend(true);
    log.setLogLevel(eLogEntryType_Information);
    log.setLogFormat(static_cast<eLogFormat>(eLogFormat_DateTime | eLogFormat_MsgLevel));
    if (!log.AutoOpenClose()) log.OpenLogfile();
    for (auto _ : state) {
        String entry = kWideMessage;
        log.writeLogfileEntry(entry, eLogEntryType_Information);
    }
    log.CloseLogfile();
    constexpr std::string_view end = "\r\n";
    const std::size_t line = std::string_view("01.02.2024 03:04:05  Info       ").size() +
                             std::string_view(kMessage).size() + end.size();
    if (std::filesystem::file_size(name) != line * state.iterations())
        state.SkipWithError("lines are missing");
    std::filesystem::remove(name);
}

void LogEntry(benchmark::State& state) {
    QuorLogFile log;
    log.setAutoOpenClose(false);
    logWith(state, log);
}
BENCHMARK(LogEntry);

/// With a limit that is never reached.
void LogEntry_limited(benchmark::State& state) {
    QuorLogFile log;
    log.setAutoOpenClose(false);
    log.setMaxFileSize(INT32_MAX);
    logWith(state, log);
}
BENCHMARK(LogEntry_limited);

void LogEntry_opened(benchmark::State& state) {
    QuorLogFile log;
    logWith(state, log);
}
BENCHMARK(LogEntry_opened);

void LogEntry_spdlog(benchmark::State& state) {
    const std::string name = newFile();
    const auto log = spdlog::basic_logger_st("bench", name);
    log->set_pattern("%d.%m.%Y %H:%M:%S  %-9l  %v");
    log->flush_on(spdlog::level::trace);
    for (auto _ : state) log->info(kMessage);
    spdlog::drop("bench");
    std::filesystem::remove(name);
}
BENCHMARK(LogEntry_spdlog);

void LogEntry_openWriteClose(benchmark::State& state) {
    const std::string name = newFile();
    const std::string line = "01.02.2024 03:04:05  Info       " + std::string(kMessage) + "\r\n";
    for (auto _ : state) {
        const int file = open(name.c_str(), O_WRONLY | O_APPEND | O_CREAT | O_CLOEXEC, 0666);
        if (write(file, line.data(), line.size()) < 0) state.SkipWithError("not written");
        close(file);
    }
    std::filesystem::remove(name);
}
BENCHMARK(LogEntry_openWriteClose);

}  // namespace
}  // namespace quorkit::bench
