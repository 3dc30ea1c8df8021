#include <quorkit/dictionary.h>

#include <bit>
#include <cstdint>
#include <utility>

namespace quorkit {
namespace {

/// A text for each key: the letter of its kind, then its value.
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
        return std::bit_cast<std::uint64_t>(value == 0 ? 0.0 : value);  // there is a negative 0
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

}  // namespace

void Dictionary::letGo() {
    positions_.clear();
    const auto gone = std::exchange(entries_, {});
}

void Dictionary::add(Variant key, Variant item) {
    String text = textOf(key);
    if (positions_.contains(text)) raise(ErrorNumber::KeyAlreadyPresent);
    entries_.push_back({std::move(key), std::move(item)});
    try {
        positions_.emplace(std::move(text), entries_.size() - 1);
    } catch (...) {
        entries_.pop_back();
        throw;
    }
}

void Dictionary::set(Variant key, Variant item) {
    const auto found = positions_.find(textOf(key));
    if (found == positions_.end())
        add(std::move(key), std::move(item));
    else
        entries_[found->second].item = std::move(item);
}

const Variant* Dictionary::find(const Variant& key) const {
    const auto found = positions_.find(textOf(key));
    return found == positions_.end() ? nullptr : &entries_[found->second].item;
}

}  // namespace quorkit
