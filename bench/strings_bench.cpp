// Strings against abseil and plain loops over the standard library.
#include <absl/strings/str_split.h>
#include <benchmark/benchmark.h>
#include <quorkit/GQuorConvert.h>
#include <quorkit/GQuorStrings.h>

#include <cstdlib>
#include <cstring>

#include "ratios.h"

namespace quorkit::bench {
namespace {

const Report kReport({
    {"SplitLines", "SplitLines_abseil", "ratio <= 1.5"},
    {"SplitWords", "SplitWords_abseil", "ratio <= 1.5"},
    {"Trim", "Trim_loop", "ratio <= 1.5"},
    {"LPad1MB", "LPad1MB_loop", "ratio <= 1.5"},
    {"Replace", "Replace_loop", "ratio <= 1.5"},
    {"Count", "Count_loop", "ratio <= 1.5"},
    {"ParseLong", "ParseShort", "ratio about 10"},
    {"FieldsLong", "FieldsShort", "ratio about 10"},
    {"Fields1MB", "Fields1MB_loop", "ratio <= 1.5"},
    {"CompareVersions", "CompareVersions_loop", "ratio <= 2"},
});

constexpr std::size_t kMegabyte = 1u << 20;

std::string repeated(const std::string& piece) {
    std::string text;
    while (text.size() < kMegabyte) text += piece;
    return text;
}
String wide(const std::string& text) {
    return String(text.begin(), text.end());
}

const std::string kLines = "a line of forty characters, more or less\r\n";
const std::string kWords = "word,";

void split(benchmark::State& state, const std::string& piece, const String& delimiter) {
    const String text = wide(repeated(piece));
    GQuorConvert convert;
    for (auto _ : state) {
        Array<String> tokens;
        benchmark::DoNotOptimize(convert.StringTokenToStringArray(text, delimiter, tokens));
    }
}
void split_abseil(benchmark::State& state, const std::string& piece, const std::string& delimiter) {
    const std::string text = repeated(piece);
    for (auto _ : state) {
        std::vector<std::string> tokens = absl::StrSplit(text, delimiter);
        benchmark::DoNotOptimize(tokens.data());
    }
}
void SplitLines(benchmark::State& state) {
    split(state, kLines, u"\r\n");
}
BENCHMARK(SplitLines);
void SplitLines_abseil(benchmark::State& state) {
    split_abseil(state, kLines, "\r\n");
}
BENCHMARK(SplitLines_abseil);
void SplitWords(benchmark::State& state) {
    split(state, kWords, u",");
}
BENCHMARK(SplitWords);
void SplitWords_abseil(benchmark::State& state) {
    split_abseil(state, kWords, ",");
}
BENCHMARK(SplitWords_abseil);

const String kPadded = String(1000, u' ') + String(1000, u'x') + String(1000, u'\t');

void Trim(benchmark::State& state) {
    GQuorStrings strings;
    for (auto _ : state) benchmark::DoNotOptimize(strings.TrimWhiteSpace(kPadded));
}
BENCHMARK(Trim);
void Trim_loop(benchmark::State& state) {
    for (auto _ : state) {
        std::size_t begin = 0;
        std::size_t end = kPadded.size();
        while (begin < end && kPadded[begin] < 33) ++begin;
        while (end > begin && kPadded[end - 1] < 33) --end;
        benchmark::DoNotOptimize(kPadded.substr(begin, end - begin));
    }
}
BENCHMARK(Trim_loop);

void LPad1MB(benchmark::State& state) {
    GQuorStrings strings;
    for (auto _ : state)
        benchmark::DoNotOptimize(strings.LPad(u"0", u"7", static_cast<Long>(kMegabyte)));
}
BENCHMARK(LPad1MB);
void LPad1MB_loop(benchmark::State& state) {
    for (auto _ : state) {
        const String text = u"7";
        String padded(kMegabyte - text.size(), u'0');
        padded += text;
        benchmark::DoNotOptimize(padded.data());
    }
}
BENCHMARK(LPad1MB_loop);

void Replace(benchmark::State& state) {
    const String text = wide(repeated("some words and a needle "));
    GQuorStrings strings;
    for (auto _ : state)
        benchmark::DoNotOptimize(strings.StringReplace(text, u"needle", u"haystack"));
}
BENCHMARK(Replace);
void Replace_loop(benchmark::State& state) {
    const String text = wide(repeated("some words and a needle "));
    const String from = u"needle";
    const String to = u"haystack";
    for (auto _ : state) {
        String result;
        std::size_t start = 0;
        for (std::size_t at; (at = text.find(from, start)) != String::npos;
             start = at + from.size()) {
            result.append(text, start, at - start);
            result += to;
        }
        result.append(text, start);
        benchmark::DoNotOptimize(result.data());
    }
}
BENCHMARK(Replace_loop);

void Count(benchmark::State& state) {
    const String text = wide(repeated("some words and a needle "));
    GQuorStrings strings;
    for (auto _ : state)
        benchmark::DoNotOptimize(strings.GetCountSearchPatternInString(text, u"needle"));
}
BENCHMARK(Count);
void Count_loop(benchmark::State& state) {
    const String text = wide(repeated("some words and a needle "));
    const String pattern = u"needle";
    for (auto _ : state) {
        Long count = 0;
        for (std::size_t at = 0; (at = text.find(pattern, at)) != String::npos;
             at += pattern.size())
            ++count;
        benchmark::DoNotOptimize(count);
    }
}
BENCHMARK(Count_loop);

/// Assignments in a text of nearly `length` characters.
void parse(benchmark::State& state, std::size_t length) {
    String text;
    for (int i = 1000; text.size() + 40 < length; ++i)
        text += u"name" + wide(std::to_string(i)) + u" = \"a, value\", ";
    GQuorStrings strings;
    for (auto _ : state) benchmark::DoNotOptimize(strings.ParseString(text));
}
void ParseShort(benchmark::State& state) {
    parse(state, 3'270);
}
BENCHMARK(ParseShort);
void ParseLong(benchmark::State& state) {
    parse(state, 32'700);
}
BENCHMARK(ParseLong);

void fields(benchmark::State& state, std::size_t length) {
    const String text = wide(repeated("Dear @#FirstName#@, ")).substr(0, length);
    GQuorStrings strings;
    for (auto _ : state) benchmark::DoNotOptimize(strings.ReadAllVarFields(text));
}
void FieldsShort(benchmark::State& state) {
    fields(state, kMegabyte / 100);
}
BENCHMARK(FieldsShort);
void FieldsLong(benchmark::State& state) {
    fields(state, kMegabyte / 10);
}
BENCHMARK(FieldsLong);
void Fields1MB(benchmark::State& state) {
    fields(state, kMegabyte);
}
BENCHMARK(Fields1MB);
/// Compares with letter case, but makes the same collection.
void Fields1MB_loop(benchmark::State& state) {
    const String text = wide(repeated("Dear @#FirstName#@, "));
    for (auto _ : state) {
        auto names = Collection::make();
        for (std::size_t at = 0; (at = text.find(u"@#", at)) != String::npos;) {
            const std::size_t end = text.find(u"#@", at + 2);
            if (end == String::npos) break;
            names->add(text.substr(at + 2, end - at - 2));
            at = end + 2;
        }
        benchmark::DoNotOptimize(names);
    }
}
BENCHMARK(Fields1MB_loop);

void CompareVersions(benchmark::State& state) {
    GQuorStrings strings;
    const String first = u"12.34.5678.90123";
    const String second = u"12.34.5678.90124";
    for (auto _ : state) benchmark::DoNotOptimize(strings.CompareAppVersionString(first, second));
}
BENCHMARK(CompareVersions);
/// The same with strtod on plain characters.
void CompareVersions_loop(benchmark::State& state) {
    const std::string first = "12.34.5678.90123";
    const std::string second = "12.34.5678.90124";
    const auto piece = [](const char*& at) {
        const char* end = std::strchr(at, '.');
        const std::string text = end == nullptr ? std::string(at) : std::string(at, end);
        at = end == nullptr ? at + text.size() : end + 1;
        return std::strtod(text.c_str(), nullptr);
    };
    for (auto _ : state) {
        const char* a = first.c_str();
        const char* b = second.c_str();
        int order = 0;
        while (order == 0 && (*a != 0 || *b != 0)) {
            const double x = piece(a);
            const double y = piece(b);
            order = x < y ? -1 : x > y ? 1 : 0;
        }
        benchmark::DoNotOptimize(order);
    }
}
BENCHMARK(CompareVersions_loop);

}  // namespace
}  // namespace quorkit::bench
