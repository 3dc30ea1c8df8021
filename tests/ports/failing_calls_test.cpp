// Every member that writes, with every call of every port failing in turn. Afterwards the state is
// the old one or the new one, and the caller is told what the member promises.
#include <gtest/gtest.h>
#include <quorkit/GQuorFile.h>
#include <quorkit/dictionary.h>
#include <quorkit/enumerations.h>
#include <quorkit/picture.h>
#include <quorkit/ports/faults.h>
#include <quorkit/utf8.h>

#include <algorithm>
#include <iterator>
#include <set>

#include "base/unicode.h"
#include "clipboard/samples.h"
#include "hosts/command.h"
#include "rpc/property_object.h"
#include "support/errors.h"
#include "support/late.h"

namespace quorkit::test {
namespace {

void addWindow(MemoryDesktop& desktop, WindowHandle handle) {
    auto& window = desktop.windows.emplace_back();
    window.info.handle = handle;
    window.info.visible = true;
    window.className = u"Class";
}

/// A system with a little of everything.
struct World : MemoryPorts {
    World() {
        files.put(u"C:\\s.ini", "[S]\na=1\nb=2\nm=$!MULTILINEFIELD@#\nm1=x\nm2=y\n[T]\nt=1\n");
        files.put(u"C:\\ReadOnly\\s.ini", "[S]\na=1\n[T]\n");  // must be written in place
        files.setReadOnly(u"C:\\ReadOnly");
        files.put(u"C:\\a.log", "first\r\nsecond\r\nthird\r\nfourth\r\n");
        files.put(u"C:\\u.log", std::string("\xFF\xFE"
                                            "a\0\r\0\n\0",
                                            8));
        files.put(u"C:\\f", "old");
        files.put(u"C:\\Desk\\old.lnk", "old");
        files.put(u"C:\\p.gif", samples()[3].file);
        files.put(u"C:\\i", "REGEDIT4\n[HKCU\\K]\n\"a\"=\"new\"\n\"b\"=-\n[HKCU\\N]\n[-HKCU\\L]\n");
        files.addFolder(u"C:\\Temp");
        const std::string values = "]\n\"a\"=\"old\"\n\"b\"=\"old\"\n";
        std::string keys = "REGEDIT4\n";
        for (const char* key : {"K", "K\\1\\2", "K\\3", "L"}) keys += "[HKCU\\" + (key + values);
        command(u"registry import -", keys, *this);
        system.specialFolders = {{CSIDL_DESKTOP, u"C:\\Desk"}, {CSIDL_APPDATA, u"C:\\Data"}};
        processes.programs = {{u"quick", {7, {}}}, {u"slow", {0, std::chrono::hours(1)}}};
        for (const WindowHandle handle : {1, 2}) addWindow(desktop, handle);
        clipboard.content = {ClipboardFormat::Bitmap, samples()[0].file};
        keyboard.states[20] = kKeyOn;
    }
};

/// The state: every object and every line as one text.
using Things = std::multiset<std::string>;

void addFolder(Things& things, Ports& world, const String& folder) {
    things.insert(toUtf8(folder));
    Array<String> names;
    if (GQuorFile(world).GetAllSubDirectories(folder, names) > 0)
        for (const String& name : names.elements()) addFolder(things, world, name);
}

Things thingsIn(World& world) {
    Things things;
    const auto add = [&](const String& what, auto... numbers) {
        std::string thing = toUtf8(what);
        ((thing += " " + std::to_string(static_cast<int>(numbers))), ...);
        things.insert(thing);
    };
    const auto addLines = [&](const String& name, const std::string& text) {
        std::istringstream lines(text);
        for (std::string line; std::getline(lines, line);)
            if (line != "\r") things.insert(toUtf8(name) + ": " + line);
    };
    addFolder(things, world, u"C:\\");
    Array<String> names;
    GQuorFile(world).GetFilesFromDirectory3(u"C:\\", u"*", true, true, names);
    for (const String& name : names.elements()) {
        add(name.ends_with(u".TMP") ? u"temporary" : name);
        addLines(name, world.files.content(name).value());
    }
    addLines(u"",
             base::toUtf8(base::fromUtf16(command(u"registry export HKCU", {}, world).output)));
    for (const auto& program : world.processes.started) {
        EXPECT_TRUE(program.closed);
        add(program.commandLine);
        if (program.terminated) add(u"terminated");
    }
    for (const String& target : world.processes.opened) add(target);
    for (const auto& window : world.desktop.windows) {
        add(u"window", window.info.handle, window.topmost);
        for (const WindowMessage message : window.posted) add(u"posted", message);
    }
    for (std::size_t key = 0; key < world.keyboard.states.size(); ++key)
        if (world.keyboard.states[key] != 0) add(u"key", key, world.keyboard.states[key]);
    if (world.clipboard.content) things.insert(world.clipboard.content->second);
    for (const auto& message : world.host.messages)
        if (message.style != kExclamationIcon) add(message.text);  // this one reports the failure
    if (world.host.waitText) add(*world.host.waitText);
    add(u"pointer", world.host.pointer);
    return things;
}

/// Whether `found` has everything that both states have, and nothing that neither has.
bool isBetween(const Things& found, const Things& one, const Things& other) {
    Things both;
    Things either;
    std::ranges::set_intersection(one, other, std::inserter(both, both.end()));
    std::ranges::set_union(one, other, std::inserter(either, either.end()));
    return std::ranges::includes(found, both) && std::ranges::includes(either, found);
}

enum Promise {
    Whole = 0,  ///< old state or new state
    Steps = 1,  ///< also a state between them
    Tells = 2,  ///< success means the new state, failure the old one (with Steps also one between)
};

struct Writer {
    int promise;
    std::vector<Variant> failures;  ///< results that mean failure
    const char16_t* className;      ///< null for the command line
    const char16_t* member;
    std::vector<Variant> arguments = {};
    std::vector<std::pair<const char16_t*, Variant>> properties = {};
};

constexpr Error kFileError{0};  ///< the number that fits the code
constexpr std::pair<ErrorCode, std::uint32_t> kCodes[] = {
    {kDiskFull, 61},   {kAccessDenied, 75}, {kSharingViolation, 70},
    {kFileExists, 57}, {kPathNotFound, 76}, {kFileReplaced, 57}};

Variant run(const Writer& writer, Ports& ports) {
    if (writer.className == nullptr) return Long{command(writer.member, {}, ports).status};
    Late object(writer.className, ports);
    for (const auto& [property, value] : writer.properties) object.let(property, value);
    Variant result;
    const Long error = errorOf([&] { result = object(writer.member, writer.arguments); });
    const String* text = result.getIf<String>();
    if (text != nullptr && text->ends_with(u".TMP")) return u"any";
    return error == 0 ? result : Error{static_cast<std::uint32_t>(error)};
}

void expectPromise(const Writer& writer) {
    World plain;
    const Things before = thingsIn(plain);
    FaultyPorts counting(plain);
    const Variant success = run(writer, counting);
    const std::size_t calls = counting.calls();
    const Things after = thingsIn(plain);
    run(writer, counting);
    const Things twice = thingsIn(plain);
    EXPECT_NE(before, after);
    for (std::size_t failing = 1; failing <= calls; ++failing)
        for (const auto& [code, number] : kCodes) {
            SCOPED_TRACE("call " + std::to_string(failing) + ", code " + std::to_string(code));
            World world;
            FaultyPorts faulty(world);
            faulty.answer(failing, code);
            const Variant result = run(writer, faulty);
            const Things found = thingsIn(world);
            const bool failed = !(result == success);
            std::vector<Variant> failures = writer.failures;
            std::ranges::replace(failures, Variant(kFileError), Variant(Error{number}));
            EXPECT_TRUE(!failed || std::ranges::count(failures, result) != 0)
                << testing::PrintToString(result);
            const bool told = (writer.promise & Tells) != 0;
            const bool steps = (writer.promise & Steps) != 0;
            const bool good = told && !(failed && steps) ? found == (failed ? before : after)
                              : steps                    ? isBetween(found, before, after)
                                                         : found == before || found == after;
            EXPECT_TRUE(good) << testing::PrintToString(result) << testing::PrintToString(found);
            run(writer, faulty);  // remains of the failure do not disturb it
            EXPECT_TRUE(isBetween(thingsIn(world), after, twice));
        }
}

TEST(FailingCalls, LeaveTheOldOrTheNew) {
    const auto log = [](const char16_t* file, bool append, bool automatic) {
        return std::vector<std::pair<const char16_t*, Variant>>{
            {u"LogFileName", file}, {u"Append", append}, {u"AutoOpenClose", automatic}};
    };
    const auto shortcut = [](bool install, CSIDLS folder, const char16_t* name) {
        return std::vector<Variant>{install, folder, u"", u"target", name, u"Tip"};
    };
    const std::vector<std::pair<const char16_t*, Variant>> ini = {{u"IniFileName", u"C:\\s.ini"}};
    const decltype(ini) inPlace = {{u"IniFileName", u"C:\\ReadOnly\\s.ini"}};
    const std::vector<Variant> entry = {u"entry", eLogEntryType_Error};
    const Variant bytes = Array<Byte>({1, 2, 3});
    const Variant picture = std::make_shared<Picture>(samples()[3].file);
    const Variant keys = Array<String>(std::vector<String>{u"a", u"b"});
    Array<String> table({0, 2}, {0, 2});
    table.elements() = {u"a", u"3", u"c", u"4\r\n5"};
    const auto values = Dictionary::make();
    for (const char16_t* name : {u"a", u"c"}) values->set(name, u"new");
    const ObjectRef form =
        std::make_shared<rpc::PropertyObject>(std::vector<rpc::PropertyObject::Property>{
            {u"Name", u"F"}, {u"Left", 1.0}, {u"Top", 2.0}, {u"Width", 3.0}, {u"Height", 4.0}});
    constexpr auto no = Long{0};
    constexpr auto gone = Long{-1};
    const Writer writers[] = {
        {Tells, {no}, u"QuorInifile", u"WriteKeyValue", {u"S", u"a", u"2"}, ini},
        {Tells, {no}, u"QuorInifile", u"WriteKeyValue", {u"New", u"a", u"2"}, ini},
        {Tells, {no}, u"QuorInifile", u"WriteKeyValue", {u"S", u"a", u"longer"}, inPlace},
        {Tells, {no}, u"QuorInifile", u"DeleteSection", {u"S"}, ini},
        {Tells, {no}, u"QuorInifile", u"DeleteSection", {u"S"}, inPlace},
        {Tells, {no}, u"QuorInifile", u"DeleteKey", {u"S", u"b"}, ini},
        {Tells, {no}, u"QuorInifile", u"AddSection", {u"S"}, ini},
        {Tells, {gone}, u"QuorInifile", u"DeleteKeys", {u"S", keys}, ini},
        {Tells, {gone}, u"QuorInifile", u"DeleteMultiLineKeys", {u"S", keys}, ini},
        {Tells, {gone}, u"QuorInifile", u"DeleteMultiLineKey", {u"S", u"m"}, ini},
        {Whole, {gone, no}, u"QuorInifile", u"WriteSectionContent", {u"S", table}, ini},
        {Whole, {no}, u"QuorInifile", u"WriteMultiLineSection", {u"S", table}, ini},
        {Whole, {no}, u"QuorInifile", u"WriteMultiLineValue", {u"S", u"m", u"1\r\n2\r\n3"}, ini},

        {Tells, {false}, u"QuorLogFile", u"limitFileSize", {u"C:\\a.log", Long{20}}},
        {Tells, {false}, u"QuorLogFile", u"OpenLogfile", {}, log(u"C:\\a.log", false, false)},
        {Steps | Tells, {false}, u"QuorLogFile", u"OpenLogfile", {}, log(u"C:\\x\\a", true, true)},
        {Whole, {}, u"QuorLogFile", u"writeLogfileEntry", entry, log(u"C:\\a.log", true, true)},
        {Whole, {}, u"QuorLogFile", u"writeLogfileEntry", entry, log(u"C:\\u.log", true, true)},
        {Steps, {}, u"QuorLogFile", u"writeLogfileEntry", entry, log(u"C:\\a.log", false, true)},
        {Steps, {}, u"QuorLogFile", u"writeLogfileEntry", entry, log(u"C:\\x\\a", true, true)},

        {Tells, {false}, u"GQuorRegistry", u"Reg_WriteStringValue", {u"HKCU\\K", u"a", u"new"}},
        {Steps | Tells, {false}, u"GQuorRegistry", u"Reg_WriteStringValue", {u"HKCU\\N", u"", u""}},
        {Tells, {false}, u"GQuorRegistry", u"Reg_WriteDWordValue", {u"HKCU\\K", u"a", u"1"}},
        {Tells, {false}, u"GQuorRegistry", u"Reg_WriteBoolValue", {u"HKCU\\K", u"a", true}},
        {Whole, {}, u"GQuorRegistry", u"Reg_WriteKeyValuesEx", {u"HKCU\\K", values}},
        {Whole, {}, u"GQuorRegistry", u"Reg_DeleteKey", {u"HKCU\\K", u"a"}},
        {Steps, {}, u"GQuorRegistry", u"Reg_DeletePath", {u"HKCU\\K"}},
        {Steps, {}, u"GQuorWindows", u"SaveVBAUserFormPosition", {u"HKCU", form, false}},
        {Steps | Tells, {Long{1}}, nullptr, u"registry import C:\\i"},
        {Tells, {Long{1}}, nullptr, u"registry export HKCU\\L C:\\f"},

        {Tells, {kFileError}, u"GQuorFile", u"SaveByteArrayToFile", {bytes, u"C:\\f"}},
        {Tells, {kFileError}, u"GQuorFile", u"SaveByteArrayToFile", {bytes, u"C:\\new"}},
        {Tells, {u""}, u"GQuorFile", u"CreateTempFileName", {u"x"}},
        {Steps | Tells, {false}, u"GQuorFile", u"mkDirEx", {u"C:\\x\\y\\z"}},
        {Tells, {u""}, u"GQuorFile", u"GetSpecialFolder", {CSIDL_APPDATA, true}},
        {Whole, {false}, u"GQuorFile", u"MakeShortCut", shortcut(true, CSIDL_DESKTOP, u"old")},
        {Steps, {false}, u"GQuorFile", u"MakeShortCut", shortcut(true, CSIDL_APPDATA, u"new")},
        {Tells, {false}, u"GQuorFile", u"MakeShortCut", shortcut(false, CSIDL_DESKTOP, u"old")},

        {Tells, {no}, u"GQuorWindows", u"SetTopMostWindow", {Long{2}, true}},
        {Steps, {gone, no}, u"GQuorWindows", u"WinTerminateProgram", {u"Class"}},
        {Steps, {}, u"GQuorWindows", u"WinShowWaitForm", {true}},
        {Whole, {}, u"GQuorWindows", u"ShowAboutDialog"},
        {Whole, {}, u"GQuorTools", u"DisplayError", {u"Module"}},
        {Whole, {}, u"GQuorProgram", u"ExecuteAndWait", {u"quick"}},
        {Steps | Tells, {gone}, u"GQuorProgram", u"ExecuteAndWaitEx", {u"quick"}},
        {Steps, {gone}, u"GQuorProgram", u"ExecuteAndWaitEx", {u"slow", u"", true, Long{1}}},
        {Whole, {}, u"GQuorProgram", u"OpenURL", {u"www.x.ch"}},
        {Tells, {false}, u"GQuorProgram", u"OpenMail", {u"a@b.c"}},
        {Steps, {}, u"GQuorClipboard", u"SetTextToClipboard", {u"new"}},
        {Steps, {}, u"GQuorClipboard", u"SetRTFTextToClipboard", {u"new"}},
        {Steps, {}, u"GQuorClipboard", u"SetPictureToClipboard", {picture}},
        {Steps, {}, u"GQuorClipboard", u"LoadPictureToClipboard", {u"C:\\p.gif"}},
        {Whole, {}, u"GQuorClipboard", u"SavePictureFromClipboard", {u"C:\\f"}},
        // Not yet GQuorKeyboard.SetKeyState: its port cannot report that reading the table failed.
    };
    for (const Writer& writer : writers) {
        SCOPED_TRACE(toUtf8(writer.member) + testing::PrintToString(writer.arguments));
        expectPromise(writer);
    }
}

}  // namespace
}  // namespace quorkit::test
