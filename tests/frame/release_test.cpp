// Releasing objects that hold others.
#include <gtest/gtest.h>
#include <quorkit/collection.h>
#include <quorkit/dictionary.h>

#include "json/object_table.h"
#include "rpc/property_object.h"
#include "support/late.h"

namespace quorkit::test {
namespace {

struct Witness final : Object {
    explicit Witness(bool& released) : gone(released) {}
    ~Witness() override { gone = true; }
    const char* className() const override { return "Witness"; }
    bool& gone;
};

template <class T, class Keep>
Variant holder(Keep keep) {
    const auto object = T::make();
    keep(*object);
    return object;
}

/// All containers that keep a client's value, each as a link of a chain.
const std::vector<Variant (*)(Variant)> kLinks = {
    [](Variant held) { return holder<Collection>([&](auto& c) { c.add(std::move(held)); }); },
    [](Variant held) { return holder<Dictionary>([&](auto& d) { d.set(u"k", std::move(held)); }); },
    [](Variant held) { return holder<Dictionary>([&](auto& d) { d.set(std::move(held), 1); }); },
    [](Variant held) -> Variant {
        std::vector<Variant> arguments(2, u"key");
        arguments[0] = std::move(held);
        const ObjectRef object = Library().create(u"QuorCollection");
        object->call(u"setValueByKey", CallKind::Call, {arguments});
        return object;
    },
    [](Variant held) -> Variant {
        const auto object = std::make_shared<rpc::PropertyObject>(
            std::vector<rpc::PropertyObject::Property>{{u"p", Variant()}});
        object->call(u"p", CallKind::Let, {{&held, 1}});
        return object;
    },
};

TEST(Release, TakesNoStackForEachLinkOfAChain) {
    auto links = kLinks;
    links.push_back([](Variant held) -> Variant {
        std::vector<Variant> elements(1);
        elements[0] = std::move(held);
        return Array<Variant>(std::move(elements));
    });
    for (std::size_t first = 0; first < links.size(); ++first) {
        bool gone = false;
        Variant chain = std::make_shared<Witness>(gone);
        for (std::size_t i = 0; i < 100'000; ++i)
            chain = links[(first + i % 3 / 2) % links.size()](std::move(chain));
        EXPECT_FALSE(gone);
        chain = Empty{};
        EXPECT_TRUE(gone) << first;
    }
}

// A client cannot reach a lost circle, so the end of its session opens it.
TEST(Release, OpensCirclesAtTheEndOfASession) {
    for (const auto link : kLinks) {
        bool gone = false;
        {
            json::ObjectTable objects;
            std::vector<Variant> ring = {Variant(Collection::make())};
            const auto collection = std::static_pointer_cast<Collection>(ring[0].get<ObjectRef>());
            collection->add(std::make_shared<Witness>(gone));
            collection->add(link(collection));
            objects.release(objects.numberOf(collection->item(2).get<ObjectRef>()));
            for (int i = 0; i < 200; ++i)  // other objects come and go
                objects.release(objects.numberOf(Collection::make()));
            objects.letGoOfAll();
        }
        EXPECT_TRUE(gone);
    }
}

}  // namespace
}  // namespace quorkit::test
