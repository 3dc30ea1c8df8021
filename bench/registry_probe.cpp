// Prints the nanoseconds of each case, one a line, for the benchmarks on another system.
#include <chrono>
#include <cstdio>

#include "registry_cases.h"

namespace {

using quorkit::bench::RegistryCases;

void measure(const char* name, RegistryCases& cases, bool (RegistryCases::*run)()) {
    using Clock = std::chrono::steady_clock;
    constexpr auto longest = std::chrono::milliseconds(500);
    const auto start = Clock::now();
    long rounds = 0;
    bool right = true;
    while (Clock::now() - start < longest) {
        right = (cases.*run)() && right;
        ++rounds;
    }
    const std::chrono::duration<double, std::nano> took = Clock::now() - start;
    std::printf("%s %.0f\n", right ? name : "wrong", took.count() / static_cast<double>(rounds));
}

}  // namespace

int main() {
    RegistryCases cases;
    measure("RegistryReadDWord", cases, &RegistryCases::readDWord);
    measure("RegistryWriteDWord", cases, &RegistryCases::writeDWord);
    measure("RegistryWriteThousand", cases, &RegistryCases::writeBulk);
    measure("RegistryListValues", cases, &RegistryCases::listValues);
    measure("RegistryListKeys", cases, &RegistryCases::listKeys);
    return 0;
}
