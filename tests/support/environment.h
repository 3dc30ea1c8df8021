// Sets an environment variable during a test.
#pragma once

#include <cstdlib>
#include <optional>
#include <string>

namespace quorkit::test {

class Variable {
   public:
    using Value = std::optional<std::string>;  ///< nothing: the variable does not exist

    Variable(const char* name, const Value& value) : name_(name) {
        if (const char* before = std::getenv(name)) before_ = before;
        set(value);
    }
    ~Variable() { set(before_); }
    Variable(const Variable&) = delete;
    Variable& operator=(const Variable&) = delete;

    void set(const Value& value) const {
#ifdef _WIN32
        _putenv_s(name_, value.value_or("").c_str());  // an empty value removes it
#else
        value ? setenv(name_, value->c_str(), 1) : unsetenv(name_);
#endif
    }

   private:
    const char* name_;
    Value before_;
};

}  // namespace quorkit::test
