// Sorting a million Variants against the standard library's sort.
#include <benchmark/benchmark.h>
#include <quorkit/GQuorTools.h>

#include <algorithm>
#include <random>
#include <string>

#include "ratios.h"

namespace quorkit::bench {
namespace {

constexpr int kCount = 1'000'000;

using Values = std::vector<Variant>;

Values rising() {
    Values values;
    for (int i = 0; i < kCount; ++i) values.emplace_back(i * 0.5);
    return values;
}
Values falling() {
    Values values = rising();
    std::ranges::reverse(values);
    return values;
}
Values shuffled() {
    Values values = rising();
    std::ranges::shuffle(values, std::mt19937_64(1));
    return values;
}
Values equal() {
    return Values(kCount, Variant(1.5));
}
/// Half of the numbers have another type, so equal ones differ.
Values twoTypes() {
    Values values = shuffled();
    for (int i = 0; i < kCount; i += 2) values[static_cast<std::size_t>(i)] = Long{i};
    return values;
}
Values words() {
    Values values;
    std::mt19937_64 random(1);
    for (int i = 0; i < kCount; ++i) {
        String word;
        for (int unit = 0; unit < 12; ++unit)
            word += static_cast<char16_t>((random() % 2 == 0 ? u'a' : u'A') + random() % 26);
        values.emplace_back(word);
    }
    return values;
}

template <class Sort>
void sorting(benchmark::State& state, Values (*make)(), Sort sort) {
    const Array<Variant> values(make());
    for (auto _ : state) {
        state.PauseTiming();
        Array<Variant> copy = values;
        state.ResumeTiming();
        sort(copy);
        benchmark::DoNotOptimize(copy.elements().data());
        state.PauseTiming();
        copy = {};
        state.ResumeTiming();
    }
}
void ours(benchmark::State& state, Values (*make)(), bool caseSensitive) {
    GQuorTools tools;
    sorting(state, make, [&](Array<Variant>& values) {
        tools.QuickSortVariantArray(values, 0, kCount - 1, caseSensitive);
    });
}
void doubles(benchmark::State& state, Values (*make)()) {
    sorting(state, make, [](Array<Variant>& values) {
        std::ranges::sort(values.elements(), {},
                          [](const Variant& value) { return value.get<Double>(); });
    });
}
void numbers(benchmark::State& state, Values (*make)()) {
    sorting(state, make, [](Array<Variant>& values) {
        std::ranges::sort(values.elements(), {}, [](const Variant& value) {
            return value.is<Double>() ? value.get<Double>() : value.get<Long>();
        });
    });
}
void texts(benchmark::State& state, Values (*make)()) {
    sorting(state, make, [](Array<Variant>& values) {
        std::ranges::sort(values.elements(), {}, [](const Variant& value) -> const String& {
            return value.get<String>();
        });
    });
}

#define SORT(name, make, caseSensitive, peer)                                          \
    BENCHMARK_CAPTURE(ours, name, make, caseSensitive)->Unit(benchmark::kMillisecond); \
    BENCHMARK_CAPTURE(peer, name, make)->Unit(benchmark::kMillisecond)

SORT(random, shuffled, true, doubles);
SORT(sorted, rising, true, doubles);
SORT(reversed, falling, true, doubles);
SORT(equal, equal, true, doubles);
SORT(twoTypes, twoTypes, true, numbers);
SORT(words, words, true, texts);
SORT(anyCase, words, false, texts);

const Report kReport = {
    {"ours/random", "doubles/random", "ratio <= 2"},
    {"ours/sorted", "doubles/sorted", "ratio <= 2"},
    {"ours/reversed", "doubles/reversed", "ratio <= 2"},
    {"ours/equal", "doubles/equal", "ratio <= 2"},
    {"ours/twoTypes", "numbers/twoTypes", "ratio <= 2"},
    {"ours/words", "texts/words", "ratio <= 2"},
    {"ours/anyCase", "texts/anyCase", "peer with case"},
};

}  // namespace
}  // namespace quorkit::bench
