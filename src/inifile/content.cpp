// A whole section read as a table, and a table merged into a section.
#include <quorkit/QuorInifile.h>

#include <algorithm>
#include <deque>
#include <optional>
#include <unordered_map>

#include "frame/error_patterns.h"
#include "inifile/ini_file.h"
#include "inifile/profile.h"
#include "runtime/letter_case.h"

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

    /// Sets the value of the key that is stored as `name`, or appends `key`.
    void set(String name, StringView key, StringView value) {
        const auto found = first_.find(name);
        if (found != first_.end() && found->second != kNone) {
            slots_[found->second].value = value;
            return;
        }
        if (end_ < searched_) {
            forget(end_);
            names_.push_back(std::move(name));
            first_[names_.back()] = end_;
        }
        slots_[end_++] = {key, value};
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
    std::deque<String> names_;  // of the appended keys
    std::size_t end_;
    std::size_t searched_ = 0;
    std::unordered_map<StringView, std::size_t, runtime::TextHash, runtime::TextEqual> first_;
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
    Long size = 0;
    if (!resumeNext([&] { size = bufferSize(*lOldSectionSizeInByte); })) return -1;

    Long written = 0;
    lLastResult = editIni(ports_.files, sIniFileName, [&](IniDocument& document) {
        written = 0;
        const SectionContent content = readContent(document, sSection, size);
        std::vector<IniEntry> entries;
        std::optional<Merge> merge;
        if (content.count > 0) merge.emplace(content, input.count());
        for (Long i = 0; i < input.count(); ++i) {
            const String& key = input.key(i);
            if (!isEntry(key, input.value(i))) continue;
            ++written;
            if (merge)
                merge->set(document.asStored(key), key, input.value(i));
            else
                entries.push_back({key, input.value(i)});
        }
        return document.setEntries(sSection, merge ? merge->entries() : entries);
    });
    return written;
}

}  // namespace quorkit
