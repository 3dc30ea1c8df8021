// A whole section read as a table, and a table merged into a section.
#include <quorkit/QuorInifile.h>

#include <algorithm>
#include <unordered_map>

#include "base/letter_case.h"
#include "frame/error_patterns.h"
#include "inifile/ini_file.h"
#include "inifile/profile.h"

namespace quorkit {
namespace {

/// The entries of a section while new ones are merged into them: entry `end_` and those behind it
/// are overwritten one by one, whatever they hold.
class Merge {
   public:
    /// Both tables must outlive the merge.
    Merge(const SectionContent& content, Long newEntries) : end_(index(content.count)) {
        const auto& texts = content.table.elements();
        // An entry is found by its key only when it does not stand at the highest index.
        slots_.resize(end_ + index(newEntries));
        searched_ = slots_.size() - 1;
        next_.resize(searched_, kNone);
        first_.reserve(slots_.size());
        for (std::size_t i = std::min(texts.size() / 2, slots_.size()); i-- > 0;) {
            slots_[i] = {texts[2 * i], texts[2 * i + 1]};
            if (i >= searched_) continue;
            const auto [first, isNew] = first_.try_emplace(slots_[i].name, i);
            if (isNew) continue;
            next_[i] = first->second;
            first->second = i;
        }
    }

    /// The entry of a key; null when there is none.
    IniEntry* find(StringView key) {
        const auto found = first_.find(trimBlanks(key));
        return found == first_.end() || found->second == kNone ? nullptr : &slots_[found->second];
    }
    /// Appends the entry of a key that is not there.
    void append(const IniEntry& entry) {
        if (end_ < searched_) {
            forget(end_);
            first_[trimBlanks(entry.name)] = end_;
        }
        slots_[end_++] = entry;
    }

    std::span<const IniEntry> entries() const { return std::span(slots_).first(end_); }

   private:
    static constexpr std::size_t kNone = static_cast<std::size_t>(-1);
    static std::size_t index(Long count) { return static_cast<std::size_t>(count); }

    /// The entry at `index` is about to be overwritten; a later one of its key takes its place.
    void forget(std::size_t slot) {
        const auto found = first_.find(slots_[slot].name);
        if (found != first_.end() && found->second == slot) found->second = next_[slot];
    }

    std::vector<IniEntry> slots_;
    std::size_t end_;
    std::size_t searched_ = 0;
    std::unordered_map<StringView, std::size_t, base::KeyHash, base::KeyEqual> first_;
    std::vector<std::size_t> next_;  // slot -> the next one of the same key
};

}  // namespace

Variant QuorInifile::ReadSectionContent(const String& sSection, Long& countKeys,
                                        const Optional<Variant>& lSectionSizeInByte) {
    lLastResult = 0;
    SectionContent content = onErrorReturn(SectionContent::unreadable(), [&] {
        return readContent(readIni(ports_.files, sIniFileName), sSection,
                           bufferSize(*lSectionSizeInByte));
    });
    countKeys = content.count;
    return std::move(content.table);
}

Long QuorInifile::WriteSectionContent(const String& sSection, const Variant& sKeyArray,
                                      const Optional<Variant>& lOldSectionSizeInByte) {
    lLastResult = 0;
    const KeyValueTable input(sKeyArray);
    if (input.count() < 1 || !isSectionName(sSection)) return 0;
    if (!resumeNext([&] { bufferSize(*lOldSectionSizeInByte); })) return -1;

    Long written = 0;
    lLastResult = editIni(ports_.files, sIniFileName, [&](IniDocument& document) {
        written = 0;
        if (!document.canHoldSection(sSection)) return false;
        const SectionContent content = wholeContent(document, sSection);
        const bool merges = content.count > 0;
        Merge merge(content, input.count());
        for (Long i = 0; i < input.count(); ++i) {
            const IniEntry entry{input.key(i), input.value(i)};
            if (!isEntry(entry.name, entry.value) || !document.canHold(entry.value)) continue;
            IniEntry* const present = merges ? merge.find(entry.name) : nullptr;
            if (present != nullptr)
                present->value = entry.value;
            else if (document.canHold(entry.name))
                merge.append(entry);
            else
                continue;
            ++written;
        }
        return written > 0 && document.setEntries(sSection, merge.entries());
    });
    return written;
}

}  // namespace quorkit
