#include <quorkit/QuorLogFile.h>

#include <cmath>
#include <optional>
#include <string_view>
#include <utility>

#include "base/unicode.h"
#include "file/open_file.h"
#include "file/whole_file.h"
#include "frame/error_patterns.h"
#include "logfile/log_text.h"

namespace quorkit {
namespace {

/// The size of the file; nothing when it does not exist or cannot be read.
std::optional<std::uint64_t> sizeOf(Files& files, const String& name) {
    file::OpenFile file(files, name);
    const std::uint64_t size = file.size();
    return file.status() == kSuccess ? std::optional(size) : std::nullopt;
}

/// The part of a file that stays.
struct Kept {
    std::string bytes;
    bool lineGoesOn;  ///< its last line has lost its end
};

/// For a plain file of `size` bytes.
std::optional<Kept> newerPart(Files& files, const String& name, std::uint64_t size, Long limit,
                              std::string_view mark) {
    constexpr double keptShare = 0.8;
    constexpr std::size_t lastLineEnd = 2;
    const double skipped = std::nearbyint(static_cast<double>(size) - keptShare * limit);
    if (skipped > static_cast<double>(size)) return std::nullopt;
    std::string kept;
    if (file::readPart(files, name, static_cast<std::uint64_t>(skipped), std::string::npos, kept) !=
        kSuccess)
        return std::nullopt;
    const std::size_t lineEnd = kept.find('\n');
    if (lineEnd == std::string::npos || kept.size() < lineEnd + 1 + lastLineEnd)
        return std::nullopt;
    const bool whole = kept.ends_with('\n');
    kept.resize(kept.size() - lastLineEnd);
    kept.replace(0, lineEnd + 1, mark);
    return Kept{std::move(kept), whole};
}

/// For a UTF-16 file.
std::optional<Kept> olderHalf(Files& files, const String& name, std::uint64_t size) {
    std::string kept;
    const double half = std::nearbyint(static_cast<double>(size) / 2 - 1);
    if (half > static_cast<double>(kept.max_size())) return std::nullopt;
    if (file::readPart(files, name, base::kUtf16Mark.size(), static_cast<std::size_t>(half),
                       kept) != kSuccess)
        return std::nullopt;
    return Kept{std::move(kept), true};
}

}  // namespace

Boolean QuorLogFile::limitFileSize(Unchanged<String> sFileName, Unchanged<Long> MaxFileSize) {
    return frame::onErrorReturn(Boolean(false), [&]() -> Boolean {
        const auto withinLimit = [&](std::uint64_t size) {
            return static_cast<double>(size) <= MaxFileSize;
        };
        const auto glance = sizeOf(ports_.files, sFileName);
        if (!glance || withinLimit(*glance)) return glance.has_value();

        file::LockedFile file(ports_.files, sFileName, Wait::Briefly);
        if (file.status() != kSuccess) return false;
        const String& name = file.name();
        const auto size = sizeOf(ports_.files, name);
        if (!size || withinLimit(*size)) return size.has_value();  // another process did it
        std::string start;
        if (file::readPart(ports_.files, name, 0, logfile::kLongestMark, start) != kSuccess)
            return false;
        const std::string_view mark = logfile::markOf(start);
        const auto kept = mark == base::kUtf16Mark
                              ? olderHalf(ports_.files, name, *size)
                              : newerPart(ports_.files, name, *size, MaxFileSize, mark);
        if (!kept) return false;
        ErrorCode code = file.replaceBy(name + u".xxx", kept->bytes);
        if (code == kDiskFull) code = file.overwrite(kept->bytes);  // overwriting needs no room
        if (code != kSuccess) return false;
        unfinishedAt_.reset();
        if (kept->lineGoesOn) unfinishedAt_ = kept->bytes.size();
        return true;
    });
}

}  // namespace quorkit
