#include <gtest/gtest.h>
#include <quorkit/enumerations.h>
#include <quorkit/ports/memory.h>

#include <algorithm>
#include <iterator>
#include <set>

#include "support/late.h"

namespace quorkit::test {
namespace {

/// A table in its order, found by raising the limit by one, which lets one more entry occur.
std::vector<String> tableOf(Late& data, const char16_t* member, std::vector<Variant> arguments) {
    arguments.emplace_back();
    const auto draw = [&](const Variant& iMax) {
        arguments.back() = iMax;
        std::set<String> drawn;
        for (int i = 0; i < 1500; ++i) drawn.insert(data(member, arguments).get<String>());
        return drawn;
    };
    std::vector<String> table;
    std::set<String> before;
    for (Integer iMax = 0; table.size() == static_cast<std::size_t>(iMax); ++iMax) {
        const std::set<String> drawn = draw(iMax);
        std::ranges::set_difference(drawn, before, std::back_inserter(table));
        before = drawn;
    }
    for (const Variant& all : {Variant::missing(), Variant(Integer{-1}), Variant(Integer{500})})
        EXPECT_EQ(draw(all), before);
    return table;
}

TEST(QuorTesting, DrawsFromAllOfEachTable) {
    const struct {
        const char16_t* member;
        std::vector<Variant> arguments;
        std::uint32_t checksum;  ///< of all entries in the published order
    } cases[] = {
        {u"GetRandomLastName", {}, 3817923418u},
        {u"GetRandomFirstName", {male}, 2231189570u},
        {u"GetRandomFirstName", {female}, 1082362363u},
        {u"GetRandomFirstName", {Long{3}}, 1082362363u},
        {u"GetRandomOE", {}, 543545483u},
    };
    MemoryPorts world;
    for (const auto& [member, arguments, checksum] : cases) {
        Late data(u"QuorTesting", world);
        const std::vector<String> table = tableOf(data, member, arguments);
        std::uint32_t sum = 0;
        for (const String& one : table)
            for (const char16_t unit : one + u"|") sum = sum * 31 + unit;
        EXPECT_EQ(sum, checksum);
    }
}

TEST(QuorTesting, ANewObjectStartsTheSequenceOfItsCounter) {
    MemoryPorts world;
    std::set<String> firsts;
    for (; world.system.performanceCounter < 50; ++world.system.performanceCounter) {
        Late data(u"QuorTesting", world);
        const Variant sexCode = Variant::missing();  // a separate draw chooses it
        firsts.insert(data(u"GetRandomFirstName", {sexCode, Integer{0}}).get<String>());
        const Variant third = data(u"GetRandomLastName");
        Late again(u"QuorTesting", world);
        again(u"GetRandomOE");
        again(u"GetRandomOE");
        EXPECT_EQ(again(u"GetRandomLastName"), third);
    }
    EXPECT_EQ(firsts, (std::set<String>{u"Anton", u"Anna"}));
}

}  // namespace
}  // namespace quorkit::test
