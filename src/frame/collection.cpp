#include <quorkit/collection.h>

#include <algorithm>
#include <utility>

#include "base/letter_case.h"

namespace quorkit {

void Collection::letGo() {
    byKey_.clear();
    const auto gone = std::exchange(entries_, {});
}

void Collection::add(Variant item, String key) {
    entries_.push_back(std::make_unique<Entry>(Entry{std::move(key), std::move(item)}));
    const Entry& added = *entries_.back();
    if (added.key.empty()) return;
    try {
        if (!byKey_.try_emplace(base::toLower(added.key), &added).second)
            raise(ErrorNumber::KeyAlreadyPresent);
    } catch (...) {
        entries_.pop_back();
        throw;
    }
}

void Collection::insertBefore(Long position, Variant item) {
    const auto at = entries_.begin() + static_cast<std::ptrdiff_t>(index(position));
    entries_.insert(at, std::make_unique<Entry>(Entry{{}, std::move(item)}));
}

const Collection::Entry& Collection::entry(Long position) const {
    return *entries_[index(position)];
}

const Collection::Entry& Collection::entry(StringView key) const {
    const auto found = byKey_.find(base::toLower(key));
    if (found == byKey_.end()) raise(ErrorNumber::InvalidProcedureCall);
    return *found->second;
}

bool Collection::contains(StringView key) const {
    return byKey_.contains(base::toLower(key));
}

void Collection::remove(Long position) {
    const auto at = entries_.begin() + static_cast<std::ptrdiff_t>(index(position));
    byKey_.erase(base::toLower((*at)->key));
    entries_.erase(at);
}

void Collection::remove(StringView key) {
    const Entry* wanted = &entry(key);
    const auto at = std::ranges::find(entries_, wanted, &std::unique_ptr<Entry>::get);
    remove(static_cast<Long>(at - entries_.begin()) + 1);
}

std::size_t Collection::index(Long position) const {
    if (position < 1 || position > count()) raise(ErrorNumber::SubscriptOutOfRange);
    return static_cast<std::size_t>(position) - 1;
}

}  // namespace quorkit
