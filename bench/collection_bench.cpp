// The keyed collection against a hash table and a vector that do the same, except that they fold
// only ASCII letters.
#include <benchmark/benchmark.h>
#include <quorkit/QuorCollection.h>

#include <algorithm>
#include <memory>
#include <random>
#include <unordered_map>

#include "ratios.h"

namespace quorkit::bench {
namespace {

const Report kReport({
    {"CollectionSet", "CollectionSet_peer", "ratio <= 2"},
    {"CollectionReplace", "CollectionReplace_peer", "ratio <= 2"},
    {"CollectionGet", "CollectionGet_peer", "ratio <= 2"},
    {"CollectionIndex", "CollectionIndex_peer", "ratio <= 2"},
    {"CollectionIndex_gaps", "CollectionIndex_peer", ""},
    {"CollectionKeys", "CollectionKeys_peer", "ratio <= 2"},
    {"CollectionRemoveFirst", "CollectionRemoveFirst_peer", "ratio <= 2"},
});

constexpr Long kMillion = 1'000'000;

class Peer {
   public:
    Long setValueByKey(Variant value, const String& key) {
        const auto [at, added] = positions_.try_emplace(fold(key), elements_.size());
        if (added)
            elements_.emplace_back(key, std::move(value));
        else
            elements_[at->second].second = std::move(value);
        return static_cast<Long>(at->second) + 1;
    }
    Long GetIndex(const String& key) const {
        const auto at = positions_.find(fold(key));
        return at == positions_.end() ? -1 : static_cast<Long>(at->second) + 1;
    }
    Variant getValueByKey(const String& key) const {
        const auto at = positions_.find(fold(key));
        return at == positions_.end() ? Variant(u"") : elements_[at->second].second;
    }
    String getKey(Long index) const { return elements_[static_cast<std::size_t>(index) - 1].first; }

   private:
    static String fold(String key) {
        for (char16_t& unit : key)
            if (unit >= u'A' && unit <= u'Z') unit = static_cast<char16_t>(unit + 32);
        return key;
    }
    std::unordered_map<String, std::size_t> positions_;
    std::vector<std::pair<String, Variant>> elements_;
};

std::vector<String> makeKeys(Long count, const char* prefix) {
    std::vector<String> keys;
    for (Long i = 0; i < count; ++i) {
        const std::string key = prefix + std::to_string(i);
        keys.emplace_back(key.begin(), key.end());
    }
    return keys;
}
const std::vector<String>& keys() {
    static const auto all = makeKeys(kMillion, "Customer");
    return all;
}
/// The same keys in another letter case and in random order.
const std::vector<String>& soughtKeys() {
    static const auto all = [] {
        auto made = makeKeys(kMillion, "cUSTOMER");
        std::ranges::shuffle(made, std::mt19937(1));
        return made;
    }();
    return all;
}

template <class C>
C filled() {
    C c;
    for (const String& key : keys()) c.setValueByKey(Long{1}, key);
    return c;
}

template <class C>
void set(benchmark::State& state) {
    keys();
    for (auto _ : state) {
        auto c = std::make_unique<C>(filled<C>());
        benchmark::DoNotOptimize(c.get());
        state.PauseTiming();
        c.reset();
        state.ResumeTiming();
    }
}
template <class C, class Do>
void eachSought(benchmark::State& state, C& c, Do work) {
    for (auto _ : state)
        for (const String& key : soughtKeys()) benchmark::DoNotOptimize(work(c, key));
}
template <class C, class Do>
void eachSought(benchmark::State& state, Do work) {
    C c = filled<C>();
    soughtKeys();
    eachSought(state, c, work);
}

const auto replace = [](auto& c, const String& key) { return c.setValueByKey(Long{2}, key); };
const auto get = [](auto& c, const String& key) { return c.getValueByKey(key); };
const auto getIndex = [](auto& c, const String& key) { return c.GetIndex(key); };

#define PAIR(name, ...)                             \
    void name(benchmark::State& state) {            \
        using C = QuorCollection;                   \
        __VA_ARGS__;                                \
    }                                               \
    BENCHMARK(name)->Unit(benchmark::kMillisecond); \
    void name##_peer(benchmark::State& state) {     \
        using C = Peer;                             \
        __VA_ARGS__;                                \
    }                                               \
    BENCHMARK(name##_peer)->Unit(benchmark::kMillisecond);

PAIR(CollectionSet, set<C>(state))
PAIR(CollectionReplace, eachSought<C>(state, replace))
PAIR(CollectionGet, eachSought<C>(state, get))
PAIR(CollectionIndex, eachSought<C>(state, getIndex))
PAIR(
    CollectionKeys, const C c = filled<C>(); for (auto _
                                                  : state) {
        for (Long i = 1; i <= kMillion; ++i) benchmark::DoNotOptimize(c.getKey(i));
    })

/// Every tenth element is removed, so positions must be searched for.
void CollectionIndex_gaps(benchmark::State& state) {
    auto c = filled<QuorCollection>();
    for (Long i = kMillion; i > 0; i -= 10) c.removeByIndex(i);
    eachSought(state, c, getIndex);
}
BENCHMARK(CollectionIndex_gaps)->Unit(benchmark::kMillisecond);

constexpr Long kRemoved = 100'000;

void CollectionRemoveFirst(benchmark::State& state) {
    for (auto _ : state) {
        state.PauseTiming();
        QuorCollection c;
        for (Long i = 0; i < kRemoved; ++i) c.setValueByKey(i, keys()[static_cast<std::size_t>(i)]);
        state.ResumeTiming();
        while (c.removeByIndex(1)) {
        }
    }
}
BENCHMARK(CollectionRemoveFirst)->Unit(benchmark::kMillisecond);
void CollectionRemoveFirst_peer(benchmark::State& state) {
    for (auto _ : state) {
        state.PauseTiming();
        std::vector<std::unique_ptr<Variant>> elements;
        for (Long i = 0; i < kRemoved; ++i) elements.push_back(std::make_unique<Variant>(i));
        state.ResumeTiming();
        while (!elements.empty()) elements.erase(elements.begin());
    }
}
BENCHMARK(CollectionRemoveFirst_peer)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace quorkit::bench
