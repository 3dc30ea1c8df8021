// The file with the values of a key. It consists of lines of UTF-8, and any program or person may
// change, add and delete lines.
//
//   [Mail]                              the name of the key as it is spelled
//   "Server"="post"                     a value, in the notation of registry/value_text.h
//   ; a comment
//
// Of several lines for one value the last one counts. A line that ends in ",\" continues in the
// next one if that holds only hexadecimal digits. A line that is none of these is kept as it is.
#pragma once

#include <quorkit/ports/registry.h>

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace quorkit::native {

class KeyFile {
   public:
    explicit KeyFile(std::string text) : text_(std::move(text)) {}

    const std::string& text() const { return text_; }

    /// The name in the line "[...]", see folder_names.h; nothing when there is none.
    std::optional<String> name() const;
    /// False when there is no such value, or its line is damaged.
    bool find(const String& name, RegistryValue& value) const;
    /// Appends all values in the order in which their names first occur.
    void list(std::vector<NamedValue>& values) const;

    /// Replaces an existing line in place and keeps the spelling of its name; a new line is
    /// appended.
    void set(std::span<const NamedValue> values);
    /// False when there is no such value.
    bool remove(const String& name);

    struct Damage {
        std::size_t line;
        String what;
    };
    /// At most a hundred, followed by a note that there is more.
    std::vector<Damage> damage() const;

   private:
    std::string text_;
};

/// The text of a new key's file.
std::string newKeyFile(const String& name);

}  // namespace quorkit::native
