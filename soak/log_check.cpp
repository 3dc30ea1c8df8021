#include "log_check.h"

#include <algorithm>
#include <charconv>
#include <map>
#include <utility>

#include "base/unicode.h"
#include "log_entries.h"

namespace quorkit::soak {
namespace {

constexpr std::string_view kPrefixes = "dd.mm.yyyy hh:mm:ss  Info       ";

/// Whether `text` is a prefix of an entry, or the start of one.
bool isPrefix(std::string_view text) {
    if (text.size() > kPrefixes.size()) return false;
    for (std::size_t i = 0; i < text.size(); ++i) {
        const bool digit = text[i] >= '0' && text[i] <= '9';
        const bool place = i < 19 && kPrefixes[i] >= 'a' && kPrefixes[i] <= 'z';
        if (place ? !digit : text[i] != kPrefixes[i]) return false;
    }
    return true;
}

bool isLineEnd(char one) {
    return one == '\r' || one == '\n';
}

struct Id {
    std::uint32_t worker, incarnation, step;
};

/// Reads an identity "<1.2.3:" and returns its length; 0 when it is not complete.
std::size_t readId(std::string_view text, Id& id) {
    std::size_t at = 1;
    for (const auto& [number, end] :
         {std::pair(&id.worker, '.'), std::pair(&id.incarnation, '.'), std::pair(&id.step, ':')}) {
        const auto [stop, error] =
            std::from_chars(text.data() + at, text.data() + text.size(), *number);
        at = static_cast<std::size_t>(stop - text.data());
        if (error != std::errc() || at == text.size() || text[at] != end) return 0;
        ++at;
    }
    return at;
}

class Check {
   public:
    Check(const std::vector<const Board*>& writers, const LogRules& rules) : rules_(rules) {
        for (const Board* board : writers)
            writers_[{board->job().worker, board->job().incarnation}] = {
                board, std::vector<bool>(board->reached())};
    }

    void read(std::string_view bytes);
    LogFindings result();

   private:
    struct Writer {
        const Board* board;
        std::vector<bool> found;
        std::int64_t last = -1;
    };
    /// An entry of which only a part is there.
    struct Part {
        const Writer& writer;
        std::uint32_t step;
        std::string who;
    };

    std::size_t readEntry(std::string_view rest);
    std::size_t torn(std::string_view rest, std::size_t length, const std::string& who);
    void tell(std::uint64_t& count, const std::string& what) {
        ++count;
        constexpr std::size_t most = 5;
        if (findings_.told.size() < most) findings_.told.push_back(what);
    }
    bool excused(const Step& step) const { return step.begun < rules_.cleared; }

    const LogRules& rules_;
    std::map<std::pair<std::uint32_t, std::uint32_t>, Writer> writers_;
    std::vector<Part> parts_;
    LogFindings findings_;
    bool lineBegins_ = true;
    std::uint64_t oldestStaying_ = UINT64_MAX;  ///< when the oldest entry that stays had ended
};

void Check::read(std::string_view bytes) {
    if (bytes.starts_with(base::kUtf8Mark)) bytes.remove_prefix(base::kUtf8Mark.size());
    lineBegins_ = true;
    while (!bytes.empty()) {
        std::size_t length = 1;
        if (isLineEnd(bytes[0])) {
            lineBegins_ = true;
        } else if (bytes[0] == '<') {
            length = readEntry(bytes);
        } else {
            length = std::min(bytes.find_first_of("<\r\n"), bytes.size());
            const std::string_view text = bytes.substr(0, length);
            const bool whole = text.size() == kPrefixes.size();
            const bool lineEnds = length == bytes.size() || bytes[length] != '<';
            if (!isPrefix(text) || (!whole && !lineEnds))
                tell(findings_.wrong, "nobody's: '" + std::string(text.substr(0, 60)) + "'");
            else if (lineEnds)
                ++findings_.torn;
        }
        bytes.remove_prefix(length);
    }
}

/// Reads an entry, which begins with "<", and returns its length.
std::size_t Check::readEntry(std::string_view rest) {
    Id id = {};
    const std::size_t header = readId(rest, id);
    const auto found = writers_.find({id.worker, id.incarnation});
    if (header == 0 || found == writers_.end() || id.step >= found->second.found.size())
        return torn(rest, std::min(rest.find_first_of("\r\n<", 1), rest.size()), "an entry");
    Writer& writer = found->second;
    const std::string who = "entry " + std::string(rest.substr(1, header - 2));
    const std::string expected = entryBytesOf(writer.board->job(), id.step);
    const auto parts =
        std::ranges::mismatch(rest.substr(0, std::min(rest.size(), expected.size())), expected);
    const auto length = static_cast<std::size_t>(parts.in2 - expected.begin());
    if (length != expected.size()) {
        parts_.push_back({writer, id.step, who});
        return torn(rest, length, who);
    }
    if (!lineBegins_ && !rules_.limited)
        tell(findings_.continued, who + " stands in the line of another one");
    lineBegins_ = false;
    if (writer.found[id.step]) tell(findings_.wrong, who + " is there twice");
    if (writer.last > id.step) tell(findings_.wrong, who + " stands behind a later one");
    writer.last = id.step;
    writer.found[id.step] = true;
    if (const std::uint64_t ended = writer.board->step(id.step).ended)
        oldestStaying_ = std::min(oldestStaying_, ended);
    return length;
}

/// Notes that the first `length` bytes are a part of an entry.
std::size_t Check::torn(std::string_view rest, std::size_t length, const std::string& who) {
    ++findings_.torn;
    lineBegins_ = false;
    const std::size_t end = std::min(rest.find_first_of("<\r\n", length), rest.size());
    const std::string_view behind = rest.substr(length, end - length);
    if (!behind.empty() || (end < rest.size() && rest[end] == '<'))
        tell(findings_.continued,
             "the part of " + who + " is followed in its line by '" +
                 std::string(rest.substr(
                     length,
                     std::min<std::size_t>(60, rest.find_first_of("\r\n", length) - length))) +
                 "'");
    return end;
}

LogFindings Check::result() {
    for (const auto& [writer, number, who] : parts_) {
        const Step& step = writer.board->step(number);
        if (step.outcome != Outcome::Done || excused(step)) continue;
        // A full disk may take a part of an entry, which a second attempt then repeats behind it.
        if (writer.found[number]) continue;
        --findings_.torn;
        tell(findings_.broken, who + " had been written and is there in part");
    }
    for (const auto& [name, writer] : writers_) {
        const Job& job = writer.board->job();
        for (std::uint32_t number = job.first; number < writer.board->reached(); ++number) {
            if (opensFirst(job) && number == job.first) continue;
            const Step& step = writer.board->step(number);
            const Outcome outcome = step.outcome;
            if (outcome == Outcome::UnderWay || outcome == Outcome::NotBegun) continue;
            ++findings_.acknowledged;
            if (writer.found[number] || excused(step)) continue;
            // An entry that was cut off is older than the entries that stay.
            if (rules_.limited && step.begun < oldestStaying_) continue;
            if (step.begun < rules_.calm && outcome != Outcome::Done) {
                ++findings_.dropped;
                continue;
            }
            tell(findings_.lost,
                 "lost: entry " + std::to_string(name.first) + "." + std::to_string(name.second) +
                     "." + std::to_string(number) + " of " +
                     std::to_string(entryOf(job, number).size()) + " characters" +
                     (outcome == Outcome::Done ? std::string()
                                               : "; reason given: " + writer.board->reason()));
        }
    }
    return std::move(findings_);
}

}  // namespace

LogFindings checkLog(const std::vector<std::string>& files,
                     const std::vector<const Board*>& writers, const LogRules& rules) {
    Check check(writers, rules);
    for (const std::string& file : files) check.read(file);
    return check.result();
}

}  // namespace quorkit::soak
