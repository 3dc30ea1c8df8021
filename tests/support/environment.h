// Sets an environment variable during a test.
#pragma once

#include <cstdlib>
#include <filesystem>
#include <optional>
#include <string>
#include <utility>

namespace quorkit::test {

class Variable {
   public:
    using Value = std::optional<std::string>;  ///< nothing: the variable does not exist

    Variable(std::string name, const Value& value) : name_(std::move(name)) {
        if (const char* before = std::getenv(name_.c_str())) before_ = before;
        set(value);
    }
    ~Variable() { set(before_); }
    Variable(const Variable&) = delete;
    Variable& operator=(const Variable&) = delete;

    void set(const Value& value) const {
#ifdef _WIN32
        const auto wide = [](const std::string& text) {
            return std::filesystem::path(std::u8string(text.begin(), text.end())).wstring();
        };
        _wputenv_s(wide(name_).c_str(),
                   wide(value.value_or("")).c_str());  // takes an empty one away
#else
        value ? setenv(name_.c_str(), value->c_str(), 1) : unsetenv(name_.c_str());
#endif
    }

   private:
    std::string name_;
    Value before_;
};

}  // namespace quorkit::test
