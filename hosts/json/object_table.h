// The objects that a client of the host holds, each with its number.
#pragma once

#include <quorkit/errors.h>
#include <quorkit/object.h>

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <unordered_map>
#include <vector>

namespace quorkit::json {

/// An object keeps its number from the moment the client first sees it until the client releases
/// it.
class ObjectTable {
   public:
    std::int64_t numberOf(const ObjectRef& object) {
        const auto [found, added] = numbers_.try_emplace(object.get(), next_);
        if (added) {
            objects_.emplace(next_++, object);
            note(object);
        }
        return found->second;
    }

    /// Error 424 when the client holds no object of that number.
    const ObjectRef& at(std::int64_t number) const {
        const auto found = objects_.find(number);
        if (found == objects_.end()) raise(ErrorNumber::ObjectRequired);
        return found->second;
    }
    void release(std::int64_t number) {
        numbers_.erase(at(number).get());
        objects_.erase(number);
    }

    /// Calls letGo on all objects that ever had a number, so that circles are released too. For the
    /// end of a client, when nobody can reach the objects any more.
    void letGoOfAll() {
        for (const auto& one : seen_)
            if (const ObjectRef object = one.lock()) object->letGo();
    }

   private:
    /// Objects that no longer exist are removed whenever the list has doubled.
    void note(const ObjectRef& object) {
        if (seen_.size() >= mostSeen_) {
            std::erase_if(seen_, [](const auto& one) { return one.expired(); });
            mostSeen_ = std::max(mostSeen_, 2 * seen_.size());
        }
        seen_.push_back(object);
    }

    std::unordered_map<std::int64_t, ObjectRef> objects_;
    std::unordered_map<const Object*, std::int64_t> numbers_;
    std::int64_t next_ = 1;
    std::vector<std::weak_ptr<Object>> seen_;
    std::size_t mostSeen_ = 64;
};

}  // namespace quorkit::json
