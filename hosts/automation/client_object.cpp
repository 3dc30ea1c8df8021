#include "automation/client_object.h"

#include <dispex.h>
#include <quorkit/errors.h>
#include <quorkit/variant.h>

#include <deque>
#include <utility>
#include <vector>

#include "automation/failure.h"
#include "automation/values.h"

namespace quorkit::automation {
namespace {

WORD flagsOf(CallKind kind, const Arguments& arguments) {
    // A client may read what is a method with it, and the other way round.
    if (kind != CallKind::Let) return DISPATCH_METHOD | DISPATCH_PROPERTYGET;
    const bool object =
        !arguments.positional.empty() && arguments.positional.back().is<ObjectRef>();
    return object ? DISPATCH_PROPERTYPUTREF : DISPATCH_PROPERTYPUT;
}

}  // namespace

ClientObject::ClientObject(Ref<IDispatch> object, std::shared_ptr<Apartment> apartment)
    : object_(std::move(object)), apartment_(std::move(apartment)) {}

Long ClientObject::identifierOf(StringView name) const {
    std::wstring text(name.begin(), name.end());
    OLECHAR* names[] = {text.data()};
    DISPID identifier = DISPID_UNKNOWN;
    HRESULT found = object_->GetIDsOfNames(IID_NULL, names, 1, LOCALE_USER_DEFAULT, &identifier);
    if (found == E_NOTIMPL)
        if (const auto script = Ref<IDispatchEx>::from(object_.get())) {
            OwnedVariant bstr;
            toVariant(String(name), *apartment_, bstr);
            found = script->GetDispID(bstr.bstrVal, fdexNameCaseInsensitive, &identifier);
        }
    check(found);
    return identifier;
}

HRESULT ClientObject::callObject(DISPID identifier, WORD flags, DISPPARAMS& arguments,
                                 VARIANT* result, EXCEPINFO* report) const {
    const HRESULT outcome = object_->Invoke(identifier, IID_NULL, LOCALE_USER_DEFAULT, flags,
                                            &arguments, result, report, nullptr);
    if (outcome == E_NOTIMPL)
        if (const auto script = Ref<IDispatchEx>::from(object_.get()))
            return script->InvokeEx(identifier, LOCALE_USER_DEFAULT, flags, &arguments, result,
                                    report, nullptr);
    return outcome;
}

Variant ClientObject::invoke(Long identifier, CallKind kind, const Arguments& arguments) {
    if (!arguments.named.empty()) raise(ErrorNumber::NamedArgumentNotFound);
    // From the last to the first, as automation has them.
    std::deque<OwnedVariant> values(arguments.positional.size());
    std::vector<VARIANT> passed;
    for (std::size_t i = values.size(); i-- > 0;) {
        toVariant(arguments.positional[i], *apartment_, values[i]);
        passed.push_back(values[i]);
    }
    DISPPARAMS parameters = {passed.data(), nullptr, static_cast<UINT>(passed.size()), 0};
    DISPID put = DISPID_PROPERTYPUT;
    if (kind == CallKind::Let) {
        parameters.rgdispidNamedArgs = &put;
        parameters.cNamedArgs = 1;
    }
    OwnedVariant result;
    EXCEPINFO report = {};
    HRESULT outcome = callObject(identifier, flagsOf(kind, arguments), parameters,
                                 kind == CallKind::Let ? nullptr : &result, &report);
    // There are engines that call whatever may be called; with arguments that is what is meant.
    if (kind == CallKind::Get && FAILED(outcome) && outcome != DISP_E_EXCEPTION && passed.empty())
        outcome = callObject(identifier, DISPATCH_PROPERTYGET, parameters, &result, &report);
    if (outcome == DISP_E_EXCEPTION) raise(take(report));
    check(outcome);
    return fromVariant(result, *apartment_);
}

Variant ClientObject::elements() {
    DISPPARAMS none = {};
    OwnedVariant result;
    check(
        callObject(DISPID_NEWENUM, DISPATCH_METHOD | DISPATCH_PROPERTYGET, none, &result, nullptr));
    if (result.vt != VT_UNKNOWN && result.vt != VT_DISPATCH) raise(ErrorNumber::NoSuchMember);
    const auto each = Ref<IEnumVARIANT>::from(result.punkVal);
    if (!each) raise(ErrorNumber::NoSuchMember);
    std::vector<Variant> items;
    for (;;) {
        OwnedVariant item;
        ULONG number = 0;
        const HRESULT outcome = each->Next(1, &item, &number);
        check(outcome);
        if (number == 0) return Array<Variant>(std::move(items));
        items.push_back(fromVariant(item, *apartment_));
    }
}

}  // namespace quorkit::automation
