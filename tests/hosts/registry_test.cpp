#include <gtest/gtest.h>

#include "base/unicode.h"
#include "hosts/command.h"
#include "memory/memory_hive.h"

namespace quorkit::test {
namespace {

const std::string kFile = "REGEDIT4\n[HKCU\\Software\\X]\n\"a\"=\"b\"\n";

TEST(RegistryCommand, CarriesKeysThroughFilesAndStreams) {
    MemoryPorts ports;
    ports.files.put(u"in.reg", kFile);
    EXPECT_EQ(command(u"registry import in.reg", {}, ports).errors, "");
    const std::string bytes = command(u"registry export HKCU\\Software\\X\\", {}, ports).output;
    EXPECT_EQ(base::fromUtf16(bytes),
              u"\xFEFFWindows Registry Editor Version 5.00\r\n\r\n"
              u"[HKEY_CURRENT_USER\\Software\\X]\r\n\"a\"=\"b\"\r\n\r\n");
    EXPECT_EQ(command(u"registry export hkcu\\Software\\X out.reg", {}, ports).errors, "");
    EXPECT_EQ(ports.files.content(u"out.reg"), bytes);
    MemoryPorts other;
    EXPECT_EQ(command(u"registry import -", bytes, other).errors, "");
    EXPECT_EQ(command(u"registry export HKCU\\Software\\X -", {}, other).output, bytes);
}

TEST(RegistryCommand, TellsWhereAndWhat) {
    MemoryPorts ports;
    ports.registry.setMachineReadOnly();
    ports.files.put(u"bad.reg", kFile + "x\n");
    ports.files.put(u"denied.reg", kFile + "[HKLM\\a]\n");
    ports.files.put(u"C:\\full\\out.reg", "old");
    ports.files.setFreeSpace(10);
    const std::pair<String, std::string> rows[] = {
        {u"import bad.reg", "bad.reg: line 4: neither a key nor a value; nothing is imported"},
        {u"export HKCU\\Software\\X", "HKEY_CURRENT_USER\\Software\\X: no such key"},
        {u"import denied.reg",
         "HKEY_LOCAL_MACHINE\\a: access denied; what stands before it in the file is imported"},
        {u"export HKCU\\Software\\X C:\\full\\out.reg", "C:\\full\\out.reg: the disk is full"},
        {u"import none.reg", "none.reg: not found"},
        {u"export HKCUX", "HKCUX: not the name of a key"},
    };
    for (const auto& [line, errors] : rows) {
        const CommandOutcome outcome = command(u"registry " + line, {}, ports);
        EXPECT_EQ(outcome.errors, "quorkit: " + errors + '\n');
        EXPECT_EQ(outcome.status, 1);
    }
    EXPECT_EQ(ports.files.content(u"C:\\full\\out.reg"), "old");
}

TEST(RegistryCommand, ChecksTheStore) {
    struct Damaged : HiveRegistry {
        using HiveRegistry::HiveRegistry;
        std::vector<RegistryDamage> FindDamage() override {
            return {{u"\u00C4:3", u"not a value"}, {u"b", u"not a key"}};
        }
    };
    memory::MemoryHive hive;
    Damaged registry(hive, hive);
    MemoryPorts memory;
    Ports ports = memory.ports.with(registry);
    const CommandOutcome outcome = command(u"registry check", {}, ports);
    EXPECT_EQ(outcome.output, "\u00C4:3: not a value\nb: not a key\n");
    EXPECT_EQ(outcome.errors, "quorkit: the registry is damaged\n");
    EXPECT_EQ(outcome.status, 1);
    EXPECT_EQ(command(u"registry check").output, "no damage found\n");
}

}  // namespace
}  // namespace quorkit::test
