#include <quorkit/ports/memory.h>

#include <algorithm>

#include "runtime/letter_case.h"

namespace quorkit {

bool MemorySystem::GetEnvironmentVariableA(const String& name, String& value) {
    if (!isVariableName(name)) return false;
    auto found = environment.find(name);
    if (found == environment.end())
        found = std::ranges::find_if(
            environment, [&](const auto& one) { return runtime::sameText(one.first, name); });
    if (found == environment.end()) return false;
    value = found->second;
    return true;
}

}  // namespace quorkit
