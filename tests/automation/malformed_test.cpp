// Calls that automation does not allow: an error, and nothing is touched.
#include <limits>

#include "automation/client.h"

namespace quorkit::test {
namespace {

VARIANT raw(int type, void* place = nullptr) {
    VARIANT value = {};
    value.vt = static_cast<VARTYPE>(type);
    value.byref = place;
    return value;
}

HRESULT invoke(IDispatch* object, DISPID member, WORD flags, DISPPARAMS* arguments,
               UINT* argument = nullptr) {
    VARIANT result = raw(VT_I4);
    EXCEPINFO failure = {};
    const HRESULT code = object->Invoke(member, IID_NULL, LOCALE_USER_DEFAULT, flags, arguments,
                                        &result, &failure, argument);
    EXPECT_TRUE(code == S_OK || result.vt == VT_I4);
    SysFreeString(failure.bstrSource);
    SysFreeString(failure.bstrDescription);
    return code;
}

struct Destroy {
    void operator()(SAFEARRAY* array) const { SafeArrayDestroy(array); }
};
using OwnedArray = std::unique_ptr<SAFEARRAY, Destroy>;

OwnedArray vectorOf(VARTYPE type) {
    return OwnedArray(SafeArrayCreateVector(type, 0, 2));
}

TEST_F(Server, RefusesMalformedValues) {
    VARIANT self = raw(VT_BYREF | VT_VARIANT, &self);
    VARIANT number = raw(VT_I4);
    VARIANT reference = raw(VT_BYREF | VT_VARIANT, &number);
    VARIANT within = raw(VT_VARIANT, &number);
    VARIANT nowhere = raw(VT_BYREF | VT_I4);
    char place[32] = {};
    const OwnedArray texts = vectorOf(VT_BSTR);
    const OwnedArray numbers = vectorOf(VT_I4);
    const OwnedArray reals = vectorOf(VT_R8);
    SAFEARRAY* const anArray = numbers.get();
    SAFEARRAY plain = *reals;  // tells no type
    plain.fFeatures = 0;
    SAFEARRAY noRoom = plain;
    noRoom.pvData = nullptr;
    SAFEARRAY noDimension = plain;
    noDimension.cDims = 0;
    SAFEARRAY ofTexts = plain;
    ofTexts.fFeatures = FADF_BSTR;
    SAFEARRAY narrow = plain;
    narrow.cbElements = 2;
    const struct {
        const char* what;
        VARIANT value;
    } cases[] = {
        {"no type", raw(0x0FFF)},
        {"a type beside others", raw(VT_VECTOR | VT_I4)},
        {"a reserved bit", raw(VT_RESERVED | VT_I4)},
        {"a record", raw(VT_RECORD, place)},
        {"a VARIANT by value", raw(VT_VARIANT, &number)},
        {"nothing by reference", raw(VT_BYREF | VT_EMPTY, place)},
        {"Null by reference", raw(VT_BYREF | VT_NULL, place)},
        {"no type by reference", raw(VT_BYREF | 0x0FFF, place)},
        {"a record by reference", raw(VT_BYREF | VT_RECORD, place)},
        {"a null pointer to a number", raw(VT_BYREF | VT_I4)},
        {"a null pointer to a text", raw(VT_BYREF | VT_BSTR)},
        {"a null pointer to an object", raw(VT_BYREF | VT_DISPATCH)},
        {"a null pointer to an array", raw(VT_BYREF | VT_ARRAY | VT_BSTR)},
        {"a null pointer to a VARIANT", raw(VT_BYREF | VT_VARIANT)},
        {"a VARIANT with a null pointer", raw(VT_BYREF | VT_VARIANT, &nowhere)},
        {"a VARIANT that refers to itself", self},
        {"a reference to a reference", raw(VT_BYREF | VT_VARIANT, &reference)},
        {"a reference to a VARIANT by value", raw(VT_BYREF | VT_VARIANT, &within)},
        {"an array of no type", raw(VT_ARRAY | VT_EMPTY)},
        {"an array of records", raw(VT_ARRAY | VT_RECORD)},
        {"texts as VARIANTs", raw(VT_ARRAY | VT_VARIANT, texts.get())},
        {"numbers as texts", raw(VT_ARRAY | VT_BSTR, numbers.get())},
        {"numbers as other ones", raw(VT_ARRAY | VT_R4, numbers.get())},
        {"numbers as texts, by reference",
         raw(VT_BYREF | VT_ARRAY | VT_BSTR, const_cast<SAFEARRAY**>(&anArray))},
        {"no type as objects", raw(VT_ARRAY | VT_DISPATCH, &plain)},
        {"texts as numbers", raw(VT_ARRAY | VT_R8, &ofTexts)},
        {"an array without room", raw(VT_ARRAY | VT_R8, &noRoom)},
        {"an array without dimensions", raw(VT_ARRAY | VT_R8, &noDimension)},
        {"an array of other elements", raw(VT_ARRAY | VT_R8, &narrow)},
    };
    const Ref<IDispatch> convert = make("GQuorConvert");
    const DISPID read = identifierOf(convert.get(), L"cBoolEx");
    const DISPID written = identifierOf(convert.get(), L"StringTokenToStringArray");
    for (const auto& one : cases) {
        VARIANT only = one.value;
        DISPPARAMS arguments = {&only, nullptr, 1, 0};
        UINT argument = 99;
        EXPECT_EQ(invoke(convert.get(), read, DISPATCH_METHOD, &arguments, &argument),
                  DISP_E_TYPEMISMATCH)
            << one.what;
        EXPECT_EQ(argument, 0u) << one.what;
        // A variable that only receives a result may hold anything, but in a form that is allowed.
        if ((only.vt & (VT_BYREF | VT_ARRAY)) == 0) continue;
        Value text = u"x;y";
        Value delimiter = u";";
        VARIANT three[] = {only, delimiter, text};
        arguments = {three, nullptr, 3, 0};
        EXPECT_EQ(invoke(convert.get(), written, DISPATCH_METHOD, &arguments), DISP_E_TYPEMISMATCH)
            << one.what;
        EXPECT_EQ(std::memcmp(three, &only, sizeof only), 0) << one.what;
    }
    EXPECT_EQ(std::string(place, sizeof place), std::string(sizeof place, '\0'));
    EXPECT_EQ(number.vt, VT_I4);
    EXPECT_EQ(anArray, numbers.get());
}

TEST_F(Server, RefusesMalformedCalls) {
    constexpr DISPID least = std::numeric_limits<DISPID>::min();
    constexpr DISPID most = std::numeric_limits<DISPID>::max();
    const Ref<IDispatch> strings = make("GQuorStrings");
    const DISPID pad = identifierOf(strings.get(), L"LPad");
    Value values[] = {3, u"7", u"0"};
    const struct {
        DISPID member;
        int flags;
        UINT count;
        std::vector<DISPID> named;
        UINT namedCount;
        bool thereAre;
        HRESULT code;
    } cases[] = {
        {pad, DISPATCH_METHOD, 3, {}, 0, false, E_INVALIDARG},
        {pad, DISPATCH_METHOD, 3, {}, 1, true, E_INVALIDARG},
        {pad, DISPATCH_METHOD, 1, {2, 1}, 2, true, E_INVALIDARG},
        {pad, 0, 3, {}, 0, true, E_INVALIDARG},
        {pad, DISPATCH_METHOD | DISPATCH_PROPERTYPUT, 3, {}, 0, true, E_INVALIDARG},
        {pad, 0x4000 | DISPATCH_METHOD, 3, {}, 0, true, E_INVALIDARG},
        {pad, 0xFFFF, 3, {}, 0, true, E_INVALIDARG},
        {pad, DISPATCH_PROPERTYPUT, 3, {}, 0, true, DISP_E_MEMBERNOTFOUND},
        {DISPID_UNKNOWN, DISPATCH_METHOD, 0, {}, 0, true, DISP_E_MEMBERNOTFOUND},
        {DISPID_VALUE, DISPATCH_PROPERTYGET, 0, {}, 0, true, DISP_E_MEMBERNOTFOUND},
        {DISPID_NEWENUM, DISPATCH_PROPERTYGET, 0, {}, 0, true, DISP_E_MEMBERNOTFOUND},
        {DISPID_NEWENUM, 0, 0, {}, 0, true, E_INVALIDARG},
        {least, DISPATCH_METHOD, 0, {}, 0, true, DISP_E_MEMBERNOTFOUND},
        {most, DISPATCH_METHOD, 0, {}, 0, true, DISP_E_MEMBERNOTFOUND},
        {pad, DISPATCH_METHOD, 3, {most}, 1, true, DISP_E_PARAMNOTFOUND},
        {pad, DISPATCH_METHOD, 3, {least}, 1, true, DISP_E_BADPARAMCOUNT},
        {pad, DISPATCH_METHOD, 3, {2, 2, 0}, 3, true, DISP_E_PARAMNOTFOUND},
    };
    for (const auto& one : cases) {
        std::vector<DISPID> named = one.named;
        DISPPARAMS arguments = {one.thereAre ? values : nullptr,
                                named.empty() ? nullptr : named.data(), one.count, one.namedCount};
        EXPECT_EQ(invoke(strings.get(), one.member, static_cast<WORD>(one.flags), &arguments),
                  one.code)
            << &one - cases;
    }
    EXPECT_EQ(invoke(strings.get(), pad, DISPATCH_METHOD, nullptr), E_POINTER);
    for (LPOLESTR first : {LPOLESTR{nullptr}, const_cast<LPOLESTR>(L"LPad")}) {
        LPOLESTR names[] = {first, nullptr};
        DISPID identifiers[] = {7, 7};
        EXPECT_EQ(strings->GetIDsOfNames(IID_NULL, names, 2, 0, identifiers), DISP_E_UNKNOWNNAME);
        EXPECT_EQ(identifiers[1], DISPID_UNKNOWN);
    }
}

TEST_F(Server, ReadsArraysWithinArraysToALimit) {
    const Ref<IDispatch> convert = make("GQuorConvert");
    const DISPID read = identifierOf(convert.get(), L"myVal");
    constexpr HRESULT tooDeep = DISP_E_EXCEPTION;
    const auto codeFor = [&](SAFEARRAY* array) {
        VARIANT only = raw(VT_ARRAY | VT_VARIANT, array);
        DISPPARAMS arguments = {&only, nullptr, 1, 0};
        return invoke(convert.get(), read, DISPATCH_METHOD, &arguments);
    };
    const auto wrapped = [](SAFEARRAY* inner) {
        SAFEARRAY* const outer = SafeArrayCreateVector(VT_VARIANT, 0, 1);
        static_cast<VARIANT*>(outer->pvData)[0] = raw(VT_ARRAY | VT_VARIANT, inner);
        return outer;
    };
    SAFEARRAY* nested = SafeArrayCreateVector(VT_VARIANT, 0, 1);
    for (int i = 1; i < 200; ++i) nested = wrapped(nested);
    EXPECT_NE(codeFor(nested), tooDeep);
    nested = wrapped(nested);
    EXPECT_EQ(codeFor(nested), tooDeep);
    SafeArrayDestroy(nested);
    SAFEARRAY* const circle = wrapped(nullptr);
    static_cast<VARIANT*>(circle->pvData)[0].parray = circle;
    EXPECT_EQ(codeFor(circle), tooDeep);
    static_cast<VARIANT*>(circle->pvData)[0].vt = VT_EMPTY;
    SafeArrayDestroy(circle);
}

}  // namespace
}  // namespace quorkit::test
