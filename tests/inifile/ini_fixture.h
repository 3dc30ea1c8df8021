// One INI file in memory, worked on by name.
#pragma once

#include <gtest/gtest.h>
#include <quorkit/ports/memory.h>

#include <string>
#include <utility>
#include <vector>

#include "support/late.h"

namespace quorkit::test {

class IniTest : public testing::Test {
   protected:
    static constexpr const char16_t* kFile = u"settings.ini";
    using Entries = std::vector<std::pair<String, String>>;

    IniTest() { ini.let(u"IniFileName", kFile); }

    void content(std::string bytes) { world.files.put(kFile, std::move(bytes)); }
    std::string content() const { return world.files.content(kFile).value_or("(no file)"); }

    /// A file, the arguments of a member, its result, and the file afterwards.
    struct Edit {
        Edit(std::string bytes, std::vector<Variant> with, Variant returned, std::string edited)
            : before(std::move(bytes)),
              row(std::move(with), std::move(returned)),
              after(std::move(edited)) {}
        std::string before;
        Row row;
        std::string after;
    };
    void edit(const char16_t* member, const std::vector<Edit>& edits) {
        for (const Edit& one : edits) {
            content(one.before);
            ini.expect(member, {one.row});
            EXPECT_EQ(content(), one.after) << one.before;
        }
    }

    Long write(String section, String key, String value) {
        return ini(u"WriteKeyValue", {std::move(section), std::move(key), std::move(value)})
            .get<Long>();
    }
    String read(String section, String key, String byDefault = u"(default)") {
        return ini(u"ReadKeyValue", {std::move(section), std::move(key), std::move(byDefault)})
            .get<String>();
    }
    static Variant table(const Entries& entries, Long lower = 0) {
        Array<String> result({lower, 2}, {lower, static_cast<Long>(entries.size())});
        for (Long i = 0; i < result.bounds(2).count; ++i) {
            result.at(lower, lower + i) = entries[static_cast<std::size_t>(i)].first;
            result.at(lower + 1, lower + i) = entries[static_cast<std::size_t>(i)].second;
        }
        return result;
    }
    static Variant names(std::vector<String> list) { return Array<String>(std::move(list)); }

    MemoryPorts world;
    Late ini{u"QuorInifile", world};
};

}  // namespace quorkit::test
