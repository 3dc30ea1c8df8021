#include <quorkit/QuorLogFile.h>

#include <charconv>
#include <tuple>
#include <utility>

#include "runtime/trim.h"

namespace quorkit {
namespace {

StringView levelText(eLogEntryType level) {
    switch (level) {
        case eLogEntryType_Error:
            return u"Error    ";
        case eLogEntryType_Warning:
            return u"Warning  ";
        case eLogEntryType_Statistic:
            return u"Statistic";
        case eLogEntryType_Information:
            return u"Info     ";
        case eLogEntryType_Test:
            return u"Test     ";
        case eLogEntryType_TestEx:
            return u"TestEx   ";
        case eLogEntryType_TestDump:
            return u"TestDump  ";
        default:
            return {};
    }
}

/// Without the blanks at its end when the separator is a single character.
StringView levelText(eLogEntryType level, StringView separator) {
    const StringView text = levelText(level);
    return separator.size() == 1 ? runtime::Trim(text) : text;
}

bool sameSecond(const SystemTime& a, const SystemTime& b) {
    return std::tie(a.second, a.minute, a.hour, a.day, a.month, a.year) ==
           std::tie(b.second, b.minute, b.hour, b.day, b.month, b.year);
}

/// Overwrites the `places` characters at `position` with the last digits of `number`.
void putDigits(String& text, std::size_t position, std::size_t places, int number) {
    for (std::size_t i = places; i-- > 0; number /= 10)
        text[position + i] = static_cast<char16_t>(u'0' + number % 10);
}

}  // namespace

String QuorLogFile::levelNrToLevelText(Unchanged<eLogEntryType> level) {
    return String(levelText(level, separator_));
}

const String& QuorLogFile::now() {
    const SystemTime now = ports_.system.GetLocalTime();
    if (dateAndTime_.empty() || !sameSecond(now, second_)) {
        second_ = now;
        dateAndTime_ = u"dd.MM.yyyy HH:mm:ss";
        putDigits(dateAndTime_, 0, 2, now.day);
        putDigits(dateAndTime_, 3, 2, now.month);
        putDigits(dateAndTime_, 6, 4, now.year);
        putDigits(dateAndTime_, 11, 2, now.hour);
        putDigits(dateAndTime_, 14, 2, now.minute);
        putDigits(dateAndTime_, 17, 2, now.second);
    }
    return dateAndTime_;
}

void QuorLogFile::addPrefixes(String& s, eLogEntryType level) {
    constexpr std::size_t usualPrefixes = 64;
    String line;
    line.reserve(usualPrefixes + s.size());
    const auto add = [&](eLogFormat prefix, const auto& text) {
        if ((logFormat_ & prefix) != 0) line.append(text()).append(separator_);
    };
    const auto variable = [&](const String& name) {
        String value;
        ports_.system.GetEnvironmentVariableA(name, value);
        return value;
    };
    add(eLogFormat_DateTime, [&]() -> const String& { return now(); });
    add(eLogFormat_UserName, [&] { return variable(u"Username"); });
    add(eLogFormat_MachineName, [&] { return variable(u"ComputerName"); });
    add(eLogFormat_MsgLevel, [&] { return levelText(level, separator_); });
    s = std::move(line.append(s));
}

}  // namespace quorkit
