// Placeholders for facts of the system, and the check of mail addresses.
#include <quorkit/GQuorStrings.h>
#include <quorkit/ports/system.h>

#include <vector>

#include "frame/ui_language.h"
#include "runtime/calendar.h"
#include "runtime/date_format.h"

namespace quorkit {
namespace {

/// The text that is still to be read: that of the caller, preceded by the values inserted so far,
/// the last one first.
class Unread {
   public:
    explicit Unread(StringView text) { putInFront(String(text)); }

    void putInFront(String text) { pieces_.push_back({std::move(text), 0}); }

    /// Moves everything before the next `mark` to the end of `into` and drops the mark. False when
    /// there is none; then everything was moved.
    bool moveUpTo(char16_t mark, String& into) {
        for (; !pieces_.empty(); pieces_.pop_back()) {
            auto& [text, read] = pieces_.back();
            const std::size_t hit = text.find(mark, read);
            into.append(text, read, hit - read);
            if (hit == String::npos) continue;
            read = hit + 1;
            return true;
        }
        return false;
    }
    /// Whether the mark found last was part of a value.
    bool isInValue() const { return pieces_.size() > 1; }

   private:
    struct Piece {
        String text;
        std::size_t read;
    };
    std::vector<Piece> pieces_;
};

/// `s` with every text between the two marks replaced by its value, in inserted values too.
template <class ValueOf>
String expanded(const String& s, char16_t opening, char16_t closing, ValueOf valueOf) {
    constexpr std::size_t most = 1'000'000;
    std::size_t nested = 0;  // characters inserted for placeholders within values
    String done;
    Unread unread(s);
    while (unread.moveUpTo(opening, done)) {
        const bool inValue = unread.isInValue();
        String name;
        if (!unread.moveUpTo(closing, name)) return done.append(1, opening).append(name);
        String value = valueOf(name);
        nested = inValue ? nested + value.size() : 0;
        if (nested > most) raise(ErrorNumber::OutOfStackSpace);
        unread.putInFront(std::move(value));
    }
    return done;
}

}  // namespace

String GQuorStrings::ExpandEnvironmentString(const String& s) {
    return expanded(s, u'%', u'%', [&](const String& name) {
        String value;
        ports_.system.GetEnvironmentVariableA(name, value);
        return value;
    });
}

String GQuorStrings::ExpandDateString(const String& s) {
    if (s.find(u'[') == String::npos) return s;
    const Date now = runtime::dateOf(ports_.system.GetLocalTime());
    const eLanguage language = frame::uiLanguage(ports_);
    return expanded(s, u'[', u']',
                    [&](const String& format) { return runtime::Format(now, format, language); });
}

Boolean GQuorStrings::isValidMailAddress(const String& sMailAddress) {
    const std::size_t at = sMailAddress.find(u'@');
    return at != 0 && at != String::npos && sMailAddress.find(u'.', at) != String::npos;
}

}  // namespace quorkit
