#include "automation/enumerator.h"

#include <algorithm>
#include <utility>

#include "automation/failure.h"
#include "automation/values.h"

namespace quorkit::automation {

Enumerator::Enumerator(std::shared_ptr<Apartment> apartment, std::vector<Variant> elements)
    : apartment_(std::move(apartment)), elements_(std::move(elements)) {}

Enumerator::Enumerator(const Enumerator& other)
    : apartment_(other.apartment_), elements_(other.elements_), next_(other.next_) {}

HRESULT Enumerator::QueryInterface(REFIID wanted, void** found) {
    if (found == nullptr) return E_POINTER;
    const bool known = wanted == IID_IUnknown || wanted == IID_IEnumVARIANT;
    *found = known ? this : nullptr;
    if (!known) return E_NOINTERFACE;
    AddRef();
    return S_OK;
}

ULONG Enumerator::AddRef() {
    return ++count_;
}

ULONG Enumerator::Release() {
    const ULONG left = --count_;
    if (left == 0) delete this;
    return left;
}

HRESULT Enumerator::Next(ULONG count, VARIANT* made, ULONG* number) {
    if (made == nullptr) return E_POINTER;
    ULONG done = 0;
    const HRESULT result = guarded([&] {
        for (; done < count && next_ < elements_.size(); ++done, ++next_)
            toVariant(elements_[next_], *apartment_, made[done]);
        return done == count ? S_OK : S_FALSE;
    });
    if (number != nullptr) *number = done;
    return result;
}

HRESULT Enumerator::Skip(ULONG count) {
    const std::size_t left = elements_.size() - next_;
    next_ += std::min<std::size_t>(count, left);
    return count <= left ? S_OK : S_FALSE;
}

HRESULT Enumerator::Reset() {
    next_ = 0;
    return S_OK;
}

HRESULT Enumerator::Clone(IEnumVARIANT** copy) {
    if (copy == nullptr) return E_POINTER;
    *copy = nullptr;
    return guarded([&] {
        *copy = new Enumerator(*this);
        return S_OK;
    });
}

}  // namespace quorkit::automation
