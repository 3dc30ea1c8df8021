// Reading a whole section as a table, and merging a table into a section.
#include <quorkit/QuorInifile.h>

#include <algorithm>
#include <unordered_map>

#include "base/letter_case.h"
#include "frame/error_patterns.h"
#include "inifile/ini_file.h"
#include "inifile/profile.h"

namespace quorkit {
namespace {

/// The entries of a section while new ones are merged into them. Entry `end_` and all later ones
/// are overwritten one by one, whatever they hold.
class Merge {
   public:
    /// Both tables must outlive the merge.
    Merge(const inifile::SectionContent& content, Long newEntries) : end_(index(content.count)) {
        const auto& texts = content.table.elements();
        // The entry at the highest index cannot be found by its key.
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
    inifile::IniEntry* find(StringView key) {
        const auto found = first_.find(inifile::trimBlanks(key));
        return found == first_.end() || found->second == kNone ? nullptr : &slots_[found->second];
    }
    /// Appends an entry whose key is new.
    void append(const inifile::IniEntry& entry) {
        if (end_ < searched_) {
            forget(end_);
            first_[inifile::trimBlanks(entry.name)] = end_;
        }
        slots_[end_++] = entry;
    }

    std::span<const inifile::IniEntry> entries() const { return std::span(slots_).first(end_); }

   private:
    static constexpr std::size_t kNone = static_cast<std::size_t>(-1);
    static std::size_t index(Long count) { return static_cast<std::size_t>(count); }

    /// Called before the entry at `slot` is overwritten; the next entry of its key replaces it.
    void forget(std::size_t slot) {
        const auto found = first_.find(slots_[slot].name);
        if (found != first_.end() && found->second == slot) found->second = next_[slot];
    }

    std::vector<inifile::IniEntry> slots_;
    std::size_t end_;
    std::size_t searched_ = 0;
    std::unordered_map<StringView, std::size_t, base::KeyHash, base::KeyEqual> first_;
    std::vector<std::size_t> next_;  // slot -> the next one of the same key
};

}  // namespace

Variant QuorInifile::ReadSectionContent(const String& sSection, Out<Long> countKeys,
                                        const Optional<Variant>& lSectionSizeInByte) {
    lLastResult = 0;
    inifile::SectionContent content =
        frame::onErrorReturn(inifile::SectionContent::unreadable(), [&] {
            return inifile::readContent(inifile::readIni(ports_.files, sIniFileName), sSection,
                                        inifile::bufferSize(*lSectionSizeInByte));
        });
    countKeys = content.count;
    return std::move(content.table);
}

Long QuorInifile::WriteSectionContent(const String& sSection, const Variant& sKeyArray,
                                      const Optional<Variant>& lOldSectionSizeInByte) {
    lLastResult = 0;
    const inifile::KeyValueTable input(sKeyArray);
    if (input.count() < 1 || !inifile::isSectionName(sSection)) return 0;
    if (!frame::resumeNext([&] { inifile::bufferSize(*lOldSectionSizeInByte); })) return -1;

    Long written = 0;
    lLastResult = inifile::editIni(ports_.files, sIniFileName, [&](inifile::IniDocument& document) {
        written = 0;
        if (!document.canHoldSection(sSection)) return false;
        const inifile::SectionContent content = inifile::wholeContent(document, sSection);
        const bool merges = content.count > 0;
        Merge merge(content, input.count());
        for (Long i = 0; i < input.count(); ++i) {
            const inifile::IniEntry entry{input.key(i), input.value(i)};
            if (!inifile::isEntry(entry.name, entry.value) || !document.canHold(entry.value))
                continue;
            inifile::IniEntry* const present = merges ? merge.find(entry.name) : nullptr;
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
