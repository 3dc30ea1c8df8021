// Dialogs through the desktop's tools, which scripts replace here.
#ifdef __linux__
#include <gtest/gtest.h>
#include <quorkit/ports/host.h>
#include <quorkit/ports/ports.h>

#include "linux/linux_names.h"
#include "support/environment.h"
#include "support/scratch.h"

namespace quorkit::test {
namespace {

namespace fs = std::filesystem;

class LinuxHost : public testing::Test {
   protected:
    /// Makes a tool that stores its arguments, each on a line between "<" and ">", writes `output`
    /// and ends with `status`.
    void put(const char* tool, const std::string& output, int status) {
        scratch.write("output", output);
        scratch.write(tool, "#!/bin/sh\nset -e\nd='" + scratch.folder().string() +
                                "'\nprintf '<%s>\\n' \"${0##*/}\" \"$@\" > \"$d/words\"\n"
                                "cat \"$d/output\"\nls /proc/self/fd | wc -l > \"$d/handles\"\n"
                                "exit " +
                                std::to_string(status) + "\n");
        fs::permissions(scratch.path(tool), fs::perms::owner_all);
    }
    std::string words() { return scratch.read("words"); }

    Scratch scratch;
    Host& host = ports::native().host;
    const Variable path{"PATH", scratch.folder().string() + ":" + std::getenv("PATH")};
    const Variable display{"DISPLAY", ":0"};
    const Variable wayland{"WAYLAND_DISPLAY", {}};
    const FileDialog dialog{u"--T \"it\"",
                            u"C:\\usr",
                            u"-a b.txt",
                            {{u"A|B", {u"*.txt", u"*.csv"}}, {u"All", {u"*.*"}}}};
};

TEST_F(LinuxHost, AsksZenity) {
    const std::string chosen = "/tmp/a \"b\" '$HOME'\nc\\d ";
    put("zenity", chosen + "\n", 0);
    String name;
    const std::string common =
        "<--title=--T \"it\">\n<--filename=/usr/-a b.txt>\n"
        "<--file-filter=A/B | *.txt *.csv>\n<--file-filter=All | *>\n";
    EXPECT_TRUE(host.GetOpenFileNameA(dialog, name));
    EXPECT_EQ(words(), "<zenity>\n<--file-selection>\n" + common);
    std::string found;
    EXPECT_EQ(native::pathOf(name, found), kSuccess);
    EXPECT_EQ(found, chosen);
    EXPECT_TRUE(host.GetSaveFileNameA(dialog, name));
    EXPECT_EQ(words(), "<zenity>\n<--file-selection>\n<--save>\n<--confirm-overwrite>\n" + common);
    EXPECT_TRUE(host.SHBrowseForFolderA({u"T", u"C:\\usr", u"", {}}, name));
    EXPECT_EQ(words(),
              "<zenity>\n<--file-selection>\n<--directory>\n<--title=T>\n<--filename=/usr/>\n");
    EXPECT_LE(std::stoi(scratch.read("handles")), 4);  // three streams, and the folder of ls
    host.MessageBoxA(u"-t \u00E4\n<b>\\n", u"C", kPlainMessage);
    EXPECT_EQ(words(),
              "<zenity>\n<--info>\n<--no-markup>\n<--title=C>\n<--text=-t \xC3\xA4\n<b>\\n>\n");
}

TEST_F(LinuxHost, AsksKdialogElse) {
    for (const char* tool : {"cat", "ls", "wc"})  // the script needs these, but zenity is missing
        fs::create_symlink("/bin/" + std::string(tool), scratch.path(tool));
    path.set(scratch.folder().string());
    put("kdialog", "/usr\n", 0);
    String name;
    EXPECT_TRUE(host.GetOpenFileNameA(dialog, name));
    EXPECT_TRUE(name.ends_with(u"\\usr"));
    EXPECT_EQ(words(),
              "<kdialog>\n<--title=--T \"it\">\n<--getopenfilename>\n</usr/-a b.txt>\n"
              "<*.txt *.csv|A/B\n*|All>\n");
    host.MessageBoxA(u"C:\\new", u"C", kPlainMessage);
    EXPECT_EQ(words(), "<kdialog>\n<--title=C>\n<--msgbox=C:\\\\new>\n");
}

TEST_F(LinuxHost, IsCancelledWithoutAChoice) {
    String name = u"before";
    const auto ask = [&] {
        return host.GetOpenFileNameA(dialog, name) || host.GetSaveFileNameA(dialog, name) ||
               host.SHBrowseForFolderA(dialog, name);
    };
    put("zenity", "", 0);
    EXPECT_FALSE(ask());
    for (const char* missing : {"choice", "display", "tool"}) {
        put("zenity", "/usr\n", missing == std::string("choice"));
        if (missing == std::string("display")) display.set({});
        if (missing == std::string("tool")) path.set(scratch.path("none").string());
        EXPECT_FALSE(ask()) << missing;
        testing::internal::CaptureStderr();
        host.MessageBoxA(u"text \u00E4", u"caption", kPlainMessage);
        EXPECT_EQ(testing::internal::GetCapturedStderr(), "caption: text \xC3\xA4\n") << missing;
        display.set(":0");
    }
    EXPECT_EQ(name, u"before");
}

}  // namespace
}  // namespace quorkit::test
#endif
