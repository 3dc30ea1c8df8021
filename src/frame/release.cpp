#include <quorkit/variant.h>

#include <exception>
#include <vector>

namespace quorkit::detail {
namespace {

/// The releases under way on a thread, each started by the one before.
struct Releases {
    int depth = 0;
    std::vector<VariantValue> waiting;
};

// A pointer to the stack of the outermost release. It needs no destructor, because Variants may
// outlive every other object of their thread.
thread_local Releases* underWay = nullptr;

/// Whether releasing this value releases other values.
bool holdsValues(const VariantValue& value) {
    if (const auto* object = std::get_if<ObjectRef>(&value)) return object->use_count() == 1;
    const auto* array = std::get_if<Array<Variant>>(&value);
    return array != nullptr && !array->elements().empty();
}

// The linter believes that a variant could be without a value, which throws; ours never is.
// NOLINTBEGIN(bugprone-exception-escape)
void releaseWithin(Releases& releases, VariantValue& value) noexcept {
    // Objects nested to a usual depth are released at once, so that their destructors run in the
    // order that their authors expect.
    constexpr int deepest = 32;
    if (releases.depth >= deepest) {
        try {
            releases.waiting.push_back(std::move(value));
            return;
        } catch (const std::exception&) {  // the stack may have room although the heap has none
        }
    }
    ++releases.depth;
    value.emplace<Empty>();
    --releases.depth;
}

}  // namespace

void release(VariantValue& value) noexcept {
    if (!holdsValues(value)) return;
    if (underWay != nullptr) return releaseWithin(*underWay, value);
    Releases outermost;
    underWay = &outermost;
    releaseWithin(outermost, value);
    while (!outermost.waiting.empty()) {
        VariantValue next = std::move(outermost.waiting.back());
        outermost.waiting.pop_back();
        releaseWithin(outermost, next);
    }
    underWay = nullptr;
}
// NOLINTEND(bugprone-exception-escape)

}  // namespace quorkit::detail
