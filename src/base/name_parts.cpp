#include "base/name_parts.h"

#include "base/letter_case.h"

namespace quorkit::base {

NameParts partsOf(StringView name) {
    constexpr StringView separators = u"\\/";
    NameParts parts;
    if (name.size() >= 2 && name[1] == u':') {
        const char16_t letter = toUpper(name[0]);
        if (letter >= u'A' && letter <= u'Z') {
            parts.start = NameParts::HereOnDrive;
            parts.drive = letter;
            name.remove_prefix(2);
        }
    }
    parts.folder = !name.empty() && separators.find(name.back()) != StringView::npos;
    if (!name.empty() && separators.find(name.front()) != StringView::npos) {
        const bool onDrive = parts.start == NameParts::HereOnDrive;
        parts.start = onDrive                     ? NameParts::Drive
                      : name.starts_with(u"\\\\") ? NameParts::Network
                                                  : NameParts::Root;
    }
    while (!name.empty()) {
        const StringView component = name.substr(0, name.find_first_of(separators));
        if (!component.empty()) parts.components.push_back(component);
        name.remove_prefix(std::min(name.size(), component.size() + 1));
    }
    return parts;
}

}  // namespace quorkit::base
