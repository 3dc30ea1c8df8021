// Clients with very many calls (QUORKIT_CALLS says how many), and with several threads.
#include <thread>

#include "automation/client.h"
#include "automation/heap.h"
#include "automation/registration.h"

namespace quorkit::test {
namespace {

using automation::Scope;

TEST_F(Server, LeaksNothing) {
    const Ref<IDispatch> strings = make("GQuorStrings");
    const Ref<IDispatch> convert = make("GQuorConvert");
    const auto sevenCalls = [&] {
        Value text = u"1.42.3.4";
        SAFEARRAY* array = nullptr;
        IDispatch* list = nullptr;
        callOf(strings.get(), L"LPad", {u"0", u"7", 3});
        callOf(strings.get(), L"SplitAppVersionString",
               {u"1.42.3.4", 0, Value::at(VT_VARIANT, &text), 0, 0});
        callOf(convert.get(), L"StringTokenToStringArray",
               {u"x;y;z", u";", Value::at(VT_ARRAY | VT_BSTR, &array)});
        SafeArrayDestroy(array);
        callOf(convert.get(), L"ConvertDezToAny", {1, 37});
        const Ref<IDispatch> made = make("QuorCollection");
        callOf(made.get(), L"setValueByKey", {Value(convert.get()), u"key"});
        callOf(convert.get(), L"StringTokenToStringCollection",
               {u"x;y", u";", 0, Value::at(VT_DISPATCH, &list)});
        const Ref<IDispatch> owner(list);
        DISPPARAMS none = {};
        Value all;
        list->Invoke(DISPID_NEWENUM, IID_NULL, 0, DISPATCH_PROPERTYGET, &none, &all, nullptr,
                     nullptr);
        Value item;
        ULONG number = 0;
        Ref<IEnumVARIANT>::from(all.punkVal)->Next(1, &item, &number);
        EXPECT_EQ(item.text(), u"x");
    };
    const unsigned rounds = fromEnvironment("QUORKIT_CALLS", 140'000) / 7;
    for (unsigned i = 0; i < rounds / 10; ++i) sevenCalls();
    const std::int64_t before = bytesInUse();
    for (unsigned i = 0; i < rounds; ++i) sevenCalls();
    EXPECT_LT(bytesInUse() - before, kSlack);
}

/// The system carries a call to the thread of the object, which it finds in the registry.
class Threads : public Server {
   protected:
    Threads() {
        const std::string path = QUORKIT_SERVER;
        EXPECT_EQ(registerServer(Scope::Machine, std::wstring(path.begin(), path.end())), S_OK);
    }
    ~Threads() override { unregisterServer(Scope::Machine); }

    /// With results by reference, objects and errors.
    static void use(IDispatch* convert) {
        SAFEARRAY* texts = nullptr;
        Value variable = u"text";
        IDispatch* list = nullptr;
        for (const Value& array :
             {Value::at(VT_ARRAY | VT_BSTR, &texts), Value::at(VT_VARIANT, &variable)})
            EXPECT_EQ(
                callOf(convert, L"StringTokenToStringArray", {u"x;y", u";", array}).result.text(),
                u"2");
        EXPECT_TRUE(texts != nullptr && texts->rgsabound[0].cElements == 2);
        SafeArrayDestroy(texts);
        EXPECT_EQ(variable.vt, VT_ARRAY | VT_BSTR);
        callOf(convert, L"StringTokenToStringCollection",
               {u"x;y", u";", 0, Value::at(VT_DISPATCH, &list)});
        const Ref<IDispatch> owner(list);
        EXPECT_EQ(callOf(list, L"Item", {2}).result.text(), u"y");
        const Outcome failed = callOf(convert, L"ConvertDezToAny", {1, 37});
        EXPECT_EQ(failed.report, static_cast<HRESULT>(0x800A0005));
        EXPECT_EQ(failed.source, u"quorkit.GQuorConvert");
        const Outcome misfit = callOf(convert, L"ConvertDezToAny", {1, u"many"});
        EXPECT_EQ(misfit.code, DISP_E_TYPEMISMATCH);
        EXPECT_EQ(misfit.argument, 0u);
    }
};

TEST_F(Threads, OfOneApartmentShareAnObjectThatLivesInAnother) {
    std::thread([] {
        CoInitializeEx(nullptr, COINIT_MULTITHREADED);
        void* made = nullptr;
        const GUID identity = automation::guidOf(findClass(u"GQuorConvert")->identity);
        EXPECT_EQ(CoCreateInstance(identity, nullptr, CLSCTX_INPROC_SERVER, IID_IDispatch, &made),
                  S_OK);
        Ref<IDispatch> convert(static_cast<IDispatch*>(made));
        std::vector<std::thread> others;
        for (int i = 0; i < 4; ++i)
            others.emplace_back([&] {
                CoInitializeEx(nullptr, COINIT_MULTITHREADED);
                for (int round = 0; round < 25; ++round) use(convert.get());
                CoUninitialize();
            });
        for (std::thread& one : others) one.join();
        convert = {};
        CoUninitialize();
    }).join();
    // Wine never releases the class object by which it creates an object for another apartment.
    if (GetProcAddress(GetModuleHandleA("ntdll.dll"), "wine_get_version") != nullptr)
        classObject("GQuorConvert")->LockServer(FALSE);
}

TEST_F(Threads, HandAnObjectToAnother) {
    const Ref<IDispatch> convert = make("GQuorConvert");
    IStream* carried = nullptr;
    CoMarshalInterThreadInterfaceInStream(IID_IDispatch, convert.get(), &carried);
    const HANDLE done = CreateEventW(nullptr, TRUE, FALSE, nullptr);
    std::thread other([&] {
        CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED);
        void* found = nullptr;
        EXPECT_EQ(CoGetInterfaceAndReleaseStream(carried, IID_IDispatch, &found), S_OK);
        Ref<IDispatch> object(static_cast<IDispatch*>(found));
        use(object.get());
        object = {};
        CoUninitialize();
        SetEvent(done);
    });
    // The calls come as messages.
    while (MsgWaitForMultipleObjects(1, &done, FALSE, INFINITE, QS_ALLINPUT) == WAIT_OBJECT_0 + 1)
        for (MSG message; PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE);)
            DispatchMessageW(&message);
    other.join();
    CloseHandle(done);
}

}  // namespace
}  // namespace quorkit::test
