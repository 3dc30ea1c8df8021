// INI files and the registry as stores for changes.
#include <quorkit/GQuorRegistry.h>
#include <quorkit/QuorInifile.h>

#include <algorithm>

#include "base/unicode.h"
#include "changes.h"

namespace quorkit::soak {
namespace {

using Kind = Change::Kind;

/// A text that no value has.
constexpr StringView kNone = u"(none)";

std::optional<String> unlessNone(const String& value) {
    return value == kNone ? std::nullopt : std::optional(value);
}

Answer answerOf(bool yes) {
    return yes ? Answer::Yes : Answer::No;
}

class IniStore final : public Store {
   public:
    explicit IniStore(const std::string& file) { ini_.setIniFileName(base::fromUtf8(file)); }

    Answer perform(const Change& change) override {
        const String& place = change.place;
        const auto& entries = change.entries;
        switch (change.kind) {
            case Kind::Put:
                return answerOf(ini_.WriteKeyValue(place, entries[0].first, entries[0].second) !=
                                0);
            case Kind::PutMany:
                return answerOf(ini_.WriteSectionContent(place, table(entries)) ==
                                    static_cast<Long>(entries.size()) &&
                                ini_.lastResult() != 0);
            case Kind::PutLines:
                return answerOf((entries.size() > 1
                                     ? ini_.WriteMultiLineSection(place, table(entries))
                                     : ini_.WriteMultiLineValue(place, entries[0].first,
                                                                entries[0].second)) != 0 &&
                                ini_.lastResult() != 0);
            case Kind::Remove:
                return answerOf(removed(ini_.DeleteKey(place, entries[0].first), change));
            case Kind::RemoveMany:
                return answerOf(removed(ini_.DeleteKeys(place, keys(entries)), change));
            case Kind::RemoveLines:
                return answerOf(removed(entries.size() > 1
                                            ? ini_.DeleteMultiLineKeys(place, keys(entries))
                                            : ini_.DeleteMultiLineKey(place, entries[0].first),
                                        change));
            case Kind::RemovePlace:
                return answerOf(ini_.DeleteSection(place) != 0 || !hasSection(place));
            case Kind::PutNumber:
                break;
        }
        return Answer::No;
    }

    std::optional<String> read(const Name& name) override {
        if (name.key.find(u".lines-") == String::npos)
            return unlessNone(ini_.ReadKeyValue(name.place, name.key, String(kNone)));
        return unlessNone(ini_.ReadMultiLineValue(name.place, name.key, Variant(String(kNone))));
    }

   private:
    static Variant table(const std::vector<std::pair<String, String>>& entries) {
        Array<String> result({0, 2}, {0, static_cast<Long>(entries.size())});
        for (Long i = 0; const auto& [key, value] : entries) {
            result.at(0, i) = key;
            result.at(1, i++) = value;
        }
        return result;
    }

    static Array<String> keys(const std::vector<std::pair<String, String>>& entries) {
        std::vector<String> result;
        for (const auto& [key, value] : entries) result.push_back(key);
        return Array<String>(std::move(result));
    }

    /// A removal of something that is not there gives 0 or less too. Only this worker uses these
    /// keys, so nobody else can have added them meanwhile.
    bool removed(Long result, const Change& change) {
        if (result > 0) return true;
        for (const auto& [key, value] : change.entries)
            if (read({change.place, key})) return false;
        return true;
    }

    bool hasSection(const String& section) {
        Long count = 0;
        const Variant names = ini_.ReadSectionNames(count);
        for (const String& name : names.get<Array<String>>().elements())
            if (name == section) return true;
        return false;
    }

    QuorInifile ini_;
};

class RegistryStore final : public Store {
   public:
    Answer perform(const Change& change) override {
        const auto& entries = change.entries;
        switch (change.kind) {
            case Kind::Put:
                return answerOf(registry_.Reg_WriteStringValue(change.place, entries[0].first,
                                                               entries[0].second));
            case Kind::PutNumber:
                return answerOf(registry_.Reg_WriteDWordValue(change.place, entries[0].first,
                                                              entries[0].second));
            // These members do not tell whether they have succeeded, but reading back shows it.
            case Kind::PutMany: {
                const auto values = Dictionary::make();
                for (const auto& [key, value] : entries) values->set(key, value);
                registry_.Reg_WriteKeyValuesEx(change.place, values);
                return answerOf(std::ranges::all_of(entries, [&](const auto& one) {
                    return read({change.place, one.first}) == one.second;
                }));
            }
            case Kind::Remove:
                registry_.Reg_DeleteKey(change.place, entries[0].first);
                return answerOf(!read({change.place, entries[0].first}));
            case Kind::RemovePlace:
                registry_.Reg_DeletePath(change.place);
                return answerOf(!hasKey(change.place));
            default:
                return Answer::No;
        }
    }

    std::optional<String> read(const Name& name) override {
        return unlessNone(registry_.Reg_ReadStringValue(name.place, name.key, String(kNone)));
    }

   private:
    bool hasKey(const String& path) {
        const std::size_t end = path.rfind(u'\\');
        Array<String> names;
        return registry_.Reg_EnumSubPaths(path.substr(0, end), names) > 0 &&
               std::ranges::find(names.elements(), path.substr(end + 1)) != names.elements().end();
    }

    GQuorRegistry registry_;
};

}  // namespace

std::unique_ptr<Store> storeOf(Role role, const std::string& file) {
    if (role == Role::Registry) return std::make_unique<RegistryStore>();
    return std::make_unique<IniStore>(file);
}

}  // namespace quorkit::soak
