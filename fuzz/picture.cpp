// Bytes as a picture file and as a packed bitmap. Finds: sizes beyond the bytes; sizes that depend
// on the bytes behind the picture; bitmaps that change on their way through the clipboard.
#include <quorkit/GQuorClipboard.h>
#include <quorkit/errors.h>
#include <quorkit/picture.h>
#include <quorkit/ports/memory.h>

#include "base/dib.h"
#include "base/picture_end.h"
#include "base/picture_kind.h"
#include "support/target.h"

namespace quorkit::fuzz {
namespace {

using SizeOf = std::optional<std::size_t> (*)(std::string_view);

void checkSize(std::string_view bytes, SizeOf sizeOf) {
    const auto size = sizeOf(bytes);
    if (!size) return;
    promise(*size > 0 && *size <= bytes.size(), "the picture ends within the bytes");
    const std::string_view picture = bytes.substr(0, *size);
    promise(sizeOf(picture) == size, "nothing behind a picture is needed to see its end");
    promise(!sizeOf(picture.substr(0, *size - 1)), "a picture that is cut short does not end");
    promise(sizeOf(std::string(bytes) + "\xFF\xD9;") == size,
            "nothing behind a picture changes its end");
    const std::string_view rest = base::withoutRounding(bytes, size);
    promise(bytes.starts_with(rest) && rest.size() >= *size && bytes.size() - rest.size() < 16,
            "only what rounding can have added is taken off");
}

void checkBitmap(std::string_view file) {
    const auto dib = base::dibOf(file);
    if (!dib) return;
    promise(dib->size() + 14 <= file.size(), "a packed bitmap is no larger than its file");
    const auto again = base::bmpFileOf(*dib);
    promise(again && base::dibOf(*again) == dib, "a packed bitmap comes back from its file");
    promise(file.size() > again->size() || file.substr(14) == again->substr(14),
            "a bitmap file without a gap comes back, but for its header");
}

void checkClipboard(const std::string& file) {
    bool isPicture = true;
    try {
        promise(Picture(file).file() == file, "a picture is its file");
    } catch (const AutomationError& error) {
        isPicture = false;
        promise(error.number() == 481, "what is no picture raises 481");
    }
    promise(isPicture == base::pictureKindOf(file).has_value(), "what has a kind is a picture");
    MemoryPorts ports;
    ports.files.put(u"in", file);
    GQuorClipboard clipboard(ports);
    clipboard.LoadPictureToClipboard(u"in");
    clipboard.SavePictureFromClipboard(u"out");
    promise(ports.files.content(u"out") == (isPicture ? std::optional(file) : std::nullopt),
            "a picture goes through the clipboard byte by byte");
}

}  // namespace

void run(std::string_view input) {
    checkSize(input, base::sizeOfPicture);
    checkBitmap(input);
    if (const auto file = base::bmpFileOf(input))
        promise(base::dibOf(*file) == std::string(input),
                "a packed bitmap comes back from its file");
    if (const auto size = base::sizeOfDib(input))
        promise(
            *size > 0 && *size <= input.size() && base::sizeOfDib(input.substr(0, *size)) == size,
            "a packed bitmap ends within the bytes");
    checkClipboard(std::string(input));
}

}  // namespace quorkit::fuzz
