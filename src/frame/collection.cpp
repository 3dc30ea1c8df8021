#include <quorkit/collection.h>

#include <algorithm>
#include <type_traits>
#include <unordered_map>
#include <utility>
#include <vector>

#include "base/letter_case.h"
#include "frame/foreign_object.h"
#include "frame/instance.h"
#include "runtime/convert.h"

namespace quorkit {
namespace {

class OwnCollection final : public Collection {
   public:
    void letGo() override {
        byKey_.clear();
        const auto gone = std::exchange(entries_, {});
    }

    Long count() const override { return static_cast<Long>(entries_.size()); }
    Entry entry(Long position) const override { return *entries_[index(position)]; }
    Entry entry(StringView key) const override { return *found(key); }
    bool contains(StringView key) const override { return byKey_.contains(base::toLower(key)); }

    void insert(Long position, Entry entry) override {
        const auto at = entries_.begin() + static_cast<std::ptrdiff_t>(position == count() + 1
                                                                           ? entries_.size()
                                                                           : index(position));
        const auto added = entries_.insert(at, std::make_unique<Entry>(std::move(entry)));
        const Entry& one = **added;
        if (one.key.empty()) return;
        try {
            if (!byKey_.try_emplace(base::toLower(one.key), &one).second)
                raise(ErrorNumber::KeyAlreadyPresent);
        } catch (...) {
            entries_.erase(added);
            throw;
        }
    }

    void remove(Long position) override {
        const auto at = entries_.begin() + static_cast<std::ptrdiff_t>(index(position));
        if (!(*at)->key.empty()) byKey_.erase(base::toLower((*at)->key));
        const auto gone = std::move(*at);  // released last, when all is consistent
        entries_.erase(at);
    }
    void remove(StringView key) override {
        const auto at = std::ranges::find(entries_, found(key), &std::unique_ptr<Entry>::get);
        remove(static_cast<Long>(at - entries_.begin()) + 1);
    }

   private:
    std::size_t index(Long position) const {
        if (position < 1 || position > count()) raise(ErrorNumber::SubscriptOutOfRange);
        return static_cast<std::size_t>(position) - 1;
    }
    const Entry* found(StringView key) const {
        const auto entry = byKey_.find(base::toLower(key));
        if (entry == byKey_.end()) raise(ErrorNumber::InvalidProcedureCall);
        return entry->second;
    }

    std::vector<std::unique_ptr<Entry>> entries_;
    std::unordered_map<String, const Entry*> byKey_;  // the addresses of entries do not change
};

/// A client's own object; every operation asks the object itself.
class ForeignCollection final : public Collection {
   public:
    explicit ForeignCollection(ObjectRef object) : object_(std::move(object)) {}

    Long count() const override { return runtime::CLng(object_.get(u"Count")); }
    Entry entry(Long position) const override { return {{}, object_.get(u"Item", {position})}; }
    Entry entry(StringView key) const override {
        return {String(key), object_.get(u"Item", {String(key)})};
    }
    bool contains(StringView key) const override {
        return frame::resumeNext([&] { this->entry(key); });
    }
    void insert(Long position, Entry entry) override {
        const Variant key = entry.key.empty() ? Variant::missing() : Variant(entry.key);
        if (position == count() + 1)
            object_.call(u"Add", {std::move(entry.item), key});
        else
            object_.call(u"Add", {std::move(entry.item), key, position});
    }
    void remove(Long position) override { object_.call(u"Remove", {position}); }
    void remove(StringView key) override { object_.call(u"Remove", {String(key)}); }

   private:
    frame::ForeignObject object_;
};

bool given(const Optional<Variant>& argument) {
    return !(*argument).isMissing();
}

}  // namespace

CollectionRef Collection::make() {
    return std::make_shared<OwnCollection>();
}

CollectionRef Collection::of(const ObjectRef& object) {
    return frame::ForeignObject::adapted<Collection>(
        object, u"Count", [](const ObjectRef& foreign, const Variant&) {
            return std::make_shared<ForeignCollection>(foreign);
        });
}

const ClassInfo& Collection::info() const {
    return frame::classInfo<Collection>();
}

Long Collection::positionOf(const Variant& index) const {
    const auto* key = index.getIf<String>();
    if (key == nullptr) return runtime::CLng(index);
    const String wanted = base::toLower(*key);
    for (Long position = 1; position <= count(); ++position)
        if (base::toLower(entry(position).key) == wanted) return position;
    raise(ErrorNumber::InvalidProcedureCall);
}

void Collection::Add(const Variant& Item, const Optional<Variant>& Key,
                     const Optional<Variant>& Before, const Optional<Variant>& After) {
    if (given(Before) && given(After)) raise(ErrorNumber::InvalidProcedureCall);
    const Long position = given(Before)  ? positionOf(*Before)
                          : given(After) ? positionOf(*After) + 1
                                         : count() + 1;
    if (given(Before) || given(After))
        if (position < 1 + given(After) || position > count() + given(After))
            raise(ErrorNumber::SubscriptOutOfRange);
    insert(position, {given(Key) ? runtime::CStr(*Key) : String(), Item});
}

Variant Collection::Item(const Variant& Index) const {
    if (const auto* key = Index.getIf<String>()) return item(StringView(*key));
    return item(runtime::CLng(Index));
}

void Collection::Remove(const Variant& Index) {
    if (const auto* key = Index.getIf<String>()) return remove(StringView(*key));
    remove(runtime::CLng(Index));
}

Variant Collection::elements() {
    std::vector<Variant> items;
    const Long last = count();
    items.reserve(static_cast<std::size_t>(last));
    for (Long position = 1; position <= last; ++position) items.push_back(item(position));
    return Array<Variant>(std::move(items));
}

}  // namespace quorkit
