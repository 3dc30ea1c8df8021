// A client of the automation server: its values, its calls, an object of its own.
#pragma once

#include <gtest/gtest.h>
#include <oaidl.h>
#include <quorkit/catalogue.h>

#include <cstring>
#include <string>
#include <utility>
#include <vector>

#include "automation/com.h"
#include "automation/guid.h"

namespace quorkit::test {

using automation::newBstr;
using automation::OwnedVariant;
using automation::Ref;

/// A value as a client hands it in.
struct Value : OwnedVariant {
    Value() = default;
    Value(int number) {  // NOLINT
        vt = VT_I4;
        lVal = number;
    }
    Value(const char16_t* text) {  // NOLINT
        bstrVal = newBstr(text);
        vt = VT_BSTR;
    }
    Value(IDispatch* object) {  // NOLINT
        if (object != nullptr) object->AddRef();
        pdispVal = object;
        vt = VT_DISPATCH;
    }
    Value(const Value& other) : OwnedVariant() { VariantCopy(this, other.bare()); }
    Value& operator=(const Value& other) {
        VariantCopy(this, other.bare());
        return *this;
    }
    /// As mingw's headers want it.
    VARIANT* bare() const { return const_cast<Value*>(this); }

    static Value missing() {
        Value value;
        value.vt = VT_ERROR;
        value.scode = DISP_E_PARAMNOTFOUND;
        return value;
    }
    /// A variable of a type, by reference.
    static Value at(VARTYPE type, void* place) {
        Value value;
        value.vt = static_cast<VARTYPE>(VT_BYREF | type);
        value.byref = place;
        return value;
    }
    std::u16string text() const {
        OwnedVariant made;
        if (FAILED(
                VariantChangeTypeEx(&made, bare(), LOCALE_INVARIANT, VARIANT_ALPHABOOL, VT_BSTR)))
            return u"?";
        return std::u16string(automation::viewOf(made.bstrVal));
    }
};

inline DISPID identifierOf(IDispatch* object, const wchar_t* name) {
    auto* wanted = const_cast<LPOLESTR>(name);
    DISPID identifier = DISPID_UNKNOWN;
    object->GetIDsOfNames(IID_NULL, &wanted, 1, LOCALE_USER_DEFAULT, &identifier);
    return identifier;
}

struct Outcome {
    HRESULT code = S_OK;
    Value result;
    UINT argument = 99;
    HRESULT report = S_OK;  ///< the number in EXCEPINFO
    std::u16string source = {};
};

using Named = std::vector<std::pair<const wchar_t*, Value>>;

inline Outcome callOf(IDispatch* object, const wchar_t* name, std::vector<Value> values,
                      WORD flags = DISPATCH_METHOD | DISPATCH_PROPERTYGET, Named named = {}) {
    Outcome outcome;
    std::vector<LPOLESTR> names = {const_cast<LPOLESTR>(name)};
    for (auto& [parameter, value] : named) {
        names.push_back(const_cast<LPOLESTR>(parameter));
        values.insert(values.begin(), value);
    }
    std::vector<DISPID> identifiers(names.size());
    outcome.code = object->GetIDsOfNames(IID_NULL, names.data(), static_cast<UINT>(names.size()),
                                         LOCALE_USER_DEFAULT, identifiers.data());
    if (FAILED(outcome.code)) return outcome;
    std::vector<DISPID> parameters(identifiers.rbegin(), identifiers.rend() - 1);
    if ((flags & (DISPATCH_PROPERTYPUT | DISPATCH_PROPERTYPUTREF)) != 0)
        parameters = {DISPID_PROPERTYPUT};
    // The named ones come first, and all from the last to the first.
    std::vector<VARIANT> passed;
    for (std::size_t i = 0; i < named.size(); ++i) passed.push_back(values[i]);
    for (std::size_t i = values.size(); i > named.size(); --i) passed.push_back(values[i - 1]);
    DISPPARAMS arguments = {passed.data(), parameters.data(), static_cast<UINT>(passed.size()),
                            static_cast<UINT>(parameters.size())};
    EXCEPINFO report = {};
    outcome.code = object->Invoke(identifiers[0], IID_NULL, LOCALE_USER_DEFAULT, flags, &arguments,
                                  &outcome.result, &report, &outcome.argument);
    outcome.report = report.scode;
    outcome.source = automation::viewOf(report.bstrSource);
    SysFreeString(report.bstrSource);
    SysFreeString(report.bstrDescription);
    return outcome;
}

/// A client's own object, with the members that it is given.
class Own : public IDispatch {
   public:
    std::vector<std::pair<std::wstring, Value>> members;
    ULONG count = 1;

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID wanted, void** found) override {
        const bool known = wanted == IID_IUnknown || wanted == IID_IDispatch;
        *found = known ? this : nullptr;
        count += known;
        return known ? S_OK : E_NOINTERFACE;
    }
    ULONG STDMETHODCALLTYPE AddRef() override { return ++count; }
    ULONG STDMETHODCALLTYPE Release() override { return --count; }
    HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT*) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT, LCID, ITypeInfo**) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID, LPOLESTR* names, UINT, LCID,
                                            DISPID* identifiers) override {
        for (std::size_t i = 0; i < members.size(); ++i)
            if (_wcsicmp(members[i].first.c_str(), names[0]) == 0) {
                *identifiers = static_cast<DISPID>(i);
                return S_OK;
            }
        return DISP_E_UNKNOWNNAME;
    }
    HRESULT STDMETHODCALLTYPE Invoke(DISPID member, REFIID, LCID, WORD flags, DISPPARAMS* arguments,
                                     VARIANT* result, EXCEPINFO*, UINT*) override {
        VARIANT& value = members[static_cast<std::size_t>(member)].second;
        if ((flags & DISPATCH_PROPERTYPUT) != 0) return VariantCopy(&value, &arguments->rgvarg[0]);
        return VariantCopy(result, &value);
    }
};

using GetClassObject = HRESULT(WINAPI*)(REFCLSID, REFIID, void**);
using CanUnload = HRESULT(WINAPI*)();

class Server : public testing::Test {
   protected:
    Server() { CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED); }
    ~Server() override {
        EXPECT_EQ(canUnload(), S_OK) << "a client's reference was kept";
        FreeLibrary(library);
        CoUninitialize();
    }

    template <class Function>
    Function exported(const char* name) const {
        return reinterpret_cast<Function>(reinterpret_cast<void*>(GetProcAddress(library, name)));
    }
    HRESULT canUnload() const { return exported<CanUnload>("DllCanUnloadNow")(); }
    Ref<IClassFactory> classObject(const char* name) const {
        const ClassInfo* info = findClass(String(name, name + std::strlen(name)));
        void* found = nullptr;
        const HRESULT code = exported<GetClassObject>("DllGetClassObject")(
            automation::guidOf(info->identity), IID_IClassFactory, &found);
        EXPECT_EQ(code, S_OK) << name;
        return Ref<IClassFactory>(static_cast<IClassFactory*>(found));
    }
    Ref<IDispatch> make(const char* name) const {
        void* made = nullptr;
        EXPECT_EQ(classObject(name)->CreateInstance(nullptr, IID_IDispatch, &made), S_OK) << name;
        return Ref<IDispatch>(static_cast<IDispatch*>(made));
    }

    HMODULE library = LoadLibraryA(QUORKIT_SERVER);
};

}  // namespace quorkit::test
