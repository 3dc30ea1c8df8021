// An environment variable, for as long as a test needs it.
#pragma once

#include <cstdlib>
#include <optional>
#include <string>

namespace quorkit::test {

class Variable {
   public:
    using Value = std::optional<std::string>;  ///< nothing for a variable that is not there

    Variable(const char* name, const Value& value) : name_(name) {
        if (const char* before = std::getenv(name)) before_ = before;
        set(value);
    }
    ~Variable() { set(before_); }
    Variable(const Variable&) = delete;
    Variable& operator=(const Variable&) = delete;

    void set(const Value& value) const {
#ifdef _WIN32
        _putenv_s(name_, value.value_or("").c_str());  // which takes an empty one away
#else
        value ? setenv(name_, value->c_str(), 1) : unsetenv(name_);
#endif
    }

   private:
    const char* name_;
    Value before_;
};

}  // namespace quorkit::test
