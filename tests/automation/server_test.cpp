// The automation server as a client in C++ finds it.
#include <ocidl.h>
#include <olectl.h>

#include <thread>

#include "automation/client.h"

namespace quorkit::test {
namespace {

TEST_F(Server, MakesEveryClass) {
    for (const ClassInfo& info : classes()) {
        const Ref<IDispatch> first = make(info.name);
        const Ref<IDispatch> second = make(info.name);
        EXPECT_EQ(first.get() == second.get(), info.kind == ClassKind::Global) << info.name;
        void* found = nullptr;
        EXPECT_EQ(first->QueryInterface(automation::guidOf(info.interfaceIdentity), &found), S_OK);
        Ref<IUnknown>(static_cast<IUnknown*>(found));
        EXPECT_EQ(canUnload(), S_FALSE);
    }
}

TEST_F(Server, CallsAndTellsWhatDoesNotFit) {
    const Ref<IDispatch> strings = make("GQuorStrings");
    const Value seven = u"7";
    struct Case {
        const wchar_t* name;
        std::vector<Value> values;
        Named named;
        HRESULT code;
        std::u16string result;
        UINT argument = 99;
    };
    const Case cases[] = {
        {L"lpAD", {u"0", seven, 3}, {}, S_OK, u"007"},
        {L"LPad", {u"0"}, {{L"MAXLEN", 3}, {L"s", seven}}, S_OK, u"007"},
        {L"StringReplace", {u"aa", u"a", u"b", Value::missing(), Value()}, {}, S_OK, u"bb"},
        {L"StringReplace", {u"aa", u"A", u"b"}, {{L"vbIgnoreCase", 1}}, S_OK, u"bb"},
        {L"NoSuch", {}, {}, DISP_E_UNKNOWNNAME, u""},
        {L"LPad", {u"0", seven}, {{L"noSuch", 3}}, DISP_E_UNKNOWNNAME, u""},
        {L"LPad", {u"0", seven}, {}, DISP_E_PARAMNOTOPTIONAL, u""},
        {L"LPad", {u"0", seven, 3, 4}, {}, DISP_E_BADPARAMCOUNT, u""},
        {L"LPad", {u"0", seven, u"three"}, {}, DISP_E_TYPEMISMATCH, u"", 0},
        {L"LPad",
         {u"0", Value(static_cast<IDispatch*>(nullptr)), 3},
         {},
         DISP_E_TYPEMISMATCH,
         u"",
         1},
        {L"LPad", {u"0", seven}, {{L"maxLen", u"3000000000"}}, DISP_E_OVERFLOW, u"", 0},
    };
    for (const Case& one : cases) {
        const Outcome outcome = callOf(strings.get(), one.name, one.values,
                                       DISPATCH_METHOD | DISPATCH_PROPERTYGET, one.named);
        EXPECT_EQ(outcome.code, one.code) << one.name << " " << one.values.size();
        EXPECT_EQ(outcome.argument, one.argument) << one.name << " " << one.values.size();
        if (one.code == S_OK) {
            EXPECT_EQ(outcome.result.text(), one.result);
        }
    }
    // What fails within the member has the runtime's number.
    Value bytes = u"none";
    const Outcome failed = callOf(make("GQuorFile").get(), L"LoadFileToByteArray",
                                  {u"Z:\\no\\such file", Value::at(VT_VARIANT, &bytes)});
    EXPECT_EQ(failed.code, DISP_E_EXCEPTION);
    EXPECT_EQ(failed.report, static_cast<HRESULT>(0x800A004C));
    EXPECT_EQ(failed.source, u"quorkit.GQuorFile");
    // Clients without an EXCEPINFO ask in another way, and never get what an earlier call told.
    for (const bool fits : {true, false}) {
        const Ref<IDispatch> convert = make("GQuorConvert");
        Value base[] = {37, 1};
        DISPPARAMS arguments = {base, nullptr, 2, 0};
        convert->Invoke(identifierOf(convert.get(), L"ConvertDezToAny"), IID_NULL, 0,
                        DISPATCH_METHOD, &arguments, nullptr, nullptr, nullptr);
        if (!fits) callOf(strings.get(), L"LPad", {u"0", seven});
        Ref<IErrorInfo> told;
        ASSERT_EQ(GetErrorInfo(0, told.receive()), fits ? S_OK : S_FALSE);
        if (!told) continue;
        Value text = u"";
        SysFreeString(text.bstrVal);
        told->GetDescription(&text.bstrVal);
        EXPECT_EQ(text.text(), u"Invalid procedure call or argument");
    }
}

TEST_F(Server, FillsVariablesOfAnyType) {
    const Ref<IDispatch> strings = make("GQuorStrings");
    union {
        char bytes[16];
        DECIMAL decimal;
    } place;
    for (const VARTYPE type : {VT_I1, VT_UI1, VT_I2, VT_UI2, VT_I4, VT_UI4, VT_INT, VT_UINT, VT_I8,
                               VT_UI8, VT_R4, VT_R8, VT_CY, VT_DECIMAL, VT_BSTR}) {
        std::memset(&place, 0, sizeof place);
        const Outcome outcome = callOf(strings.get(), L"SplitAppVersionString",
                                       {u"1.42.3.4", 0, Value::at(type, &place), 0, 0});
        EXPECT_EQ(outcome.code, S_OK) << type;
        EXPECT_EQ(Value(Value::at(type, &place)).text(), u"42") << type;
        if (type == VT_BSTR) SysFreeString(reinterpret_cast<BSTR&>(place));
    }
    // A variable keeps its value when the new one does not fit.
    BYTE byte = 7;
    const Outcome outcome = callOf(strings.get(), L"SplitAppVersionString",
                                   {u"1.300.3.4", 0, Value::at(VT_UI1, &byte), 0, 0});
    EXPECT_EQ(outcome.code, DISP_E_OVERFLOW);
    EXPECT_EQ(outcome.argument, 2u);
    EXPECT_EQ(byte, 7);
    // A Variant takes what the member gives, whatever was in it; one that refers to a variable
    // passes it on.
    Value inner = u"text";
    Value reference = Value::at(VT_UI1, &byte);
    callOf(strings.get(), L"SplitAppVersionString",
           {u"1.42.3.4", 0, Value::at(VT_VARIANT, &inner), Value::at(VT_VARIANT, &reference), 0});
    EXPECT_EQ(inner.vt, VT_I4);
    EXPECT_EQ(inner.lVal, 42);
    EXPECT_EQ(byte, 3);
    // When the call fails, also what the library has no value for stays.
    Value record;
    record.vt = VT_RECORD;
    callOf(strings.get(), L"SplitAppVersionString",
           {Value(strings.get()), 0, Value::at(VT_VARIANT, &record), 0, 0});
    EXPECT_EQ(record.vt, VT_RECORD);
    record.vt = VT_EMPTY;
}

/// A client's array of texts, "a", "b", ..., from `lower` on.
SAFEARRAY* arrayOf(VARTYPE type, LONG lower, const std::vector<const char16_t*>& texts) {
    SAFEARRAYBOUND bound = {static_cast<ULONG>(texts.size()), lower};
    SAFEARRAY* array = SafeArrayCreate(type, 1, &bound);
    for (LONG i = 0; i < static_cast<LONG>(texts.size()); ++i) {
        LONG index = lower + i;
        Value element = texts[static_cast<std::size_t>(i)];
        SafeArrayPutElement(array, &index,
                            type == VT_VARIANT ? static_cast<void*>(&element) : element.bstrVal);
    }
    return array;
}

TEST_F(Server, FillsArrays) {
    const Ref<IDispatch> convert = make("GQuorConvert");
    const auto split = [&](Value array) {
        return callOf(convert.get(), L"StringTokenToStringArray", {u"x;y;z", u";", array});
    };
    for (const VARTYPE type : {VT_BSTR, VT_VARIANT}) {
        SAFEARRAY* unallocated = nullptr;
        SAFEARRAY* old = arrayOf(type, 5, {u"a"});
        for (SAFEARRAY** array : {&unallocated, &old}) {
            const Outcome outcome = split(Value::at(static_cast<VARTYPE>(VT_ARRAY | type), array));
            EXPECT_EQ(outcome.code, S_OK) << type;
            ASSERT_NE(*array, nullptr);
            EXPECT_EQ((*array)->rgsabound[0].cElements, 3u);
            EXPECT_EQ((*array)->rgsabound[0].lLbound, 0);
            SafeArrayDestroy(*array);
        }
    }
    // A locked array is as it was, and so is one of a fixed size with other bounds.
    SAFEARRAY* locked = arrayOf(VT_BSTR, 0, {u"a"});
    SafeArrayLock(locked);
    const Outcome outcome = split(Value::at(VT_ARRAY | VT_BSTR, &locked));
    EXPECT_EQ(outcome.report, static_cast<HRESULT>(0x800A000A));
    VARIANT holder = {};
    holder.vt = VT_ARRAY | VT_BSTR;
    holder.parray = locked;
    EXPECT_EQ(split(Value::at(VT_VARIANT, &holder)).report, static_cast<HRESULT>(0x800A000A));
    EXPECT_EQ(holder.parray, locked);
    SafeArrayUnlock(locked);
    locked->fFeatures |= FADF_FIXEDSIZE;
    EXPECT_EQ(split(Value::at(VT_ARRAY | VT_BSTR, &locked)).report,
              static_cast<HRESULT>(0x800A000A));
    EXPECT_EQ(locked->rgsabound[0].cElements, 1u);
    locked->fFeatures &= static_cast<USHORT>(~FADF_FIXEDSIZE);
    SafeArrayDestroy(locked);
}

TEST_F(Server, GivesObjectsThatCanBeCountedVisitedAndToldApart) {
    IDispatch* list = nullptr;
    callOf(make("GQuorConvert").get(), L"StringTokenToStringCollection",
           {u"x;y", u";", 0, Value::at(VT_DISPATCH, &list)});
    const Ref<IDispatch> owner(list);
    ASSERT_NE(list, nullptr);
    EXPECT_EQ(callOf(list, L"Count", {}).result.lVal, 2);
    // The default member, as Invoke finds it.
    Value index = 2;
    DISPPARAMS one = {&index, nullptr, 1, 0};
    Value item;
    EXPECT_EQ(list->Invoke(DISPID_VALUE, IID_NULL, 0, DISPATCH_PROPERTYGET, &one, &item, nullptr,
                           nullptr),
              S_OK);
    DISPPARAMS none = {};
    Value all;
    ASSERT_EQ(list->Invoke(DISPID_NEWENUM, IID_NULL, 0, DISPATCH_METHOD | DISPATCH_PROPERTYGET,
                           &none, &all, nullptr, nullptr),
              S_OK);
    const auto each = Ref<IEnumVARIANT>::from(all.punkVal);
    VARIANT both[3];
    ULONG number = 0;
    EXPECT_EQ(each->Next(3, both, &number), S_FALSE);
    EXPECT_EQ(number, 2u);
    for (ULONG i = 0; i < number; ++i) VariantClear(&both[i]);

    // What a collection keeps comes back as the same object, the library's and the client's.
    const Ref<IDispatch> kept = make("QuorCollection");
    Own form;
    callOf(kept.get(), L"setValueByKey", {Value(&form), u"own"});
    callOf(kept.get(), L"setValueByKey", {Value(list), u"list"});
    EXPECT_EQ(callOf(kept.get(), L"getValueByKey", {u"own"}).result.pdispVal, &form);
    EXPECT_EQ(callOf(kept.get(), L"getValueByKey", {u"list"}).result.pdispVal, list);
}

TEST_F(Server, TakesAndGivesTheSystemsPictures) {
    // A bitmap of one white point.
    constexpr unsigned char bytes[] = {'B', 'M', 58, 0, 0, 0, 0, 0, 0, 0,   54,  0,   0, 0,  40,
                                       0,   0,   0,  1, 0, 0, 0, 1, 0, 0,   0,   1,   0, 24, 0,
                                       0,   0,   0,  0, 4, 0, 0, 0, 0, 0,   0,   0,   0, 0,  0,
                                       0,   0,   0,  0, 0, 0, 0, 0, 0, 255, 255, 255, 0};
    const HGLOBAL memory = GlobalAlloc(GMEM_MOVEABLE, sizeof bytes);
    std::memcpy(GlobalLock(memory), bytes, sizeof bytes);
    GlobalUnlock(memory);
    Ref<IStream> stream;
    CreateStreamOnHGlobal(memory, TRUE, stream.receive());
    void* made = nullptr;
    ASSERT_EQ(OleLoadPicture(stream.get(), sizeof bytes, FALSE, IID_IPictureDisp, &made), S_OK);
    const Ref<IDispatch> white(static_cast<IDispatch*>(made));
    const Ref<IDispatch> clipboard = make("GQuorClipboard");
    EXPECT_EQ(callOf(clipboard.get(), L"SetPictureToClipboard", {Value(white.get())}).code, S_OK);
    const Outcome got = callOf(clipboard.get(), L"GetPictureFromClipboard", {});
    ASSERT_EQ(got.result.vt, VT_DISPATCH) << got.code;
    const auto picture = Ref<IPicture>::from(got.result.pdispVal);
    ASSERT_TRUE(picture);
    short kind = 0;
    picture->get_Type(&kind);
    EXPECT_EQ(kind, PICTYPE_BITMAP);
}

TEST_F(Server, MayBeLetGoOfByAThreadThatEnds) {
    std::thread([&] {
        const HMODULE again = LoadLibraryA(QUORKIT_SERVER);
        CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED);
        EXPECT_EQ(callOf(make("GQuorStrings").get(), L"LPad", {u"0", u"7", 3}).code, S_OK);
        EXPECT_EQ(canUnload(), S_OK);
        CoUninitialize();
        FreeLibrary(library);
        FreeLibrary(again);
    }).join();
    library = LoadLibraryA(QUORKIT_SERVER);
}

IDispatch* again = nullptr;
HRESULT within = E_FAIL;

void CALLBACK callAgain(HWND, UINT, UINT_PTR, DWORD) {
    within = callOf(again, L"LPad", {u"0", u"7", 3}).code;
}

TEST_F(Server, IsCalledAgainWhileItWaits) {
    const Ref<IDispatch> strings = make("GQuorStrings");
    again = strings.get();
    const UINT_PTR timer = SetTimer(nullptr, 0, 50, callAgain);
    EXPECT_EQ(callOf(make("GQuorTools").get(), L"delay", {1}).code, S_OK);
    KillTimer(nullptr, timer);
    EXPECT_EQ(within, S_OK);
}

TEST_F(Server, KeepsToItsThread) {
    Ref<IDispatch> log = make("QuorLogFile");
    const Ref<IDispatch> ours = make("GQuorStrings");
    std::thread([&] {
        CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED);
        EXPECT_EQ(callOf(log.get(), L"LogFileName", {}).code, RPC_E_WRONG_THREAD);
        EXPECT_NE(make("GQuorStrings").get(), ours.get());
        log = Ref<IDispatch>();  // the last reference, on another thread
        CoUninitialize();
    }).join();
}

}  // namespace
}  // namespace quorkit::test
