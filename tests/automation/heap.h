// What a process has allocated, seen before and after very many calls.
#pragma once

#include <windows.h>

#include <cstdint>
#include <cstdlib>
#include <vector>

namespace quorkit::test {

inline unsigned fromEnvironment(const char* name, unsigned usual) {
    const char* text = std::getenv(name);
    return text == nullptr ? usual : static_cast<unsigned>(std::atoi(text));
}

inline std::vector<HANDLE> heaps() {
    std::vector<HANDLE> all(GetProcessHeaps(0, nullptr) + 8);
    all.resize(GetProcessHeaps(static_cast<DWORD>(all.size()), all.data()));
    return all;
}

/// What is allocated at this moment.
inline std::int64_t bytesInUse() {
    std::int64_t bytes = 0;
    for (HANDLE heap : heaps()) {
        PROCESS_HEAP_ENTRY entry = {};
        HeapLock(heap);
        while (HeapWalk(heap, &entry))
            if ((entry.wFlags & PROCESS_HEAP_ENTRY_BUSY) != 0) bytes += entry.cbData;
        HeapUnlock(heap);
    }
    return bytes;
}

inline bool heapsAreValid() {
    for (HANDLE heap : heaps())
        if (HeapValidate(heap, 0, nullptr) == FALSE) return false;
    return true;
}

/// What the system and the runtime may keep for later.
constexpr std::int64_t kSlack = 64 * 1024;

}  // namespace quorkit::test
