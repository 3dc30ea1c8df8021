#include "automation/arrays.h"

#include <quorkit/scalars.h>

#include <algorithm>
#include <memory>
#include <vector>

#include "automation/apartment.h"
#include "automation/com.h"
#include "automation/failure.h"
#include "automation/values.h"

namespace quorkit::automation {
namespace {

constexpr ErrorNumber kArrayLocked{10};
constexpr int kDeepest = 200;

struct Destroy {
    void operator()(SAFEARRAY* array) const { SafeArrayDestroy(array); }
};
using OwnedArray = std::unique_ptr<SAFEARRAY, Destroy>;

/// Access to the elements in the order of storage.
class Locked {
   public:
    explicit Locked(SAFEARRAY* array) : array_(array) { check(SafeArrayAccessData(array, &data_)); }
    Locked(const Locked&) = delete;
    Locked& operator=(const Locked&) = delete;
    ~Locked() { SafeArrayUnaccessData(array_); }

    template <class T>
    T* elements() const {
        return static_cast<T*>(data_);
    }

   private:
    SAFEARRAY* array_;
    void* data_ = nullptr;
};

std::vector<Bounds> boundsOf(SAFEARRAY* array) {
    const UINT dimensions = SafeArrayGetDim(array);
    if (dimensions < 1 || dimensions > 2) raise(ErrorNumber::TypeMismatch);
    std::vector<Bounds> bounds(dimensions);
    for (UINT i = 0; i < dimensions; ++i) {
        // The structure has them in the reverse order.
        const SAFEARRAYBOUND& one = array->rgsabound[dimensions - 1 - i];
        bounds[i] = {one.lLbound, static_cast<Long>(one.cElements)};
    }
    return bounds;
}

template <class T, class Convert>
Variant read(SAFEARRAY* array, Convert convert) {
    const std::vector<Bounds> bounds = boundsOf(array);
    Array<T> made = bounds.size() == 1 ? Array<T>(bounds[0]) : Array<T>(bounds[0], bounds[1]);
    const Locked locked(array);
    std::size_t i = 0;
    for (T& element : made.elements()) element = convert(locked, i++);
    return made;
}

/// The element as a VARIANT that refers to it.
VARIANT elementAt(const Locked& locked, std::size_t i, VARTYPE type, UINT size) {
    VARIANT value;
    value.vt = static_cast<VARTYPE>(type | VT_BYREF);
    value.byref = locked.elements<char>() + i * size;
    return value;
}

template <class T>
std::vector<SAFEARRAYBOUND> boundsOf(const Array<T>& array) {
    std::vector<SAFEARRAYBOUND> bounds;
    for (int i = 1; i <= array.dimensions(); ++i)
        bounds.push_back({static_cast<ULONG>(array.bounds(i).count), array.lower(i)});
    return bounds;
}

Variant valueOf(Byte element) {
    return scalars::fromByte(element);
}
const Variant& valueOf(const Variant& element) {
    return element;
}

template <class T>
OwnedArray written(const Array<T>& from, VARTYPE type, Apartment& apartment) {
    if (!from.allocated()) return nullptr;
    std::vector<SAFEARRAYBOUND> bounds = boundsOf(from);
    OwnedArray made(SafeArrayCreate(type, static_cast<UINT>(bounds.size()), bounds.data()));
    if (made == nullptr) throw std::bad_alloc();
    const Locked locked(made.get());
    const UINT size = SafeArrayGetElemsize(made.get());
    std::size_t i = 0;
    if constexpr (std::is_same_v<T, Byte>) {
        if (type == VT_UI1) {
            std::ranges::copy(from.elements(), locked.elements<Byte>());
            return made;
        }
    }
    for (const T& element : from.elements())
        store(valueOf(element), apartment, elementAt(locked, i++, type, size));
    return made;
}

/// What the elements hold, as the structure has it; 0 for what needs no release.
USHORT contentOf(VARTYPE type) {
    switch (type) {
        case VT_BSTR:
            return FADF_BSTR;
        case VT_VARIANT:
            return FADF_VARIANT;
        case VT_DISPATCH:
        case VT_UNKNOWN:
            return FADF_UNKNOWN;
        default:
            return 0;
    }
}

USHORT contentOf(const SAFEARRAY& array) {
    constexpr USHORT all = FADF_BSTR | FADF_UNKNOWN | FADF_DISPATCH | FADF_VARIANT | FADF_RECORD;
    const auto content = static_cast<USHORT>(array.fFeatures & all);
    return content == FADF_DISPATCH ? FADF_UNKNOWN : content;
}

/// One name for the types that have two.
VARTYPE oneName(VARTYPE type) {
    if (type == VT_INT) return VT_I4;
    return type == VT_UINT ? static_cast<VARTYPE>(VT_UI4) : type;
}

bool hasType(SAFEARRAY* array, VARTYPE type) {
    VARTYPE stored = type;  // there are arrays that do not tell it
    if ((array->fFeatures & FADF_HAVEVARTYPE) != 0) SafeArrayGetVartype(array, &stored);
    return oneName(stored) == oneName(type) && contentOf(*array) == contentOf(type) &&
           array->cbElements == sizeOf(type);
}

bool hasRoom(const SAFEARRAY& array) {
    if (array.pvData != nullptr) return true;
    return std::any_of(array.rgsabound, array.rgsabound + array.cDims,
                       [](const SAFEARRAYBOUND& one) { return one.cElements == 0; });
}

}  // namespace

void checkArray(SAFEARRAY* array, VARTYPE type) {
    sizeOf(type);
    if (array != nullptr && (array->cDims == 0 || !hasType(array, type) || !hasRoom(*array)))
        raise(ErrorNumber::TypeMismatch);
}

Variant fromArray(SAFEARRAY* array, VARTYPE type, Apartment& apartment, int depth) {
    if (depth == kDeepest) raise(ErrorNumber::OutOfStackSpace);
    if (type == VT_BSTR) {
        if (array == nullptr) return Array<String>();
        return read<String>(array, [](const Locked& locked, std::size_t i) {
            return String(viewOf(locked.elements<BSTR>()[i]));
        });
    }
    if (type == VT_UI1) {
        if (array == nullptr) return Array<Byte>();
        return read<Byte>(
            array, [](const Locked& locked, std::size_t i) { return locked.elements<Byte>()[i]; });
    }
    if (array == nullptr) return Array<Variant>();
    const UINT size = SafeArrayGetElemsize(array);
    return read<Variant>(array, [&](const Locked& locked, std::size_t i) {
        return fromVariant(elementAt(locked, i, type, size), apartment, depth + 1);
    });
}

VARTYPE elementTypeOf(const Variant& value) {
    if (value.is<Array<String>>()) return VT_BSTR;
    if (value.is<Array<Byte>>()) return VT_UI1;
    if (value.is<Array<Variant>>()) return VT_VARIANT;
    return VT_EMPTY;
}

SAFEARRAY* toArray(const Variant& value, VARTYPE type, Apartment& apartment) {
    if (const auto* texts = value.getIf<Array<String>>())
        return written(*texts, type, apartment).release();
    if (const auto* bytes = value.getIf<Array<Byte>>())
        return written(*bytes, type, apartment).release();
    if (const auto* variants = value.getIf<Array<Variant>>())
        return written(*variants, type, apartment).release();
    raise(ErrorNumber::TypeMismatch);
}

void checkUnlocked(const SAFEARRAY* array) {
    if (array != nullptr && array->cLocks != 0) raise(kArrayLocked);
}

void storeArray(const Variant& value, VARTYPE type, Apartment& apartment, SAFEARRAY** variable) {
    SAFEARRAY* const old = *variable;
    OwnedArray made(toArray(value, type, apartment));
    checkUnlocked(old);
    if (old != nullptr) {
        if ((old->fFeatures & (FADF_FIXEDSIZE | FADF_STATIC)) != 0) {
            if (made == nullptr || FAILED(SafeArrayCopyData(made.get(), old))) raise(kArrayLocked);
            return;
        }
        check(SafeArrayDestroy(old));
    }
    *variable = made.release();
}

}  // namespace quorkit::automation
