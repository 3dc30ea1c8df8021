// The file that holds the values of a key: lines of UTF-8, of which any program and any person may
// change, add and delete some.
//
//   [Mail]                              the name of the key as it is spelled
//   "Server"="post"                     a value, in the notation of registry/value_text.h
//   ; a comment
//
// Of several lines for one value the last one counts. A line that ends in ",\" goes on in the next
// one if that has nothing but hexadecimal digits. A line that says nothing is kept as it is.
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

    /// As the line "[...]" has it, see folder_names.h; nothing when there is none.
    std::optional<String> name() const;
    /// False when there is no such value, or when its line is damaged.
    bool find(const String& name, RegistryValue& value) const;
    /// Appends all values, in the order in which their names come first.
    void list(std::vector<NamedValue>& values) const;

    /// A line that was there is replaced where it stands, its name as spelled; a new one comes
    /// last.
    void set(std::span<const NamedValue> values);
    /// False when there is no such value.
    bool remove(const String& name);

    struct Damage {
        std::size_t line;
        String what;
    };
    /// At most a hundred, and then that there is more.
    std::vector<Damage> damage() const;

   private:
    std::string text_;
};

/// The text of a new key's file.
std::string newKeyFile(const String& name);

}  // namespace quorkit::native
