// Lines, opening and shortening, as a client sees them.
#include <gtest/gtest.h>
#include <quorkit/ports/memory.h>

#include "support/late.h"
#include "support/scratch.h"

namespace quorkit::test {
namespace {

/// Real files, with a clock and an environment set by hand.
class LogFile : public testing::Test {
   protected:
    LogFile() {
        log.let(u"LogFileName", scratch.name("a.log"));
        world.system.localTime = {2024, 1, 31, 7, 5, 9, 999};
        world.system.environment = {{u"Username", u"anna"}};
    }
    Variant write(const Variant& text, Long level = 1) {
        return log.call(u"writeLogfileEntry", {text, level}).arguments[0];
    }
    std::string content() { return scratch.read("a.log"); }

    Scratch scratch;
    MemoryPorts world;
    Ports ports = world.ports.with(ports::native().files, ports::native().folders);
    Late log{u"QuorLogFile", ports};
};

TEST_F(LogFile, WritesPrefixesInTheirOrder) {
    struct Case {
        Long format;
        const char16_t* separator;
        Long level;
        const char16_t* line;
    };
    const Case cases[] = {
        {0, u"  ", 1, u"m"},
        {1, u"  ", 1, u"31.01.2024 07:05:09  m"},
        {15, u";", 9, u"31.01.2024 07:05:09;anna;;TestDump;m"},
        {9, u"  ", 1, u"31.01.2024 07:05:09  Error      m"},
        {8, u"  ", 9, u"TestDump    m"},
        {8, u"|", 2, u"Warning|m"},
        {8, u"", 5, u"m"},
        {6, u"ab", -3, u"annaababm"},
        {15, u"  ", -1, u"m"},
        {15, u"  ", -2, u"m"},
        {1, u"", 1, u"31.01.2024 07:05:09m"},
    };
    log.let(u"LogLevel", Long{9});
    log.let(u"Append", true);
    String all;
    for (const auto& [format, separator, level, line] : cases) {
        log.let(u"LogFormat", format);
        log.let(u"LogFieldSeparator", separator);
        EXPECT_EQ(write(u"m", level), line);
        EXPECT_EQ(log.get(u"LogFieldSeparator"), separator);
        all.append(line).append(u"\r\n");
    }
    EXPECT_EQ(content(), std::string(all.begin(), all.end()));
    world.system.localTime.second = 10;
    EXPECT_EQ(write(u"").get<String>().substr(0, 19), u"31.01.2024 07:05:10");
}

TEST_F(LogFile, LevelTexts) {
    log.expect(u"levelNrToLevelText",
               {Row({3}, u"Statistic"), Row({4}, u"Info     "), Row({6}, u"Test     "),
                Row({7}, u"TestEx   "), Row({0}, u""), Row({8}, u""), Row({-1}, u"")});
}

TEST_F(LogFile, StartsAsDocumentedAndDropsWhatIsAboveTheLevel) {
    for (const auto& [property, value] :
         std::map<const char16_t*, Variant>{{u"Append", false},
                                            {u"MaxFileSize", Long{0}},
                                            {u"AutoOpenClose", true},
                                            {u"LogLevel", Long{1}},
                                            {u"LogFormat", Long{0}},
                                            {u"LogFieldSeparator", u"  "}})
        EXPECT_EQ(log.get(property), value);
    EXPECT_EQ(log(u"writeLogfileEntry", {u"dropped", 2}), Variant(true));
    EXPECT_EQ(scratch.count(), 0u);
    log.let(u"LogFormat", Long{8});
    EXPECT_EQ(write(u"dropped", 2), u"dropped");
    world.system.environment[u"D"] = scratch.name("sub");
    log.let(u"LogFileName", u"%D%/b.log");
    EXPECT_EQ(log.get(u"LogFileName"), scratch.name("sub/b.log"));
    EXPECT_EQ(write(u"written"), u"Error      written");
    EXPECT_EQ(scratch.read("sub/b.log"), "Error      written\r\n");
}

TEST_F(LogFile, EmptiesTheFileAsSet) {
    const auto isOpen = [&] { return log(u"isFileOpen"); };
    scratch.write("a.log", "old\r\n");
    write(u"1");
    write(u"2");
    EXPECT_EQ(content(), "1\r\n2\r\n");
    log.let(u"Append", false);  // the next opening counts as the first
    write(u"3");
    EXPECT_EQ(content(), "3\r\n");
    EXPECT_EQ(isOpen(), Variant(false));

    log.let(u"AutoOpenClose", false);
    write(u"lost");  // the file is not open
    EXPECT_EQ(content(), "3\r\n");
    EXPECT_EQ(log(u"OpenLogfile"), Variant(true));
    EXPECT_EQ(log(u"OpenLogfile"), Variant(true));
    EXPECT_EQ(isOpen(), Variant(true));
    write(u"4");
    EXPECT_EQ(content(), "4\r\n");
    log(u"CloseLogfile");
    log(u"OpenLogfile");
    EXPECT_EQ(content(), "");

    Late other(u"QuorLogFile", ports);
    other.let(u"LogFileName", scratch.name("a.log"));
    other.let(u"Append", true);
    other(u"writeLogfileEntry", {u"5", 1});
    write(u"6");
    EXPECT_EQ(content(), "5\r\n6\r\n");
}

TEST_F(LogFile, NamesThatCannotBeOpened) {
    ports::takeReason();
    std::filesystem::create_directory(scratch.path("folder"));
    scratch.write("file", "");
    for (const String& name : {String(u"bare.log"), scratch.name("folder"),
                               scratch.name("file/a.log"), scratch.name("x") + u'\0'}) {
        log.let(u"LogFileName", name);
        EXPECT_EQ(log(u"OpenLogfile"), Variant(false));
        EXPECT_EQ(log(u"writeLogfileEntry", {u"m", 1}), Variant(true));
        const std::string reason = ports::takeReason();
        EXPECT_EQ(reason.starts_with("the log file "), true) << reason;
        EXPECT_EQ(reason.ends_with("the current one"), name == u"bare.log") << reason;
    }
    log.let(u"LogFileName", u"");
    EXPECT_EQ(log(u"OpenLogfile"), Variant(true));
    EXPECT_EQ(log(u"isFileOpen"), Variant(false));
    EXPECT_EQ(scratch.count(), 2u);
}

TEST_F(LogFile, WritesInTheEncodingOfTheMark) {
    const std::string utf16 = "\xFF\xFE";
    log.let(u"Append", true);
    for (const auto& [mark, bytes] :
         std::map<std::string, std::string>{{"", "\xE4\x80?"},
                                            {"\xEF\xBB\xBF", "\xC3\xA4\xE2\x82\xAC\xD0\xB6"},
                                            {utf16, std::string("\xE4\0\xAC\x20\x36\x04", 6)}}) {
        scratch.write("a.log", mark);
        write(u"\u00E4\u20AC\u0436");
        const std::string end = mark == utf16 ? std::string("\r\0\n\0", 4) : "\r\n";
        EXPECT_EQ(content(), mark + bytes + end);
    }
}

TEST_F(LogFile, ShortensFromTheStartOfALine) {
    const auto lines = [](char first, char last) {
        std::string text;
        for (char c = first; c <= last; ++c) text += std::string(98, c) + "\r\n";
        return text;
    };
    const auto without = [](std::string text, std::size_t end) {
        return text.substr(0, text.size() - end);
    };
    const std::string marked = "\xFF\xFE" + std::string(1000, 'x');
    const std::string utf8 = "\xEF\xBB\xBF";
    struct Case {
        std::string before;
        Long limit;
        bool result;
        std::string after;
    };
    const Case cases[] = {
        {lines('a', 'o'), 1500, true, lines('a', 'o')},
        {lines('a', 'o'), 1000, true, without(lines('i', 'o'), 2)},
        {lines('a', 'o'), 990, true, without(lines('i', 'o'), 2)},
        {lines('a', 'o'), 1010, true, without(lines('h', 'o'), 2)},
        {lines('a', 'o'), 0, false, lines('a', 'o')},    // no line begins behind the end
        {lines('a', 'o'), 100, false, lines('a', 'o')},  // nor in the last one
        {lines('a', 'o'), -1, false, lines('a', 'o')},
        {std::string(500, 'x'), 400, false, std::string(500, 'x')},
        {utf8 + lines('a', 'o'), 1000, true, utf8 + without(lines('i', 'o'), 2)},
        {marked, 100, true, std::string(500, 'x')},
        {marked + "x", 100, true, std::string(500, 'x')},  // 500.5 to even
        {marked + "xxx", 100, true, std::string(502, 'x')},
    };
    log.let(u"Append", true);
    for (const auto& [before, limit, result, after] : cases) {
        scratch.write("a.log", before);
        EXPECT_EQ(log(u"limitFileSize", {scratch.name("a.log"), limit}), Variant(result)) << limit;
        EXPECT_EQ(content(), after) << limit;
        EXPECT_EQ(scratch.count(), 1u);
        if (after == before) continue;
        write(u"z");  // continues the line that has lost its end
        EXPECT_EQ(content(), after + "z\r\n") << limit;
    }
    EXPECT_EQ(log(u"limitFileSize", {scratch.name("missing.log"), 1}), Variant(false));
    EXPECT_EQ(scratch.count(), 1u);

    Late keeper(u"QuorLogFile", ports);  // nobody else shortens its file
    keeper.let(u"LogFileName", scratch.name("a.log"));
    keeper.let(u"AutoOpenClose", false);
    keeper(u"OpenLogfile");
    keeper(u"writeLogfileEntry", {String(98, u'x'), 1});
    keeper(u"writeLogfileEntry", {String(98, u'y'), 1});
    EXPECT_EQ(log(u"limitFileSize", {scratch.name("a.log"), 150}), Variant(false));
    keeper(u"CloseLogfile");
    EXPECT_EQ(log(u"limitFileSize", {scratch.name("a.log"), 150}), Variant(true));
    EXPECT_EQ(content(), std::string(98, 'y'));
}

TEST_F(LogFile, LooksAtTheSizeEveryFiftyEntries) {
    for (const bool keptOpen : {false, true}) {
        Late fresh(u"QuorLogFile", ports);
        fresh.let(u"LogFileName", scratch.name("a.log"));
        fresh.let(u"AutoOpenClose", !keptOpen);
        if (keptOpen) fresh(u"OpenLogfile");
        fresh.let(u"MaxFileSize", Long{500});
        std::vector<std::size_t> sizes;
        for (int i = 0; i < 103; ++i) {
            fresh(u"writeLogfileEntry", {u"12345678", 1});
            sizes.push_back(content().size());
        }
        EXPECT_EQ(sizes[49], 500u);
        EXPECT_EQ(sizes[50], 510u);  // it was not yet larger than the limit
        EXPECT_EQ(sizes[99], 1000u);
        EXPECT_EQ(sizes[100], 390u + 8u);  // 39 lines stay, the last without its end
        EXPECT_EQ(sizes[102], 390u + 8u + 20u);
    }
}

TEST_F(LogFile, OnlyWhoShortensGoesOnInTheLastLine) {
    const std::string whole = "11111111\r\n22222222\r\n33333333\r\n44444444\r\n";
    struct Case {
        std::string before;
        bool byAnother;
        std::string after;
    };
    const Case cases[] = {{whole, false, "44444444new\r\n"},
                          {whole, true, "44444444\r\nnew\r\n"},
                          {whole + "torn", false, "44444444\r\nto\r\nnew\r\n"},
                          {"torn", false, "torn\r\nnew\r\n"}};
    log.let(u"Append", true);
    for (const auto& [before, byAnother, after] : cases) {
        Late another(u"QuorLogFile", ports);
        scratch.write("a.log", before);
        (byAnother ? another : log)(u"limitFileSize", {scratch.name("a.log"), 23});
        write(u"new");
        EXPECT_EQ(content(), after);
    }
}

TEST_F(LogFile, TheCheckTurnsToTheFileThatIsNamed) {
    log.let(u"AutoOpenClose", false);
    log.let(u"MaxFileSize", Long{1000});
    log(u"OpenLogfile");
    for (int i = 0; i < 51; ++i) {
        write(u"m");
        log.let(u"LogFileName", scratch.name("b.log"));
    }
    EXPECT_EQ(content().size(), 50u * 3);
    EXPECT_EQ(scratch.read("b.log"), "m\r\n");
}

}  // namespace
}  // namespace quorkit::test
