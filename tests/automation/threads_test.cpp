// Clients with several threads: the system carries their calls to the thread of the object.
#include <thread>

#include "automation/client.h"
#include "automation/registration.h"

namespace quorkit::test {
namespace {

using automation::Scope;

/// A class that is registered for everybody.
class Threads : public Server {
   protected:
    Threads() {
        const std::string path = QUORKIT_SERVER;
        EXPECT_EQ(registerServer(Scope::Machine, std::wstring(path.begin(), path.end())), S_OK);
    }
    ~Threads() override { unregisterServer(Scope::Machine); }

    static Ref<IDispatch> create(const char16_t* name) {
        void* made = nullptr;
        const GUID identity = automation::guidOf(findClass(name)->identity);
        EXPECT_EQ(CoCreateInstance(identity, nullptr, CLSCTX_INPROC_SERVER, IID_IDispatch, &made),
                  S_OK);
        return Ref<IDispatch>(static_cast<IDispatch*>(made));
    }

    /// Wine never releases the class objects by which it creates objects for another apartment.
    void forgetWhatWineKeeps(std::initializer_list<const char*> names) const {
        if (GetProcAddress(GetModuleHandleA("ntdll.dll"), "wine_get_version") == nullptr) return;
        for (const char* name : names) classObject(name)->LockServer(FALSE);
    }

    static void useStrings(IDispatch* strings) {
        EXPECT_EQ(callOf(strings, L"LPad", {u"0", u"7", 3}).result.text(), u"007");
        LONG major = 0;
        Value minor = u"text";
        EXPECT_EQ(
            callOf(strings, L"SplitAppVersionString",
                   {u"1.42.3.4", Value::at(VT_I4, &major), Value::at(VT_VARIANT, &minor), 0, 0})
                .code,
            S_OK);
        EXPECT_EQ(major, 1);
        EXPECT_EQ(minor.text(), u"42");
        const Outcome misfit = callOf(strings, L"LPad", {u"0", u"7", u"three"});
        EXPECT_EQ(misfit.code, DISP_E_TYPEMISMATCH);
        EXPECT_EQ(misfit.argument, 0u);
    }

    static void useConvert(IDispatch* convert) {
        SAFEARRAY* array = nullptr;
        EXPECT_EQ(callOf(convert, L"StringTokenToStringArray",
                         {u"x;y", u";", Value::at(VT_ARRAY | VT_BSTR, &array)})
                      .result.lVal,
                  2);
        EXPECT_TRUE(array != nullptr && array->rgsabound[0].cElements == 2);
        SafeArrayDestroy(array);
        IDispatch* list = nullptr;
        callOf(convert, L"StringTokenToStringCollection",
               {u"x;y", u";", 0, Value::at(VT_DISPATCH, &list)});
        const Ref<IDispatch> owner(list);
        EXPECT_EQ(callOf(list, L"Item", {2}).result.text(), u"y");
        const Outcome failed = callOf(convert, L"ConvertDezToAny", {1, 37});
        EXPECT_EQ(failed.code, DISP_E_EXCEPTION);
        EXPECT_EQ(failed.report, static_cast<HRESULT>(0x800A0005));
        EXPECT_EQ(failed.source, u"quorkit.GQuorConvert");
    }
};

TEST_F(Threads, OfOneApartmentShareObjectsThatLiveInAnother) {
    std::thread([] {
        CoInitializeEx(nullptr, COINIT_MULTITHREADED);
        {
            const Ref<IDispatch> strings = create(u"GQuorStrings");
            const Ref<IDispatch> convert = create(u"GQuorConvert");
            std::vector<std::thread> others;
            for (int i = 0; i < 4; ++i)
                others.emplace_back([&] {
                    CoInitializeEx(nullptr, COINIT_MULTITHREADED);
                    for (int round = 0; round < 25; ++round) {
                        useStrings(strings.get());
                        useConvert(convert.get());
                    }
                    CoUninitialize();
                });
            for (std::thread& one : others) one.join();
        }
        CoUninitialize();
    }).join();
    forgetWhatWineKeeps({"GQuorStrings", "GQuorConvert"});
}

TEST_F(Threads, HandAnObjectToAnother) {
    const Ref<IDispatch> strings = make("GQuorStrings");
    const Ref<IDispatch> convert = make("GQuorConvert");
    IStream* carried[2] = {};
    CoMarshalInterThreadInterfaceInStream(IID_IDispatch, strings.get(), &carried[0]);
    CoMarshalInterThreadInterfaceInStream(IID_IDispatch, convert.get(), &carried[1]);
    const HANDLE done = CreateEventW(nullptr, TRUE, FALSE, nullptr);
    std::thread other([&] {
        CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED);
        for (int i = 0; i < 2; ++i) {
            void* found = nullptr;
            EXPECT_EQ(CoGetInterfaceAndReleaseStream(carried[i], IID_IDispatch, &found), S_OK);
            const Ref<IDispatch> object(static_cast<IDispatch*>(found));
            if (object) i == 0 ? useStrings(object.get()) : useConvert(object.get());
        }
        CoUninitialize();
        SetEvent(done);
    });
    // The calls come as messages.
    while (MsgWaitForMultipleObjects(1, &done, FALSE, 10'000, QS_ALLINPUT) == WAIT_OBJECT_0 + 1)
        for (MSG message; PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE);)
            DispatchMessageW(&message);
    other.join();
    CloseHandle(done);
}

}  // namespace
}  // namespace quorkit::test
