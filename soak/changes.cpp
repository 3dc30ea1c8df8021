#include "changes.h"

#include <algorithm>

#include "base/unicode.h"
#include "random.h"

namespace quorkit::soak {
namespace {

using Kind = Change::Kind;

constexpr std::uint32_t kKeys = 12;  // of a worker in each place
constexpr StringView kRegistry = u"HKCU\\Software\\Soak\\";
constexpr StringView kDeeper = u"\\Deep\\Deeper";
constexpr StringView kLinesKey = u".lines-";

String number(std::uint64_t value) {
    const std::string digits = std::to_string(value);
    return String(digits.begin(), digits.end());
}

/// The places that a worker changes: one that all share, one for changes of many keys if the kind
/// of store has such changes, and its own.
std::vector<String> placesOf(Role role, std::uint32_t worker) {
    const String own = u"Own " + number(worker);
    if (role == Role::Ini) return {u"Shared", u"Bulk", own};
    return {String(kRegistry) + u"Shared", String(kRegistry) + own,
            String(kRegistry) + own + String(kDeeper)};
}

/// No name ends in a digit, which values of several lines do not allow.
String keyOf(std::uint32_t worker, std::uint32_t key) {
    return u"w" + number(worker) + u".k" + number(key) + u"x";
}

String linesKeyOf(std::uint32_t worker, std::uint32_t key) {
    return u"w" + number(worker) + String(kLinesKey) + static_cast<char16_t>(u'a' + key);
}

/// A value with everything that may be difficult in a file. It is different at each step.
String valueOf(const Job& job, std::uint32_t step, Random& random) {
    constexpr StringView odd = u"aZ09 ;=[]\"'\\/#,%!\t\u00E9\u00FC";
    String value = number(job.incarnation) + u"." + number(step) + u" ";
    const std::uint32_t length = random.oneIn(30) ? 1000 + random.below(800) : random.below(40);
    for (std::uint32_t i = 0; i < length; ++i)
        value += odd[random.below(static_cast<std::uint32_t>(odd.size()))];
    switch (random.below(8)) {
        case 0:
            return u"  " + value + u"  ";
        case 1:
            return u"\"" + value + u"\"";
        case 2:
            return value + u"\r\nsecond line\n";
        default:
            return value + u"|";
    }
}

String linesOf(const Job& job, std::uint32_t step, Random& random) {
    String value = number(job.incarnation) + u"." + number(step);
    for (std::uint32_t left = 1 + random.below(5); left > 0; --left)
        value += u"\r\nline " + number(random.below(1000));
    return value;
}

Kind kindOf(Role role, std::size_t place, Random& random) {
    constexpr Kind onlyOne[] = {Kind::Put, Kind::Put, Kind::Put, Kind::Put, Kind::Remove};
    constexpr Kind many[] = {Kind::Put,        Kind::PutMany,     Kind::PutMany, Kind::PutLines,
                             Kind::RemoveMany, Kind::RemoveLines, Kind::Remove};
    constexpr Kind own[] = {Kind::Put, Kind::Put, Kind::Put, Kind::Remove, Kind::RemovePlace};
    constexpr Kind keys[] = {Kind::Put,    Kind::Put,     Kind::PutNumber,
                             Kind::Remove, Kind::PutMany, Kind::RemovePlace};
    if (role == Role::Registry) {
        // Nobody removes the place that all share.
        return keys[random.below(static_cast<std::uint32_t>(std::size(keys)) - (place == 0))];
    }
    if (place == 0) return onlyOne[random.below(static_cast<std::uint32_t>(std::size(onlyOne)))];
    if (place == 1) return many[random.below(static_cast<std::uint32_t>(std::size(many)))];
    return own[random.below(static_cast<std::uint32_t>(std::size(own)))];
}

bool beneath(const String& place, const String& around) {
    return place == around || place.starts_with(around + u"\\");
}

bool isPut(Kind kind) {
    return kind == Kind::Put || kind == Kind::PutNumber || kind == Kind::PutMany ||
           kind == Kind::PutLines;
}

std::string shown(const String& text) {
    constexpr std::size_t most = 60;
    std::string result;
    for (const char one : base::toUtf8(StringView(text).substr(0, most)))
        result += static_cast<unsigned char>(one) < ' ' ? '~' : one;
    return "'" + result + (text.size() > most ? "...'" : "'");
}

}  // namespace

Change changeOf(const Job& job, std::uint32_t step) {
    Random random{job.seed, job.worker, job.incarnation, step};
    const std::vector<String> places = placesOf(job.role, job.worker);
    const std::uint32_t place = random.below(static_cast<std::uint32_t>(places.size()));
    Change change;
    change.kind = kindOf(job.role, place, random);
    change.place = places[place];
    const bool several = change.kind == Kind::PutMany || change.kind == Kind::RemoveMany;
    const bool ofLines = change.kind == Kind::PutLines || change.kind == Kind::RemoveLines;
    std::set<String> keys;
    for (std::uint32_t left = several ? 2 + random.below(5) : 1 + ofLines; left > 0; --left)
        keys.insert(ofLines ? linesKeyOf(job.worker, random.below(2))
                            : keyOf(job.worker, random.below(kKeys)));
    if (change.kind == Kind::RemovePlace) keys.clear();
    for (const String& key : keys) {
        String value;
        if (change.kind == Kind::PutLines)
            value = linesOf(job, step, random);
        else if (change.kind == Kind::PutNumber)
            value = number(random.below(1u << 31));
        else if (isPut(change.kind) && !random.oneIn(20))
            value = valueOf(job, step, random);
        change.entries.emplace_back(key, value);
    }
    return change;
}

std::vector<Name> namesOf(Role role, std::uint32_t worker) {
    std::vector<Name> names;
    for (const String& place : placesOf(role, worker)) {
        for (std::uint32_t key = 0; key < kKeys; ++key)
            names.push_back({place, keyOf(worker, key)});
        for (std::uint32_t key = 0; role == Role::Ini && key < 2; ++key)
            names.push_back({place, linesKeyOf(worker, key)});
    }
    return names;
}

bool inOneStep(Role role, const Change& change) {
    return role != Role::Registry || change.kind != Kind::RemovePlace;
}

void apply(const Change& change, State& state) {
    std::erase_if(state.values, [&](const auto& one) {
        return change.kind == Kind::RemovePlace && beneath(one.first.place, change.place);
    });
    for (const auto& [key, value] : change.entries) {
        if (isPut(change.kind))
            state.values[{change.place, key}] = value;
        else
            state.values.erase({change.place, key});
        state.loose.erase({change.place, key});
    }
}

void loosen(const Change& change, State& state) {
    for (const auto& [name, value] : state.values)
        if (beneath(name.place, change.place)) state.loose.insert(name);
}

std::string difference(const State& expected, const std::map<Name, String>& actual) {
    constexpr int most = 4;
    std::string text;
    int told = 0;
    const auto tell = [&](const Name& name, const std::string& what) {
        if (++told == most + 1) text += "    and more\n";
        if (told > most) return;
        text +=
            "    [" + base::toUtf8(name.place) + "] " + base::toUtf8(name.key) + ": " + what + "\n";
    };
    for (const auto& [name, value] : expected.values) {
        const auto found = actual.find(name);
        if (found == actual.end()) {
            if (!expected.loose.contains(name)) tell(name, "lost; must be " + shown(value));
        } else if (found->second != value) {
            tell(name, "is " + shown(found->second) + ", must be " + shown(value));
        }
    }
    for (const auto& [name, value] : actual)
        if (!expected.values.contains(name)) tell(name, "must be gone, is " + shown(value));
    return text;
}

std::string describe(const Change& change) {
    constexpr const char* names[] = {"put",    "put number",  "put many",     "put lines",
                                     "remove", "remove many", "remove lines", "remove place"};
    std::string text = names[static_cast<int>(change.kind)];
    text += " in [" + base::toUtf8(change.place) + "]:";
    for (const auto& [key, value] : change.entries)
        text += " " + base::toUtf8(key) + "=" + shown(value);
    return text;
}

}  // namespace quorkit::soak
