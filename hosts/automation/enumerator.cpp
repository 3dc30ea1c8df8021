#include "automation/enumerator.h"

#include <algorithm>
#include <utility>

#include "automation/failure.h"
#include "automation/values.h"

namespace quorkit::automation {

Enumerator::Enumerator(std::shared_ptr<Apartment> apartment, std::vector<Variant> elements)
    : apartment_(std::move(apartment)), elements_(std::move(elements)) {}

Enumerator::Enumerator(const Enumerator& other)
    : Counted(), apartment_(other.apartment_), elements_(other.elements_), next_(other.next_) {}

HRESULT Enumerator::Next(ULONG count, VARIANT* made, ULONG* number) {
    if (number != nullptr) *number = 0;
    if (made == nullptr) return E_POINTER;
    if (!apartment_->isCurrent()) return RPC_E_WRONG_THREAD;
    std::size_t done = 0;
    const HRESULT result = guarded([&] {
        for (; done < count && next_ + done < elements_.size(); ++done)
            toVariant(elements_[next_ + done], *apartment_, made[done]);
        return done == count ? S_OK : S_FALSE;
    });
    if (FAILED(result)) {
        while (done > 0) VariantClear(&made[--done]);
        return result;
    }
    next_ += done;
    if (number != nullptr) *number = static_cast<ULONG>(done);
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
