// An object of a client's, as the library calls it.
#pragma once

#include <oaidl.h>
#include <quorkit/object.h>

#include <memory>

#include "automation/apartment.h"

namespace quorkit::automation {

class ClientObject final : public Object {
   public:
    ClientObject(Ref<IDispatch> object, std::shared_ptr<Apartment> apartment);

    const Ref<IDispatch>& dispatch() const { return object_; }

    const char* className() const override { return "Object"; }
    Long identifierOf(StringView name) const override;
    Variant invoke(Long identifier, CallKind kind, const Arguments& arguments) override;
    Variant elements() override;

   private:
    /// Objects of a script engine may answer to IDispatchEx alone.
    HRESULT callObject(DISPID identifier, WORD flags, DISPPARAMS& arguments, VARIANT* result,
                       EXCEPINFO* report) const;

    Ref<IDispatch> object_;
    std::shared_ptr<Apartment> apartment_;
};

}  // namespace quorkit::automation
