#include <quorkit/QuorCollection.h>

#include <utility>

#include "collection/keyed_list.h"
#include "frame/error_patterns.h"

namespace quorkit {

QuorCollection::QuorCollection(Ports& ports)
    : ports_(&ports), list_(std::make_unique<collection::KeyedList>()) {}
QuorCollection::QuorCollection(QuorCollection&&) noexcept = default;
QuorCollection& QuorCollection::operator=(QuorCollection&&) noexcept = default;
QuorCollection::~QuorCollection() = default;

// The two setters swap, so the old value is released with the argument, after the last step.

Long QuorCollection::setValueByKey(Variant vValue, const String& sKey) {
    collection::KeyedList::Element& element = list_->obtain(sKey);
    std::swap(element.second.value, vValue);
    return list_->positionOf(element);
}

Long QuorCollection::setValueByIndex(Variant vValue, Long index) {
    collection::KeyedList::Element* element = list_->at(index);
    if (element == nullptr) return -1;
    std::swap(element->second.value, vValue);
    return index;
}

Long QuorCollection::GetIndex(const String& sKey) const {
    const collection::KeyedList::Element* element = list_->find(sKey);
    return element == nullptr ? -1 : list_->positionOf(*element);
}

String QuorCollection::getKey(Long index) const {
    return frame::onErrorReturn(String(), [&] {
        const collection::KeyedList::Element* element = list_->at(index);
        return element == nullptr ? String() : element->first;
    });
}

Variant QuorCollection::getValueByKey(const String& sKey,
                                      const Optional<Variant, Text(u"")>& vDefaultValue) const {
    const collection::KeyedList::Element* element = list_->find(sKey);
    return element == nullptr ? *vDefaultValue : element->second.value;
}

Variant QuorCollection::getValueByIndex(Long index) const {
    const collection::KeyedList::Element* element = list_->at(index);
    return element == nullptr ? Variant(u"") : element->second.value;
}

Boolean QuorCollection::removeByIndex(Long index) {
    if (list_->at(index) == nullptr) return false;
    const auto removed = list_->remove(index);
    return true;
}

Boolean QuorCollection::removeByKey(const String& sKey) {
    return removeByIndex(GetIndex(sKey));
}

Long QuorCollection::count() const {
    return list_->count();
}

Long QuorCollection::getAllKeyNames(Out<Array<String>> saKeyNames) const {
    std::vector<String> names;
    names.reserve(static_cast<std::size_t>(count()));
    for (Long i = 1; i <= count(); ++i) names.push_back(list_->at(i)->first);
    if (names.empty()) names.emplace_back();
    saKeyNames = Array<String>(std::move(names), 1);
    return count();
}

void QuorCollection::letGo() {
    while (removeByIndex(count())) continue;
}

QuorCollection QuorCollection::clone() const {
    QuorCollection copy(*ports_);
    copy.list_->reserve(count());
    for (Long i = 1; i <= count(); ++i) {
        const auto& [key, content] = *list_->at(i);
        copy.setValueByKey(content.value, key);
    }
    return copy;
}

}  // namespace quorkit
