// The objects that a client has ever held.
#pragma once

#include <quorkit/object.h>

#include <algorithm>
#include <cstddef>
#include <memory>
#include <unordered_map>

namespace quorkit {

/// So that circles of objects, which a client cannot reach any more, are released when it goes.
class SeenObjects {
   public:
    void note(const ObjectRef& object) {
        if (seen_.size() >= most_) {  // those that no longer exist make room
            std::erase_if(seen_, [](const auto& one) { return one.second.expired(); });
            most_ = std::max(most_, 2 * seen_.size());
        }
        seen_[object.get()] = object;
    }

    /// Calls letGo on all of them. For the end of a client.
    void letGoOfAll() {
        for (const auto& one : seen_)
            if (const ObjectRef object = one.second.lock()) object->letGo();
    }

   private:
    std::unordered_map<const Object*, std::weak_ptr<Object>> seen_;
    std::size_t most_ = 64;
};

}  // namespace quorkit
