// A client's own objects, which have members by name only, as arguments for the runtime's types.
#include <gtest/gtest.h>
#include <quorkit/QuorCollection.h>
#include <quorkit/collection.h>
#include <quorkit/dictionary.h>
#include <quorkit/picture.h>
#include <quorkit/ports/memory.h>

#include <functional>
#include <map>
#include <utility>

#include "clipboard/samples.h"
#include "support/late.h"

namespace quorkit::test {
namespace {

/// An object made in a client's own language.
struct Foreign final : Object {
    using Member = std::function<Variant(std::span<Variant>)>;
    explicit Foreign(std::map<String, Member> own) : members(std::move(own)) {}
    const char* className() const override { return "Foreign"; }
    Variant call(StringView name, CallKind kind, const Arguments& arguments) override {
        const auto found = members.find(kind == CallKind::Let ? String(name) + u'=' : String(name));
        if (found == members.end()) raise(ErrorNumber::NoSuchMember);
        return found->second(arguments.positional);
    }
    std::map<String, Member> members;
};

/// A list that keeps its items in `items`.
ObjectRef listOf(std::vector<Variant>& items) {
    return std::make_shared<Foreign>(std::map<String, Foreign::Member>{
        {u"Count", [&](auto) { return static_cast<Long>(items.size()); }},
        {u"Item",
         [&](auto of) {
             return items.at(static_cast<std::size_t>(of[0].template get<Long>() - 1));
         }},
        {u"Add", [&](auto of) { return items.push_back(of[0]), Variant(); }}});
}

TEST(ForeignObjects, AreCollections) {
    std::vector<Variant> items = {u"a", Long{2}};
    const Variant list = listOf(items);
    Late convert(u"GQuorConvert");
    EXPECT_EQ(convert(u"CollectionToStringToken", {list, u";"}), Variant(u"a;2"));
    EXPECT_EQ(convert(u"CollectionToArray", {list}), Variant(Array<Variant>(items)));
    EXPECT_EQ(Late(u"GQuorTools")(u"IndexOfElementInCollection", {Long{2}, list}),
              Variant(Long{2}));
    // The member fills the client's own object, and the client's variable still refers to it.
    const Outcome filled =
        convert.call(u"StringTokenToStringCollection", {u"b;c", u";", false, list});
    EXPECT_EQ(filled.result, Variant(Long{4}));
    EXPECT_EQ(filled.arguments[3], list);
    EXPECT_EQ(items.back(), Variant(u"c"));
}

TEST(ForeignObjects, AreDictionariesAndPictures) {
    MemoryPorts world;
    Late registry(u"GQuorRegistry", world);
    const Variant names = Array<String>(std::vector<String>{u"a", u"b"});
    registry(u"Reg_WriteKeyValuesEx",
             {u"HKCU\\F",
              std::make_shared<Foreign>(std::map<String, Foreign::Member>{
                  {u"Keys", [&](auto) { return names; }},
                  {u"Item", [&](auto of) { return of[0].template get<String>() + u"!"; }}})});
    EXPECT_EQ(registry(u"Reg_ReadStringValue", {u"HKCU\\F", u"b"}), Variant(u"b!"));

    const std::string file = samples()[0].file;
    const Variant bytes = Array<Byte>(std::vector<Byte>(file.begin(), file.end()));
    Late(u"GQuorClipboard", world)(u"SetPictureToClipboard",
                                   {std::make_shared<Foreign>(std::map<String, Foreign::Member>{
                                       {u"File", [&](auto) { return bytes; }}})});
    EXPECT_EQ(world.clipboard.content->second, file);
}

TEST(ForeignObjects, ThatAreNoneOfTheseAreRefused) {
    const auto stranger = std::make_shared<Foreign>(std::map<String, Foreign::Member>());
    for (const Variant& object : {Variant(stranger), Variant(Dictionary::make()),
                                  Variant(Library().create(u"QuorCollection"))})
        EXPECT_EQ(Late(u"GQuorConvert").errorOf(u"CollectionToArray", {object}), 13);
}

// What a loop visits.
TEST(RuntimeObjects, HaveElements) {
    const auto list = Collection::make();
    list->add(u"b", u"Key");
    list->insert(1, {{}, Long{1}});
    EXPECT_EQ(list->elements(), Variant(Array<Variant>({Long{1}, u"b"})));
    const auto pairs = Dictionary::make();
    pairs->add(u"k", Long{1});
    EXPECT_EQ(pairs->elements(), Variant(Array<Variant>({u"k"})));
    pairs->RemoveAll();
    EXPECT_EQ(pairs->count(), 0);
}

}  // namespace
}  // namespace quorkit::test
