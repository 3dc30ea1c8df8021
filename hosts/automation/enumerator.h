// The elements of a container, for a client's loop.
#pragma once

#include <oaidl.h>
#include <quorkit/variant.h>

#include <memory>
#include <vector>

#include "automation/apartment.h"
#include "automation/counted.h"

namespace quorkit::automation {

/// They are those of the moment at which it was made.
class Enumerator final : public Counted<Enumerator, IEnumVARIANT> {
   public:
    /// Counted once.
    Enumerator(std::shared_ptr<Apartment> apartment, std::vector<Variant> elements);
    Enumerator(const Enumerator& other);

    HRESULT STDMETHODCALLTYPE Next(ULONG count, VARIANT* made, ULONG* number) override;
    HRESULT STDMETHODCALLTYPE Skip(ULONG count) override;
    HRESULT STDMETHODCALLTYPE Reset() override;
    HRESULT STDMETHODCALLTYPE Clone(IEnumVARIANT** copy) override;

   private:
    const std::shared_ptr<Apartment> apartment_;
    const std::vector<Variant> elements_;
    std::size_t next_ = 0;
};

}  // namespace quorkit::automation
