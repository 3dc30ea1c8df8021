#include <algorithm>

#include "base/registry_names.h"
#include "base/unicode.h"
#include "registry/key_name.h"
#include "registry/open_key.h"
#include "registry/reg_file.h"

namespace quorkit {
namespace {

constexpr StringView kBreak = u"\r\n";

/// A line that is longer than this with its last comma is full.
constexpr std::size_t kFullLine = 76;

/// Appends a line for a value. Hexadecimal digits go on in further lines.
void addValue(String& text, const NamedValue& one) {
    const String line = base::printValue(one, base::RegTexts::Hexadecimal);
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

    RegResult first;  ///< failure

    /// False when the key itself cannot be printed.
    bool print(const RegPath& key) {
        std::vector<NamedValue> values;
        std::vector<String> names;
        const bool broken = key.path.find_first_of(kBreak) != String::npos;
        const ErrorCode code = broken ? kInvalidName : list(key, values, names);
        if (code != kSuccess && first.code == kSuccess) first = {code, key};
        if (code != kSuccess) return false;
        text_ += u'[' + printKeyName(key) + u']';
        text_ += kBreak;
        std::stable_partition(values.begin(), values.end(),
                              [](const NamedValue& one) { return one.name.empty(); });
        for (const NamedValue& one : values) addValue(text_, one);
        text_ += kBreak;
        for (const String& name : names) {
            // Any other name would lead elsewhere, perhaps to this key again.
            if (base::canNameKey(name))
                print(beneath(key, name));
            else if (first.code == kSuccess)
                first = {kInvalidName, key};
        }
        return true;
    }

    std::string textAsUtf16() const { return base::toUtf16(text_); }

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
    content.clear();
    if (printer.print(key)) content.append(base::kUtf16Mark).append(printer.textAsUtf16());
    return printer.first;
}

}  // namespace quorkit
