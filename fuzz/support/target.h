// A fuzz target: a function `run` that gets the input, and the promises that it checks.
#pragma once

#include <quorkit/values.h>

#include <string>
#include <string_view>

namespace quorkit::fuzz {

/// Each target defines it; it is called once for each input.
void run(std::string_view input);

/// An input split into fields at each byte 1F, so that people can read and write seeds.
class Fields {
   public:
    explicit Fields(std::string_view input) : rest_(input) {}

    bool done() const { return done_; }
    /// The next field; "" behind the last.
    std::string bytes();
    /// The next field as UTF-8, which may hold lone surrogates.
    String text();
    /// The number at the start of the next field; 0 when there is none.
    Long number();

   private:
    std::string_view rest_;
    bool done_ = false;
};

/// Ends the program, which counts as a finding, unless `holds`.
void promise(bool holds, const char* what);

/// A value for a report, with escapes for characters that cannot be printed.
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
