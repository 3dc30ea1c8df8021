// What COM needs in C++: counted references, texts, and the edge that no exception crosses.
#pragma once

#include <oaidl.h>
#include <quorkit/values.h>

#include <new>
#include <utility>

namespace quorkit::automation {

/// A counted reference to a COM object.
template <class T>
class Ref {
   public:
    Ref() = default;
    /// Takes over the caller's count.
    explicit Ref(T* counted) : object_(counted) {}
    Ref(const Ref& other) : object_(other.object_) {
        if (object_ != nullptr) object_->AddRef();
    }
    Ref(Ref&& other) noexcept : object_(std::exchange(other.object_, nullptr)) {}
    Ref& operator=(Ref other) noexcept {
        std::swap(object_, other.object_);
        return *this;
    }
    ~Ref() {
        if (object_ != nullptr) object_->Release();
    }

    /// Counts the object once more.
    static Ref to(T* object) {
        if (object != nullptr) object->AddRef();
        return Ref(object);
    }
    /// The interface of any object; null when the object is null or has no such interface.
    template <class From>
    static Ref from(From* object) {
        void* found = nullptr;
        if (object == nullptr || FAILED(object->QueryInterface(__uuidof(T), &found))) return {};
        return Ref(static_cast<T*>(found));
    }

    T* get() const { return object_; }
    T* operator->() const { return object_; }
    explicit operator bool() const { return object_ != nullptr; }
    /// Hands the count over to the caller.
    T* release() { return std::exchange(object_, nullptr); }
    /// Where a function puts a counted object; what was held is released.
    T** receive() {
        *this = Ref();
        return &object_;
    }

   private:
    T* object_ = nullptr;
};

/// A VARIANT that is cleared at the end.
struct OwnedVariant : VARIANT {
    OwnedVariant() { VariantInit(this); }
    OwnedVariant(const OwnedVariant&) = delete;
    OwnedVariant& operator=(const OwnedVariant&) = delete;
    ~OwnedVariant() { VariantClear(this); }
};

/// Throws std::bad_alloc for want of memory.
inline BSTR newBstr(StringView text) {
    const BSTR made = SysAllocStringLen(reinterpret_cast<const OLECHAR*>(text.data()),
                                        static_cast<UINT>(text.size()));
    if (made == nullptr) throw std::bad_alloc();
    return made;
}

/// Null is "".
inline StringView viewOf(BSTR text) {
    return {reinterpret_cast<const char16_t*>(text), SysStringLen(text)};
}

}  // namespace quorkit::automation
