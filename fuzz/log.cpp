// A log file, written and shortened by two objects in turn. Fields: the content; then for each step
// a letter and a number in one, "E5", and a text, see `step`. Finds: entries that are lost, cut or
// torn apart; shortening that removes newer lines and keeps older ones; failures that change the
// file.
#include <quorkit/QuorLogFile.h>
#include <quorkit/ports/memory.h>

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstdlib>
#include <optional>
#include <utility>

#include "base/code_page.h"
#include "base/unicode.h"
#include "support/target.h"

namespace quorkit::fuzz {
namespace {

constexpr const char16_t* kFile = u"C:\\log\\a.log";

std::string_view markOf(std::string_view content) {
    for (const auto mark : {base::kUtf8Mark, base::kUtf16Mark})
        if (content.starts_with(mark)) return mark;
    return {};
}

std::string lineIn(const std::string& content, const String& text) {
    const auto mark = markOf(content);
    if (mark == base::kUtf16Mark) return base::toUtf16(text + u"\r\n");
    return mark.empty() ? base::toAnsi(text + u"\r\n") : base::toUtf8(text + u"\r\n");
}

bool isUnfinished(const std::string& content) {
    const auto mark = markOf(content);
    const auto text = std::string_view(content).substr(mark.size());
    const std::string_view end = mark == base::kUtf16Mark ? std::string_view("\n\0", 2) : "\n";
    return !text.empty() && !text.ends_with(end);
}

/// Whether shortening may leave `kept` of `old`: the newest lines, from the start of a line on,
/// without the last two bytes; all that fit, unless the disk is full.
bool isShortened(const std::string& kept, const std::string& old, Long limit, bool fullDisk) {
    const auto mark = markOf(old);
    if (mark == base::kUtf16Mark)
        return std::string_view(old).substr(2).starts_with(kept) &&
               std::abs(static_cast<double>(kept.size()) - static_cast<double>(old.size()) / 2) <=
                   2;
    if (!kept.starts_with(mark)) return false;
    const std::size_t size = kept.size() - mark.size() + 2;
    if (size > old.size()) return false;
    const std::size_t begin = old.size() - size;
    if (begin == 0 || old[begin - 1] != '\n' ||
        old.compare(begin, size - 2, kept, mark.size(), std::string::npos) != 0)
        return false;
    const double share = 0.8 * limit;
    // The mark may be included or not.
    return static_cast<double>(size) <= share + 3 &&
           (fullDisk || old.find('\n', old.size() - static_cast<std::size_t>(std::max(0.0, share)) +
                                           4) >= begin - 1);
}

/// The same for an entry on a full disk, which shortens twice: what is left of UTF-16 after the
/// first time has no mark, and may still be too large.
bool isShortenedTwice(const std::string& kept, const std::string& old, Long limit) {
    if (markOf(old) != base::kUtf16Mark) return false;
    for (std::size_t half = old.size() / 2 - 2; half <= old.size() / 2 + 2; ++half)
        if (isShortened(kept, old.substr(2, half), limit, true)) return true;
    return false;
}

class Session {
   public:
    explicit Session(std::string bytes) {
        ports_.files.addFolder(u"C:\\log");
        if (!bytes.empty()) ports_.files.put(kFile, std::move(bytes));
        for (QuorLogFile* log : {&logs_[0], &logs_[1]}) {
            log->setLogFileName(kFile);
            log->setAppend(true);
            log->setLogLevel(eLogEntryType_TestDump);
        }
        now_ = content();
    }

    void step(const std::string& order, const String& text);

   private:
    std::string content() const { return ports_.files.content(kFile).value_or(""); }

    /// Whether one entry can have made the file like this: the old lines, or the newest of them,
    /// then the entry. A line that somebody left unfinished is not continued.
    bool isAdded(const std::string& old, const String& text, Long limit, bool continues) const {
        const std::string line = lineIn(old, text);
        const std::string lineEnd = lineIn(old, u"");
        const bool unfinished = isUnfinished(old);
        if (now_ == old + (unfinished && !continues ? lineEnd : "") + line) return true;
        // An odd byte at the end of UTF-16 is completed, so that the text behind it can be read.
        if (old.size() % 2 != 0 && now_ == old + '\0' + lineEnd + line) return true;
        if (limit <= 0 || old.size() <= static_cast<std::size_t>(limit)) return false;
        // The rest of a shortened UTF-16 file has no mark, or one by chance.
        for (const std::string& one :
             {line, base::toAnsi(text + u"\r\n"), base::toUtf8(text + u"\r\n")})
            for (const std::string& added : {one, lineEnd + one})
                if (const std::string kept = now_.substr(0, now_.size() - added.size());
                    now_.ends_with(added) && (isShortened(kept, old, limit, fullDisk_) ||
                                              (fullDisk_ && isShortenedTwice(kept, old, limit))))
                    return true;
        return false;
    }

    void write(std::size_t which, const String& text) {
        String entry = text;
        QuorLogFile& log = logs_[which];
        const bool continues = unfinishedAt_[which] == now_.size();
        log.writeLogfileEntry(entry, eLogEntryType_HeaderFooter);
        const std::string old = std::exchange(now_, content());
        const Long limit = log.MaxFileSize();
        if (fullDisk_ && (now_ == old || isShortened(now_, old, limit, fullDisk_) ||
                          isShortenedTwice(now_, old, limit))) {
            if (now_ != old) noteShortened(which, old);
            return;
        }
        unfinishedAt_[which].reset();
        if (!isAdded(old, text, limit, continues))
            breakPromise("an entry stands behind the others, or the newest of them", shown(now_),
                         shown(old) + " and " + shown(text));
    }

    void limit(std::size_t which, Long size) {
        const bool within = static_cast<double>(now_.size()) <= size;
        const bool done = logs_[which].limitFileSize(String(kFile), size);
        const std::string old = std::exchange(now_, content());
        if (!done || within) {
            promiseEqual(now_, old, "a file that is not shortened stays");
            promise(done || !within || old.empty(), "a file within its limit is no failure");
            return;
        }
        if (!isShortened(now_, old, size, fullDisk_))
            breakPromise("the newest lines that fit stay", shown(now_), shown(old));
        noteShortened(which, old);
    }

    /// A line that had no end before was torn by somebody; nobody continues it.
    void noteShortened(std::size_t which, const std::string& old) {
        unfinishedAt_[which].reset();
        if (old.ends_with('\n') || markOf(old) == base::kUtf16Mark)
            unfinishedAt_[which] = now_.size();
    }

    MemoryPorts ports_;
    QuorLogFile logs_[2] = {QuorLogFile(ports_), QuorLogFile(ports_)};
    std::string now_;
    std::optional<std::size_t> unfinishedAt_[2];  ///< size at which the last line may go on
    bool fullDisk_ = false;
};

void Session::step(const std::string& order, const String& text) {
    Long number = 0;
    if (order.size() > 1) std::from_chars(order.data() + 1, order.data() + order.size(), number);
    const char letter = order.empty() ? 'E' : order[0];
    switch (letter) {
        case 'e':  // an entry of the other object
        case 'E':
            for (Long i = 0; i < 1 + std::abs(number % 120); ++i)
                write(letter == 'E' ? 0 : 1, text);
            break;
        case 'l':
        case 'L':
            limit(letter == 'L' ? 0 : 1, number);
            break;
        case 'S':  // the size at which the first object shortens the file
            logs_[0].setMaxFileSize(number);
            break;
        case 'O':
            logs_[0].setAutoOpenClose(false);
            logs_[0].OpenLogfile();
            now_ = content();
            break;
        case 'C':
            logs_[0].CloseLogfile();
            logs_[0].setAutoOpenClose(true);
            break;
        case 'F':
            ports_.files.setFreeSpace(static_cast<std::size_t>(std::abs(number % 10'000)));
            fullDisk_ = true;
            break;
        case 'T':  // half a line by another program, or by one that was killed
            if (logs_[0].isFileOpen()) break;
            ports_.files.put(kFile, now_ + base::toUtf8(text));
            now_ = content();
            break;
        default:
            break;
    }
}

}  // namespace

void run(std::string_view input) {
    constexpr int mostSteps = 16;
    Fields fields(input);
    Session session(fields.bytes());
    for (int i = 0; i < mostSteps && !fields.done(); ++i) {
        const std::string order = fields.bytes();
        session.step(order, fields.text());
    }
}

}  // namespace quorkit::fuzz
