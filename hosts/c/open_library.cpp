#include "c/open_library.h"

#include <array>
#include <atomic>
#include <memory>
#include <mutex>
#include <utility>

namespace quorkit::c {

/// Where an open library is found. Rooms stay: a handle that was given back leads to one that is
/// empty, or belongs to another library.
struct Room {
    std::atomic<std::uintptr_t> used = 0;
    std::atomic<const void*> thread = nullptr;  ///< that is inside
    // What follows belongs to that thread.
    unsigned depth = 0;
    std::unique_ptr<OpenLibrary> library;
    bool taken = false;  ///< under `opening`
};

namespace {

std::array<Room, 1024> rooms;
std::mutex opening;

const void* thisThread() {
    thread_local const char place = 0;
    return &place;
}

std::uintptr_t numberOf(const void* handle) {
    return reinterpret_cast<std::uintptr_t>(handle);
}

const char* textOf(quorkit_outcome outcome) {
    switch (outcome) {
        case QUORKIT_OK:
            break;
        case QUORKIT_BAD_HANDLE:
            return "The handle is none, or was given back";
        case QUORKIT_BUSY:
            return "Another thread is inside the library";
        case QUORKIT_NO_PLACE:
            return "A pointer is null";
        case QUORKIT_NO_INDEX:
            return "Nothing has this index";
        case QUORKIT_WRONG_KIND:
            return "The value is of another kind";
        case QUORKIT_NO_TEXT:
            return "The bytes are no UTF-8";
        case QUORKIT_TOO_LONG:
            return "No memory has this length, or the bounds do not match";
    }
    return "";
}

}  // namespace

quorkit_object OpenLibrary::give(ObjectRef object) {
    if (object == nullptr) return nullptr;
    seen_.note(object);
    return reinterpret_cast<quorkit_object>(objects_.add(std::move(object)));
}

ObjectRef& OpenLibrary::object(quorkit_object handle) {
    ObjectRef* const found = objects_.find(numberOf(handle));
    if (found == nullptr) throw Misuse{QUORKIT_BAD_HANDLE};
    return *found;
}

void OpenLibrary::releaseObject(quorkit_object handle) {
    if (!objects_.take(numberOf(handle))) throw Misuse{QUORKIT_BAD_HANDLE};
}

Values& OpenLibrary::list(quorkit_values handle) {
    Values* const found = values.find(numberOf(handle));
    if (found == nullptr) throw Misuse{QUORKIT_BAD_HANDLE};
    return *found;
}

Variant& OpenLibrary::at(quorkit_values handle, std::size_t index) {
    Values& all = list(handle);
    if (index == 0) return all.result;
    if (index > all.items.size()) throw Misuse{QUORKIT_NO_INDEX};
    return all.items[index - 1];
}

Variant& OpenLibrary::put(quorkit_values handle, std::size_t index) {
    Values& all = list(handle);
    if (index == all.items.size() + 1) return all.items.emplace_back();
    return at(handle, index);
}

int OpenLibrary::fail(CallError error) {
    failure_ = std::move(error);
    return failure_.number;
}

int OpenLibrary::failAsCaught() noexcept {
    try {
        throw;
    } catch (const Misuse& misuse) {
        return failed([&] { return CallError{misuse.outcome, textOf(misuse.outcome), "quorkit"}; });
    } catch (...) {
        return failed([] { return errorOf(std::current_exception()); });
    }
}

template <class Tell>
int OpenLibrary::failed(Tell tell) noexcept {
    try {
        return fail(tell());
    } catch (const std::exception&) {  // there is no memory for a text
        failure_ = {};
        return failure_.number = static_cast<Long>(ErrorNumber::OutOfMemory);
    }
}

quorkit_library open(Ports& ports) {
    auto made = std::make_unique<OpenLibrary>(ports);
    const std::scoped_lock lock(opening);
    for (std::size_t place = 0; place < rooms.size(); ++place) {
        Room& room = rooms[place];
        const void* nobody = nullptr;
        // One who has an old handle may be looking into it.
        if (room.taken || !room.thread.compare_exchange_strong(nobody, thisThread())) continue;
        room.taken = true;
        room.library = std::move(made);
        const std::uintptr_t handle = Handle::of(place, room.used);
        room.thread = nullptr;
        return reinterpret_cast<quorkit_library>(handle);
    }
    throw std::bad_alloc();
}

quorkit_outcome Entrance::close() {
    if (outcome_ != QUORKIT_OK) return outcome_;
    if (room_->depth > 1) return QUORKIT_BUSY;
    ++room_->used;  // what is called at the end finds the library closed
    room_->library.reset();
    const std::scoped_lock lock(opening);
    room_->taken = false;
    return QUORKIT_OK;
}

Entrance::Entrance(quorkit_library handle) {
    const std::uintptr_t number = numberOf(handle);
    const std::size_t place = Handle::placeOf(number);
    if (place >= rooms.size()) return;
    Room& room = rooms[place];
    if (!Handle::isOf(number, room.used)) return;  // nobody is disturbed by it
    const void* inside = nullptr;
    if (!room.thread.compare_exchange_strong(inside, thisThread(), std::memory_order_acquire) &&
        inside != thisThread()) {
        outcome_ = QUORKIT_BUSY;
        return;
    }
    ++room.depth;
    room_ = &room;
    if (room.library == nullptr || !Handle::isOf(number, room.used)) return;  // just closed
    library_ = room.library.get();
    outcome_ = QUORKIT_OK;
}

Entrance::~Entrance() {
    if (room_ != nullptr && --room_->depth == 0)
        room_->thread.store(nullptr, std::memory_order_release);
}

}  // namespace quorkit::c
