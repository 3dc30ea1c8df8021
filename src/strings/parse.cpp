// ParseString: names and values; a value is plain, or in one or three quotes.
#include <quorkit/GQuorStrings.h>

#include "runtime/search.h"
#include "runtime/trim.h"
#include "strings/positions.h"
#include "strings/whitespace.h"

namespace quorkit {
namespace {

using runtime::Search;
using runtime::Trim;

class Assignments {
   public:
    Assignments(StringView text, const String& cmdDelimiter, const String& txtDelimiter,
                const String& argDelimiter)
        : text_(text),
          quote_(txtDelimiter),
          threeQuotes_(txtDelimiter + txtDelimiter + txtDelimiter),
          equals_(cmdDelimiter),
          quotes_(quote_),
          closings_(threeQuotes_),
          commas_(argDelimiter) {}
    Assignments(const Assignments&) = delete;
    Assignments& operator=(const Assignments&) = delete;

    /// Reads the next assignment. False when there is no more, or when a quote is left open.
    bool next() {
        if (at_ == Search::kNotFound) return false;
        const std::size_t equals = equals_.in(text_, at_);
        if (equals == Search::kNotFound) return false;
        name_ = Trim(text_.substr(at_, equals - at_));
        at_ = equals + 1;
        while (at_ < text_.size() && strings::isWhite(text_[at_])) ++at_;
        return readValue(countQuotes());
    }
    StringView name() const { return name_; }
    StringView value() const { return value_; }

   private:
    static constexpr std::size_t kMostQuotes = 3;

    std::size_t countQuotes() {
        std::size_t count = 0;
        for (; count < kMostQuotes && !quote_.empty(); ++count, ++at_)
            if (!text_.substr(at_).starts_with(quote_)) break;
        return count;
    }

    bool readValue(std::size_t quotes) {
        switch (quotes) {
            case 0: {
                const std::size_t comma = commas_.in(text_, at_);
                value_ = Trim(text_.substr(at_, comma - at_));
                at_ = comma;
                break;
            }
            case 1:
                if (!readQuoted(quotes_, 1)) return false;
                break;
            case 2:
                value_ = {};
                at_ = commas_.in(text_, at_);
                break;
            default:
                if (!readQuoted(closings_, kMostQuotes)) return false;
        }
        if (at_ != Search::kNotFound) ++at_;
        return true;
    }

    /// Reads the value up to the closing quotes, and skips the text between them and the next
    /// delimiter.
    bool readQuoted(const Search& closing, std::size_t length) {
        const std::size_t end = closing.in(text_, at_);
        if (end == Search::kNotFound) return false;
        value_ = text_.substr(at_, end - at_);
        at_ = commas_.in(text_, end + length);
        return true;
    }

    StringView text_;
    StringView quote_;
    String threeQuotes_;
    Search equals_;
    Search quotes_;
    Search closings_;
    Search commas_;
    std::size_t at_ = 0;  // kNotFound behind the last assignment
    StringView name_;
    StringView value_;
};

}  // namespace

CollectionRef GQuorStrings::ParseString(
    String& s, const Optional<Unchanged<String>, Text(u"=")>& cmdDelimiter,
    const Optional<Unchanged<String>, Text(u"\"")>& txtDelimiter,
    const Optional<Unchanged<String>, Text(u",")>& argDelimiter) {
    s = Trim(s);
    strings::require16BitPositions(s);
    auto values = Collection::make();
    Assignments assignments(s, *cmdDelimiter, *txtDelimiter, *argDelimiter);
    while (assignments.next()) values->add(String(assignments.value()), String(assignments.name()));
    return values;
}

}  // namespace quorkit
