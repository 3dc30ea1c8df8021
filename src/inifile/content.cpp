// A whole section read as a table, and a table merged into a section.
#include <quorkit/QuorInifile.h>

#include <unordered_map>

#include "frame/error_patterns.h"
#include "inifile/ini_file.h"
#include "inifile/profile.h"
#include "runtime/letter_case.h"

namespace quorkit {
namespace {

/// The table of a section while new entries are merged into it: entry `count` and those behind it
/// are overwritten one by one, whatever they hold.
class Merge {
   public:
    Merge(SectionContent content, Long newEntries)
        : table_(std::move(content.table)), end_(content.count) {
        const Long lines = table_.bounds(2).count;
        table_.resizeLast(end_ + newEntries);
        // An entry is found by its key only when it does not stand at the highest index.
        searched_ = end_ + newEntries - 1;
        next_.resize(static_cast<std::size_t>(searched_), kNone);
        for (Long i = std::min(lines, searched_) - 1; i >= 0; --i) {
            auto [first, isNew] = first_.try_emplace(runtime::toLower(table_.at(0, i)), i);
            if (isNew) continue;
            next_[static_cast<std::size_t>(i)] = first->second;
            first->second = i;
        }
    }

    /// Sets a key's value, or appends the key. False when the layout cannot carry a new key.
    bool set(const String& key, const String& value) {
        const String folded = runtime::toLower(key);
        const auto found = first_.find(folded);
        if (found != first_.end() && found->second != kNone) {
            table_.at(1, found->second) = value;
            return true;
        }
        if (end_ < searched_) {
            forget(end_);
            first_[folded] = end_;
        }
        table_.at(0, end_) = key;
        table_.at(1, end_) = value;
        ++end_;
        return isKeyName(key);
    }

    std::vector<String> entries() const {
        std::vector<String> result;
        for (Long i = 0; i < end_; ++i) result.push_back(table_.at(0, i) + u'=' + table_.at(1, i));
        return result;
    }

   private:
    static constexpr Long kNone = -1;

    /// The entry at `index` is about to be overwritten; a later one of its key takes its place.
    void forget(Long index) {
        const auto found = first_.find(runtime::toLower(table_.at(0, index)));
        if (found != first_.end() && found->second == index)
            found->second = next_[static_cast<std::size_t>(index)];
    }

    Array<String> table_;
    Long end_;
    Long searched_ = 0;
    std::unordered_map<String, Long> first_;  // folded key -> its first entry
    std::vector<Long> next_;                  // entry -> the next one of the same key
};

}  // namespace

Variant QuorInifile::ReadSectionContent(const String& sSection, Long& countKeys,
                                        const Optional<Variant>& lSectionSizeInByte) {
    lLastResult = 0;
    SectionContent content;
    content.count = -1;
    resumeNext([&] {
        content = readContent(readIni(ports_.files, sIniFileName), sSection,
                              bufferSize(*lSectionSizeInByte));
    });
    countKeys = content.count;
    return std::move(content.table);
}

Long QuorInifile::WriteSectionContent(const String& sSection, const Variant& sKeyArray,
                                      const Optional<Variant>& lOldSectionSizeInByte) {
    lLastResult = 0;
    const KeyValueTable input(sKeyArray);
    if (input.count() < 1) return 0;
    Long size = 0;
    if (!resumeNext([&] { size = bufferSize(*lOldSectionSizeInByte); })) return -1;

    Long written = 0;
    lLastResult = editIni(ports_.files, sIniFileName, [&](IniDocument& document) {
        written = 0;
        bool carried = true;
        SectionContent content = readContent(document, sSection, size);
        const bool merging = content.count > 0;
        std::vector<String> entries;
        std::optional<Merge> merge;
        if (merging) merge.emplace(std::move(content), input.count());
        for (Long i = 0; i < input.count(); ++i) {
            const String key = input.key(i);
            if (key.empty()) continue;
            ++written;
            if (merging) {
                carried = merge->set(key, input.value(i)) && carried;
            } else {
                carried = isKeyName(key) && carried;
                entries.push_back(key + u'=' + input.value(i));
            }
        }
        if (merging) entries = merge->entries();
        return carried && document.setEntries(sSection, entries);
    });
    return written;
}

}  // namespace quorkit
