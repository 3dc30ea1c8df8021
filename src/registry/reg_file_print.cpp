#include <algorithm>

#include "registry/key_name.h"
#include "registry/name_rules.h"
#include "registry/open_key.h"
#include "registry/reg_file.h"
#include "runtime/code_page.h"

namespace quorkit {
namespace {

constexpr StringView kBreak = u"\r\n";

/// A line that is longer than this with its last comma is full.
constexpr std::size_t kFullLine = 76;

/// Appends a line for a value. Hexadecimal digits go on in further lines.
void addValue(String& text, const NamedValue& one) {
    const String line = printValue(one, RegTexts::Hexadecimal);
    // Only texts end with a quotation mark, and bytes have no colon among them.
    const std::size_t start = line.ends_with(u'"') ? line.size() : line.rfind(u':') + 1;
    text.append(line, 0, start);
    std::size_t width = start;
    for (std::size_t position = start; position < line.size();) {
        if (width > kFullLine && position != start) {
            text += u"\\\r\n  ";
            width = 2;
        }
        const std::size_t end = std::min(line.find(u',', position), line.size() - 1) + 1;
        text.append(line, position, end - position);
        width += end - position;
        position = end;
    }
    text += kBreak;
}

RegPath beneath(const RegPath& key, const String& name) {
    return {key.root, key.path.empty() ? name : key.path + u'\\' + name};
}

class Printer {
   public:
    explicit Printer(Registry& registry) : registry_(registry) {}

    RegResult print(const RegPath& key) {
        if (key.path.find_first_of(kBreak) != String::npos) return {kInvalidName, key};
        std::vector<NamedValue> values;
        std::vector<String> names;
        const ErrorCode code = list(key, values, names);
        if (code != kSuccess) return {code, key};
        text_ += u'[' + printKeyName(key) + u']';
        text_ += kBreak;
        std::stable_partition(values.begin(), values.end(),
                              [](const NamedValue& one) { return one.name.empty(); });
        for (const NamedValue& one : values) addValue(text_, one);
        text_ += kBreak;
        for (const String& name : names) {
            // Any other name would lead elsewhere, perhaps to this key again.
            if (!canNameKey(name)) return {kInvalidName, key};
            RegResult result = print(beneath(key, name));
            if (result.code != kSuccess && result.code != kFileNotFound) return result;
        }
        return {};
    }

    String text() && { return std::move(text_); }

   private:
    ErrorCode list(const RegPath& key, std::vector<NamedValue>& values,
                   std::vector<String>& names) {
        const OpenKey open(registry_, key, RegistryAccess::Read);
        const ErrorCode code = open.values(values);
        return code == kSuccess ? open.subKeys(names) : code;
    }

    Registry& registry_;
    String text_ = u"Windows Registry Editor Version 5.00\r\n\r\n";
};

}  // namespace

RegResult printRegFile(Registry& registry, const RegPath& key, std::string& content) {
    Printer printer(registry);
    RegResult result = printer.print(key);
    content = runtime::kUtf16Mark;
    content += runtime::toUtf16(std::move(printer).text());
    return result;
}

}  // namespace quorkit
