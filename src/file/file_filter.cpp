#include "file/file_filter.h"

#include <quorkit/ports/system.h>

#include "base/letter_case.h"
#include "frame/ui_language.h"
#include "runtime/calendar.h"
#include "runtime/convert.h"

namespace quorkit::file {
namespace {

std::array<int, 6> toTheSecond(const SystemTime& time) {
    return {time.year, time.month, time.day, time.hour, time.minute, time.second};
}

std::uint32_t attributeOf(char16_t letter) {
    switch (base::toUpper(letter)) {
        case u'R':
            return kReadOnly;
        case u'H':
            return kHidden;
        case u'S':
            return kSystem;
        case u'A':
            return kArchive;
        default:
            return 0;
    }
}

}  // namespace

DateFilter::DateFilter(const Variant& upTo, const Variant& from, Ports& ports)
    : ports_(ports), upTo_(momentOf(upTo, ports)), from_(momentOf(from, ports)) {}

std::optional<DateFilter::Moment> DateFilter::momentOf(const Variant& date, Ports& ports) {
    if (date.isMissing()) return {};
    return toTheSecond(runtime::partsOf(runtime::CDate(date, frame::uiLanguage(ports))));
}

DateFilter::Moment DateFilter::momentOf(FileTime time) const {
    SystemTime local;
    if (!ports_.system.LocalTimeOf(time, local)) local = ports_.system.GetLocalTime();
    return toTheSecond(local);
}

bool DateFilter::takes(FileTime lastWrite) const {
    if (takesAll()) return true;
    if (lastWrite == 0) return false;
    const Moment moment = momentOf(lastWrite);
    const bool early = upTo_ && moment <= *upTo_;
    const bool late = from_ && moment >= *from_;
    const bool between = upTo_ && from_ && *from_ < *upTo_;
    return between ? early && late : early || late;
}

AttributeFilter::AttributeFilter(StringView text) {
    for (std::size_t sign = 0; sign + 1 < text.size(); sign += 2) {
        const std::uint32_t attribute = attributeOf(text[sign + 1]);
        const bool wanted = text[sign] == u'+';
        (wanted ? present_ : absent_) |= attribute;
        (wanted ? absent_ : present_) &= ~attribute;
    }
}

}  // namespace quorkit::file
