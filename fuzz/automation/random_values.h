// Arguments at random: what clients hand in, and what none should.
#pragma once

#include <oaidl.h>
#include <quorkit/catalogue.h>

#include <cmath>
#include <cstring>
#include <limits>
#include <random>
#include <string>

#include "automation/client.h"

namespace quorkit::test {

class Random {
   public:
    explicit Random(unsigned seed) : engine_(seed) {}

    /// 0 ... count - 1.
    unsigned below(std::size_t count) {
        return static_cast<unsigned>(engine_() % static_cast<unsigned>(count));
    }
    bool oneIn(unsigned count) { return below(count) == 0; }
    template <class T, std::size_t N>
    const T& of(const T (&all)[N]) {
        return all[below(N)];
    }

   private:
    std::mt19937 engine_;
};

/// Objects that values may be; nobody changes what they hold.
using Objects = std::vector<IDispatch*>;

/// A value of any type that a client's variable can have.
class RandomValue {
   public:
    RandomValue(Random& random, const Objects& objects) : random_(random), objects_(objects) {}

    static constexpr VARTYPE kElements[] = {
        VT_I1,      VT_UI1,  VT_I2,   VT_UI2,   VT_I4,       VT_UI4,     VT_INT,
        VT_UINT,    VT_I8,   VT_UI8,  VT_R4,    VT_R8,       VT_CY,      VT_DATE,
        VT_DECIMAL, VT_BOOL, VT_BSTR, VT_ERROR, VT_DISPATCH, VT_UNKNOWN, VT_VARIANT};

    /// `made` is not cleared.
    void make(VARIANT& made, int depth = 0) {
        const unsigned kind = random_.below(depth < 3 ? 12 : 10);
        if (kind == 0)
            make(made, random_.oneIn(2) ? VT_EMPTY : VT_NULL, depth);
        else if (kind < 10)
            make(made, kElements[random_.below(std::size(kElements) - 1)], depth);
        else
            make(made, static_cast<VARTYPE>(VT_ARRAY | random_.of(kElements)), depth);
    }
    void make(VARIANT& made, VARTYPE type, int depth = 0) {
        std::memset(static_cast<void*>(&made), 0, sizeof made);
        if (type == VT_VARIANT) return make(made, depth);
        if ((type & VT_ARRAY) != 0)
            made.parray = array(static_cast<VARTYPE>(type & VT_TYPEMASK), depth);
        else if (type == VT_BSTR)
            made.bstrVal = random_.oneIn(8) ? nullptr : newBstr(text());
        else if (type == VT_R4)
            made.fltVal = static_cast<float>(real());
        else if (type == VT_R8 || type == VT_DATE)
            made.dblVal = real();
        else if (type == VT_DECIMAL)
            made.decVal = decimal();
        else if (type == VT_DISPATCH || type == VT_UNKNOWN)
            made.punkVal = object();
        else if (type == VT_ERROR && random_.oneIn(2))
            made.scode = DISP_E_PARAMNOTFOUND;
        else if (type != VT_EMPTY && type != VT_NULL)
            made.llVal = number();
        made.vt = type;
    }

    /// Has neither what a path needs to lead out of a folder, nor wildcards.
    std::u16string text() {
        static constexpr const char16_t* usual[] = {u"",         u"a",      u"7",    u"-3",
                                                    u"1.42.3.4", u"x;y;z",  u" Ab ", u"31.12.1999",
                                                    u"#ff8000",  u"%a%",    u"yes",  u"+41 44 123",
                                                    u"[%b%] c",  u"a@b.ch", u"1d3m", u"count"};
        if (!random_.oneIn(2)) return random_.of(usual);
        constexpr char16_t letters[] =
            u"aZß0 ,;-+%_[]{}\"'=#()@&|<>!~^$\t\r\n\u20AC\xD83D\xDE00\x0001";
        std::u16string made;
        for (unsigned left = random_.below(random_.oneIn(16) ? 400 : 12); left > 0; --left)
            made += letters[random_.below(std::size(letters))];  // U+0000 too
        return made;
    }
    LONGLONG number() {
        static constexpr LONGLONG usual[] = {
            0,   1,    -1,     2,     3,     7,           10,         16,       255,
            256, 2024, -32769, 32767, 32768, -2147483648, -999999999, LLONG_MIN};
        return random_.oneIn(2) ? static_cast<LONGLONG>(random_.below(20)) : random_.of(usual);
    }
    double real() {
        static const double usual[] = {0,          0.5,     -1,     2.5,   36526.75,     -657434,
                                       2958465.99, 2958466, -1e300, -1e10, std::nan(""), -HUGE_VAL,
                                       1e-300};
        return random_.oneIn(2) ? random_.below(20) : random_.of(usual);
    }

   private:
    DECIMAL decimal() {
        DECIMAL made = {};
        made.Lo64 = static_cast<ULONGLONG>(number());
        made.scale = static_cast<BYTE>(random_.below(29));
        made.sign = random_.oneIn(2) ? DECIMAL_NEG : 0;
        return made;
    }
    IUnknown* object() {
        IUnknown* const chosen =
            random_.oneIn(3) ? nullptr : objects_[random_.below(objects_.size())];
        if (chosen != nullptr) chosen->AddRef();
        return chosen;
    }
    SAFEARRAY* array(VARTYPE type, int depth) {
        if (random_.oneIn(6)) return nullptr;
        SAFEARRAYBOUND bounds[3];
        for (SAFEARRAYBOUND& one : bounds)
            one = {random_.below(4), static_cast<LONG>(random_.below(5)) - 1};
        if (random_.oneIn(8)) bounds[0].lLbound = random_.oneIn(2) ? LONG_MIN : LONG_MAX - 2;
        SAFEARRAY* const made =
            SafeArrayCreate(type, random_.oneIn(4) ? 1 + random_.below(3) : 1, bounds);
        if (made == nullptr) return nullptr;
        ULONG count = 1;
        for (USHORT i = 0; i < made->cDims; ++i) count *= made->rgsabound[i].cElements;
        const UINT size = SafeArrayGetElemsize(made);
        for (ULONG i = 0; i < count; ++i) {
            VARIANT element;
            make(element, type, depth + 1);
            const bool whole = type == VT_VARIANT || type == VT_DECIMAL;
            std::memcpy(static_cast<char*>(made->pvData) + i * size,
                        whole ? static_cast<void*>(&element) : &element.bVal, size);
        }
        return made;
    }

    Random& random_;
    const Objects& objects_;
};

/// One argument: a value, a variable by reference in one of its forms, or something malformed.
class RandomArgument {
   public:
    RandomArgument(Random& random, RandomValue& values, VARTYPE wanted) {
        std::memset(static_cast<void*>(&area_), 0xA5, sizeof area_);
        VARIANT& value = area_.value;
        random.oneIn(3) ? values.make(value) : values.make(value, wanted);
        type_ = value.vt;
        passed_ = value;
        if (random.oneIn(2)) refer(random);
        if ((type_ & VT_ARRAY) != 0 && value.parray != nullptr && random.oneIn(6)) {
            held_ = value.parray;
            locked_ = random.oneIn(2);
            if (locked_)
                ++held_->cLocks;
            else
                held_->fFeatures |= FADF_FIXEDSIZE;
        }
        if (random.oneIn(24)) spoil(random);
        was_ = area_;
    }
    RandomArgument(const RandomArgument&) = delete;
    RandomArgument& operator=(const RandomArgument&) = delete;

    const VARIANT& passed() const { return passed_; }

    /// Releases the value. What the call left behind otherwise than a client may expect, "" when
    /// nothing.
    std::string takeBack() {
        std::string wrong;
        Area now = area_;
        if (variable_ != nullptr) {
            const auto offset = variable_ - reinterpret_cast<char*>(&area_);
            std::memcpy(reinterpret_cast<char*>(&now) + offset,
                        reinterpret_cast<char*>(&was_) + offset, size_);
        }
        if (std::memcmp(&now, &was_, sizeof now) != 0) wrong += " written beside the variable";
        VARIANT& value = area_.value;
        if (size_ != sizeof value) value.vt = type_;  // a decimal lies over it
        if ((value.vt & VT_ARRAY) != 0 && value.parray == held_ && held_ != nullptr) {
            held_->cLocks = 0;
            held_->fFeatures &= static_cast<USHORT>(~FADF_FIXEDSIZE);
        } else if (held_ != nullptr && (locked_ || size_ != sizeof value)) {
            wrong += " locked or fixed, and replaced";
        }
        if ((value.vt & VT_BYREF) != 0 || FAILED(VariantClear(&value))) wrong += " no value";
        return wrong;
    }

   private:
    /// The variable, what may stand between it and the argument, and guards.
    struct Area {
        unsigned char before[16];
        VARIANT inner;
        VARIANT value;
        unsigned char after[16];
    };

    static UINT sizeOf(VARTYPE type) {
        if ((type & VT_ARRAY) != 0) return sizeof(SAFEARRAY*);
        SAFEARRAY* const array = SafeArrayCreateVector(type, 0, 0);
        const UINT size = SafeArrayGetElemsize(array);
        SafeArrayDestroy(array);
        return size;
    }

    static VARIANT to(int type, void* place) {
        VARIANT made = {};
        made.vt = static_cast<VARTYPE>(VT_BYREF | type);
        made.byref = place;
        return made;
    }

    void refer(Random& random) {
        VARIANT& value = area_.value;
        const bool typed = type_ != VT_EMPTY && type_ != VT_NULL && random.oneIn(2);
        const bool inside = typed && type_ != VT_DECIMAL;
        variable_ = inside ? reinterpret_cast<char*>(&value.bVal) : reinterpret_cast<char*>(&value);
        size_ = typed ? sizeOf(type_) : sizeof value;
        passed_ = to(typed ? type_ : VARTYPE{VT_VARIANT}, variable_);
        if (!typed || !random.oneIn(4)) return;
        area_.inner = passed_;
        passed_ = to(VT_VARIANT, &area_.inner);
    }

    void spoil(Random& random) {
        static constexpr int types[] = {0x0FFF,
                                        15,
                                        VT_RECORD,
                                        VT_LPWSTR,
                                        VT_VARIANT,
                                        VT_VECTOR | VT_I4,
                                        VT_RESERVED | VT_BSTR,
                                        VT_BYREF | VT_EMPTY,
                                        VT_BYREF | VT_NULL,
                                        VT_BYREF | VT_RECORD,
                                        VT_BYREF | VT_VECTOR | VT_BSTR};
        switch (random.below(4)) {
            case 0:
                passed_.vt = static_cast<VARTYPE>(random.of(types));
                break;
            case 1:
                passed_ = to(random.of(RandomValue::kElements), nullptr);
                break;
            case 2:
                area_.inner = to(VT_VARIANT, random.oneIn(2) ? &area_.inner : &area_.value);
                passed_ = to(VT_VARIANT, &area_.inner);
                break;
            default:
                if ((passed_.vt & VT_ARRAY) == 0 || area_.value.parray == nullptr) return;
                passed_.vt = static_cast<VARTYPE>(passed_.vt & ~VT_TYPEMASK) |
                             (type_ == (VT_ARRAY | VT_BSTR) ? VT_I8 : VT_BSTR);
        }
        variable_ = nullptr;
    }

    VARTYPE type_ = VT_EMPTY;
    char* variable_ = nullptr;  ///< what may be written
    std::size_t size_ = 0;
    SAFEARRAY* held_ = nullptr;  ///< locked, or of a fixed size
    bool locked_ = false;
    VARIANT passed_ = {};
    Area area_;
    Area was_;
};

}  // namespace quorkit::test
