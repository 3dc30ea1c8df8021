// Fails a whole test run that has not called every member of the catalogue.
#include <gtest/gtest.h>
#include <quorkit/catalogue.h>

#include "support/late.h"

namespace quorkit::test {
namespace {

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

}  // namespace
}  // namespace quorkit::test
