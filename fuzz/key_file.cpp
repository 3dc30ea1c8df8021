// The file of a key's values, and changes to it. Fields: the text; then for each change a name, a
// type and bytes, or a name and "-". Finds: values that are not read as set; changes to other
// values; comments that are lost.
#include "linux/key_file.h"

#include <algorithm>
#include <map>

#include "base/letter_case.h"
#include "base/registry_names.h"
#include "support/target.h"

namespace quorkit::fuzz {
namespace {

using native::KeyFile;

/// The values by their folded names.
std::map<String, RegistryValue> valuesOf(const KeyFile& file) {
    std::vector<NamedValue> list;
    file.list(list);
    std::map<String, RegistryValue> values;
    for (const NamedValue& one : list) {
        promise(values.emplace(base::folded(one.name), one.value).second, "a value is listed once");
        RegistryValue found;
        promise(file.find(one.name, found) && found == one.value, "a listed value is found");
    }
    return values;
}

/// The lines that certainly hold no value, without blanks at the end.
std::vector<std::string> commentsOf(std::string_view text) {
    std::vector<std::string> comments;
    for (std::size_t at = 0; at < text.size();) {
        const std::size_t end = std::min(text.find('\n', at), text.size());
        const std::string_view line = text.substr(at, end - at);
        const std::size_t first = line.find_first_not_of(" \t\r");
        const bool comment = first != line.npos && (line[first] == ';' || line[first] == '#');
        if (comment) comments.emplace_back(line.substr(0, line.find_last_not_of(" \t\r") + 1));
        at = end + 1;
    }
    return comments;
}

}  // namespace

void run(std::string_view input) {
    Fields fields(input);
    KeyFile file(fields.bytes());
    file.damage();
    const auto name = file.name();
    auto values = valuesOf(file);
    const auto comments = commentsOf(file.text());
    while (!fields.done()) {
        const String key = fields.text();
        const std::string type = fields.bytes();
        if (!base::canNameValue(key)) continue;
        const String wanted = base::folded(key);
        const std::string before = file.text();
        if (type == "-") {
            const bool removed = file.remove(key);
            promise(removed || !values.contains(wanted), "a value that is there can be removed");
            promise(removed || file.text() == before, "nothing changes where there is no value");
            values.erase(wanted);
        } else {
            const RegistryValue value{static_cast<std::uint32_t>(type.empty() ? 0 : type[0] - '0'),
                                      fields.bytes()};
            const NamedValue set[] = {{key, {}}, {key, value}};
            file.set(set);
            values[wanted] = value;
            const auto lines = std::ranges::count(file.text(), '\n');
            file.set(std::span(set).last(1));
            promiseEqual(std::ranges::count(file.text(), '\n'), lines,
                         "a value that is set again stays one line");
        }
        promise(valuesOf(file) == values, "the values are those that were set, and the others");
        promise(file.name() == name, "the name of the key stays");
        promise(commentsOf(file.text()) == comments, "comments stay");
    }
}

}  // namespace quorkit::fuzz
