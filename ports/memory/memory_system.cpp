#include <quorkit/ports/memory.h>

#include <algorithm>
#include <chrono>
#include <limits>

#include "base/letter_case.h"

namespace quorkit {

bool MemorySystem::GetEnvironmentVariableA(const String& name, String& value) {
    if (!isVariableName(name)) return false;
    auto found = environment.find(name);
    if (found == environment.end())
        found = std::ranges::find_if(
            environment, [&](const auto& one) { return base::sameText(one.first, name); });
    if (found == environment.end()) return false;
    value = found->second;
    return true;
}

bool MemorySystem::GetVersionExA(OsRecord size, OsVersion& answer) {
    if (!version || (shortRecordOnly && size == OsRecord::Extended)) return false;
    answer = *version;
    if (size == OsRecord::Extended) return true;
    answer.servicePackMajor = 0;
    answer.suiteMask = 0;
    answer.productType = 0;
    return true;
}

bool MemorySystem::DiallingCode(String& code) {
    if (!diallingCode) return false;
    code = *diallingCode;
    return true;
}

bool MemorySystem::LocalTimeOf(FileTime time, SystemTime& local) {
    constexpr std::int64_t ticksAMillisecond = 10'000;
    if (time > static_cast<FileTime>(std::numeric_limits<std::int64_t>::max())) return false;
    const std::chrono::milliseconds sinceStart(static_cast<std::int64_t>(time) / ticksAMillisecond);
    const auto moment = std::chrono::sys_days(std::chrono::January / 1 / 1601) + sinceStart +
                        std::chrono::minutes(minutesEastOfUtc);
    const auto day = std::chrono::floor<std::chrono::days>(moment);
    const std::chrono::year_month_day date(day);
    const std::chrono::hh_mm_ss clock(moment - day);
    if (static_cast<int>(date.year()) > 9999) return false;
    local = {static_cast<int>(date.year()),
             static_cast<int>(static_cast<unsigned>(date.month())),
             static_cast<int>(static_cast<unsigned>(date.day())),
             static_cast<int>(clock.hours().count()),
             static_cast<int>(clock.minutes().count()),
             static_cast<int>(clock.seconds().count()),
             static_cast<int>(clock.subseconds().count())};
    return true;
}

bool MemorySystem::GetTempPathA(String& folder) {
    if (temporaryFolder.empty()) return false;
    folder = temporaryFolder;
    return true;
}

bool MemorySystem::SHGetFolderPathA(int folder, String& path) {
    const auto found = specialFolders.find(folder);
    if (found == specialFolders.end()) return false;
    path = found->second;
    return true;
}

}  // namespace quorkit
