// An INI file and a sequence of changes, each checked against a model of the lines. Fields: the
// content; the number of keys appended to it, so that sections outgrow every buffer; then for each
// change a letter and its parameters, see `step`. Finds: lines changed or lost without being asked
// for; values that are not read as written; refused writes that left a trace or gave no reason.
#include <quorkit/QuorInifile.h>
#include <quorkit/ports/memory.h>

#include <algorithm>
#include <optional>
#include <set>

#include "support/ini_entries.h"
#include "support/ini_text.h"
#include "support/target.h"

namespace quorkit::fuzz {
namespace {

constexpr const char16_t* kFile = u"a.ini";
constexpr std::size_t kNone = IniText::kNone;

class Session {
   public:
    explicit Session(std::string content) {
        ini_.setIniFileName(kFile);
        if (!content.empty()) ports_.files.put(kFile, std::move(content));
        take();
    }

    void step(Fields& fields);
    void checkReading() { promiseReading(ini_, now_); }

   private:
    void take() {
        bytes_ = ports_.files.content(kFile);
        now_ = IniText::of(bytes_.value_or(""));
    }

    /// Reads the state after a change. False when it was refused; then nothing may have changed.
    bool changed(bool done, bool mayBeRefused) {
        before_ = std::move(now_);
        const auto bytes = std::move(bytes_);
        take();
        if (!done) {
            promise(mayBeRefused || limited_ || before_.looksForeign(), "nothing refuses a change");
            if (bytes_ != bytes)
                breakPromise("a refused change leaves every byte", shown(bytes_.value_or("(none)")),
                             shown(bytes.value_or("(none)")));
            return false;
        }
        promise(now_.tail == before_.tail && now_.marked == before_.marked &&
                    (now_.encoding == before_.encoding || before_.encoding == IniText::Ascii ||
                     now_.encoding == IniText::Ascii),
                "a change keeps the encoding");
        return true;
    }

    /// Whether the file's encoding may prevent a change that adds or removes `text`.
    bool encodingForbids(const String& text) const {
        const bool ascii = std::ranges::all_of(text, [](char16_t unit) { return unit < 0x80; });
        return !now_.holds(text) || (now_.encoding == IniText::Ansi && !ascii);
    }

    void writeKey(const String& section, const String& key, const String& value);
    void deleteKey(const String& section, const String& key);
    void deleteSection(const String& section);
    void addSection(const String& section);
    void merge(const String& section, const Entries& table);
    void writeLines(const String& section, const Entries& table);
    void deleteKeys(const String& section, const std::vector<String>& names, bool withLines);

    /// Checks the lines outside a section that was written anew, wherever it is now.
    void checkOutside(const String& section) const {
        const std::size_t old = before_.findSection(section);
        promiseSameLines(withoutBlanks(now_.outside(now_.findSection(section))),
                         withoutBlanks(before_.outside(old)));
    }

    MemoryPorts ports_;
    QuorInifile ini_{ports_};
    bool limited_ = false;  ///< the disk may be full, the file read-only
    std::optional<std::string> bytes_;
    IniText now_;
    IniText before_;
};

void Session::writeKey(const String& section, const String& key, const String& value) {
    const std::size_t header = now_.findSection(section);
    const std::size_t place = header == kNone ? kNone : now_.findKey(header, key);
    const bool carried = isSectionName(section) && isKeyName(key) && isValue(value);
    const bool mayFail = encodingForbids(section + key + value) ||
                         (place != kNone && encodingForbids(now_.lines[place].text));
    const bool done = ini_.WriteKeyValue(section, key, value) != 0;
    promise(carried || !done, "what a line cannot carry is refused");
    if (!changed(done, mayFail || !carried)) return;

    promiseEqual(ini_.ReadKeyValue(section, key, u"(none)"), value.substr(0, 4095),
                 "a value is read as it was written");
    IniLines wanted = before_.lines;
    const auto at = [](std::size_t i) { return static_cast<std::ptrdiff_t>(i); };
    if (header == kNone) {
        const std::size_t count = wanted.size();
        promiseEqual(now_.lines.size(), count + 2, "a new section is two lines");
        promise(now_.lines[count].kind == IniLine::Header, "a new section has a header");
        promiseEqual(now_.lines[count].name, trimBlanks(section), "the name of a new section");
        wanted.insert(wanted.end(), now_.lines.end() - 2, now_.lines.end());
    } else if (place != kNone) {
        promiseEqual(now_.lines.size(), wanted.size(), "a changed key is one line");
        const String front = wanted[place].front();
        promise(now_.lines[place].text.starts_with(front), "what stands before a value stays");
        wanted[place].text = now_.lines[place].text;
    } else {
        const std::size_t added = now_.findKey(header, key);
        promise(added != kNone, "a new key is in its section");
        for (std::size_t i = added + 1; i < now_.endOfSection(header); ++i)
            promise(now_.lines[i].kind != IniLine::Key, "a new key comes behind the others");
        wanted.insert(wanted.begin() + at(added), now_.lines[added]);
    }
    promiseSameLines(now_.lines, wanted);
}

void Session::deleteKey(const String& section, const String& key) {
    const std::size_t header = now_.findSection(section);
    const std::size_t place = header == kNone ? kNone : now_.findKey(header, key);
    const bool mayFail = place == kNone || encodingForbids(now_.lines[place].text);
    const bool done = ini_.DeleteKey(section, key) != 0;
    promise(place != kNone || !done, "a key that is not there is not deleted");
    if (!changed(done, mayFail)) return;
    IniLines wanted = before_.lines;
    wanted.erase(wanted.begin() + static_cast<std::ptrdiff_t>(place));
    promiseSameLines(now_.lines, wanted);
}

void Session::deleteSection(const String& section) {
    const std::size_t header = now_.findSection(section);
    const bool done = ini_.DeleteSection(section) != 0;
    promise(header != kNone || !done, "a section that is not there is not deleted");
    if (!changed(done, header == kNone || now_.encoding == IniText::Ansi)) return;
    promiseSameLines(now_.lines, before_.outside(header));
}

void Session::addSection(const String& section) {
    const std::size_t header = now_.findSection(section);
    const bool mayFail =
        !isSectionName(section) || encodingForbids(section) || now_.encoding == IniText::Ansi;
    const bool done = ini_.AddSection(section) != 0;
    promise(isSectionName(section) || !done, "what a line cannot carry is refused");
    if (!changed(done, mayFail)) return;
    const std::size_t added = now_.findSection(section);
    promise(added != kNone, "a new section is there");
    for (std::size_t i = added + 1; i < now_.endOfSection(added); ++i)
        promise(now_.lines[i].kind == IniLine::Blank, "a new section is empty");
    promiseSameLines(now_.outside(added), before_.outside(header));
}

void Session::merge(const String& section, const Entries& table) {
    const std::size_t header = now_.findSection(section);
    const auto old = keysOf(now_, header);
    String all = section;
    Entries accepted;
    bool odd = false;
    for (const Entry& one : table) {
        all += one.key + one.value;
        odd = odd || isOdd(one);
        if (isEntry(one)) accepted.push_back(one);
    }
    const bool forbidden = encodingForbids(all);
    const Long written = ini_.WriteSectionContent(section, tableOf(table));
    const bool carried = isSectionName(section) && !accepted.empty();
    const bool mayFail = forbidden || now_.encoding == IniText::Ansi || !carried;
    if (!changed(written > 0 && ini_.lastResult() != 0, mayFail)) return;
    checkOutside(section);
    if (forbidden || odd) return;
    promiseEqual(written, static_cast<Long>(accepted.size()), "entries that a line carries");
    if (!old || hasTwice(accepted)) return;

    Entries wanted = *old;
    for (const Entry& one : accepted) {
        const auto found = std::ranges::find_if(wanted, [&](const Entry& other) {
            return comparable(other.key) == comparable(one.key);
        });
        if (found == wanted.end())
            wanted.push_back({trimBlanks(one.key), one.value});
        else
            found->value = one.value;
    }
    promiseKeys(keysOf(now_, now_.findSection(section)), wanted);
}

void Session::writeLines(const String& section, const Entries& table) {
    const auto old = keysOf(now_, now_.findSection(section));
    String all = section;
    Entries wanted;
    std::set<String> keys;
    Long accepted = 0;
    bool odd = false;
    for (const Entry& one : table) {
        all += one.key + one.value;
        const String key = trimBlanks(one.key);
        odd = odd || isOdd(one);
        if (!isEntry(one) || withoutDigits(key) != key) continue;
        ++accepted;
        keys.insert(comparable(key));
        for (Entry& line : linesOf(one)) wanted.push_back(std::move(line));
    }
    const bool forbidden = encodingForbids(all);
    const Long written = ini_.WriteMultiLineSection(section, tableOf(table));
    const bool carried = isSectionName(section) && accepted != 0;
    promise(carried || odd || written == 0, "what a line cannot carry is refused");
    if (!changed(written > 0 && ini_.lastResult() != 0,
                 forbidden || now_.encoding == IniText::Ansi || !carried))
        return;
    checkOutside(section);
    if (forbidden || odd) return;
    promiseEqual(written, accepted, "entries that a line carries");
    if (!old || hasTwice(wanted)) return;
    const bool twice = hasTwice(*old);  // then nothing is removed
    for (const Entry& one : *old)
        if (twice || !keys.contains(comparable(withoutDigits(one.key)))) wanted.push_back(one);
    promiseKeys(keysOf(now_, now_.findSection(section)), wanted);
    if (twice || bytes_->size() > 30'000) return;
    for (const Entry& one : table)
        if (isEntry(one) && keys.contains(comparable(one.key)) && one.value.size() < 4095 &&
            comparable(one.value) != comparable(kMarker))
            promiseEqual(ini_.ReadMultiLineValue(section, one.key), withoutLastBreak(one.value),
                         "a value of several lines is read as it was written");
}

void Session::deleteKeys(const String& section, const std::vector<String>& names, bool withLines) {
    const auto old = keysOf(now_, now_.findSection(section));
    const Array<String> list{std::vector<String>(names)};
    const Long result =
        withLines ? ini_.DeleteMultiLineKeys(section, list) : ini_.DeleteKeys(section, list);
    const bool nothing = old && (old->empty() || names.empty() || hasTwice(*old));
    if (old && !old->empty() && !names.empty() && !now_.looksForeign())
        promise((result == -2) == hasTwice(*old), "a key that is there twice is told");
    if (!changed(ini_.lastResult() != 0,
                 nothing || !old || now_.encoding == IniText::Ansi || result == -2))
        return;
    checkOutside(section);
    if (!old) return;
    std::set<String> gone;
    for (const String& name : names) gone.insert(comparable(name));
    Entries wanted;
    Long removed = 0;
    for (const Entry& one : *old) {
        const String base = withLines ? withoutDigits(one.key) : one.key;
        if (!gone.contains(comparable(base)))
            wanted.push_back(one);
        else
            removed += base == one.key ? 1 : 0;
    }
    promiseEqual(result, removed, "as many keys are removed");
    promiseKeys(keysOf(now_, now_.findSection(section)), wanted);
}

void Session::step(Fields& fields) {
    const std::string order = fields.bytes();
    const char letter = order.empty() ? 'W' : order[0];
    if (letter == 'F' || letter == 'R') {  // a disk that is nearly full, or a read-only file
        limited_ = true;
        if (letter == 'F') ports_.files.setFreeSpace(std::size_t(std::abs(fields.number() % 5000)));
        if (letter == 'R' && bytes_) ports_.files.setReadOnly(kFile);
        return;
    }
    const String section = fields.text();
    if (letter == 'X') return deleteSection(section);
    if (letter == 'A') return addSection(section);
    Entries table = {{fields.text(), {}}};
    if (letter == 'D') return deleteKey(section, table[0].key);
    table[0].value = fields.text();
    // A digit behind the letter means so many more.
    const int more = order.size() > 1 && order[1] >= '0' && order[1] <= '9' ? order[1] - '0' : 0;
    for (int i = 0; i < more; ++i) {
        const String key = fields.text();
        table.push_back({key, fields.text()});
    }
    std::vector<String> names;
    for (const Entry& one : table) names.push_back(one.key);
    if (letter == 'C') return merge(section, table);
    if (letter == 'M') return writeLines(section, table);
    if (letter == 'K' || letter == 'L') return deleteKeys(section, names, letter == 'L');
    writeKey(section, table[0].key, table[0].value);
}

}  // namespace

void run(std::string_view input) {
    constexpr Long mostFilling = 500;
    constexpr int mostSteps = 12;
    Fields fields(input);
    std::string content = fields.bytes();
    const Long filling = fields.number() % (mostFilling + 1);
    for (Long i = 0; i < filling; ++i)
        content += "filling" + std::to_string(i) + std::string(90, 'x') + "=1\n";
    Session session(std::move(content));
    session.checkReading();
    for (int i = 0; i < mostSteps && !fields.done(); ++i) {
        session.step(fields);
        session.checkReading();
    }
}

}  // namespace quorkit::fuzz
