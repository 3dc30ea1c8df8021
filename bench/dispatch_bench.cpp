// The cost of a late-bound call over the direct one.
#include <benchmark/benchmark.h>
#include <quorkit/GQuorStrings.h>
#include <quorkit/dispatch.h>

#include "ratios.h"

namespace quorkit::bench {
namespace {

const Report kReport({
    {"CallByIdentifier", "CallDirectly", "diff <= 20 ns"},
    {"CallByName", "CallDirectly", "diff <= 60 ns"},
    {"CallByName_optionals", "CallDirectly_optionals", "diff <= 100 ns"},
});

const String kPad = u"0";
const String kText = u"7";

void CallDirectly(benchmark::State& state) {
    GQuorStrings strings;
    for (auto _ : state) benchmark::DoNotOptimize(strings.LPad(kPad, kText, 3));
}
BENCHMARK(CallDirectly);

template <class Call>
void lateBound(benchmark::State& state, Call call) {
    Library library;
    const ObjectRef strings = library.global(u"GQuorStrings");
    std::vector<Variant> arguments = {kPad, kText, Long{3}};
    for (auto _ : state) benchmark::DoNotOptimize(call(*strings, Arguments{arguments}));
}
void CallByIdentifier(benchmark::State& state) {
    Library library;
    const Long identifier = library.global(u"GQuorStrings")->identifierOf(u"LPad");
    lateBound(state, [=](Object& strings, const Arguments& arguments) {
        return strings.invoke(identifier, CallKind::Call, arguments);
    });
}
BENCHMARK(CallByIdentifier);
void CallByName(benchmark::State& state) {
    lateBound(state, [](Object& strings, const Arguments& arguments) {
        return strings.call(u"lpad", CallKind::Call, arguments);
    });
}
BENCHMARK(CallByName);

void CallDirectly_optionals(benchmark::State& state) {
    GQuorStrings strings;
    for (auto _ : state) benchmark::DoNotOptimize(strings.StringReplace(kText, kText, kPad));
}
BENCHMARK(CallDirectly_optionals);
void CallByName_optionals(benchmark::State& state) {
    Library library;
    const ObjectRef strings = library.global(u"GQuorStrings");
    std::vector<Variant> arguments = {kText, kText, kPad};
    for (auto _ : state)
        benchmark::DoNotOptimize(
            strings->call(u"StringReplace", CallKind::Call, Arguments{arguments}));
}
BENCHMARK(CallByName_optionals);

}  // namespace
}  // namespace quorkit::bench
