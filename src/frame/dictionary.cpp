#include <quorkit/dictionary.h>

#include <bit>
#include <cstdint>
#include <map>
#include <unordered_map>
#include <utility>

#include "frame/foreign_object.h"
#include "frame/instance.h"
#include "runtime/convert.h"

namespace quorkit {
namespace {

/// A unique text for each key: the letter of its kind, then its value.
struct KeyText {
    String operator()(Empty) const { return u"E"; }
    String operator()(Null) const { return u"N"; }
    String operator()(ErrorValue error) const { return coded(u'e', error.code); }
    String operator()(Boolean value) const { return value ? u"T" : u"F"; }
    String operator()(Date date) const { return coded(u'd', bits(date.days)); }
    String operator()(const String& text) const { return u"t" + text; }
    String operator()(const ObjectRef& object) const {
        return coded(u'o', reinterpret_cast<std::uintptr_t>(object.get()));
    }
    template <class T>
    String operator()(const T& value) const {
        if constexpr (std::is_arithmetic_v<T>)
            return coded(u'n', bits(static_cast<Double>(value)));
        else
            raise(ErrorNumber::InvalidProcedureCall);
    }

   private:
    static std::uint64_t bits(Double value) {
        return std::bit_cast<std::uint64_t>(value == 0 ? 0.0 : value);  // 0 and -0 are the same key
    }
    static String coded(char16_t kind, std::uint64_t value) {
        String text(1, kind);
        for (; value != 0; value >>= 16) text += static_cast<char16_t>(value & 0xFFFF);
        return text;
    }
};

String textOf(const Variant& key) {
    return std::visit(KeyText{}, static_cast<const VariantValue&>(key));
}

class OwnDictionary final : public Dictionary {
   public:
    void letGo() override {
        numbers_.clear();
        const auto gone = std::exchange(entries_, {});
    }

    Long count() const override { return static_cast<Long>(entries_.size()); }
    std::vector<Entry> entries() const override {
        std::vector<Entry> all;
        all.reserve(entries_.size());
        for (const auto& [number, entry] : entries_) all.push_back(entry);
        return all;
    }
    std::optional<Variant> find(const Variant& key) const override {
        const auto found = numbers_.find(textOf(key));
        if (found == numbers_.end()) return {};
        return entries_.at(found->second).item;
    }
    void add(Variant key, Variant item) override {
        const auto [place, added] = numbers_.try_emplace(textOf(key), next_);
        if (!added) raise(ErrorNumber::KeyAlreadyPresent);
        try {
            entries_.emplace_hint(entries_.end(), next_, Entry{std::move(key), std::move(item)});
        } catch (...) {
            numbers_.erase(place);
            throw;
        }
        ++next_;
    }
    void set(Variant key, Variant item) override {
        const auto found = numbers_.find(textOf(key));
        if (found == numbers_.end()) return add(std::move(key), std::move(item));
        std::swap(entries_.at(found->second).item, item);
    }
    bool remove(const Variant& key) override {
        const auto found = numbers_.find(textOf(key));
        if (found == numbers_.end()) return false;
        const auto gone = entries_.extract(found->second);  // released last, when all is consistent
        numbers_.erase(found);
        return true;
    }

   private:
    std::map<std::uint64_t, Entry> entries_;             // in the order in which they were added
    std::unordered_map<String, std::uint64_t> numbers_;  // the key is a text unique to each key
    std::uint64_t next_ = 0;
};

/// A client's own object; every operation asks the object itself.
class ForeignDictionary final : public Dictionary {
   public:
    explicit ForeignDictionary(ObjectRef object) : object_(std::move(object)) {}

    Long count() const override { return runtime::CLng(object_.get(u"Count")); }
    std::vector<Entry> entries() const override {
        const Variant keys = object_.get(u"Keys");
        std::vector<Entry> all;
        const auto append = [&](const auto& array) {
            for (const auto& key : array.elements())
                all.push_back({key, object_.get(u"Item", {key})});
        };
        if (const auto* variants = keys.getIf<Array<Variant>>())
            append(*variants);
        else if (const auto* texts = keys.getIf<Array<String>>())
            append(*texts);
        else
            raise(ErrorNumber::TypeMismatch);
        return all;
    }
    std::optional<Variant> find(const Variant& key) const override {
        if (!runtime::CBool(object_.call(u"Exists", {key}))) return {};
        return object_.get(u"Item", {key});
    }
    void add(Variant key, Variant item) override {
        object_.call(u"Add", {std::move(key), std::move(item)});
    }
    void set(Variant key, Variant item) override {
        object_.let(u"Item", {std::move(key), std::move(item)});
    }
    bool remove(const Variant& key) override {
        return frame::resumeNext([&] { object_.call(u"Remove", {key}); });
    }

   private:
    frame::ForeignObject object_;
};

}  // namespace

DictionaryRef Dictionary::make() {
    return std::make_shared<OwnDictionary>();
}

DictionaryRef Dictionary::of(const ObjectRef& object) {
    return frame::ForeignObject::adapted<Dictionary>(
        object, u"Keys", [](const ObjectRef& foreign, const Variant&) {
            return std::make_shared<ForeignDictionary>(foreign);
        });
}

const ClassInfo& Dictionary::info() const {
    return frame::classInfo<Dictionary>();
}

Variant Dictionary::Item(const Variant& Key) {
    if (auto item = find(Key)) return *std::move(item);
    add(Key, {});
    return {};
}

Variant Dictionary::Items() const {
    std::vector<Variant> items;
    for (Entry& entry : entries()) items.push_back(std::move(entry.item));
    return Array<Variant>(std::move(items));
}

Variant Dictionary::Keys() const {
    std::vector<Variant> keys;
    for (Entry& entry : entries()) keys.push_back(std::move(entry.key));
    return Array<Variant>(std::move(keys));
}

void Dictionary::Remove(const Variant& Key) {
    if (!remove(Key)) raise(ErrorNumber::InvalidProcedureCall);
}

void Dictionary::RemoveAll() {
    for (const Entry& entry : entries()) remove(entry.key);
}

}  // namespace quorkit
