// INI files against GLib's GKeyFile, inih, and the minimum of work.
#include <benchmark/benchmark.h>
#include <fcntl.h>
#include <glib.h>
#include <ini.h>
#include <quorkit/QuorInifile.h>
#include <quorkit/ports/faults.h>
#include <unistd.h>

#include <cstring>
#include <filesystem>
#include <fstream>

#include "ratios.h"

namespace quorkit::bench {
namespace {

const Report kReport({
    {"ReadOneKey", "ReadOneKey_GKeyFile", "ratio <= 0.05"},
    {"ReadOneKey", "ReadOneKey_inih", "reported only"},
    {"ReadOneKey", "ReadOneKey_plainRead", "ratio <= 3"},
    {"ChangeOneKey_unflushed", "ChangeOneKey_GKeyFile", "ours < 1,000,000 ns"},
    {"ChangeOneKey_flushed", "ChangeOneKey_GKeyFile", "reported only"},
    {"Merge10000", "Merge10000_GKeyFile", "ratio <= 1"},
    {"Merge10000", "Merge1000", "ratio about 10: linear"},
    {"MultiLine1MB", "ReadOneKey_plainRead", "reported only"},
});

std::string file(const char* name) {
    static const std::string folder = [] {
        std::string pattern =
            (std::filesystem::temp_directory_path() / "quorkit-bench-XXXXXX").string();
        return std::string(mkdtemp(pattern.data()));
    }();
    return folder + "/" + name;
}

void put(const std::string& name, const std::string& content) {
    std::ofstream(name, std::ios::binary) << content;
}

std::string keys(int count, int value = 0) {
    std::string text = "[Section]\n";
    for (int i = 0; i < count; ++i)
        text += "key" + std::to_string(i) + "=value number " + std::to_string(i + value) + "\n";
    return text;
}

/// 1 MB in 20 sections; the key looked for is the last one.
std::string megabyte() {
    std::string text;
    for (int section = 0; text.size() < 1u << 20; ++section) {
        text += "[Section " + std::to_string(section) + "]\n";
        for (int i = 0; i < 1250; ++i)
            text +=
                "some key " + std::to_string(i) + " = some value of " + std::to_string(i) + "\n";
    }
    return text + "[Last]\nkey=value\n";
}

QuorInifile on(const std::string& name, Ports& ports = ports::native()) {
    QuorInifile ini(ports);
    ini.setIniFileName(std::filesystem::path(name).u16string());
    return ini;
}

/// The native files without the wait for the disk.
Ports& unflushed() {
    static FaultyPorts ports(ports::native());
    ports.answer(0, kSuccess, "Flush");
    return ports;
}

std::string readPlainly(const std::string& name) {
    std::string content;
    const int descriptor = open(name.c_str(), O_RDONLY);
    content.resize(std::filesystem::file_size(name));
    const ssize_t got = read(descriptor, content.data(), content.size());
    close(descriptor);
    benchmark::DoNotOptimize(got);
    return content;
}

void ReadOneKey(benchmark::State& state) {
    put(file("mb.ini"), megabyte());
    QuorInifile ini = on(file("mb.ini"));
    for (auto _ : state)
        if (ini.ReadKeyValue(u"last", u"key", u"") != u"value") state.SkipWithError("wrong");
}
BENCHMARK(ReadOneKey);

void ReadOneKey_GKeyFile(benchmark::State& state) {
    put(file("mb.ini"), megabyte());
    for (auto _ : state) {
        GKeyFile* keyFile = g_key_file_new();
        g_key_file_load_from_file(keyFile, file("mb.ini").c_str(), G_KEY_FILE_NONE, nullptr);
        char* value = g_key_file_get_value(keyFile, "Last", "key", nullptr);
        if (value == nullptr) state.SkipWithError("wrong");
        g_free(value);
        g_key_file_free(keyFile);
    }
}
BENCHMARK(ReadOneKey_GKeyFile);

void ReadOneKey_inih(benchmark::State& state) {
    put(file("mb.ini"), megabyte());
    for (auto _ : state) {
        bool found = false;
        ini_parse(
            file("mb.ini").c_str(),
            [](void* user, const char* section, const char* name, const char*) {
                if (!std::strcmp(section, "Last") && !std::strcmp(name, "key"))
                    *static_cast<bool*>(user) = true;
                return 1;
            },
            &found);
        if (!found) state.SkipWithError("wrong");
    }
}
BENCHMARK(ReadOneKey_inih);

void ReadOneKey_plainRead(benchmark::State& state) {
    put(file("mb.ini"), megabyte());
    for (auto _ : state) {
        const std::string content = readPlainly(file("mb.ini"));
        std::size_t lines = 0;
        for (const char* at = content.data(); at != nullptr; ++lines) {
            at = static_cast<const char*>(std::memchr(
                at, '\n', content.size() - static_cast<std::size_t>(at - content.data())));
            if (at != nullptr) ++at;
        }
        benchmark::DoNotOptimize(lines);
    }
}
BENCHMARK(ReadOneKey_plainRead);

void changeOneKey(benchmark::State& state, Ports& ports) {
    put(file("k.ini"), keys(1000));
    QuorInifile ini = on(file("k.ini"), ports);
    bool odd = false;
    for (auto _ : state) {
        odd = !odd;
        if (ini.WriteKeyValue(u"Section", u"key500", odd ? u"one" : u"two") == 0)
            state.SkipWithError("not written");
    }
}
void ChangeOneKey_unflushed(benchmark::State& state) {
    changeOneKey(state, unflushed());
}
BENCHMARK(ChangeOneKey_unflushed);
void ChangeOneKey_flushed(benchmark::State& state) {
    changeOneKey(state, ports::native());
}
BENCHMARK(ChangeOneKey_flushed);

/// Writes another file and renames it, without a flush. Our unflushed save does this too, plus a
/// lock.
void save(GKeyFile* keyFile, const std::string& name) {
    gsize size = 0;
    char* data = g_key_file_to_data(keyFile, &size, nullptr);
    const std::string beside = name + ".new";
    const int descriptor = open(beside.c_str(), O_WRONLY | O_CREAT | O_TRUNC, 0600);
    const ssize_t written = write(descriptor, data, size);
    close(descriptor);
    const int renamed = rename(beside.c_str(), name.c_str());
    benchmark::DoNotOptimize(written + renamed);
    g_free(data);
}

void ChangeOneKey_GKeyFile(benchmark::State& state) {
    put(file("k.ini"), keys(1000));
    bool odd = false;
    for (auto _ : state) {
        odd = !odd;
        GKeyFile* keyFile = g_key_file_new();
        g_key_file_load_from_file(keyFile, file("k.ini").c_str(), G_KEY_FILE_KEEP_COMMENTS,
                                  nullptr);
        g_key_file_set_value(keyFile, "Section", "key500", odd ? "one" : "two");
        save(keyFile, file("k.ini"));
        g_key_file_free(keyFile);
    }
}
BENCHMARK(ChangeOneKey_GKeyFile);

/// Half of the keys are new.
void merge(benchmark::State& state, int count) {
    Array<String> table({0, 2}, {0, count});
    for (Long i = 0; i < count; ++i) {
        const std::string number = std::to_string(i % 2 == 0 ? i : i + count);
        table.at(0, i) = u"key" + String(number.begin(), number.end());
        table.at(1, i) = u"merged " + String(number.begin(), number.end());
    }
    const Variant input = table;
    QuorInifile ini = on(file("m.ini"), unflushed());
    const std::string before = keys(count);
    for (auto _ : state) {
        state.PauseTiming();
        put(file("m.ini"), before);
        state.ResumeTiming();
        if (ini.WriteSectionContent(u"Section", input, Long{10000000}) != count ||
            ini.lastResult() == 0)
            state.SkipWithError("not written");
    }
}
void Merge10000(benchmark::State& state) {
    merge(state, 10000);
}
BENCHMARK(Merge10000);
void Merge1000(benchmark::State& state) {
    merge(state, 1000);
}
BENCHMARK(Merge1000);

void Merge10000_GKeyFile(benchmark::State& state) {
    constexpr int count = 10000;
    std::vector<std::pair<std::string, std::string>> input;
    for (int i = 0; i < count; ++i) {
        const std::string number = std::to_string(i % 2 == 0 ? i : i + count);
        input.emplace_back("key" + number, "merged " + number);
    }
    const std::string before = keys(count);
    for (auto _ : state) {
        state.PauseTiming();
        put(file("m.ini"), before);
        state.ResumeTiming();
        GKeyFile* keyFile = g_key_file_new();
        g_key_file_load_from_file(keyFile, file("m.ini").c_str(), G_KEY_FILE_KEEP_COMMENTS,
                                  nullptr);
        for (const auto& [key, value] : input)
            g_key_file_set_value(keyFile, "Section", key.c_str(), value.c_str());
        save(keyFile, file("m.ini"));
        g_key_file_free(keyFile);
    }
}
BENCHMARK(Merge10000_GKeyFile);

/// A text of 1 MB in lines of 80 characters, written and read back.
void MultiLine1MB(benchmark::State& state) {
    String text;
    while (text.size() < 1u << 20) text += String(80, u'x') + u"\r\n";
    text.resize(text.size() - 2);
    QuorInifile ini = on(file("t.ini"), unflushed());
    for (auto _ : state) {
        std::filesystem::remove(file("t.ini"));
        Long count = 0;
        ini.WriteMultiLineValue(u"S", u"Text", text);
        const Variant table = ini.ReadMultiLineSection(u"S", count, Long{10000000});
        if (count != 1 || table.get<Array<String>>().at(1, 0) != text) state.SkipWithError("wrong");
    }
}
BENCHMARK(MultiLine1MB);

}  // namespace
}  // namespace quorkit::bench
