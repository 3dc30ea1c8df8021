#include "log_entries.h"

#include "base/code_page.h"
#include "base/unicode.h"
#include "random.h"

namespace quorkit::soak {

String entryOf(const Job& job, std::uint32_t step) {
    constexpr std::uint32_t longest = 300'000;
    Random random{job.seed, job.worker, job.incarnation, step};
    const std::string start = "<" + std::to_string(job.worker) + "." +
                              std::to_string(job.incarnation) + "." + std::to_string(step) + ":";
    String text(start.begin(), start.end());
    const bool isLong = job.longOneIn != 0 && random.oneIn(job.longOneIn);
    const std::uint32_t length = isLong ? random.below(longest) : 20 + random.below(180);
    // A random number for each letter of a long entry would take most of the time.
    const std::uint32_t shift = random.below(26);
    for (std::uint32_t i = 0; i < length; ++i)
        text +=
            i % 61 == 60 ? u'\u00E9' : static_cast<char16_t>(u'a' + (i * 7 + i / 26 + shift) % 26);
    return text + u'>';
}

std::string entryBytesOf(const Job& job, std::uint32_t step) {
    const String text = entryOf(job, step);
    return job.marked ? base::toUtf8(text) : base::toAnsi(text);
}

}  // namespace quorkit::soak
