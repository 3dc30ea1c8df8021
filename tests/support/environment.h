// An environment variable for as long as a test needs it.
#pragma once

#include <cstdlib>
#include <optional>
#include <string>

namespace quorkit::test {

class Variable {
   public:
    /// Sets the variable, or takes it away.
    Variable(std::string name, const std::optional<std::string>& value) : name_(std::move(name)) {
        if (const char* before = std::getenv(name_.c_str())) before_ = before;
        set(value);
    }
    ~Variable() { set(before_); }
    Variable(const Variable&) = delete;
    Variable& operator=(const Variable&) = delete;

    void set(const std::optional<std::string>& value) const {
#ifdef _WIN32
        _putenv_s(name_.c_str(), value ? value->c_str() : "");
#else
        if (value)
            setenv(name_.c_str(), value->c_str(), 1);
        else
            unsetenv(name_.c_str());
#endif
    }

   private:
    std::string name_;
    std::optional<std::string> before_;
};

}  // namespace quorkit::test
