// What a fuzz target is made of: a function `run` that gets the input, and promises that it checks.
#pragma once

#include <quorkit/values.h>

#include <string>
#include <string_view>

namespace quorkit::fuzz {

/// Defined by each target; called once for each input.
void run(std::string_view input);

/// An input as fields, each up to the next byte 1F, so that people can read and write seeds.
class Fields {
   public:
    explicit Fields(std::string_view input) : rest_(input) {}

    bool done() const { return done_; }
    /// The next field; "" behind the last.
    std::string bytes();
    /// The same as UTF-8, in which surrogates may stand alone.
    String text();
    /// The number that the next field begins with, 0 for none.
    Long number();

   private:
    std::string_view rest_;
    bool done_ = false;
};

/// Ends the program, which is a finding, unless `holds`.
void promise(bool holds, const char* what);

/// A value as it can be read in a report: bytes and texts with escapes for what does not print.
std::string shown(std::string_view bytes);
std::string shown(StringView text);
inline std::string shown(const std::string& bytes) {
    return shown(std::string_view(bytes));
}
inline std::string shown(const String& text) {
    return shown(StringView(text));
}
template <class Number>
std::string shown(Number number) {
    return std::to_string(number);
}

[[noreturn]] void breakPromise(const char* what, const std::string& got, const std::string& wanted);

template <class Value>
void promiseEqual(const Value& got, const Value& wanted, const char* what) {
    if (!(got == wanted)) breakPromise(what, shown(got), shown(wanted));
}

}  // namespace quorkit::fuzz
