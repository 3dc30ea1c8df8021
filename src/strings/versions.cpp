// Application version strings.
#include <quorkit/GQuorStrings.h>

#include <algorithm>
#include <array>
#include <cmath>

#include "frame/error_patterns.h"
#include "runtime/convert.h"
#include "runtime/val.h"

namespace quorkit {
namespace {

/// The pieces between the full stops of a version, one by one. A full stop at the end is followed
/// by no piece; an empty text has one empty piece.
class Pieces {
   public:
    explicit Pieces(StringView version) : rest_(version) {}

    bool left() const { return left_; }
    /// The next piece; "0" behind the last one.
    StringView next() {
        if (!left_) return u"0";
        const StringView piece = rest_.substr(0, rest_.find(u'.'));
        rest_.remove_prefix(std::min(piece.size() + 1, rest_.size()));
        left_ = !rest_.empty();
        return piece;
    }

   private:
    StringView rest_;
    bool left_ = true;
};

using Components = std::array<Long, 4>;

/// A component is -1 when it could not be read, and then the result is -1 too. A component beyond
/// 32 bits ends the reading.
struct Version {
    Components components = {-1, -1, -1, -1};
    Long result = -1;
};

Version split(const String& text) {
    Version version;
    version.result = frame::onErrorReturn(Long{-1}, [&] {
        Long result = 0;
        Pieces pieces(text);
        for (Long& component : version.components) {
            const auto number = runtime::numberIn(pieces.next());
            if (number && std::isfinite(*number))
                component = runtime::roundToLong(*number);
            else
                result = -1;
        }
        return result;
    });
    return version;
}

}  // namespace

Long GQuorStrings::SplitAppVersionString(const String& sVersionNr, Out<Long> Major, Out<Long> Minor,
                                         Out<Long> Revision, Out<Long> Build) {
    const Version version = split(sVersionNr);
    Major = version.components[0];
    Minor = version.components[1];
    Revision = version.components[2];
    Build = version.components[3];
    return version.result;
}

Long GQuorStrings::ExtractMajorVersionFromAppVersionString(const String& sVersion) {
    return split(sVersion).components[0];
}

Long GQuorStrings::ExtractMinorVersionFromAppVersionString(const String& sVersion) {
    return split(sVersion).components[1];
}

Long GQuorStrings::ExtractRevisionFromAppVersionString(const String& sVersion) {
    return split(sVersion).components[2];
}

Long GQuorStrings::ExtractBuildNumberFromAppVersionString(const String& sVersion) {
    return split(sVersion).components[3];
}

String GQuorStrings::formatAppVersionString(const String& sVersion,
                                            const Optional<Boolean, true>& b4Digit) {
    const Components all = split(StringReplace(sVersion, u",", u".")).components;
    std::size_t count = all.size();
    if (!*b4Digit)
        while (count > 1 && all[count - 1] == 0) --count;
    String text = runtime::CStr(all[0]);
    for (std::size_t i = 1; i < count; ++i) text.append(u".").append(runtime::CStr(all[i]));
    return text;
}

Long GQuorStrings::CompareAppVersionString(const String& sVersionNr1, const String& sVersionNr2) {
    Pieces first(sVersionNr1);
    Pieces second(sVersionNr2);
    while (first.left() || second.left()) {
        const Double a = runtime::Val(first.next());
        const Double b = runtime::Val(second.next());
        if (a != b) return a > b ? 1 : -1;
    }
    return 0;
}

}  // namespace quorkit
