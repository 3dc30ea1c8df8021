#include "automation/values.h"

#include <quorkit/errors.h>
#include <quorkit/scalars.h>

#include <algorithm>
#include <utility>

#include "automation/apartment.h"
#include "automation/arrays.h"
#include "automation/com.h"
#include "automation/failure.h"

namespace quorkit::automation {
namespace {

Decimal decimalOf(const DECIMAL& value) {
    return {value.Hi32, value.Lo64, value.scale, value.sign != 0};
}

DECIMAL decimalOf(const Decimal& value) {
    DECIMAL made = {};
    made.Hi32 = value.high;
    made.Lo64 = value.low;
    made.scale = value.scale;
    made.sign = value.negative ? DECIMAL_NEG : 0;
    return made;
}

template <class T>
const T& at(const void* place) {
    return *static_cast<const T*>(place);
}

/// The value of a type that is in `place`.
Variant read(VARTYPE type, const void* place, Apartment& apartment, int depth) {
    if ((type & VT_ARRAY) != 0)
        return fromArray(at<SAFEARRAY*>(place), static_cast<VARTYPE>(type & VT_TYPEMASK), apartment,
                         depth);
    switch (type) {
        case VT_EMPTY:
            return {};
        case VT_NULL:
            return Null{};
        case VT_ERROR:
            return ErrorValue{static_cast<std::uint32_t>(at<SCODE>(place))};
        case VT_BOOL:
            return at<VARIANT_BOOL>(place) != 0;
        case VT_I1:
            return Integer{at<signed char>(place)};
        case VT_UI1:
            return scalars::fromByte(at<Byte>(place));
        case VT_I2:
            return at<Integer>(place);
        case VT_UI2:
            return Long{at<USHORT>(place)};
        case VT_I4:
        case VT_INT:
            return Long{at<INT>(place)};
        case VT_UI4:
        case VT_UINT:
            return scalars::fromInt64(at<UINT>(place));
        case VT_I8:
            return scalars::fromInt64(at<LONGLONG>(place));
        case VT_UI8:
            return scalars::fromUInt64(at<ULONGLONG>(place));
        case VT_R4:
            return scalars::fromSingle(at<float>(place));
        case VT_R8:
            return at<Double>(place);
        case VT_CY:
            return scalars::fromCurrency(at<CY>(place).int64);
        case VT_DECIMAL:
            return scalars::fromDecimal(decimalOf(at<DECIMAL>(place)));
        case VT_DATE:
            return Date{at<DATE>(place)};
        case VT_BSTR:
            return String(viewOf(at<BSTR>(place)));
        case VT_DISPATCH:
        case VT_UNKNOWN:
            return apartment.objectOf(at<IUnknown*>(place));
        case VT_VARIANT:
            return fromVariant(at<VARIANT>(place), apartment, depth);
        default:
            raise(ErrorNumber::TypeMismatch);
    }
}

const void* placeOf(const VARIANT& value) {
    if ((value.vt & VT_BYREF) != 0) return value.byref;
    return value.vt == VT_DECIMAL ? static_cast<const void*>(&value.decVal) : &value.bVal;
}

/// `value` as the system converts it to `type`.
void change(const Variant& value, VARTYPE type, Apartment& apartment, VARIANT& made) {
    OwnedVariant natural;
    toVariant(value, apartment, natural);
    check(VariantChangeType(&made, &natural, 0, type));
}

/// Makes a VARIANT of that type.
void convert(const Variant& value, VARTYPE type, Apartment& apartment, VARIANT& made) {
    made.vt = type;
    switch (type) {
        case VT_UI1:
            made.bVal = scalars::toByte(value);
            return;
        case VT_R4:
            made.fltVal = scalars::toSingle(value);
            return;
        case VT_I8:
            made.llVal = scalars::toInt64(value);
            return;
        case VT_UI8:
            made.ullVal = scalars::toUInt64(value);
            return;
        case VT_CY:
            made.cyVal.int64 = scalars::toCurrency(value);
            return;
        case VT_DECIMAL:
            made.decVal = decimalOf(scalars::toDecimal(value));
            made.vt = VT_DECIMAL;
            return;
        case VT_DISPATCH:
        case VT_UNKNOWN:
            if (!value.is<ObjectRef>()) raise(ErrorNumber::TypeMismatch);
            made.pdispVal = apartment.dispatchOf(value.get<ObjectRef>()).release();
            return;
        default:
            made.vt = VT_EMPTY;
            change(value, type, apartment, made);
    }
}

}  // namespace

UINT sizeOf(VARTYPE type) {
    switch (type) {
        case VT_I1:
        case VT_UI1:
            return 1;
        case VT_I2:
        case VT_UI2:
        case VT_BOOL:
            return 2;
        case VT_I8:
        case VT_UI8:
        case VT_R8:
        case VT_CY:
        case VT_DATE:
            return 8;
        case VT_BSTR:
        case VT_DISPATCH:
        case VT_UNKNOWN:
            return sizeof(void*);
        case VT_DECIMAL:
            return sizeof(DECIMAL);
        case VT_VARIANT:
            return sizeof(VARIANT);
        case VT_I4:
        case VT_UI4:
        case VT_INT:
        case VT_UINT:
        case VT_R4:
        case VT_ERROR:
            return 4;
        default:
            raise(ErrorNumber::TypeMismatch);
    }
}

void checkForm(const VARIANT& value) {
    const auto type = static_cast<VARTYPE>(value.vt & VT_TYPEMASK);
    const auto form = static_cast<VARTYPE>(value.vt & ~VT_TYPEMASK);
    const bool refers = (form & VT_BYREF) != 0;
    if (form == 0 && type != VT_VARIANT) return;  // a type without values is found when it is read
    if (form == 0 || (form & ~(VT_BYREF | VT_ARRAY)) != 0 || (refers && value.byref == nullptr))
        raise(ErrorNumber::TypeMismatch);
    if ((form & VT_ARRAY) != 0) return checkArray(refers ? *value.pparray : value.parray, type);
    sizeOf(type);
    if (type != VT_VARIANT) return;
    if (value.pvarVal->vt == (VT_BYREF | VT_VARIANT)) raise(ErrorNumber::TypeMismatch);
    checkForm(*value.pvarVal);
}

Variant fromVariant(const VARIANT& value, Apartment& apartment, int depth) {
    checkForm(value);
    return read(static_cast<VARTYPE>(value.vt & ~VT_BYREF), placeOf(value), apartment, depth);
}

void toVariant(const Variant& value, Apartment& apartment, VARIANT& made) {
    VariantInit(&made);
    std::visit(
        [&]<class T>(const T& held) {
            if constexpr (std::is_same_v<T, Null>) {
                made.vt = VT_NULL;
            } else if constexpr (std::is_same_v<T, ErrorValue>) {
                made.vt = VT_ERROR;
                made.scode = static_cast<SCODE>(held.code);
            } else if constexpr (std::is_same_v<T, Boolean>) {
                made.vt = VT_BOOL;
                made.boolVal = held ? VARIANT_TRUE : VARIANT_FALSE;
            } else if constexpr (std::is_same_v<T, Integer>) {
                made.vt = VT_I2;
                made.iVal = held;
            } else if constexpr (std::is_same_v<T, Long>) {
                made.vt = VT_I4;
                made.lVal = held;
            } else if constexpr (std::is_same_v<T, Double>) {
                made.vt = VT_R8;
                made.dblVal = held;
            } else if constexpr (std::is_same_v<T, Date>) {
                made.vt = VT_DATE;
                made.date = held.days;
            } else if constexpr (std::is_same_v<T, String>) {
                made.bstrVal = newBstr(held);
                made.vt = VT_BSTR;
            } else if constexpr (std::is_same_v<T, ObjectRef>) {
                made.pdispVal = apartment.dispatchOf(held).release();
                made.vt = VT_DISPATCH;
            } else if constexpr (!std::is_same_v<T, Empty>) {
                const VARTYPE type = elementTypeOf(value);
                made.parray = toArray(value, type, apartment);
                made.vt = static_cast<VARTYPE>(VT_ARRAY | type);
            }
        },
        static_cast<const VariantValue&>(value));
}

void store(const Variant& value, Apartment& apartment, const VARIANT& variable) {
    if ((variable.vt & VT_BYREF) == 0) return;
    checkForm(variable);  // the member may have run the client's code
    const auto type = static_cast<VARTYPE>(variable.vt & ~VT_BYREF);
    if ((type & VT_ARRAY) != 0)
        return storeArray(value, static_cast<VARTYPE>(type & VT_TYPEMASK), apartment,
                          variable.pparray);
    if (type == VT_VARIANT) {
        VARIANT& inner = *variable.pvarVal;
        if ((inner.vt & VT_BYREF) != 0) return store(value, apartment, inner);
        if ((inner.vt & VT_ARRAY) != 0) checkUnlocked(inner.parray);
        OwnedVariant made;
        // An array of Variants stays one: there are clients that can read no other.
        if (inner.vt == (VT_ARRAY | VT_VARIANT) && elementTypeOf(value) != VT_EMPTY) {
            made.parray = toArray(value, VT_VARIANT, apartment);
            made.vt = inner.vt;
        } else {
            toVariant(value, apartment, made);
        }
        std::swap<VARIANT>(inner, made);
        return;
    }
    OwnedVariant made;
    convert(value, type, apartment, made);
    // What was in the variable goes into `made`, which releases it.
    auto* const from = static_cast<char*>(const_cast<void*>(placeOf(made)));
    std::swap_ranges(from, from + sizeOf(type), static_cast<char*>(variable.byref));
    if (type == VT_DECIMAL) made.vt = VT_EMPTY;  // the decimal lies over it
}

}  // namespace quorkit::automation
