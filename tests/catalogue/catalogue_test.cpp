// Walks the whole catalogue.
#include <gtest/gtest.h>
#include <quorkit/catalogue.h>
#include <quorkit/ports/ports.h>

#include <cstring>
#include <fstream>
#include <map>
#include <set>
#include <sstream>
#include <string>

#include "frame/conversion.h"
#include "hosts/command.h"
#include "support/late.h"

namespace quorkit::test {
namespace {

// A get and a let share their name and their identifier.
TEST(Catalogue, RowsAreWholeAndUnique) {
    for (const ClassInfo& info : classes()) {
        SCOPED_TRACE(info.name);
        std::map<Long, std::string> members;
        for (const MemberInfo& member : info.members()) {
            SCOPED_TRACE(member.name);
            EXPECT_TRUE(std::string(member.sentence).ends_with('.'));
            EXPECT_EQ(member.identifier & ~0xFFFF,
                      member.kind == MemberKind::Method ? 0x60030000 : 0x68030000);
            EXPECT_EQ(members.try_emplace(member.identifier, member.name).first->second,
                      member.name);
            const CallKind kind =
                member.kind == MemberKind::PropertyLet ? CallKind::Let : CallKind::Call;
            EXPECT_EQ(findMember(info, member.identifier, kind), &member);
            const String name(member.name, member.name + std::strlen(member.name));
            EXPECT_EQ(findMember(info, name, kind), &member);
            std::set<std::string> names;
            for (const ParameterInfo& parameter : member.parameters()) {
                EXPECT_TRUE(names.insert(parameter.name).second) << parameter.name;
                if (!parameter.optional()) continue;
                Variant value = parameter.defaultValue();
                EXPECT_NO_THROW(frame::convert(value, parameter.type, &ports::native()))
                    << parameter.name;
            }
        }
    }
}

/// Fails a whole test run that has not called every member.
class AllMembersCalled : public testing::Environment {
    void TearDown() override {
        if (testing::GTEST_FLAG(filter) != "*" || testing::UnitTest::GetInstance()->Failed())
            return;
        for (const ClassInfo& info : classes())
            for (const MemberInfo& member : info.members()) {
                const char* mark = member.kind == MemberKind::PropertyLet ? "=" : "";
                const std::string name = std::string(info.name) + "." + member.name + mark;
                EXPECT_TRUE(calledMembers().contains(name)) << "no test calls " << name;
            }
    }
};

const testing::Environment* const kEnvironment =
    testing::AddGlobalTestEnvironment(new AllMembersCalled);

/// The interface is frozen: what clients rely on changes only on purpose.
void expectFrozen(const char* name, const String& option) {
    std::ifstream file(std::string(QUORKIT_SOURCE_DIR "/docs/") + name, std::ios::binary);
    std::ostringstream frozen;
    frozen << file.rdbuf();
    EXPECT_TRUE(frozen.str() == command(u"describe " + option).output)
        << "The catalogue has changed. Review the difference after\n    quorkit describe "
        << std::string(option.begin(), option.end()) << " > docs/" << name;
}

TEST(Catalogue, IsAsFrozen) {
    expectFrozen("catalogue.json", u"--json");
    expectFrozen("reference.md", u"--markdown");
}

}  // namespace
}  // namespace quorkit::test
