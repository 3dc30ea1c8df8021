// The automation server beside one written by hand for a single member, in one run.
#include <oaidl.h>
#include <unknwn.h>
#include <windows.h>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <stdexcept>
#include <string>

namespace {

const GUID kStrings = {
    0x673d863f, 0x04b8, 0x44f9, {0xaa, 0xdf, 0x94, 0xb1, 0xa8, 0x22, 0x1c, 0x8d}};
const GUID kConvert = {
    0x673d864b, 0x04b8, 0x44f9, {0xaa, 0xdf, 0x94, 0xb1, 0xa8, 0x22, 0x1c, 0x8d}};
constexpr DISPID kPad = 0x60030016;
constexpr DISPID kToArray = 0x6003000A;

/// What somebody writes who needs LPad and a member that takes an object, and nothing else.
class Minimal final : public IDispatch {
   public:
    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID wanted, void** found) override {
        if (wanted != IID_IUnknown && wanted != IID_IDispatch) return E_NOINTERFACE;
        *found = this;
        AddRef();
        return S_OK;
    }
    ULONG STDMETHODCALLTYPE AddRef() override {
        return static_cast<ULONG>(InterlockedIncrement(&count_));
    }
    ULONG STDMETHODCALLTYPE Release() override {
        const LONG left = InterlockedDecrement(&count_);
        if (left == 0) delete this;
        return static_cast<ULONG>(left);
    }
    HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT*) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT, LCID, ITypeInfo**) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID, LPOLESTR* names, UINT, LCID,
                                            DISPID* identifiers) override {
        if (_wcsicmp(names[0], L"LPad") != 0) return DISP_E_UNKNOWNNAME;
        *identifiers = kPad;
        return S_OK;
    }
    HRESULT STDMETHODCALLTYPE Invoke(DISPID member, REFIID, LCID, WORD, DISPPARAMS* arguments,
                                     VARIANT* result, EXCEPINFO* failure, UINT* bad) override {
        if (member == kToArray) return toArray(*arguments, *failure);
        if (member != kPad) return DISP_E_MEMBERNOTFOUND;
        VARIANT values[3];
        const VARTYPE types[] = {VT_BSTR, VT_BSTR, VT_I4};
        HRESULT outcome = S_OK;
        for (UINT i = 0; i < 3; ++i) VariantInit(&values[i]);
        try {
            for (UINT i = 0; i < 3; ++i)
                if (FAILED(DispGetParam(arguments, i, types[i], &values[i], bad)))
                    throw std::invalid_argument("misfit");
            std::wstring text(values[1].bstrVal, SysStringLen(values[1].bstrVal));
            const auto length = static_cast<std::size_t>(std::max<LONG>(values[2].lVal, 0));
            if (text.size() < length) text.insert(0, length - text.size(), values[0].bstrVal[0]);
            result->vt = VT_BSTR;
            result->bstrVal = SysAllocStringLen(text.data(), static_cast<UINT>(text.size()));
        } catch (const std::invalid_argument&) {
            outcome = DISP_E_TYPEMISMATCH;
        }
        for (VARIANT& value : values) VariantClear(&value);
        return outcome;
    }

   private:
    static std::size_t itemsOf(IUnknown* object) {
        if (object == nullptr)
            throw std::runtime_error("Object variable or With block variable not set");
        return 0;
    }
    static HRESULT toArray(const DISPPARAMS& arguments, EXCEPINFO& failure) {
        try {
            return itemsOf(arguments.rgvarg[0].punkVal) == 0 ? S_OK : S_FALSE;
        } catch (const std::runtime_error& error) {
            const std::string text = error.what();
            const std::wstring wide(text.begin(), text.end());
            failure.scode = MAKE_HRESULT(SEVERITY_ERROR, FACILITY_CONTROL, 91);
            failure.bstrSource = SysAllocString(L"minimal.Minimal");
            failure.bstrDescription =
                SysAllocStringLen(wide.data(), static_cast<UINT>(wide.size()));
            return DISP_E_EXCEPTION;
        }
    }

    LONG count_ = 1;
};

struct Client {
    IDispatch* object;
    VARIANT arguments[3] = {};

    explicit Client(IDispatch* called) : object(called) {
        arguments[0].vt = VT_I4;
        arguments[0].lVal = 3;
        arguments[1].vt = arguments[2].vt = VT_BSTR;
        arguments[1].bstrVal = SysAllocString(L"7");
        arguments[2].bstrVal = SysAllocString(L"0");
    }

    bool byIdentifier() {
        DISPPARAMS parameters = {arguments, nullptr, 3, 0};
        VARIANT result;
        VariantInit(&result);
        const HRESULT outcome = object->Invoke(kPad, IID_NULL, LOCALE_USER_DEFAULT, DISPATCH_METHOD,
                                               &parameters, &result, nullptr, nullptr);
        const bool right = outcome == S_OK && SysStringLen(result.bstrVal) == 3;
        VariantClear(&result);
        return right;
    }
    bool byName() {
        LPOLESTR name = const_cast<LPOLESTR>(L"LPad");
        DISPID identifier = 0;
        return object->GetIDsOfNames(IID_NULL, &name, 1, LOCALE_USER_DEFAULT, &identifier) ==
                   S_OK &&
               identifier == kPad && byIdentifier();
    }
    bool misfit() {
        VARIANT three[3] = {nothing(), arguments[1], arguments[2]};
        return fails(kPad, three, 3);
    }
    bool raised() {
        VARIANT one = nothing();
        return fails(kToArray, &one, 1);
    }

   private:
    static VARIANT nothing() {
        VARIANT value = {};
        value.vt = VT_DISPATCH;
        return value;
    }
    bool fails(DISPID member, VARIANT* given, UINT count) {
        DISPPARAMS parameters = {given, nullptr, count, 0};
        VARIANT result;
        VariantInit(&result);
        EXCEPINFO report = {};
        UINT bad = 0;
        const HRESULT outcome =
            object->Invoke(member, IID_NULL, LOCALE_USER_DEFAULT, DISPATCH_METHOD, &parameters,
                           &result, &report, &bad);
        SysFreeString(report.bstrSource);
        SysFreeString(report.bstrDescription);
        return FAILED(outcome);
    }
};

/// The least time of a call in nanoseconds, of many short runs.
template <class Run>
double least(Run run) {
    using Clock = std::chrono::steady_clock;
    constexpr int calls = 2000;
    const auto start = Clock::now();
    for (int i = 0; i < calls; ++i)
        if (!run()) std::abort();
    const std::chrono::duration<double, std::nano> took = Clock::now() - start;
    return took.count() / calls;
}

template <class Ours, class Peer>
void compare(const char* name, Ours ours, Peer peer) {
    double best[] = {1e9, 1e9};
    for (int round = 0; round < 200; ++round) {
        best[0] = std::min(best[0], least(ours));
        best[1] = std::min(best[1], least(peer));
    }
    std::printf("%-14s %8.0f ns %8.0f ns  %.2f\n", name, best[0], best[1], best[0] / best[1]);
}

class MinimalFactory final : public IClassFactory {
   public:
    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID, void**) override { return E_NOINTERFACE; }
    ULONG STDMETHODCALLTYPE AddRef() override { return 2; }
    ULONG STDMETHODCALLTYPE Release() override { return 1; }
    HRESULT STDMETHODCALLTYPE CreateInstance(IUnknown*, REFIID wanted, void** made) override {
        auto* const object = new Minimal;
        const HRESULT outcome = object->QueryInterface(wanted, made);
        object->Release();
        return outcome;
    }
    HRESULT STDMETHODCALLTYPE LockServer(BOOL) override { return S_OK; }
};

bool makes(IClassFactory* factory) {
    void* made = nullptr;
    if (FAILED(factory->CreateInstance(nullptr, IID_IDispatch, &made))) return false;
    static_cast<IDispatch*>(made)->Release();
    return true;
}

}  // namespace

int main(int count, char** words) {
    CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED);
    const HMODULE library = count == 2 ? LoadLibraryA(words[1]) : nullptr;
    if (library == nullptr) return 1;
    using GetClassObject = HRESULT(WINAPI*)(REFCLSID, REFIID, void**);
    const auto get = reinterpret_cast<GetClassObject>(
        reinterpret_cast<void*>(GetProcAddress(library, "DllGetClassObject")));
    const auto factoryOf = [&](const GUID& one) {
        void* factory = nullptr;
        if (FAILED(get(one, IID_IClassFactory, &factory))) std::abort();
        return static_cast<IClassFactory*>(factory);
    };
    const auto objectOf = [&](const GUID& one) {
        void* object = nullptr;
        if (FAILED(factoryOf(one)->CreateInstance(nullptr, IID_IDispatch, &object))) std::abort();
        return static_cast<IDispatch*>(object);
    };
    IClassFactory* const factory = factoryOf(kStrings);
    Client ours(objectOf(kStrings));
    Client converting(objectOf(kConvert));
    Client peer(new Minimal);
    MinimalFactory minimal;
    std::printf("%-14s %11s %11s  ratio\n", "", "ours", "minimal");
    compare(
        "by identifier", [&] { return ours.byIdentifier(); }, [&] { return peer.byIdentifier(); });
    compare(
        "by name", [&] { return ours.byName(); }, [&] { return peer.byName(); });
    compare(
        "misfit", [&] { return ours.misfit(); }, [&] { return peer.misfit(); });
    compare(
        "error raised", [&] { return converting.raised(); }, [&] { return peer.raised(); });
    compare(
        "object made", [&] { return makes(factory); }, [&] { return makes(&minimal); });
    return 0;
}
