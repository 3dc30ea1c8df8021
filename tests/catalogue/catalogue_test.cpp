// Walks the whole catalogue.
#include <gtest/gtest.h>
#include <quorkit/catalogue.h>
#include <quorkit/ports/ports.h>

#include <cstdio>
#include <cstring>
#include <fstream>
#include <map>
#include <set>
#include <sstream>
#include <string>
#include <utility>

#include "base/hash.h"
#include "frame/conversion.h"
#include "hosts/command.h"

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
                EXPECT_FALSE(frame::convert(value, parameter.type, &ports::native()))
                    << parameter.name;
            }
        }
    }
}

std::string documentOf(const std::string& name) {
    std::ifstream file(QUORKIT_SOURCE_DIR "/docs/" + name, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

/// The lines that only one of the two texts has.
std::string difference(const std::string& before, const std::string& now) {
    std::multiset<std::string> old;
    std::string added;
    std::string line;
    for (std::istringstream lines(before); std::getline(lines, line);) old.insert(line);
    for (std::istringstream lines(now); std::getline(lines, line);)
        if (const auto found = old.find(line); found != old.end())
            old.erase(found);
        else
            added += "+ " + line + '\n';
    for (const std::string& gone : old) added += "- " + gone + '\n';
    return added;
}

/// The interface is frozen. It changes only on purpose, and docs/interface.md says why.
TEST(Catalogue, IsAsFrozen) {
    const std::pair<const char*, const char16_t*> dumps[] = {
        {"catalogue.json", u"--json"}, {"quorkit.idl", u"--idl"}, {"reference.md", u"--markdown"}};
    for (const auto& [name, option] : dumps) {
        const std::string frozen = documentOf(name);
        const std::string now = command(u"describe " + String(option)).output;
        EXPECT_TRUE(frozen == now)
            << "The interface has changed; if it shall, run quorkit describe "
            << std::string(option, option + std::char_traits<char16_t>::length(option))
            << " > docs/" << name << '\n'
            << difference(frozen, now);
    }
    char mark[20];
    const std::string published = documentOf("catalogue.json") + documentOf("quorkit.idl");
    std::snprintf(mark, sizeof mark, "%016llx",
                  static_cast<unsigned long long>(base::hashOf(std::string_view(published))));
    const std::string accepted = documentOf("interface.md");
    EXPECT_EQ(accepted.substr(accepted.rfind("| `") + 3, 16), mark)
        << "docs/interface.md does not say why the interface has changed";
}

}  // namespace
}  // namespace quorkit::test
