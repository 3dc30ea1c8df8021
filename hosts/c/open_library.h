// A library that a client has opened, and the way in.
#pragma once

#include <quorkit/dispatch.h>

#include <string>
#include <type_traits>

#include "c/handles.h"
#include "c/quorkit.h"
#include "c/values.h"
#include "objects/seen_objects.h"

namespace quorkit::c {

/// What was wrong with the call of a function of ours.
struct Misuse {
    quorkit_outcome outcome;
};

class OpenLibrary {
   public:
    explicit OpenLibrary(Ports& ports) : library(ports) {}
    OpenLibrary(const OpenLibrary&) = delete;
    OpenLibrary& operator=(const OpenLibrary&) = delete;
    ~OpenLibrary() { seen_.letGoOfAll(); }

    Library library;
    Handles<Values> values;
    std::string reason;

    quorkit_object give(ObjectRef object);
    /// Misuse when the handle is none.
    ObjectRef& object(quorkit_object handle);
    Values& list(quorkit_values handle);
    /// The value at an index; Misuse when there is none.
    Variant& at(quorkit_values handle, std::size_t index);
    /// The same, or a new one behind the last.
    Variant& put(quorkit_values handle, std::size_t index);
    void releaseObject(quorkit_object handle);

    const CallError& failure() const { return failure_; }
    int fail(CallError error);
    /// The same with what was caught.
    int failAsCaught() noexcept;

   private:
    template <class Tell>
    int failed(Tell tell) noexcept;

    Handles<ObjectRef> objects_;
    SeenObjects seen_;
    CallError failure_;
};

/// std::bad_alloc when there are too many already.
quorkit_library open(Ports& ports = ports::native());

/// The calling thread is inside the library until this ends.
class Entrance {
   public:
    explicit Entrance(quorkit_library handle);
    Entrance(const Entrance&) = delete;
    Entrance& operator=(const Entrance&) = delete;
    ~Entrance();

    /// QUORKIT_OK when it is inside.
    quorkit_outcome outcome() const { return outcome_; }
    OpenLibrary& library() const { return *library_; }
    /// Ends the library, unless the thread is inside it a second time.
    quorkit_outcome close();

   private:
    struct Room* room_ = nullptr;
    OpenLibrary* library_ = nullptr;
    quorkit_outcome outcome_ = QUORKIT_BAD_HANDLE;
};

/// Runs the body of a function of ours, which returns an outcome or nothing. No exception leaves
/// it.
template <class Body>
int inside(quorkit_library handle, Body&& body) noexcept {
    const Entrance entrance(handle);
    if (entrance.outcome() != QUORKIT_OK) return entrance.outcome();
    OpenLibrary& library = entrance.library();
    try {
        if constexpr (std::is_void_v<decltype(body(library))>) {
            body(library);
            return QUORKIT_OK;
        } else {
            return body(library);
        }
    } catch (...) {
        return library.failAsCaught();
    }
}

/// Something must be read from or put where a pointer leads.
inline void need(const void* place) {
    if (place == nullptr) throw Misuse{QUORKIT_NO_PLACE};
}

}  // namespace quorkit::c
