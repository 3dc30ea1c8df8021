// A .reg file: read, applied to an empty registry, printed and read again. Finds: values that
// change; files that we print but cannot read; line numbers beyond the file.
#include "registry/reg_file.h"

#include <quorkit/ports/memory.h>

#include <algorithm>

#include "registry/open_key.h"
#include "support/target.h"

namespace quorkit::fuzz {
namespace {

struct Key {
    registry::RegPath path;
    std::vector<NamedValue> values;
};

void addKeys(std::vector<Key>& all, Registry& registry, const registry::RegPath& path) {
    const registry::OpenKey key(registry, path, RegistryAccess::Read);
    std::vector<String> names;
    Key one{path, {}};
    promise(key.values(one.values) == kSuccess && key.subKeys(names) == kSuccess,
            "a registry in memory can be listed");
    all.push_back(std::move(one));
    for (const String& name : names)
        addKeys(all, registry, {path.root, path.path + (path.path.empty() ? u"" : u"\\") + name});
}

/// Everything in a registry, in its own order.
std::vector<Key> keysOf(Registry& registry) {
    std::vector<Key> all;
    for (const auto root : {RegistryRoot::CurrentUser, RegistryRoot::LocalMachine})
        addKeys(all, registry, {root, {}});
    return all;
}

bool sameKeys(const std::vector<Key>& a, const std::vector<Key>& b) {
    // The order of values may differ, because the default value is printed first.
    const auto sorted = [](std::vector<NamedValue> values) {
        std::ranges::sort(values, {}, &NamedValue::name);
        return values;
    };
    return std::ranges::equal(a, b, [&](const Key& x, const Key& y) {
        return x.path == y.path && sorted(x.values) == sorted(y.values);
    });
}

void checkLine(const base::ValueLine& line) {
    if (!line.value) return;
    const NamedValue wanted{line.name, *line.value};
    for (const base::RegTexts texts : {base::RegTexts::Hexadecimal, base::RegTexts::Readable}) {
        const auto again = base::readValue(base::printValue(wanted, texts));
        promise(again && !again->deletes && again->value, "a printed value can be read");
        promise(NamedValue{again->name, *again->value} == wanted, "a value comes back");
    }
}

}  // namespace

void run(std::string_view input) {
    std::vector<registry::RegChange> changes;
    if (const auto bad = registry::readRegFile(input, changes)) {
        const auto breaks = static_cast<std::size_t>(std::ranges::count(input, '\n'));
        promise(bad->number >= 1 && bad->number <= breaks + 1, "a bad line is one of the file's");
        return;
    }
    for (const registry::RegChange& change : changes)
        for (const base::ValueLine& line : change.values) checkLine(line);

    MemoryRegistry first;
    promise(registry::applyRegChanges(first, changes).code == kSuccess,
            "what was read can be applied");
    MemoryRegistry second;
    bool whole = true;
    for (const auto root : {RegistryRoot::CurrentUser, RegistryRoot::LocalMachine}) {
        std::string printed;
        whole = registry::printRegFile(first, {root, {}}, printed).code == kSuccess && whole;
        std::vector<registry::RegChange> again;
        promise(!registry::readRegFile(printed, again), "a printed file can be read");
        promise(registry::applyRegChanges(second, again).code == kSuccess,
                "a printed file can be applied");
        std::string twice;
        registry::printRegFile(second, {root, {}}, twice);
        promiseEqual(twice, printed, "a file that was printed is printed again");
    }
    if (whole) promise(sameKeys(keysOf(first), keysOf(second)), "keys and values come back");
}

}  // namespace quorkit::fuzz
