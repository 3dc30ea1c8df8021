#include "automation/apartment.h"

#include <quorkit/errors.h>

#include <atomic>
#include <set>
#include <typeinfo>

#include "automation/client_object.h"
#include "automation/dispatch_object.h"
#include "automation/pictures.h"

namespace quorkit::automation {
namespace {

struct Apartments {
    std::mutex mutex;
    std::map<DWORD, std::shared_ptr<Apartment>> ofThreads;
    std::set<DWORD> ended;
    std::atomic<bool> haveEnded = false;  // seen without waiting for the others
};

Apartments& apartments() {
    // Never freed: when a library ends, the system allows next to nothing, and objects may be left.
    static Apartments& all = *new Apartments;
    return all;
}

}  // namespace

std::shared_ptr<Apartment> Apartment::current() {
    Apartments& all = apartments();
    if (all.haveEnded) sweep(false);
    const std::scoped_lock lock(all.mutex);
    std::shared_ptr<Apartment>& mine = all.ofThreads[GetCurrentThreadId()];
    if (mine == nullptr) mine = std::make_shared<Apartment>();
    return mine;
}

void Apartment::leave() noexcept {
    try {
        Apartments& all = apartments();
        const std::scoped_lock lock(all.mutex);
        if (!all.ofThreads.contains(GetCurrentThreadId())) return;
        all.ended.insert(GetCurrentThreadId());
        all.haveEnded = true;
    } catch (const std::exception&) {  // then it is freed with the library
    }
}

void Apartment::sweep(bool all) {
    std::map<DWORD, std::shared_ptr<Apartment>> gone;  // freed when nothing is locked
    Apartments& known = apartments();
    const std::scoped_lock lock(known.mutex);
    for (const DWORD thread : known.ended) gone.insert(known.ofThreads.extract(thread));
    known.ended.clear();
    known.haveEnded = false;
    if (all) gone.merge(known.ofThreads);
}

Ref<IDispatch> Apartment::dispatchOf(const ObjectRef& object) {
    if (object == nullptr) return {};
    const Object& one = *object;
    if (typeid(one) == typeid(ClientObject))  // a cast takes as long as all else here
        return static_cast<const ClientObject&>(one).dispatch();
    if (typeid(one) == typeid(Picture))
        if (auto shown = systemPicture(static_cast<const Picture&>(one))) return shown;
    const std::scoped_lock lock(mutex_);
    DispatchObject*& known = known_[object.get()];
    if (known == nullptr || !known->revive())
        known = new DispatchObject(shared_from_this(), object);
    return Ref<IDispatch>(known);
}

ObjectRef Apartment::objectOf(IUnknown* object) {
    if (object == nullptr) return {};
    if (ObjectRef own = DispatchObject::behind(object, *this)) return own;
    if (PictureRef picture = pictureOf(object)) return picture;
    auto dispatch = Ref<IDispatch>::from(object);
    if (!dispatch) raise(ErrorNumber::TypeMismatch);
    return std::make_shared<ClientObject>(std::move(dispatch), shared_from_this());
}

void Apartment::forget(const DispatchObject& object) {
    const std::scoped_lock lock(mutex_);
    const auto known = known_.find(object.object().get());
    if (known != known_.end() && known->second == &object) known_.erase(known);
}

}  // namespace quorkit::automation
