// The objects that a client has ever held.
#pragma once

#include <quorkit/object.h>

#include <algorithm>
#include <cstddef>
#include <memory>
#include <vector>

namespace quorkit {

/// So that circles of objects, which a client cannot reach any more, are released when it goes.
class SeenObjects {
   public:
    void note(const ObjectRef& object) {
        if (seen_.size() >= most_) {  // those that no longer exist make room
            std::erase_if(seen_, [](const auto& one) { return one.expired(); });
            most_ = std::max(most_, 2 * seen_.size());
        }
        seen_.push_back(object);
    }

    /// Calls letGo on all of them. For the end of a client.
    void letGoOfAll() {
        for (const auto& one : seen_)
            if (const ObjectRef object = one.lock()) object->letGo();
    }

   private:
    std::vector<std::weak_ptr<Object>> seen_;
    std::size_t most_ = 64;
};

}  // namespace quorkit
