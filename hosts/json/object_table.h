// The objects that a client of the host holds, each with its number.
#pragma once

#include <quorkit/errors.h>
#include <quorkit/object.h>

#include <cstdint>
#include <unordered_map>

#include "objects/seen_objects.h"

namespace quorkit::json {

/// An object keeps its number from the moment the client first sees it until the client releases
/// it.
class ObjectTable {
   public:
    std::int64_t numberOf(const ObjectRef& object) {
        const auto [found, added] = numbers_.try_emplace(object.get(), next_);
        if (added) {
            objects_.emplace(next_++, object);
            seen_.note(object);
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

    /// For the end of a client.
    void letGoOfAll() { seen_.letGoOfAll(); }

   private:
    std::unordered_map<std::int64_t, ObjectRef> objects_;
    std::unordered_map<const Object*, std::int64_t> numbers_;
    std::int64_t next_ = 1;
    SeenObjects seen_;
};

}  // namespace quorkit::json
